#pragma once

#include <QLabel>

namespace rostermill {

/// A label whose text is shortened in the middle where it doesn't fit, and whole in its tool tip.
/// It never asks for more than a little width, however long the text.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(const QString& name);

  void SetText(const QString& text);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace rostermill
