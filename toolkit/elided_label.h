#pragma once

#include <QLabel>

namespace rostermill {

/// A label whose text is shortened in the middle where it doesn't fit, and whole in its tool tip.
/// How long the text is has no effect on the width that it asks for.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(const QString& name);

  void SetText(const QString& text);
  /// Asks for the room that so many characters need, whatever they are; for little by default.
  void AskForRoom(int characters);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int characters_ = 0;
};

}  // namespace rostermill
