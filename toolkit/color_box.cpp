#include "toolkit/color_box.h"

#include <QIcon>
#include <QPainter>

namespace rostermill {

namespace {

constexpr int caption_gap = 4;

/// Diagonal lines whose period fits small blocks as well as large fields.
QImage HatchTile() {
  constexpr int period = 4;
  QImage tile(period, period, QImage::Format_RGB32);
  tile.fill(QColor(0xB0, 0xB0, 0xB0));
  for (int x = 0; x < period; ++x) tile.setPixelColor(x, period - 1 - x, QColor(0x60, 0x60, 0x60));
  return tile;
}

}  // namespace

QBrush ColorBrush(const std::optional<QColor>& color) {
  return color ? QBrush(*color) : QBrush(HatchTile());
}

QSize ColorIconSize(int side) {
  return {side + caption_gap, side};
}

QIcon ColorIcon(const std::optional<QColor>& color, int side, qreal pixel_ratio) {
  QPixmap swatch(ColorIconSize(side) * pixel_ratio);
  swatch.setDevicePixelRatio(pixel_ratio);
  swatch.fill(Qt::transparent);
  QPainter painter(&swatch);
  painter.fillRect(QRect(0, 0, side, side), ColorBrush(color));
  // A rim that is visible in either scheme, even with black on black or white on white.
  painter.setPen(QColor(0x80, 0x80, 0x80));
  painter.drawRect(0, 0, side - 1, side - 1);
  return swatch;
}

ColorBox::ColorBox(const QString& name, QSize size) : PictureBox(name, size) {}

void ColorBox::SetBackColor(const std::optional<QColor>& color) {
  color_ = color;
  update();
}

void ColorBox::paintEvent(QPaintEvent* event) {
  QPainter(this).fillRect(contentsRect(), ColorBrush(color_));
  PictureBox::paintEvent(event);
  if (!hasFocus()) return;
  // At least one of the two rings is visible on any color.
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::HighlightedText));
  painter.drawRect(contentsRect().adjusted(2, 2, -3, -3));
}

}  // namespace rostermill
