#include "screens/schedule/edit_schedule.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>

#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int games_per_column = 7;
constexpr int box_characters = 6;
/// Lines that list 14 teams, as many as can play twice or against themselves.
constexpr int lines_of_half = 2;

/// A list of teams. It wraps, and its size does not depend on its text.
QLabel* NewTeamList(const QString& name, int lines) {
  QLabel* label = NewLabel(name);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setFixedHeight(label->fontMetrics().lineSpacing() * lines);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  return label;
}

void ShowTeams(QLabel& list, const std::string& teams) {
  list.setText(FromLatin1(teams));
  list.setToolTip(PlainToolTip(list.text()));
}

}  // namespace

frmEditSchedule::frmEditSchedule(LeagueSession& session)
    : ChildForm("frmEditSchedule", "RSM Schedule Editor"), session_(session) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void frmEditSchedule::BuildControls() {
  lblWeek = NewLabel("lblWeek", "Week:");
  udWeek = new UpDown("udWeek");
  lblGames = NewLabel("lblGames", "Games:");
  upGames = new UpDown("upGames");
  for (int game = 0; game < GamesPerWeek; ++game) {
    for (const char* side : {"visitor", "host"}) {
      auto* box = cmbTeam.Add(new ComboBox({}, ListOrder::Sorted));
      box->setMinimumContentsLength(box_characters);
      box->setAccessibleName(QString("Game %1, %2").arg(game + 1).arg(side));
      KeepRoomWhenHidden(box);
    }
    KeepRoomWhenHidden(lblAt.Add(NewLabel({}, "@")));
  }
  lblSeason = NewLabel("lblSeason");
  lblSeason->setFont(FixedFont());
  lblTwice = NewTeamList("lblTwice", lines_of_half);
  lblItself = NewTeamList("lblItself", lines_of_half);
  lblWithoutGame = NewTeamList("lblWithoutGame", 2 * lines_of_half);
  cmdOK = NewButton("cmdOK", "OK");
  cmdCancel = NewButton("cmdCancel", "Cancel");
  SetDefaultButton(cmdOK);
  SetCancelButton(cmdCancel);
}

QLayout* frmEditSchedule::LayOutSteps() {
  const QFontMetrics metrics = fontMetrics();
  lblWeek->setMinimumWidth(metrics.horizontalAdvance("Week: 00"));
  lblGames->setMinimumWidth(metrics.horizontalAdvance("Games: 00"));
  lblWeek->setBuddy(udWeek);
  lblGames->setBuddy(upGames);
  auto* row = new QHBoxLayout;
  row->addWidget(lblWeek);
  row->addWidget(udWeek);
  row->addSpacing(metrics.height() * 2);
  row->addWidget(lblGames);
  row->addWidget(upGames);
  row->addStretch();
  return row;
}

QGroupBox* frmEditSchedule::LayOutGames() {
  QGroupBox* Frame1 = NewFrame("Frame1", "Matchups");
  auto* grid = new QGridLayout(Frame1);
  for (int game = 0; game < GamesPerWeek; ++game) {
    const int row = game % games_per_column;
    const int column = game / games_per_column * 4;  // three controls and a gap
    grid->addWidget(cmbTeam[2 * game], row, column);
    grid->addWidget(lblAt[game], row, column + 1);
    grid->addWidget(cmbTeam[2 * game + 1], row, column + 2);
    grid->setColumnStretch(column, 1);
    grid->setColumnStretch(column + 2, 1);
  }
  grid->setColumnMinimumWidth(3, fontMetrics().height() * 2);
  return Frame1;
}

QLayout* frmEditSchedule::LayOutFacts() {
  auto* grid = new QGridLayout;
  QLabel* weeks = NewLabel("lblWeeks", FromLatin1(WeekColumns()));
  weeks->setFont(FixedFont());
  grid->addWidget(NewCaption("lblWeeksCaption", "Week:"), 0, 0);
  grid->addWidget(weeks, 0, 1);
  grid->addWidget(NewCaption("lblSeasonCaption", "Games:"), 1, 0);
  grid->addWidget(lblSeason, 1, 1);
  grid->addWidget(NewCaption("lblTwiceCaption", "Plays twice:"), 2, 0, Qt::AlignTop);
  grid->addWidget(lblTwice, 2, 1);
  grid->addWidget(NewCaption("lblItselfCaption", "Against itself:"), 3, 0, Qt::AlignTop);
  grid->addWidget(lblItself, 3, 1);
  grid->addWidget(NewCaption("lblWithoutGameCaption", "Without a game:"), 4, 0, Qt::AlignTop);
  grid->addWidget(lblWithoutGame, 4, 1);
  grid->setColumnStretch(1, 1);
  return grid;
}

void frmEditSchedule::LayOut() {
  auto* whole = new NaturalColumn(this);
  whole->addLayout(LayOutSteps());
  whole->addWidget(LayOutGames());
  whole->addLayout(LayOutFacts());
  whole->addStretch();
  whole->addWidget(ButtonRow(cmdOK, cmdCancel));
}

void frmEditSchedule::Connect() {
  connect(udWeek, &UpDown::UpClick, this, &frmEditSchedule::udWeek_UpClick);
  connect(udWeek, &UpDown::DownClick, this, &frmEditSchedule::udWeek_DownClick);
  connect(upGames, &UpDown::UpClick, this, &frmEditSchedule::upGames_UpClick);
  connect(upGames, &UpDown::DownClick, this, &frmEditSchedule::upGames_DownClick);
  for (int Index = cmbTeam.First(); Index < cmbTeam.Next(); ++Index) {
    connect(cmbTeam[Index], &ComboBox::Click, this, [this, Index] { cmbTeam_Click(Index); });
    connect(cmbTeam[Index], &ComboBox::LostFocus, this,
            [this, Index] { cmbTeam_LostFocus(Index); });
  }
  connect(cmdOK, &QPushButton::clicked, this, &frmEditSchedule::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmEditSchedule::cmdCancel_Click);
}

void frmEditSchedule::Form_Load() {
  for (ComboBox* box : cmbTeam) {
    box->Clear();
    for (const TeamRec& team : session_.League().TeamData) {
      box->AddItem(FromLatin1(team.Abbreviation));
    }
  }
  WorkSchedule = session_.League().ScheduleData;
  filled_schedule_ = WorkSchedule;
  LoadWeek(0);
}

QStringList frmEditSchedule::NotStored() const {
  bool pending = WorkSchedule != filled_schedule_;
  for (int Index = cmbTeam.First(); Index < cmbTeam.Next(); ++Index) {
    pending = pending || (!cmbTeam[Index]->isHidden() && IsTyped(Index));
  }
  return pending ? QStringList("Edit Schedule") : QStringList();
}

void frmEditSchedule::LoadWeek(std::uint8_t weekNum) {
  LoadingWeek = true;
  lblWeek->setText(QString("Week: %1").arg(weekNum + 1));
  udWeek->setAccessibleName(lblWeek->text());
  for (ComboBox* box : cmbTeam) box->SetText({});
  filled_text_.fill({});
  ShowGames();
  for (int game = 0; game < WorkSchedule[weekNum].GameCount; ++game) {
    FillBox(2 * game);
    FillBox(2 * game + 1);
  }
  LoadingWeek = false;
}

void frmEditSchedule::FillBox(int Index) {
  const int side = SideOf(Index);
  const QString wanted = FromLatin1(SideAbbreviation(session_.League(), side));
  ComboBox* box = cmbTeam[Index];
  filled_text_[static_cast<std::size_t>(Index)] = wanted;
  const int item = IsAllStarSide(side) ? -1 : box->findText(wanted);
  if (item < 0) return box->SetText(wanted);
  box->SetListIndex(item);
}

bool frmEditSchedule::IsTyped(int Index) const {
  return cmbTeam[Index]->Text() != filled_text_[static_cast<std::size_t>(Index)];
}

void frmEditSchedule::ShowGames() {
  const int games = WorkSchedule[CurrentWeek].GameCount;
  for (int game = 0; game < GamesPerWeek; ++game) {
    const bool in_use = game < games;
    cmbTeam[2 * game]->setVisible(in_use);
    cmbTeam[2 * game + 1]->setVisible(in_use);
    lblAt[game]->setVisible(in_use);
  }
  lblGames->setText(QString("Games: %1").arg(games));
  upGames->setAccessibleName(lblGames->text());
  ShowFacts();
}

void frmEditSchedule::ShowFacts() {
  const LeagueData& league = session_.League();
  const WeekFacts facts = FactsOfWeek(WorkSchedule[CurrentWeek]);
  ShowTeams(*lblTwice, SideList(league, facts.Twice));
  ShowTeams(*lblItself, SideList(league, facts.AgainstItself));
  ShowTeams(*lblWithoutGame, SideList(league, facts.WithoutGame));
  lblSeason->setText(FromLatin1(GamesByWeek(WorkSchedule)));
}

void frmEditSchedule::GoToWeek(int week) {
  CurrentWeek = static_cast<std::uint8_t>(week - 1);
  LoadWeek(CurrentWeek);
}

void frmEditSchedule::udWeek_UpClick() {
  CurrentWeek = CurrentWeek + 1 < WeekCount ? static_cast<std::uint8_t>(CurrentWeek + 1) : 0;
  LoadWeek(CurrentWeek);
}

void frmEditSchedule::udWeek_DownClick() {
  CurrentWeek = static_cast<std::uint8_t>(CurrentWeek == 0 ? WeekCount - 1 : CurrentWeek - 1);
  LoadWeek(CurrentWeek);
}

void frmEditSchedule::upGames_UpClick() {
  std::uint8_t& games = WorkSchedule[CurrentWeek].GameCount;
  if (games >= GamesPerWeek) return;
  ++games;
  ShowGames();
}

void frmEditSchedule::upGames_DownClick() {
  std::uint8_t& games = WorkSchedule[CurrentWeek].GameCount;
  if (games <= 1) return;
  --games;
  ShowGames();
}

void frmEditSchedule::cmbTeam_Click(int Index) {
  if (LoadingWeek) return;
  ComboBox* box = cmbTeam[Index];
  // A typed text that begins an abbreviation selects it, which raises this event again.
  if (box->ListIndex() < 0) return CompleteText(Index);
  const std::string picked = ToLatin1(box->Text());
  for (int side = 0; side < TeamCount; ++side) {
    if (SideAbbreviation(session_.League(), side) == picked) {
      SideOf(Index) = static_cast<std::int16_t>(side);
      filled_text_[static_cast<std::size_t>(Index)] = box->Text();
      return ShowFacts();
    }
  }
  box->SetText({});
}

void frmEditSchedule::CompleteText(int Index) {
  ComboBox* box = cmbTeam[Index];
  const int item = box->MatchingIndex();
  if (item >= 0) return box->SetListIndex(item);
  box->SetText({});
}

void frmEditSchedule::cmbTeam_LostFocus(int Index) {
  // With two teams of one abbreviation, merely visiting the box would store the other team.
  if (IsTyped(Index)) cmbTeam_Click(Index);
}

void frmEditSchedule::keyPressEvent(QKeyEvent* event) {
  int Index = cmbTeam.First();
  while (Index < cmbTeam.Next() && !cmbTeam[Index]->hasFocus()) ++Index;
  const bool typed = Index < cmbTeam.Next() && IsTyped(Index);
  const int key = event->key();
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (typed && enter && !cmbTeam[Index]->Text().isEmpty()) {
    cmbTeam_Click(Index);
  } else if (typed && key == Qt::Key_Escape) {
    LoadingWeek = true;
    FillBox(Index);
    LoadingWeek = false;
  } else {
    ChildForm::keyPressEvent(event);
  }
}

void frmEditSchedule::cmdOK_Click() {
  // A button can be pressed while a box still has the focus, and its text is not taken.
  for (int Index = cmbTeam.First(); Index < cmbTeam.Next(); ++Index) cmbTeam_LostFocus(Index);
  session_.Change("Edit Schedule",
                  [this](LeagueData& league) { league.ScheduleData = WorkSchedule; });
  CloseForm();
}

void frmEditSchedule::cmdCancel_Click() {
  CloseForm();
}

std::int16_t& frmEditSchedule::SideOf(int Index) {
  GamePlace& place = WorkSchedule[CurrentWeek].Games[Index / 2];
  return Index % 2 == 0 ? place.AwayTeam : place.HomeTeam;
}

}  // namespace rostermill
