#pragma once

#include <QLabel>

namespace rostermill {

/// A label whose text is shortened in the middle if it does not fit, and shown in full in its tool
/// tip. The length of the text has no effect on the width that the label asks for.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(const QString& name);

  void SetText(const QString& text);
  /// Makes room for this many characters, whatever they are; the default is little.
  void AskForRoom(int characters);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int characters_ = 0;
};

}  // namespace rostermill
