#include "toolkit/drop_down_list.h"

#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>

#include "toolkit/form_parts.h"

namespace rostermill {

namespace {

constexpr int visible_entries = 15;
constexpr int text_margin = 1;  // of the text in its field, which Qt leaves

ushort FoldAscii(QChar c) {
  const ushort code = c.unicode();
  return code >= 'A' && code <= 'Z' ? static_cast<ushort>(code - 'A' + 'a') : code;
}

bool SortsBefore(const QString& a, const QString& b) {
  return std::lexicographical_compare(
      a.begin(), a.end(), b.begin(), b.end(),
      [](QChar left, QChar right) { return FoldAscii(left) < FoldAscii(right); });
}

}  // namespace

DropDownList::DropDownList(const QString& name, ListOrder order) : order_(order) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setMaxVisibleItems(visible_entries);
  // A damaged image can contain texts of any length; the list keeps its width.
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (index >= 0) emit Click();
  });
}

void DropDownList::AskForRoom(int characters) {
  // Qt counts in widths of this letter.
  const int letter = fontMetrics().horizontalAdvance('X');
  setMinimumContentsLength(RoomFor(fontMetrics(), characters) / letter + 1);
}

void DropDownList::Clear() {
  const QSignalBlocker silent(this);
  clear();
}

int DropDownList::PlaceFor(const QString& text) const {
  if (order_ == ListOrder::AsAdded) return count();
  int low = 0;
  int high = count();
  while (low < high) {
    const int middle = (low + high) / 2;
    if (SortsBefore(text, itemText(middle))) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return low;
}

void DropDownList::AddItem(const QString& text) {
  const QSignalBlocker silent(this);
  const bool none_selected = currentIndex() < 0;
  insertItem(PlaceFor(text), text);
  // Qt selects the first entry by itself.
  if (none_selected) setCurrentIndex(-1);
}

void DropDownList::SetList(int index, const QString& text) {
  setItemText(index, text);
}

void DropDownList::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.setPen(palette().color(QPalette::Text));
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  const QRect field =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  const int room = field.width() - 2 * text_margin;
  option.currentText = fontMetrics().elidedText(option.currentText, Qt::ElideMiddle, room);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void DropDownList::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace rostermill
