#pragma once

#include "toolkit/elided_label.h"

namespace rostermill {

/// The name of the player in one place of a roster. It takes the keyboard focus and shows it;
/// Space and Enter press it as the left mouse button does.
class PlaceLabel : public ElidedLabel {
  Q_OBJECT

 public:
  /// `place_name` is read before the player's name by screen readers.
  explicit PlaceLabel(const QString& place_name);

  void ShowPlayer(const QString& player);
  QSize minimumSizeHint() const override;

 signals:
  /// The mouse buttons that are down; Qt::LeftButton from the keyboard.
  void MouseDown(Qt::MouseButtons buttons);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString place_name_;
};

}  // namespace rostermill
