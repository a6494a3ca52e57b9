#include "toolkit/combo_box.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "toolkit/text_box.h"

namespace rostermill {

namespace {

constexpr int longest_text = 32767;  // Qt's own limit

}  // namespace

ComboBox::ComboBox(const QString& name, ListOrder order) : DropDownList(name, order) {
  setLineEdit(new TextBox({}, longest_text));  // which makes it editable
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  connect(lineEdit(), &QLineEdit::textChanged, this, &ComboBox::KeepTypedText);
}

void ComboBox::SetText(const QString& text) {
  setCurrentIndex(-1);
  setEditText(text);
}

void ComboBox::KeepTypedText(const QString& text) {
  if (currentIndex() < 0 || text == itemText(currentIndex())) return;
  const int cursor = lineEdit()->cursorPosition();
  // Qt clears the text with the selection. Entered over the entry's text, it can be undone.
  SetText(itemText(currentIndex()));
  lineEdit()->selectAll();
  lineEdit()->insert(text);
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

int ComboBox::MatchingIndex() const {
  return currentText().isEmpty() ? -1 : findText(currentText(), Qt::MatchStartsWith);
}

bool ComboBox::StepFromText() {
  const int match = currentIndex() < 0 ? MatchingIndex() : -1;
  if (match >= 0) setCurrentIndex(match);
  return match >= 0;
}

void ComboBox::showPopup() {
  DropDownList::showPopup();
  if (currentIndex() < 0) view()->setCurrentIndex(model()->index(MatchingIndex(), modelColumn()));
}

void ComboBox::wheelEvent(QWheelEvent* event) {
  if (!hasFocus() || !StepFromText()) DropDownList::wheelEvent(event);
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool step =
      key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown || key == Qt::Key_PageUp;
  const bool other_meaning = event->modifiers().testAnyFlags(Qt::AltModifier | Qt::ControlModifier);
  if (step && !other_meaning && StepFromText()) return;
  DropDownList::keyPressEvent(event);
}

}  // namespace rostermill
