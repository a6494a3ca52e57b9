#include "toolkit/text_box.h"

#include <QValidator>

#include <algorithm>

namespace rostermill {

namespace {

class Latin1Validator : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int&) const override {
    const bool fits =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= 0xFF; });
    return fits ? Acceptable : Invalid;
  }
};

}  // namespace

TextBox::TextBox(const QString& name, int max_length) : max_length_(max_length) {
  setObjectName(name);
  setMaxLength(max_length);
  setValidator(new Latin1Validator(this));
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    FollowLength(text);
    emit Change();
  });
}

void TextBox::SetText(const QString& text) {
  FollowLength(text);
  setText(text);
}

void TextBox::FollowLength(const QString& text) {
  setMaxLength(std::max(max_length_, static_cast<int>(text.size())));
}

}  // namespace rostermill
