#pragma once

#include <QStyledItemDelegate>

namespace rostermill {

/// Paints the cells of the players' table: a quiet bar behind a rating, as long as the rating is
/// high. Most texts are in many cells, so they are laid out once; the style would do it for each.
class PlayerDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  void PaintText(QPainter& painter, const QStyleOptionViewItem& option, const QRect& room,
                 const QString& text, bool at_right) const;
};

}  // namespace rostermill
