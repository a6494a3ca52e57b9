// What frmAllPlayers does with the cells that are selected: steps, copies and pastes them.

#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <memory>

#include "league/quantity_text.h"
#include "screens/table/all_players_form.h"
#include "toolkit/copy_text.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

void frmAllPlayers::StepRatings(int steps) {
  const auto league = std::make_unique<LeagueData>(session_.League());
  int changed = 0;
  for (const QModelIndex& cell : SelectedCells()) {
    if (!PlayersModel::IsRating(cell.column())) continue;
    const Column* column = PlayersModel::Columns()[static_cast<std::size_t>(cell.column())];
    changed += ShiftRatings({players_->PlayerAt(cell.row())}, {column},
                            {RatingShift::Way::BySteps, steps}, *league)
                   .Changed;
  }
  if (changed == 0) return;
  const std::string description =
      "Step " + QuantityText(static_cast<std::uint64_t>(changed), "Rating");
  session_.Change(description, [&](LeagueData& now) { now = *league; });
  emit Edited();
}

QString frmAllPlayers::CopiedText() const {
  const QModelIndexList cells = SelectedCells();
  QList<QStringList> rows;
  QStringList heads;
  int last = -1;
  for (const QModelIndex& cell : cells) {
    if (cell.row() != last) rows << QStringList();
    last = cell.row();
    rows.back() << cell.data(Qt::DisplayRole).toString();
    if (rows.size() == 1) {
      heads << players_->headerData(cell.column(), Qt::Horizontal, Qt::DisplayRole).toString();
    }
  }
  const int shown = players_->columnCount() - grdPlayers->horizontalHeader()->hiddenSectionCount();
  if (!rows.isEmpty() && heads.size() == shown) rows.prepend(heads);
  return TabSeparatedText(rows);
}

QStringList frmAllPlayers::Headings(int visual, std::size_t count) const {
  const QHeaderView* head = grdPlayers->horizontalHeader();
  QStringList headings;
  for (; visual < head->count() && headings.size() < static_cast<qsizetype>(count); ++visual) {
    const int column = head->logicalIndex(visual);
    if (head->isSectionHidden(column)) continue;
    headings << players_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  }
  return headings;
}

std::optional<std::vector<CellEdit>> frmAllPlayers::PastedCells(
    const std::vector<TableRow>& rows) const {
  std::vector<CellEdit> edits;
  const auto add = [&](int row, int column, const std::string& value) {
    edits.push_back({players_->PlayerAt(row),
                     PlayersModel::Columns()[static_cast<std::size_t>(column)], value});
  };
  const QModelIndexList cells = SelectedCells();
  if (rows.size() == 1 && rows[0].size() == 1) {
    for (const QModelIndex& cell : cells) add(cell.row(), cell.column(), rows[0][0].Text);
    return edits;
  }
  const QHeaderView* head = grdPlayers->horizontalHeader();
  const int first_visual = head->visualIndex(cells.first().column());
  int at = cells.first().row();
  for (const TableRow& row : rows) {
    QStringList texts;
    for (const TableCell& cell : row) texts << FromUtf8(cell.Text);
    // Rows that were copied whole have their headings with them.
    if (&row == &rows.front() && texts == Headings(first_visual, row.size())) continue;
    int visual = first_visual;
    for (const TableCell& value : row) {
      while (visual < head->count() && head->isSectionHidden(head->logicalIndex(visual))) ++visual;
      if (visual >= head->count() || at >= players_->rowCount()) return std::nullopt;
      add(at, head->logicalIndex(visual++), value.Text);
    }
    ++at;
  }
  return edits;
}

void frmAllPlayers::TellOfRounded(const std::vector<CellEdit>& edits) {
  const auto rounded = std::ranges::count_if(edits, [this](const CellEdit& edit) {
    const auto [team, slot] = edit.Player;
    return edit.Of->Kind == ColumnKind::Rating && !edit.Text.empty() &&
           PlayerCell(session_.League(), team, slot, *edit.Of) != edit.Text;
  });
  if (rounded == 0) return;
  emit Told(FromUtf8(QuantityText(static_cast<std::uint64_t>(rounded), "rating")) +
            (rounded == 1 ? " does not exist; the nearest was taken"
                          : " do not exist; the nearest were taken"));
}

void frmAllPlayers::Paste(const QString& text) {
  const auto refuse = [this](const QString& why) {
    ShowMessageBox(this, QMessageBox::Warning, "Nothing was changed:\n\n" + why, "Paste");
  };
  if (SelectedCells().isEmpty()) return;
  try {
    const auto edits = PastedCells(ParseCells(ToUtf8(text)));
    if (!edits) return refuse("The cells on the clipboard reach beyond the table.");
    QStringList problems =
        players_->Store(*edits, "Paste " + FromUtf8(QuantityText(edits->size(), "Cell")));
    if (problems.isEmpty()) return TellOfRounded(*edits);
    constexpr qsizetype most = 10;
    const qsizetype more = problems.size() - most;
    problems = problems.first(std::min(problems.size(), most));
    if (more > 0) problems << QString("and %1 more").arg(more);
    refuse(problems.join('\n'));
  } catch (const TableSyntaxError& error) {
    refuse(FromUtf8(error.what()));
  }
}

}  // namespace rostermill
