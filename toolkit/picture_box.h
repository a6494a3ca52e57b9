#pragma once

#include <QFrame>
#include <QImage>

namespace rostermill {

/// Shows a picture magnified by a whole factor, without smoothing. One that can be clicked takes
/// the keyboard focus, shows it, and is pressed by Space and Enter as by the left button; a key
/// held down presses once.
class PictureBox : public QFrame {
  Q_OBJECT

 public:
  /// `picture_size` is the space reserved, in pixels of the picture, whether one is shown or not.
  PictureBox(const QString& name, QSize picture_size, int magnification = 1);

  /// Loads a picture file. False if it cannot be loaded; the current picture stays.
  bool Load(const QString& path);
  void SetPicture(const QImage& picture);
  void ClearPicture() { SetPicture(QImage()); }
  const QImage& Picture() const { return picture_; }

  /// Makes it clickable; `accessible_name` says what a press does.
  void SetClickable(const QString& accessible_name);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return SizeAt(least_magnification_); }

  /// Shows the picture larger than at first; there is never less room than for the first factor.
  void SetMagnification(int magnification);

 signals:
  /// The mouse buttons that are down; Qt::LeftButton from the keyboard.
  void MouseDown(Qt::MouseButtons buttons);
  /// A press of the left button or of Space or Enter.
  void Click();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QSize SizeAt(int magnification) const;

  QSize picture_size_;
  int least_magnification_;
  int magnification_;
  bool clickable_ = false;
  QImage picture_;
};

}  // namespace rostermill
