#include "toolkit/grid_walk.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

namespace rostermill {

GridWalk::GridWalk(std::vector<QWidget*> cells, int columns, QObject* parent)
    : QObject(parent), cells_(std::move(cells)), columns_(columns) {
  for (QWidget* cell : cells_) {
    cell->installEventFilter(this);
    cell->setFocusPolicy(Qt::ClickFocus);
  }
  SetCurrent(0);
}

void GridWalk::SetCurrent(int cell) {
  const auto at = [this](int index) { return cells_.at(static_cast<std::size_t>(index)); };
  at(current_)->setFocusPolicy(Qt::ClickFocus);
  at(cell)->setFocusPolicy(Qt::StrongFocus);
  current_ = cell;
}

bool GridWalk::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool double_click = type == QEvent::MouseButtonDblClick;
  if (type != QEvent::KeyPress && type != QEvent::FocusIn && !double_click) return false;
  const auto cell = std::find(cells_.begin(), cells_.end(), watched);
  if (cell == cells_.end()) return false;
  SetCurrent(static_cast<int>(cell - cells_.begin()));
  if (double_click) {
    return static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && Take();
  }
  if (type == QEvent::FocusIn) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) return Take();
  return Walk(key);
}

void GridWalk::TakeBy(QAbstractButton* button, std::function<bool(int cell)> is_picked) {
  button_ = button;
  is_picked_ = std::move(is_picked);
}

bool GridWalk::Take() {
  if (button_ == nullptr || !is_picked_(current_)) return false;
  button_->click();
  return true;
}

bool GridWalk::Walk(int key) {
  const int target = Target(key);
  if (target < 0) return false;
  QWidget* next = cells_[static_cast<std::size_t>(target)];
  next->setFocus(Qt::OtherFocusReason);
  QToolTip::showText(next->mapToGlobal(QPoint(0, next->height())), next->toolTip(), next);
  return true;
}

int GridWalk::Target(int key) const {
  const int count = static_cast<int>(cells_.size());
  const int column = current_ % columns_;
  const int row_end = std::min(current_ - column + columns_, count) - 1;
  switch (key) {
    case Qt::Key_Left:
      return column > 0 ? current_ - 1 : current_;
    case Qt::Key_Right:
      return std::min(current_ + 1, row_end);
    case Qt::Key_Up:
      return current_ >= columns_ ? current_ - columns_ : current_;
    case Qt::Key_Down:
      return current_ + columns_ < count ? current_ + columns_ : current_;
    case Qt::Key_Home:
      return current_ - column;
    case Qt::Key_End:
      return row_end;
    default:
      return -1;
  }
}

}  // namespace rostermill
