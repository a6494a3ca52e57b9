#pragma once

#include <QBrush>
#include <QColor>

#include <optional>

#include "toolkit/picture_box.h"

class QIcon;

namespace rostermill {

/// What a color is painted with; a neutral hatching where there is none.
QBrush ColorBrush(const std::optional<QColor>& color);

/// The size of a button's icon with a swatch of `side` logical pixels and a gap after it.
QSize ColorIconSize(int side);
/// A square swatch for a button whose icon has this size.
QIcon ColorIcon(const std::optional<QColor>& color, int side, qreal pixel_ratio);

/// A picture box that shows one color.
class ColorBox : public PictureBox {
  Q_OBJECT

 public:
  ColorBox(const QString& name, QSize size);

  /// No color shows as a neutral hatching.
  void SetBackColor(const std::optional<QColor>& color);
  const std::optional<QColor>& BackColor() const { return color_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<QColor> color_;
};

}  // namespace rostermill
