#pragma once

#include <QLabel>

namespace rostermill {

/// A label that is pressed by the left mouse button, Space or Enter. It takes the keyboard focus
/// and shows it in its text color. A disabled one reports nothing.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ClickLabel(const QString& text = {});

 signals:
  void Click();
  /// The second press of a double click, which its own Click follows.
  void DblClick();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace rostermill
