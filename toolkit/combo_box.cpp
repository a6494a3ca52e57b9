#include "toolkit/combo_box.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace rostermill {

ComboBox::ComboBox(const QString& name, ListOrder order) : DropDownList(name, order) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  connect(lineEdit(), &QLineEdit::textChanged, this, &ComboBox::FollowText);
}

void ComboBox::SetText(const QString& text) {
  setCurrentIndex(-1);
  setEditText(text);
}

void ComboBox::FollowText(const QString& text) {
  if (currentIndex() < 0 || text == itemText(currentIndex())) return;
  const int cursor = lineEdit()->cursorPosition();
  SetText(text);
  lineEdit()->setCursorPosition(cursor);
}

void ComboBox::focusOutEvent(QFocusEvent* event) {
  DropDownList::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  const bool comes_back = reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
                          reason == Qt::ActiveWindowFocusReason ||
                          QApplication::activePopupWidget() != nullptr;
  if (!comes_back) emit LostFocus();
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
  DropDownList::keyPressEvent(event);
  // The form's buttons answer these two keys.
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) event->ignore();
}

}  // namespace rostermill
