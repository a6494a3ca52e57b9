#include "toolkit/picture_box.h"

#include <QFileInfo>
#include <QImageReader>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include "toolkit/press_key.h"

namespace rostermill {

PictureBox::PictureBox(const QString& name, QSize picture_size, int magnification)
    : picture_size_(picture_size), magnification_(magnification) {
  setObjectName(name);
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

bool PictureBox::Load(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  const QImage picture = QImageReader(path).read();
  if (picture.isNull()) return false;
  SetPicture(picture);
  return true;
}

void PictureBox::SetPicture(const QImage& picture) {
  picture_ = picture;
  update();
}

void PictureBox::SetClickable(const QString& accessible_name) {
  clickable_ = true;
  setAccessibleName(accessible_name);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

QSize PictureBox::sizeHint() const {
  const int frame = 2 * frameWidth();
  return picture_size_ * magnification_ + QSize(frame, frame);
}

void PictureBox::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  const QRect inside = contentsRect();
  if (!picture_.isNull()) {
    // A picture of another size than the one expected is shrunk into its place.
    const QSize size = (picture_.size() * magnification_).boundedTo(picture_size_ * magnification_);
    QRect place(QPoint(), size);
    place.moveCenter(inside.center());
    painter.drawImage(place, picture_);
  }
  if (hasFocus()) {
    painter.setPen(QPen(palette().highlight(), 2));
    painter.drawRect(inside.adjusted(1, 1, -1, -1));
  }
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
  if (!clickable_) return QFrame::mousePressEvent(event);
  emit MouseDown(event->buttons());
  if (event->button() == Qt::LeftButton) emit Click();
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
  if (!clickable_ || !IsPressKey(*event)) return QFrame::keyPressEvent(event);
  emit MouseDown(Qt::LeftButton);
  emit Click();
}

}  // namespace rostermill
