#pragma once

#include <QPushButton>

namespace rostermill {

/// A button whose caption changes while its width doesn't: it asks for the room of `widest`, and
/// a longer caption is shortened and stands whole in the tool tip.
class ElidedButton : public QPushButton {
  Q_OBJECT

 public:
  ElidedButton(const QString& caption, const QString& widest);

  /// Shows the text as it stands, "&" included.
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
