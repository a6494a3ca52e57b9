#pragma once

#include "toolkit/drop_down_list.h"

namespace rostermill {

/// A drop-down list whose text can be typed as well. An entry is selected only while the box shows
/// that entry's text: typing another text leaves none selected. Nothing typed enters the list, and
/// nothing is completed while it is typed. From a typed text the arrow keys, the wheel and the list
/// when it opens go to the entry that the text begins.
class ComboBox : public DropDownList {
  Q_OBJECT

 public:
  explicit ComboBox(const QString& name, ListOrder order = ListOrder::AsAdded);

  /// Shows a text without selecting an entry.
  void SetText(const QString& text);
  /// The first entry that begins with the box's text, ignoring case; -1 if there is none or the box
  /// is empty.
  int MatchingIndex() const;

  void showPopup() override;

 signals:
  /// The focus went to another control; the box's own list, a menu or another program do not count.
  void LostFocus();

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  /// Selects the entry that a typed text begins; false when there is none.
  bool StepFromText();
  void KeepTypedText(const QString& text);
};

}  // namespace rostermill
