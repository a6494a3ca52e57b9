#include "toolkit/up_down.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace rostermill {

namespace {

constexpr int focus_frame = 2;

}  // namespace

UpDown::UpDown(const QString& name) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  QToolButton* up = NewArrow("Up", Qt::UpArrow);
  QToolButton* down = NewArrow("Down", Qt::DownArrow);
  connect(up, &QToolButton::clicked, this, &UpDown::UpClick);
  connect(down, &QToolButton::clicked, this, &UpDown::DownClick);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(focus_frame, focus_frame, focus_frame, focus_frame);
  column->setSpacing(0);
  column->addWidget(up);
  column->addWidget(down);
}

QToolButton* UpDown::NewArrow(const QString& name, Qt::ArrowType arrow) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setAccessibleName(name);
  button->setArrowType(arrow);
  button->setAutoRepeat(true);
  const int height = fontMetrics().height();
  button->setFixedSize(height * 3 / 2, height);
  button->setFocusProxy(this);
  return button;
}

void UpDown::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up) {
    emit UpClick();
  } else if (event->key() == Qt::Key_Down) {
    emit DownClick();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void UpDown::paintEvent(QPaintEvent*) {
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(QPen(palette().highlight(), focus_frame));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

}  // namespace rostermill
