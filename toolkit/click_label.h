#pragma once

#include <QLabel>

namespace rostermill {

/// A label with plain text that can be pressed, by the left button and, while it has the focus,
/// by Space and Enter. It takes the keyboard focus only where SetFocusPolicy lets it.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  ClickLabel();

 signals:
  void Click();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace rostermill
