#include "toolkit/grid_walk.h"

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
  if (event->type() == QEvent::FocusIn) {
    const auto cell = std::find(cells_.begin(), cells_.end(), watched);
    if (cell != cells_.end()) SetCurrent(static_cast<int>(cell - cells_.begin()));
  } else if (event->type() == QEvent::KeyPress) {
    const int target = Target(static_cast<QKeyEvent*>(event)->key());
    if (target >= 0) {
      QWidget* cell = cells_[static_cast<std::size_t>(target)];
      cell->setFocus(Qt::OtherFocusReason);
      QToolTip::showText(cell->mapToGlobal(QPoint(0, cell->height())), cell->toolTip(), cell);
      return true;
    }
  }
  return false;
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
