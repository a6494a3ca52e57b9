#pragma once

#include <QPushButton>

namespace rostermill {

/// A button whose width does not depend on its caption: it asks for the width of `widest`, and a
/// longer caption is shortened and shown in full in the tool tip.
class ElidedButton : public QPushButton {
  Q_OBJECT

 public:
  ElidedButton(const QString& caption, const QString& widest);

  /// Shows the text literally, including any "&".
  void SetCaption(const QString& caption);
  const QString& Caption() const { return caption_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  QString caption_;
  QString widest_;
};

}  // namespace rostermill
