#include "toolkit/elided_label.h"

#include <QPainter>
#include <QStyle>

#include "toolkit/form_parts.h"

namespace rostermill {

ElidedLabel::ElidedLabel(const QString& name) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ElidedLabel::SetText(const QString& text) {
  setText(text);
  setToolTip(PlainToolTip(text));
}

QSize ElidedLabel::minimumSizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  const int around = 2 * (margin() + frameWidth());
  return {metrics.averageCharWidth() * 20 + around, metrics.height() + around};
}

void ElidedLabel::AskForRoom(int characters) {
  characters_ = characters;
  updateGeometry();
}

QSize ElidedLabel::sizeHint() const {
  const int room = RoomFor(fontMetrics(), characters_) + 2 * (margin() + frameWidth());
  return minimumSizeHint().expandedTo({room, 0});
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect inside = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, inside.width());
  style()->drawItemText(&painter, inside,
                        static_cast<int>(alignment() | Qt::AlignVCenter) | Qt::TextSingleLine,
                        palette(), isEnabled(), shown, foregroundRole());
}

}  // namespace rostermill
