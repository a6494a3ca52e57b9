#pragma once

#include <QWidget>

class QToolButton;

namespace rostermill {

/// A pair of step buttons, up above down, that repeat while they are held. It takes the focus as
/// one control, and the up and down arrow keys press the buttons.
class UpDown : public QWidget {
  Q_OBJECT

 public:
  explicit UpDown(const QString& name);

 signals:
  void UpClick();
  void DownClick();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QToolButton* NewArrow(const QString& name, Qt::ArrowType arrow);
};

}  // namespace rostermill
