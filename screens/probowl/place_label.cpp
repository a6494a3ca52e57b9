#include "screens/probowl/place_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "rules/display_text.h"
#include "toolkit/press_key.h"

namespace rostermill {

namespace {

constexpr int text_margin = 3;

}  // namespace

PlaceLabel::PlaceLabel(const QString& place_name) : ElidedLabel({}), place_name_(place_name) {
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  setMargin(text_margin);
  setBackgroundRole(QPalette::Base);
  setForegroundRole(QPalette::Text);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setAccessibleDescription("Choose Player");
  AskForRoom(LongestPlayerText);
}

void PlaceLabel::ShowPlayer(const QString& player) {
  SetText(player);
  setAccessibleName(place_name_ + ": " + player);
}

QSize PlaceLabel::minimumSizeHint() const {
  const int around = 2 * (frameWidth() + text_margin);
  return ElidedLabel::minimumSizeHint() + QSize(around, around);
}

void PlaceLabel::paintEvent(QPaintEvent* event) {
  ElidedLabel::paintEvent(event);
  QPainter painter(this);
  drawFrame(&painter);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().highlight(), 2));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void PlaceLabel::mousePressEvent(QMouseEvent* event) {
  emit MouseDown(event->buttons());
}

void PlaceLabel::keyPressEvent(QKeyEvent* event) {
  if (!IsPressKey(*event)) return ElidedLabel::keyPressEvent(event);
  // A key held down on the chooser's OK must not open it again.
  if (event->isAutoRepeat()) return;
  emit MouseDown(Qt::LeftButton);
}

}  // namespace rostermill
