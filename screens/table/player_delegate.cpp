#include "screens/table/player_delegate.h"

#include <QHash>
#include <QPainter>
#include <QStaticText>
#include <QStyle>

#include "screens/table/players_model.h"

namespace rostermill {

namespace {

constexpr int margin = 4;
/// Whatever texts an image has, the cache stays small.
constexpr qsizetype most_texts = 3000;

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option) {
  return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

void PaintGround(QPainter& painter, const QStyleOptionViewItem& option, const QVariant& share) {
  if (option.state.testFlag(QStyle::State_Selected)) {
    painter.fillRect(option.rect, option.palette.color(GroupOf(option), QPalette::Highlight));
  } else if (share.isValid()) {
    constexpr int opacity = 55;  // of 255: the text stays readable in either scheme
    QColor color = option.palette.color(QPalette::Highlight);
    color.setAlpha(opacity);
    QRect bar = option.rect.adjusted(1, 2, -1, -2);
    bar.setWidth(static_cast<int>(bar.width() * share.toDouble()));
    painter.fillRect(bar, color);
  }
}

/// Kept from one table to the next, until the font is another.
const QStaticText& LaidOut(const QString& text, const QFont& font) {
  struct Known {
    QHash<QString, QStaticText> Texts;
    QFont Font;
  };
  static Known& known = *new Known;  // never destroyed: the fonts may go before it
  if (known.Font != font || known.Texts.size() > most_texts) known.Texts.clear();
  known.Font = font;
  auto found = known.Texts.find(text);
  if (found == known.Texts.end()) {
    QStaticText laid_out(text);
    laid_out.setTextFormat(Qt::PlainText);
    laid_out.prepare({}, font);
    found = known.Texts.insert(text, laid_out);
  }
  return found.value();
}

}  // namespace

void PlayerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  PaintGround(*painter, option, index.data(PlayersModel::ShareRole));
  QRect room = option.rect.adjusted(margin, 0, -margin, 0);
  const auto picture = index.data(Qt::DecorationRole).value<QPixmap>();
  if (!picture.isNull()) {
    painter->drawPixmap(room.left(), room.center().y() - picture.height() / 2, picture);
    room.setLeft(room.left() + picture.width() + margin);
  }
  const bool at_right = (index.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0;
  PaintText(*painter, option, room, index.data(Qt::DisplayRole).toString(), at_right);
  if (option.state.testFlag(QStyle::State_HasFocus)) {
    painter->setPen(QPen(option.palette.color(QPalette::Text), 1, Qt::DotLine));
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
  }
}

void PlayerDelegate::PaintText(QPainter& painter, const QStyleOptionViewItem& option,
                               const QRect& room, const QString& text, bool at_right) const {
  if (text.isEmpty()) return;
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  painter.setPen(
      option.palette.color(GroupOf(option), selected ? QPalette::HighlightedText : QPalette::Text));
  painter.setFont(option.font);
  const QStaticText* shown = &LaidOut(text, option.font);
  if (shown->size().width() > room.width()) {
    shown =
        &LaidOut(option.fontMetrics.elidedText(text, Qt::ElideRight, room.width()), option.font);
  }
  const QSizeF size = shown->size();
  const double left = at_right ? room.right() + 1 - size.width() : room.left();
  painter.drawStaticText(QPointF(left, room.top() + (room.height() - size.height()) / 2), *shown);
}

}  // namespace rostermill
