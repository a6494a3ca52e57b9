#include "toolkit/elided_button.h"

#include <QStyle>
#include <QStyleOptionButton>

#include <algorithm>

#include "toolkit/form_parts.h"

namespace rostermill {

namespace {

constexpr int icon_gap = 4;

QString WithoutMnemonics(QString text) {
  return text.replace('&', "&&");
}

}  // namespace

ElidedButton::ElidedButton(const QString& caption, const QString& widest) : widest_(widest) {
  SetCaption(caption);
}

void ElidedButton::SetCaption(const QString& caption) {
  caption_ = caption;
  setText(WithoutMnemonics(caption));
  const bool fits = fontMetrics().horizontalAdvance(caption.left(200)) <=
                    fontMetrics().horizontalAdvance(widest_);
  setToolTip(fits ? QString() : PlainToolTip(caption));
}

QSize ElidedButton::sizeHint() const {
  QStyleOptionButton option;
  QPushButton::initStyleOption(&option);
  QSize content = fontMetrics().size(Qt::TextSingleLine, widest_);
  if (!icon().isNull()) {
    content.rwidth() += iconSize().width() + icon_gap;
    content.setHeight(std::max(content.height(), iconSize().height()));
  }
  return style()->sizeFromContents(QStyle::CT_PushButton, &option, content, this);
}

void ElidedButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  int room = style()->subElementRect(QStyle::SE_PushButtonContents, option, this).width();
  if (!icon().isNull()) room -= iconSize().width() + icon_gap;
  option->text = WithoutMnemonics(fontMetrics().elidedText(caption_, Qt::ElideRight, room));
}

}  // namespace rostermill
