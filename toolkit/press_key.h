#pragma once

#include <QKeyEvent>

namespace rostermill {

/// Space and Enter, the keys that press what has the focus.
inline bool IsPressKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return ||
         event.key() == Qt::Key_Enter;
}

}  // namespace rostermill
