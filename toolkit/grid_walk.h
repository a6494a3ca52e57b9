#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QAbstractButton;
class QWidget;

namespace rostermill {

/// Makes a grid of controls one stop of the Tab key, at the cell that had the focus last. From
/// there the arrow keys move through the grid, and Home and End go to the ends of the row. A cell
/// that gets the focus this way shows its tool tip.
class GridWalk : public QObject {
  Q_OBJECT

 public:
  /// `cells` row by row; they must accept the focus and outlive this object.
  GridWalk(std::vector<QWidget*> cells, int columns, QObject* parent);

  /// Lets Enter on the cell that is already picked press the button, and a double click as well,
  /// whose first click picks the cell.
  void TakeBy(QAbstractButton* button, std::function<bool(int cell)> is_picked);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Makes this cell, counted from 0, the one that Tab stops at.
  void SetCurrent(int cell);
  /// The cell that the key leads to; -1 for a key that does not move.
  int Target(int key) const;
  /// Moves where the key leads; false for a key that does not move.
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
