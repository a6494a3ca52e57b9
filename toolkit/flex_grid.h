#pragma once

#include <QTableWidget>

namespace rostermill {

/// A grid of texts to look at. Its first column is fixed: it stays in view while the others scroll
/// under it. Rows and columns count from 0. Ctrl+A selects all; Ctrl+C copies what is selected, or
/// all when nothing is, as tab-separated text. Rows and columns without a selected cell are
/// left out; cells that are not selected in the others are copied as empty.
class FlexGrid : public QTableWidget {
  Q_OBJECT

 public:
  FlexGrid(const QString& name, int rows, int columns);

  /// `twips`: 1440 are one inch.
  void SetColWidth(int column, int twips);
  /// Widens a column to its widest text, at most to twice its width or to the room of 12
  /// characters.
  void WidenToText(int column);
  void SetTextMatrix(int row, int column, const QString& text, const QString& tool_tip = {});
  QString TextMatrix(int row, int column) const;

  /// Room for all rows and for up to eight columns.
  QSize sizeHint() const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void BuildFixedColumn();
  void PlaceFixedColumn();
  void SetRowHeights();
  void SetPixelWidth(int column, int pixels);
  int Pixels(int twips) const;
  QString SelectedText() const;

  QTableView* fixed_ = nullptr;
};

}  // namespace rostermill
