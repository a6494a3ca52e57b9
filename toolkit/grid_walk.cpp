#include "toolkit/grid_walk.h"

#include <QKeyEvent>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

namespace rostermill {

GridWalk::GridWalk(QObject* parent, std::vector<QWidget*> cells, int columns)
    : QObject(parent), cells_(std::move(cells)), columns_(columns) {
  for (QWidget* cell : cells_) cell->installEventFilter(this);
  SetTabStop(0);
}

void GridWalk::SetTabStop(int index) {
  for (int i = 0; i < static_cast<int>(cells_.size()); ++i) {
    cells_[static_cast<std::size_t>(i)]->setFocusPolicy(i == index ? Qt::StrongFocus
                                                                   : Qt::ClickFocus);
  }
}

bool GridWalk::eventFilter(QObject* watched, QEvent* event) {
  const int index = IndexOf(watched);
  if (event->type() == QEvent::FocusIn) {
    SetTabStop(index);
  } else if (event->type() == QEvent::KeyPress) {
    const int next = Neighbour(index, static_cast<QKeyEvent*>(event)->key());
    if (next >= 0) {
      FocusCell(next);
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

int GridWalk::IndexOf(const QObject* cell) const {
  return static_cast<int>(std::find(cells_.begin(), cells_.end(), cell) - cells_.begin());
}

/// The cell that a key leads to, the same one at the edge; -1 for a key that leads nowhere.
int GridWalk::Neighbour(int index, int key) const {
  const int last = static_cast<int>(cells_.size()) - 1;
  const auto step = [&](int by) {
    return index + by < 0 || index + by > last ? index : index + by;
  };
  switch (key) {
    case Qt::Key_Left:
      return step(-1);
    case Qt::Key_Right:
      return step(+1);
    case Qt::Key_Up:
      return step(-columns_);
    case Qt::Key_Down:
      return step(+columns_);
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return last;
    default:
      return -1;
  }
}

void GridWalk::FocusCell(int index) {
  QWidget* cell = cells_[static_cast<std::size_t>(index)];
  SetTabStop(index);
  cell->setFocus(Qt::OtherFocusReason);
  QToolTip::showText(cell->mapToGlobal(QPoint(0, cell->height())), cell->toolTip(), cell);
}

}  // namespace rostermill
