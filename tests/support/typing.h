#pragma once

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

namespace rostermill::test {

// What a user does in a text box.
inline void Undo(QLineEdit& box) {
  QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
}
inline void Redo(QLineEdit& box) {
  QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
}
inline void Paste(QLineEdit& box, const QString& text) {
  QApplication::clipboard()->setText(text);
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
}

/// Sends the events of a key that is held down: a repeated press, and a press that only its time,
/// that of the release before it, marks as a repetition.
inline void Hold(QWidget& widget, Qt::Key key) {
  QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&widget, &repeated);
  for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    event.setTimestamp(77);
    QApplication::sendEvent(&widget, &event);
  }
}

}  // namespace rostermill::test
