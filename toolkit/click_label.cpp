#include "toolkit/click_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "toolkit/press_key.h"

namespace rostermill {

ClickLabel::ClickLabel(const QString& text) : QLabel(text) {
  setTextFormat(Qt::PlainText);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(QPen(palette().color(foregroundRole()), 2));
  painter.drawRect(rect().adjusted(3, 3, -3, -3));
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
  if (event->isAccepted()) emit DblClick();
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    emit Click();
  }
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  if (!IsPressKey(*event)) return QLabel::keyPressEvent(event);
  if (!event->isAutoRepeat()) emit Click();
}

}  // namespace rostermill
