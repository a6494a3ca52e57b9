#include "screens/table/all_players_form.h"

#include <QAction>
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
#include <functional>

#include "screens/table/player_delegate.h"
#include "screens/table/set_ratings_form.h"
#include "toolkit/copy_text.h"
#include "toolkit/form_parts.h"
#include "toolkit/keep_setting.h"
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
}

void frmAllPlayers::BuildGrid() {
  grdPlayers = new QTableView;
  grdPlayers->setObjectName("grdPlayers");
  grdPlayers->setAccessibleName("Players");
  grdPlayers->setItemDelegate(new PlayerDelegate(grdPlayers));
  grdPlayers->setTabKeyNavigation(false);
  // A double click on a name shows the player instead.
  grdPlayers->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed);
  grdPlayers->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  grdPlayers->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  grdPlayers->verticalHeader()->hide();
  grdPlayers->verticalHeader()->setDefaultSectionSize(
      std::max(26, fontMetrics().lineSpacing() + 6));
  QHeaderView* head = grdPlayers->horizontalHeader();
  // The model comes last, since the headings are measured again with each setting.
  head->setSectionsMovable(true);
  head->setSortIndicatorShown(true);
  head->setSortIndicator(-1, Qt::AscendingOrder);
  head->setSectionsClickable(true);
  head->setHighlightSections(false);
  head->setContextMenuPolicy(Qt::CustomContextMenu);
  // A click on a heading sorts; it doesn't select the column too.
  disconnect(head, SIGNAL(sectionPressed(int)), grdPlayers, SLOT(selectColumn(int)));
  grdPlayers->setModel(players_);
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
  AddColumnActions();
  grdPlayers->installEventFilter(this);
}

/// What the mouse does at the headings, for those who don't use it.
void frmAllPlayers::AddColumnActions() {
  QHeaderView* head = grdPlayers->horizontalHeader();
  const auto add = [this](const QString& caption, const std::function<void(int column)>& act) {
    auto* action = new QAction(caption, grdPlayers);
    connect(action, &QAction::triggered, this, [this, act] {
      if (const QModelIndex cell = grdPlayers->currentIndex(); cell.isValid()) act(cell.column());
    });
    grdPlayers->addAction(action);
  };
  const auto sort = [this, head](int column, bool also) {
    const bool again = head->sortIndicatorSection() == column;
    const bool up = !again || head->sortIndicatorOrder() == Qt::DescendingOrder;
    head->setSortIndicator(column, up ? Qt::AscendingOrder : Qt::DescendingOrder);
    SortBy(column, also);
  };
  const auto move = [head](int column, int by) {
    const int visual = head->visualIndex(column);
    if (visual + by >= 0 && visual + by < head->count()) head->moveSection(visual, visual + by);
  };
  add("&Sort by This Column", [sort](int column) { sort(column, false); });
  add("Sort &Within by This Column", [sort](int column) { sort(column, true); });
  add("Move Column &Left", [move](int column) { move(column, -1); });
  add("Move Column &Right", [move](int column) { move(column, 1); });
  add("Choose Columns...", [this, head](int column) {
    grdPlayers_HeadMenu({head->sectionViewportPosition(column), head->height()});
  });
}

void frmAllPlayers::Form_Load() {
  grdPlayers->horizontalHeader()->restoreState(settings_.value(columns_key).toByteArray());
  grdPlayers->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  GoToCell(players_->index(0, 0));
  ShowCount();
}

void frmAllPlayers::Form_Unload() {
  KeepSetting(settings_, columns_key, grdPlayers->horizontalHeader()->saveState());
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
  SortBy(column, QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier));
}

void frmAllPlayers::SortBy(int column, bool also) {
  const QModelIndex current = grdPlayers->currentIndex();
  const PlayerPlace player = current.isValid() ? players_->PlayerAt(current.row()) : PlayerPlace();
  players_->SortBy(column, grdPlayers->horizontalHeader()->sortIndicatorOrder(), also);
  GoToCell(players_->index(std::max(players_->RowOf(player), 0), column));
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
  using enum ColumnKind;
  const ColumnKind kind = PlayersModel::Columns()[static_cast<std::size_t>(index.column())]->Kind;
  if (kind == TeamName || kind == Position || kind == FirstName || kind == LastName) {
    btnShow_Click();
  } else {
    grdPlayers->edit(index);
  }
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
