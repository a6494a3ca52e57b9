#pragma once

#include <QStyledItemDelegate>

namespace rostermill {

/// Paints a quiet bar behind a rating, as long as the rating is high.
class RatingDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace rostermill
