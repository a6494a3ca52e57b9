#include "screens/table/all_players_form.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QTableView>

#include <algorithm>
#include <memory>

#include "league/quantity_text.h"
#include "screens/table/player_delegate.h"
#include "screens/table/set_ratings_form.h"
#include "toolkit/copy_text.h"
#include "toolkit/form_parts.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr const char* columns_key = "AllPlayers/Columns";

/// In average characters.
int WidthOf(const Column& column) {
  switch (column.Kind) {
    case ColumnKind::TeamName:
      return 28;
    case ColumnKind::FirstName:
    case ColumnKind::LastName:
      return 15;
    case ColumnKind::Face:
      return 11;
    case ColumnKind::Position:
      return 8;
    default:
      return 6;
  }
}

}  // namespace

frmAllPlayers::frmAllPlayers(LeagueSession& session, QSettings& settings)
    : ChildForm("frmAllPlayers", "All Players"),
      session_(session),
      settings_(settings),
      players_(new PlayersModel(session)) {
  players_->setParent(this);
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void frmAllPlayers::BuildControls() {
  txtFind = new QLineEdit;
  txtFind->setObjectName("txtFind");
  txtFind->setClearButtonEnabled(true);
  txtFind->setPlaceholderText("words, RS>=69, APB<50, KR=yes");
  lblCount = NewLabel("lblCount");
  BuildGrid();
  btnSet = NewButton("btnSet", "Set Ratings...");
  btnShow = NewButton("btnShow", "Show");
  btnOK = NewButton("btnOK", "OK");
  SetCancelButton(btnOK);
  setFocusProxy(txtFind);
}

void frmAllPlayers::BuildGrid() {
  grdPlayers = new QTableView;
  grdPlayers->setObjectName("grdPlayers");
  grdPlayers->setAccessibleName("Players");
  grdPlayers->setModel(players_);
  grdPlayers->setItemDelegate(new PlayerDelegate(grdPlayers));
  grdPlayers->setTabKeyNavigation(false);
  grdPlayers->setWordWrap(false);
  grdPlayers->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  grdPlayers->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  grdPlayers->verticalHeader()->hide();
  grdPlayers->verticalHeader()->setDefaultSectionSize(
      std::max(26, fontMetrics().lineSpacing() + 6));
  QHeaderView* head = grdPlayers->horizontalHeader();
  head->setSectionsMovable(true);
  head->setSortIndicatorShown(true);
  head->setSortIndicator(-1, Qt::AscendingOrder);
  head->setSectionsClickable(true);
  head->setHighlightSections(false);
  head->setContextMenuPolicy(Qt::CustomContextMenu);
  const int letter = fontMetrics().averageCharWidth();
  for (int column = 0; column < players_->columnCount(); ++column) {
    const Column& kind = *PlayersModel::Columns()[static_cast<std::size_t>(column)];
    grdPlayers->setColumnWidth(column, letter * WidthOf(kind));
  }
}

void frmAllPlayers::LayOut() {
  auto* grid = new QGridLayout(this);
  grid->addWidget(NewCaption("lblFindCaption", "Find:", txtFind), 0, 0);
  grid->addWidget(txtFind, 0, 1);
  grid->addWidget(grdPlayers, 1, 0, 1, 2);
  grid->addWidget(lblCount, 2, 0, 1, 2);
  grid->addWidget(ButtonRow(btnOK, nullptr, {btnSet, btnShow}), 3, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(1, 1);
  grdPlayers->setMinimumSize(fontMetrics().averageCharWidth() * 60,
                             grdPlayers->verticalHeader()->defaultSectionSize() * 6);
}

QSize frmAllPlayers::sizeHint() const {
  // Many columns and rows, as far as there is room.
  const QSize wanted(fontMetrics().averageCharWidth() * 155,
                     grdPlayers->verticalHeader()->defaultSectionSize() * 24);
  return ChildForm::sizeHint().expandedTo(wanted);
}

void frmAllPlayers::Connect() {
  connect(txtFind, &QLineEdit::textChanged, this, &frmAllPlayers::txtFind_Change);
  connect(grdPlayers, &QTableView::doubleClicked, this, &frmAllPlayers::grdPlayers_DblClick);
  connect(grdPlayers->horizontalHeader(), &QHeaderView::sectionClicked, this,
          &frmAllPlayers::grdPlayers_HeadClick);
  connect(grdPlayers->horizontalHeader(), &QHeaderView::customContextMenuRequested, this,
          &frmAllPlayers::grdPlayers_HeadMenu);
  connect(grdPlayers->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &frmAllPlayers::ShowCount);
  connect(players_, &PlayersModel::modelReset, this, &frmAllPlayers::ShowCount);
  connect(players_, &PlayersModel::Told, this, &frmAllPlayers::Told);
  connect(players_, &PlayersModel::Edited, this, &frmAllPlayers::Edited);
  connect(btnSet, &QPushButton::clicked, this, &frmAllPlayers::btnSet_Click);
  connect(btnShow, &QPushButton::clicked, this, &frmAllPlayers::btnShow_Click);
  connect(btnOK, &QPushButton::clicked, this, &frmAllPlayers::btnOK_Click);
  AddCopyAction(grdPlayers, [this] { return CopiedText(); });
  AddPasteAction(grdPlayers, [this](const QString& text) { Paste(text); });
  AddSelectAllAction(grdPlayers, [this] { grdPlayers->selectAll(); });
  grdPlayers->installEventFilter(this);
}

void frmAllPlayers::Form_Load() {
  grdPlayers->horizontalHeader()->restoreState(settings_.value(columns_key).toByteArray());
  grdPlayers->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  GoToCell(players_->index(0, 0));
  ShowCount();
}

void frmAllPlayers::Form_Unload() {
  settings_.setValue(columns_key, grdPlayers->horizontalHeader()->saveState());
}

void frmAllPlayers::GoToFind() {
  txtFind->setFocus();
  txtFind->selectAll();
}

void frmAllPlayers::GoToCell(const QModelIndex& cell) {
  // The view's own way depends on which keys are held.
  grdPlayers->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
  grdPlayers->scrollTo(cell);
}

void frmAllPlayers::FillList() {
  const QModelIndex current = grdPlayers->currentIndex();
  const PlayerPlace player = current.isValid() ? players_->PlayerAt(current.row()) : PlayerPlace();
  players_->Refresh();
  const int row = players_->RowOf(player);
  if (row >= 0 && grdPlayers->currentIndex().row() != row) {
    GoToCell(players_->index(row, current.column()));
  }
  ShowCount();
}

void frmAllPlayers::txtFind_Change() {
  PlayerFilter filter(ToLatin1(txtFind->text()));
  QPalette palette = QApplication::palette();
  if (!filter.Problem().empty()) {
    // The list stays while a condition is being typed.
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    palette.setColor(QPalette::Base, dark ? QColor(96, 32, 32) : QColor(255, 214, 214));
  }
  txtFind->setPalette(palette);
  txtFind->setToolTip(PlainToolTip(FromUtf8(filter.Problem())));
  if (!filter.Problem().empty()) return;
  players_->SetFilter(std::move(filter));
  GoToCell(players_->index(0, 0));
}

void frmAllPlayers::grdPlayers_HeadClick(int column) {
  // Qt has turned the indicator already.
  const Qt::SortOrder order = grdPlayers->horizontalHeader()->sortIndicatorOrder();
  players_->SortBy(column, order, QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier));
  GoToCell(players_->index(0, column));
}

void frmAllPlayers::grdPlayers_HeadMenu(QPoint place) {
  QMenu menu(this);
  for (int column = 0; column < players_->columnCount(); ++column) {
    const Column& kind = *PlayersModel::Columns()[static_cast<std::size_t>(column)];
    QAction* action = menu.addAction(FromUtf8(kind.Heading));
    action->setCheckable(true);
    action->setChecked(!grdPlayers->isColumnHidden(column));
    // Somebody has to be recognized.
    action->setEnabled(kind.Kind != ColumnKind::LastName);
    connect(action, &QAction::toggled, this,
            [this, column](bool shown) { grdPlayers->setColumnHidden(column, !shown); });
  }
  menu.exec(grdPlayers->horizontalHeader()->mapToGlobal(place));
}

void frmAllPlayers::grdPlayers_DblClick(const QModelIndex& index) {
  const Column& column = *PlayersModel::Columns()[static_cast<std::size_t>(index.column())];
  if (column.Kind == ColumnKind::TeamName || column.Kind == ColumnKind::Position) btnShow_Click();
}

QModelIndexList frmAllPlayers::SelectedCells() const {
  QModelIndexList cells = grdPlayers->selectionModel()->selectedIndexes();
  const QHeaderView* head = grdPlayers->horizontalHeader();
  cells.removeIf(
      [this](const QModelIndex& cell) { return grdPlayers->isColumnHidden(cell.column()); });
  std::ranges::sort(cells, [head](const QModelIndex& a, const QModelIndex& b) {
    return std::pair(a.row(), head->visualIndex(a.column())) <
           std::pair(b.row(), head->visualIndex(b.column()));
  });
  return cells;
}

std::vector<PlayerPlace> frmAllPlayers::SelectedPlayers() const {
  std::vector<PlayerPlace> players;
  int last = -1;
  for (const QModelIndex& cell : SelectedCells()) {
    if (cell.row() != last) players.push_back(players_->PlayerAt(cell.row()));
    last = cell.row();
  }
  return players;
}

void frmAllPlayers::ShowCount() {
  constexpr int all = TeamCount * SlotCount;
  QString text = QString("%1 of %2 players").arg(players_->rowCount()).arg(all);
  const auto selected = SelectedPlayers().size();
  if (selected > 1) text += QString(", %1 selected").arg(selected);
  lblCount->setText(text);
  btnSet->setEnabled(selected > 0);
  btnShow->setEnabled(grdPlayers->currentIndex().isValid());
}

bool frmAllPlayers::eventFilter(QObject* watched, QEvent* event) {
  if (watched == grdPlayers && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Plus || key == Qt::Key_Minus) {
      StepRatings(key == Qt::Key_Plus ? 1 : -1);
      return true;
    }
  }
  return ChildForm::eventFilter(watched, event);
}

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
    if (problems.isEmpty()) return;
    constexpr qsizetype most = 10;
    const qsizetype more = problems.size() - most;
    problems = problems.first(std::min(problems.size(), most));
    if (more > 0) problems << QString("and %1 more").arg(more);
    refuse(problems.join('\n'));
  } catch (const TableSyntaxError& error) {
    refuse(FromUtf8(error.what()));
  }
}

void frmAllPlayers::btnSet_Click() {
  frmSetRatings dialog(this, session_, SelectedPlayers());
  if (dialog.exec() == QDialog::Accepted) emit Edited();
}

void frmAllPlayers::btnShow_Click() {
  const QModelIndex current = grdPlayers->currentIndex();
  if (!current.isValid()) return;
  const auto [team, slot] = players_->PlayerAt(current.row());
  emit Show({UnitKind::Name, team, slot});
}

void frmAllPlayers::btnOK_Click() {
  CloseForm();
}

}  // namespace rostermill
