#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QAbstractButton;
class QWidget;

namespace rostermill {

/// Makes a grid of controls one stop of the Tab key, at the cell that had the focus last. From
/// there the arrow keys walk the grid, and Home and End go to the ends of the row.
/// A cell that comes to the focus so shows its tool tip.
class GridWalk : public QObject {
  Q_OBJECT

 public:
  /// `cells` row by row; they take the focus already and outlive this object.
  GridWalk(std::vector<QWidget*> cells, int columns, QObject* parent);

  /// Makes this cell, counted from 0, the one that Tab comes to.
  void SetCurrent(int cell);

  /// Has Enter on the cell that is picked already press the button, and a double click as well,
  /// whose first click picks the cell.
  void TakeBy(QAbstractButton* button, std::function<bool(int cell)> is_picked);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The cell that the key leads to; -1 when it doesn't walk.
  int Target(int key) const;
  /// Walks to where the key leads; false when it doesn't walk.
  bool Walk(int key);
  /// Presses the button if the cell is the one that is picked.
  bool Take();

  std::vector<QWidget*> cells_;
  int columns_;
  int current_ = 0;
  QAbstractButton* button_ = nullptr;
  std::function<bool(int cell)> is_picked_;
};

}  // namespace rostermill
