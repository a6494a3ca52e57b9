#include "screens/table/rating_delegate.h"

#include <QPainter>

#include "screens/table/players_model.h"

namespace rostermill {

void RatingDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const QVariant share = index.data(PlayersModel::ShareRole);
  if (share.isValid() && !option.state.testFlag(QStyle::State_Selected)) {
    constexpr int opacity = 55;  // of 255: the text stays readable in either scheme
    QColor color = option.palette.color(QPalette::Highlight);
    color.setAlpha(opacity);
    QRect bar = option.rect.adjusted(1, 2, -1, -2);
    bar.setWidth(static_cast<int>(bar.width() * share.toDouble()));
    painter->fillRect(bar, color);
  }
  QStyledItemDelegate::paint(painter, option, index);
}

}  // namespace rostermill
