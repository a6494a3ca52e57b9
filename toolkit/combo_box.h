#pragma once

#include "toolkit/drop_down_list.h"

namespace rostermill {

/// A drop-down list whose text can be typed as well. An entry is selected only while the box shows
/// that entry's text: typing another text leaves none selected. Nothing typed enters the list, and
/// nothing is completed while it is typed.
class ComboBox : public DropDownList {
  Q_OBJECT

 public:
  explicit ComboBox(const QString& name, ListOrder order = ListOrder::AsAdded);

  /// Shows a text without selecting an entry.
  void SetText(const QString& text);

 signals:
  /// The focus went to another control. Its own list, a menu and another program don't count.
  void LostFocus();

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FollowText(const QString& text);
};

}  // namespace rostermill
