#include "screens/players/view_player.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QSignalBlocker>

#include <algorithm>

#include "league/league_tables.h"
#include "rules/display_text.h"
#include "rules/position_layout.h"
#include "screens/players/attribute_panel.h"
#include "screens/players/edit_player.h"
#include "screens/players/player_form_parts.h"
#include "screens/players/show_face.h"
#include "toolkit/control_array.h"
#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

ViewPlayer::ViewPlayer(LeagueSession& session)
    : ChildForm("ViewPlayer", "View Player Statstistics"), session_(session) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void ViewPlayer::BuildControls() {
  cmbTeam = new DropDownList("cmbTeam", ListOrder::Sorted);
  cmbPlayer = new DropDownList("cmbPlayer", ListOrder::Sorted);
  cmbPosition = new DropDownList("cmbPosition");
  cmbPosition->setFont(FixedFont());
  cmbPosition->setMinimumContentsLength(5);
  cmbPosition->setAccessibleName("Position");
  lblNumber = NewPlayerNumber();
  imgFace = new PictureBox("imgFace", QSize(FaceSize, FaceSize), FaceMagnification);
  imgFace->setAccessibleName("Photo");
  Frame1 = new AttributePanel;
  btnEdit = NewButton("btnEdit", "Edit");
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnOK);
}

void ViewPlayer::LayOut() {
  auto* grid = new NaturalGrid(this);
  grid->addWidget(NewCaption("Label1", "Team:", cmbTeam), 0, 0);
  grid->addWidget(cmbTeam, 0, 1, 1, 2);
  grid->addWidget(NewCaption(MemberName("Label2", 0), "Player:", cmbPlayer), 1, 0);
  grid->addWidget(cmbPlayer, 1, 1);
  grid->addWidget(cmbPosition, 1, 2);
  grid->addLayout(FaceBesideAttributes(imgFace, lblNumber, Frame1), 2, 0, 1, 3);
  grid->addWidget(ButtonRow(btnOK, nullptr, {btnEdit}), 3, 0, 1, 3);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 1);
}

void ViewPlayer::Connect() {
  connect(cmbTeam, &DropDownList::Click, this, &ViewPlayer::cmbTeam_Click);
  connect(cmbPlayer, &DropDownList::Click, this, &ViewPlayer::cmbPlayer_Click);
  connect(cmbPosition, &DropDownList::Click, this, &ViewPlayer::cmbPosition_Click);
  connect(btnEdit, &QPushButton::clicked, this, &ViewPlayer::btnEdit_Click);
  connect(btnOK, &QPushButton::clicked, this, &ViewPlayer::btnOK_Click);
  AddSlotKeys(this, [this](int step) { StepSlot(step); });
}

void ViewPlayer::Form_Load() {
  ShowFirstTeam();
}

void ViewPlayer::Form_Unload() {
  CloseIfOpen(editor_);
  session_.EditPlayerOpen = false;
}

void ViewPlayer::cmbTeam_Click() {
  if (const int team = PickedTeam(); team != 0) {
    FillPlayers(team);
    ShowPlayer(team, PickedSlot(team));
  } else {
    ShowFirstTeam();
  }
}

void ViewPlayer::cmbPlayer_Click() {
  if (const int slot = PickedSlot(session_.CurTeam); slot != 0) {
    ShowPlayer(session_.CurTeam, slot);
  } else {
    ShowFirstTeam();
  }
}

void ViewPlayer::cmbPosition_Click() {
  const int slot = cmbPosition->ListIndex() + 1;
  const int entry =
      cmbPlayer->findText(FromLatin1(PlayerListText(session_.League(), session_.CurTeam, slot)));
  if (entry < 0) return ShowFirstTeam();
  const QSignalBlocker silent(cmbPlayer);
  cmbPlayer->SetListIndex(entry);
  cmbPlayer_Click();
}

void ViewPlayer::StepSlot(int step) {
  cmbPosition->SetListIndex(std::clamp(cmbPosition->ListIndex() + step, 0, SlotCount - 1));
}

void ViewPlayer::FillTeams() {
  const QSignalBlocker silent(cmbTeam);
  cmbTeam->Clear();
  cmbPosition->Clear();
  for (int team = 1; team <= TeamCount; ++team) {
    cmbTeam->AddItem(FromLatin1(TeamListText(session_.League(), team)));
  }
  for (int slot = 1; slot <= SlotCount; ++slot) {
    cmbPosition->AddItem(FromLatin1(SlotLabels[slot]));
  }
  cmbTeam->SetListIndex(0);
}

void ViewPlayer::FillPlayers(int team) {
  const QSignalBlocker silent(cmbPlayer);
  cmbPlayer->Clear();
  for (int slot = 1; slot <= SlotCount; ++slot) {
    cmbPlayer->AddItem(FromLatin1(PlayerListText(session_.League(), team, slot)));
  }
  cmbPlayer->SetListIndex(0);
  for (const auto& [index, label] : PositionLabels(session_.League().TeamData[team].Formation)) {
    cmbPosition->SetList(index, FromLatin1(label));
  }
}

int ViewPlayer::PickedTeam() const {
  const std::string picked = ToLatin1(cmbTeam->Text());
  for (int team = 1; team <= TeamCount; ++team) {
    if (TeamListText(session_.League(), team) == picked) return team;
  }
  return 0;
}

int ViewPlayer::PickedSlot(int team) const {
  const std::string picked = ToLatin1(cmbPlayer->Text());
  for (int slot = 1; slot <= SlotCount; ++slot) {
    if (PlayerListText(session_.League(), team, slot) == picked) return slot;
  }
  return 0;
}

void ViewPlayer::ShowFirstTeam() {
  FillTeams();
  const int team = PickedTeam();
  FillPlayers(team);
  ShowPlayer(team, PickedSlot(team));
}

void ViewPlayer::ShowPlayer(int team, int slot) {
  ShowPlayerHere(team, slot);
  if (session_.EditPlayerOpen && editor_) editor_->FillEditPlayer();
}

void ViewPlayer::GoToPlayer(int team, int slot) {
  // The editor's pending values stay if it is the player on view.
  const bool same = team == session_.CurTeam && slot == session_.CurSlot;
  FillListsFor(team);
  same ? ShowPlayerHere(team, slot) : ShowPlayer(team, slot);
}

void ViewPlayer::FillListsFor(int team) {
  FillTeams();
  const QSignalBlocker silent(cmbTeam);
  cmbTeam->SetListIndex(cmbTeam->findText(FromLatin1(TeamListText(session_.League(), team))));
  FillPlayers(team);
}

void ViewPlayer::ShowTouched(const Touched& touched) {
  const int team = session_.CurTeam;
  const int slot = session_.CurSlot;
  FillListsFor(team);
  ShowPlayerHere(team, slot);
  if (!session_.EditPlayerOpen || !editor_) return;
  if (touched.Players[team][slot]) editor_->FillEditPlayer();
  if (touched.Teams[team]) editor_->ShowTeamTitle();
}

QStringList ViewPlayer::NotStored() const {
  return session_.EditPlayerOpen && editor_ ? editor_->NotStored() : QStringList();
}

void ViewPlayer::ShowPlayerHere(int team, int slot) {
  const LeagueData& league = session_.League();
  session_.CurTeam = static_cast<std::int16_t>(team);
  session_.CurSlot = static_cast<std::int16_t>(slot);
  const QSignalBlocker silent_player(cmbPlayer);
  const QSignalBlocker silent_position(cmbPosition);
  cmbPlayer->SetListIndex(cmbPlayer->findText(FromLatin1(PlayerListText(league, team, slot))));
  cmbPosition->SetListIndex(slot - 1);
  ShowFace(*imgFace, session_.AppDir, FaceOf(league, team, slot));
  lblNumber->setText(FromLatin1(NumberCaption(league, team, slot)));
  Frame1->ShowPlayer(league, team, slot);
}

void ViewPlayer::btnEdit_Click() {
  Area()->OpenOrRaise(editor_, [this] {
    auto* editor = new EditPlayer(session_);
    connect(editor, &EditPlayer::PlayerSaved, this, &ViewPlayer::ReselectPlayer);
    connect(editor, &EditPlayer::SlotStepped, this, &ViewPlayer::StepSlot);
    return editor;
  });
}

void ViewPlayer::btnOK_Click() {
  CloseForm();
}

void ViewPlayer::ReselectPlayer() {
  FillTeams();
  const QSignalBlocker silent(cmbTeam);
  for (int index = 0; index < cmbTeam->ListCount(); ++index) {
    if (LowerText(ToLatin1(cmbTeam->List(index))) == session_.PendingTeamName) {
      cmbTeam->SetListIndex(index);
      break;
    }
  }
  const int team = PickedTeam();
  FillPlayers(team);
  int slot = PickedSlot(team);
  for (int other = 1; other <= SlotCount; ++other) {
    if (LowerText(PlayerFullText(session_.League(), team, other)) == session_.PendingPlayerName) {
      slot = other;
      break;
    }
  }
  ShowPlayer(team, slot);
}

}  // namespace rostermill
