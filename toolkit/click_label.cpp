#include "toolkit/click_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace rostermill {

ClickLabel::ClickLabel() {
  setTextFormat(Qt::PlainText);
  setCursor(Qt::PointingHandCursor);
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(QPen(palette().highlight(), 2));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit Click();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
    emit Click();
  } else {
    QLabel::keyPressEvent(event);
  }
}

void ClickLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
}

void ClickLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

}  // namespace rostermill
