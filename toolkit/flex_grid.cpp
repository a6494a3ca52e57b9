#include "toolkit/flex_grid.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

#include "toolkit/copy_text.h"
#include "toolkit/form_parts.h"

namespace rostermill {

namespace {

constexpr int twips_per_inch = 1440;
constexpr int default_width = 960;  // twips
constexpr int row_padding = 6;
constexpr int columns_at_first = 8;
constexpr int widest_at_first = 10 * twips_per_inch;
constexpr int fitting = 12;            // characters that have room in any font
constexpr int longest_measured = 100;  // characters; a damaged text can have thousands

void ShowBare(QTableView& view) {
  view.horizontalHeader()->hide();
  view.verticalHeader()->hide();
  view.horizontalHeader()->setMinimumSectionSize(1);
  view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setTabKeyNavigation(false);
  view.setWordWrap(false);
}

}  // namespace

FlexGrid::FlexGrid(const QString& name, int rows, int columns) : QTableWidget(rows, columns) {
  setObjectName(name);
  setFrameStyle(QFrame::NoFrame);
  ShowBare(*this);
  BuildFixedColumn();
  for (int column = 0; column < columns; ++column) SetColWidth(column, default_width);
  SetRowHeights();
  AddCopyAction(this, [this] { return SelectedText(); });
  auto* select_all = new QAction("Select &All", this);
  select_all->setShortcut(QKeySequence::SelectAll);
  select_all->setShortcutContext(Qt::WidgetShortcut);
  connect(select_all, &QAction::triggered, this, &QTableWidget::selectAll);
  addAction(select_all);
}

void FlexGrid::BuildFixedColumn() {
  fixed_ = new QTableView(this);
  fixed_->setModel(model());
  fixed_->setSelectionModel(selectionModel());
  fixed_->setFrameStyle(QFrame::NoFrame);
  ShowBare(*fixed_);
  fixed_->setFocusPolicy(Qt::NoFocus);
  fixed_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  fixed_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  fixed_->viewport()->setBackgroundRole(QPalette::Button);
  for (int column = 1; column < columnCount(); ++column) fixed_->setColumnHidden(column, true);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, fixed_->verticalScrollBar(),
          &QScrollBar::setValue);
  connect(fixed_->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
          &QScrollBar::setValue);
}

int FlexGrid::Pixels(int twips) const {
  return qRound(twips * logicalDpiX() / static_cast<double>(twips_per_inch));
}

void FlexGrid::SetColWidth(int column, int twips) {
  SetPixelWidth(column, Pixels(twips));
}

void FlexGrid::SetPixelWidth(int column, int pixels) {
  setColumnWidth(column, pixels);
  if (column != 0) return;
  fixed_->setColumnWidth(0, pixels);
  PlaceFixedColumn();
}

void FlexGrid::WidenToText(int column) {
  const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 2);
  const int width = columnWidth(column);
  int widest = width;
  for (int row = 0; row < rowCount(); ++row) {
    const QString text = TextMatrix(row, column).left(longest_measured);
    widest = std::max(widest, fontMetrics().horizontalAdvance(text) + margin);
  }
  const int limit = std::max(2 * width, RoomFor(fontMetrics(), fitting) + margin);
  SetPixelWidth(column, std::min(widest, limit));
}

void FlexGrid::SetTextMatrix(int row, int column, const QString& text, const QString& tool_tip) {
  auto* cell = new QTableWidgetItem(text);
  cell->setToolTip(PlainToolTip(tool_tip));
  setItem(row, column, cell);
}

QString FlexGrid::TextMatrix(int row, int column) const {
  const QTableWidgetItem* cell = item(row, column);
  return cell == nullptr ? QString() : cell->text();
}

QSize FlexGrid::sizeHint() const {
  int width = verticalScrollBar()->sizeHint().width();
  for (int column = 0; column < std::min(columnCount(), columns_at_first); ++column) {
    width += columnWidth(column);
  }
  return {std::min(width, Pixels(widest_at_first)),
          verticalHeader()->length() + horizontalScrollBar()->sizeHint().height()};
}

void FlexGrid::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QTableWidget::scrollTo(index, hint);
  const int hidden = columnWidth(0) - visualRect(index).left();
  if (index.column() > 0 && hidden > 0) {
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
  }
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  PlaceFixedColumn();
}

void FlexGrid::changeEvent(QEvent* event) {
  QTableWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange && fixed_ != nullptr) SetRowHeights();
}

void FlexGrid::PlaceFixedColumn() {
  fixed_->setGeometry(0, 0, columnWidth(0), viewport()->height());
}

void FlexGrid::SetRowHeights() {
  const int height = fontMetrics().height() + row_padding;
  verticalHeader()->setDefaultSectionSize(height);
  fixed_->verticalHeader()->setDefaultSectionSize(height);
}

QString FlexGrid::SelectedText() const {
  const QItemSelectionModel& selected = *selectionModel();
  const bool all = !selected.hasSelection();
  QList<QStringList> rows;
  for (int row = 0; row < rowCount(); ++row) {
    if (!all && !selected.rowIntersectsSelection(row)) continue;
    QStringList cells;
    for (int column = 0; column < columnCount(); ++column) {
      if (!all && !selected.columnIntersectsSelection(column)) continue;
      const bool copied = all || selected.isSelected(model()->index(row, column));
      cells << (copied ? TextMatrix(row, column) : QString());
    }
    rows << cells;
  }
  return TabSeparatedText(rows);
}

}  // namespace rostermill
