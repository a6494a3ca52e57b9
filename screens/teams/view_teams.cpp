#include "screens/teams/view_teams.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QSignalBlocker>

#include <algorithm>
#include <cerrno>
#include <exception>

#include "rules/display_text.h"
#include "rules/play_names.h"
#include "screens/teams/edit_team.h"
#include "screens/teams/team_form_parts.h"
#include "toolkit/form_parts.h"
#include "toolkit/messages.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int info_count = 6;
constexpr int play_slots = 8;
constexpr int play_columns = 4;
/// The team colors that have swatches, in their order.
constexpr std::array<int, 4> jersey_colors{1, 3, 4, 6};

QString Joined(const LeagueData& league, int first, int second) {
  return " " + ColorName(league, first) + " and " + ColorName(league, second);
}

}  // namespace

ViewTeams::ViewTeams(LeagueSession& session)
    : ChildForm("ViewTeams", "View Teams"), session_(session) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void ViewTeams::BuildControls() {
  cmbTeam = new DropDownList("cmbTeam", ListOrder::Sorted);
  for (int info = 0; info < info_count; ++info) lblInfo.Add(new ElidedLabel({}));
  // Each text begins with a blank.
  lblInfo[0]->AskForRoom(1 + LongestCity);
  lblInfo[1]->AskForRoom(1 + LongestCity);
  for (std::size_t i = 0; i < jersey_colors.size(); ++i) {
    picSwatch.Add(new ColorBox({}, QSize(SwatchSide, SwatchSide)));
  }
  for (int i = 0; i < play_slots; ++i) {
    KeepRoomWhenHidden(picRun.Add(new PictureBox({}, PlayPictureSize)));
  }
  btnEdit = NewButton("btnEdit", "Edit");
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnOK);
}

void ViewTeams::LayOut() {
  auto* grid = new NaturalGrid(this);
  auto* team = new QHBoxLayout;
  team->addWidget(NewCaption(MemberName("lblData", 0), "Team:", cmbTeam));
  team->addWidget(cmbTeam, 1);
  grid->addLayout(team, 0, 0, 1, 2);
  grid->addWidget(LayOutGeneral(), 1, 0, 2, 1);
  grid->addWidget(LayOutColors(), 1, 1);
  grid->addWidget(LayOutMiscellaneous(), 2, 1);
  QWidget* play_book = LayOutPlayBook();
  grid->addWidget(play_book, 3, 0, 1, 2);
  grid->addWidget(ButtonRow(btnOK, nullptr, {btnEdit}), 4, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(4, 1);
  const QMargins margins = grid->contentsMargins();
  least_size_ = QSize(play_book->sizeHint().width() + margins.left() + margins.right(),
                      grid->sizeHint().height());
}

QWidget* ViewTeams::LayOutGeneral() {
  auto* Frame3 = NewFrame("Frame3", "General");
  auto* grid = new QGridLayout(Frame3);
  grid->addWidget(NewCaption(MemberName("lblData", 1), "City:", lblInfo[0]), 0, 0);
  grid->addWidget(lblInfo[0], 0, 1);
  grid->addWidget(NewCaption(MemberName("lblData", 2), "Name:", lblInfo[1]), 1, 0);
  grid->addWidget(lblInfo[1], 1, 1);
  grid->addWidget(NewCaption(MemberName("lblData", 5), "Abbreviation:", lblInfo[2]), 2, 0);
  grid->addWidget(lblInfo[2], 2, 1);
  grid->setRowStretch(3, 1);
  return Frame3;
}

QWidget* ViewTeams::LayOutColors() {
  auto* Frame2 = NewFrame("Frame2", "Jersey Colors");
  auto* grid = new QGridLayout(Frame2);
  const QString widest = " Bright Magenta and Bright Magenta";
  const auto add_row = [&](int row, const QString& name, const QString& text) {
    ElidedLabel* info = lblInfo[3 + row];
    info->setMinimumWidth(fontMetrics().horizontalAdvance(widest));
    grid->addWidget(NewCaption(name, text, info), row, 0);
    grid->addWidget(picSwatch[2 * row], row, 1);
    grid->addWidget(picSwatch[2 * row + 1], row, 2);
    grid->addWidget(info, row, 3);
  };
  add_row(0, "Label1", "Primary:");
  add_row(1, "Label2", "Secondary:");
  return Frame2;
}

QWidget* ViewTeams::LayOutMiscellaneous() {
  auto* Frame4 = NewFrame("Frame4", "Miscellaneous");
  auto* row = new QHBoxLayout(Frame4);
  row->addWidget(NewCaption(MemberName("lblData", 3), "Formation:", lblInfo[5]));
  row->addWidget(lblInfo[5], 1);
  return Frame4;
}

QWidget* ViewTeams::LayOutPlayBook() {
  auto* Frame1 = NewFrame("Frame1", "Play Book");
  auto* grid = new QGridLayout(Frame1);
  for (int i = 0; i < play_slots; ++i) {
    grid->addWidget(picRun[i], i / play_columns, i % play_columns, Qt::AlignCenter);
  }
  return Frame1;
}

void ViewTeams::resizeEvent(QResizeEvent* event) {
  ChildForm::resizeEvent(event);
  const QSize room = size() - least_size_;
  const QSize step(play_columns * PlayPictureSize.width(),
                   play_slots / play_columns * PlayPictureSize.height());
  const int steps = std::min(room.width() / step.width(), room.height() / step.height());
  for (PictureBox* play : picRun) play->SetMagnification(1 + std::max(0, steps));
  // The layout has used the sizes of before.
  picRun[0]->parentWidget()->layout()->activate();
  layout()->activate();
}

void ViewTeams::Connect() {
  connect(cmbTeam, &DropDownList::Click, this, &ViewTeams::cmbTeam_Click);
  connect(btnEdit, &QPushButton::clicked, this, &ViewTeams::btnEdit_Click);
  connect(btnOK, &QPushButton::clicked, this, &ViewTeams::btnOK_Click);
}

void ViewTeams::FillList() {
  const QSignalBlocker silent(cmbTeam);
  cmbTeam->Clear();
  for (int team = 1; team <= TeamCount; ++team) {
    cmbTeam->AddItem(FromLatin1(TeamListText(session_.League(), team)));
  }
  cmbTeam->SetListIndex(0);
}

void ViewTeams::Form_Load() {
  session_.EditTeamOpen = false;
  FillList();
  cmbTeam_Click();
}

void ViewTeams::Form_Unload() {
  CloseIfOpen(editor_);
  session_.EditTeamOpen = false;
}

void ViewTeams::cmbTeam_Click() {
  const std::string picked = ToLatin1(cmbTeam->Text());
  int picked_team = session_.ViewTeam;
  // Of two teams with the same text the later one is shown.
  for (int team = 1; team <= TeamCount; ++team) {
    if (TeamListText(session_.League(), team) == picked) picked_team = team;
  }
  try {
    ShowTeam(picked_team);
  } catch (const std::exception& error) {
    const bool no_memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    ShowMessageBox(this, QMessageBox::Warning,
                   "Error: " + QString::number(no_memory ? ENOMEM : EINVAL), "Error");
    QCoreApplication::quit();
  }
}

void ViewTeams::GoToTeam(int team) {
  SelectInList(team);
  // The editor's pending values stay if it is the team on view.
  ShowTeam(team, team != session_.ViewTeam);
}

void ViewTeams::SelectInList(int team) {
  FillList();
  const QSignalBlocker silent(cmbTeam);
  cmbTeam->SetListIndex(cmbTeam->findText(FromLatin1(TeamListText(session_.League(), team))));
}

void ViewTeams::ShowTouched(const Touched& touched) {
  const int team = session_.ViewTeam;
  SelectInList(team);
  ShowTeam(team, touched.Teams[team]);
}

QStringList ViewTeams::NotStored() const {
  return session_.EditTeamOpen && editor_ ? editor_->NotStored() : QStringList();
}

void ViewTeams::ShowTeam(int number, bool in_editor) {
  session_.ViewTeam = static_cast<std::int16_t>(number);
  const TeamRec& team = session_.League().TeamData[number];
  lblInfo[0]->SetText(" " + FromLatin1(team.City));
  lblInfo[1]->SetText(" " + FromLatin1(team.Nickname));
  lblInfo[2]->SetText(" " + FromLatin1(team.Abbreviation));
  ShowColors();
  lblInfo[5]->SetText(FromLatin1(FormationText(team.Formation)));
  if (in_editor && session_.EditTeamOpen && editor_) editor_->LoadTeam();
  ShowPlays();
}

void ViewTeams::ShowColors() {
  const LeagueData& league = session_.League();
  const auto& colors = league.TeamData[session_.ViewTeam].TeamColors;
  lblInfo[3]->SetText(Joined(league, colors[1], colors[3]));
  lblInfo[4]->SetText(Joined(league, colors[4], colors[6]));
  int swatch = picSwatch.First();
  for (const int color : jersey_colors) ShowColor(*picSwatch[swatch++], league, colors[color]);
}

void ViewTeams::ShowPlays() {
  const auto& plays = session_.League().TeamPlays[session_.ViewTeam];
  for (int slot = plays.first; slot <= plays.last; ++slot) {
    PictureBox& picture = *picRun[slot - 1];
    ShowPlay(picture, session_.AppDir, slot, plays[slot]);
    const QString name = FromLatin1(PlayName(slot, plays[slot]));
    picture.setToolTip(name);
    picture.setAccessibleName(name);
  }
}

void ViewTeams::btnEdit_Click() {
  Area()->OpenOrRaise(editor_, [this] {
    auto* editor = new EditTeam(session_);
    connect(editor, &EditTeam::TeamSaved, this, &ViewTeams::ReselectTeam);
    return editor;
  });
}

void ViewTeams::btnOK_Click() {
  CloseForm();
}

void ViewTeams::ReselectTeam(const QString& list_text) {
  FillList();
  const QSignalBlocker silent(cmbTeam);
  for (int index = 0; index < cmbTeam->ListCount(); ++index) {
    if (cmbTeam->List(index) == list_text) cmbTeam->SetListIndex(index);
  }
  cmbTeam_Click();
}

}  // namespace rostermill
