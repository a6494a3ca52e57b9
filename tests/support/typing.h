#pragma once

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

namespace rostermill::test {

/// What a user does in a text box.
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

}  // namespace rostermill::test
