#pragma once

#include <QObject>

#include <vector>

namespace rostermill {

/// Lets the arrow keys, Home and End move the focus among widgets that stand in rows; Tab passes
/// the whole grid as one stop, the widget that had the focus last. A widget that comes to the
/// focus by a key shows its tool tip.
class GridWalk : public QObject {
  Q_OBJECT

 public:
  /// The cells row by row, `columns` to a row.
  GridWalk(QObject* parent, std::vector<QWidget*> cells, int columns);

  /// The cell that Tab comes to, counted from 0.
  void SetTabStop(int index);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int IndexOf(const QObject* cell) const;
  int Neighbour(int index, int key) const;
  void FocusCell(int index);

  std::vector<QWidget*> cells_;
  int columns_;
};

}  // namespace rostermill
