#include "toolkit/picture_box.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include "toolkit/picture_cache.h"
#include "toolkit/press_key.h"

namespace rostermill {

namespace {

void DrawRing(QPainter& painter, const QRect& outside, int width, const QBrush& brush) {
  const QRegion ring = QRegion(outside) - outside.adjusted(width, width, -width, -width);
  for (const QRect& side : ring) painter.fillRect(side, brush);
}

}  // namespace

PictureBox::PictureBox(const QString& name, QSize picture_size, int magnification)
    : picture_size_(picture_size),
      least_magnification_(magnification),
      magnification_(magnification) {
  setObjectName(name);
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
}

bool PictureBox::Load(const QString& path) {
  const QImage picture = LoadPicture(path);
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

void PictureBox::SetMagnification(int magnification) {
  if (magnification == magnification_) return;
  magnification_ = magnification;
  updateGeometry();
  update();
}

QSize PictureBox::SizeAt(int magnification) const {
  const int frame = 2 * frameWidth();
  return picture_size_ * magnification + QSize(frame, frame);
}

QSize PictureBox::sizeHint() const {
  return SizeAt(magnification_);
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
    // The inner line keeps the mark apart from a picture of the same color.
    DrawRing(painter, inside, 3, palette().highlight());
    DrawRing(painter, inside.adjusted(3, 3, -3, -3), 1, palette().base());
  }
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
  if (!clickable_) return QFrame::mousePressEvent(event);
  emit MouseDown(event->buttons());
  if (event->button() == Qt::LeftButton) emit Click();
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
  if (!clickable_ || !IsPressKey(*event)) return QFrame::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  emit MouseDown(Qt::LeftButton);
  emit Click();
}

}  // namespace rostermill
