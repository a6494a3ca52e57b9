#include "screens/players/view_player.h"

#include <QDialogButtonBox>
#include <QGridLayout>

#include "league/league_tables.h"
#include "screens/players/attribute_panel.h"
#include "screens/players/edit_player.h"
#include "screens/players/player_form_parts.h"
#include "screens/players/position_layout.h"
#include "screens/players/show_face.h"
#include "screens/players/text_forms.h"
#include "toolkit/control_array.h"
#include "toolkit/form_parts.h"
#include "toolkit/text_codec.h"

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
  setFocusProxy(cmbTeam);
}

void ViewPlayer::LayOut() {
  auto* grid = new QGridLayout(this);
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
}

void ViewPlayer::FillLists() {
  cmbTeam->Clear();
  cmbPlayer->Clear();
  cmbPosition->Clear();
  for (int team = 1; team <= TeamCount; ++team) {
    cmbTeam->AddItem(FromLatin1(TeamListText(session_.League, team)));
  }
  for (int slot = 1; slot <= SlotCount; ++slot) {
    cmbPlayer->AddItem(FromLatin1(PlayerListText(session_.League, 1, slot)));
    cmbPosition->AddItem(FromLatin1(SlotLabels[slot]));
  }
  cmbTeam->SetListIndex(0);
  cmbPlayer->SetListIndex(0);
}

void ViewPlayer::Form_Load() {
  FillLists();
  cmbPosition->SetListIndex(session_.CurSlot - 1);
}

void ViewPlayer::Form_Unload() {
  CloseIfOpen(editor_);
  session_.EditPlayerOpen = false;
}

void ViewPlayer::cmbTeam_Click() {
  const std::string picked = ToLatin1(cmbTeam->Text());
  int team = 1;
  while (team <= TeamCount && TeamListText(session_.League, team) != picked) ++team;
  // The lists are of before another image was loaded or a team was renamed.
  if (team > TeamCount) return FillLists();
  session_.CurTeam = static_cast<std::int16_t>(team);
  cmbPlayer->Clear();
  for (int slot = 1; slot <= SlotCount; ++slot) {
    cmbPlayer->AddItem(FromLatin1(PlayerListText(session_.League, session_.CurTeam, slot)));
  }
  cmbPlayer->SetListIndex(0);
  const int formation = session_.League.TeamData[session_.CurTeam].Formation;
  for (const auto& [index, label] : PositionLabels(formation)) {
    cmbPosition->SetList(index, FromLatin1(label));
  }
}

void ViewPlayer::cmbPlayer_Click() {
  const std::string picked = ToLatin1(cmbPlayer->Text());
  int slot = 1;
  while (slot <= SlotCount && PlayerListText(session_.League, session_.CurTeam, slot) != picked) {
    ++slot;
  }
  if (slot > SlotCount) return FillLists();
  session_.CurSlot = static_cast<std::int16_t>(slot);
  cmbPosition->SetListIndex(session_.CurSlot - 1);
  ShowFace(*imgFace, session_.AppDir, FaceOf(session_.League, session_.CurTeam, session_.CurSlot));
  ShowNumberAndRatings();
  if (session_.EditPlayerOpen && editor_) editor_->FillEditPlayer();
}

void ViewPlayer::ShowNumberAndRatings() {
  lblNumber->setText(
      FromLatin1(NumberCaption(session_.League, session_.CurTeam, session_.CurSlot)));
  Frame1->ShowPlayer(session_.League, session_.CurTeam, session_.CurSlot);
}

void ViewPlayer::cmbPosition_Click() {
  session_.CurSlot = static_cast<std::int16_t>(cmbPosition->ListIndex() + 1);
  const QString wanted =
      FromLatin1(PlayerListText(session_.League, session_.CurTeam, session_.CurSlot));
  for (int index = 0; index < cmbPlayer->ListCount(); ++index) {
    if (cmbPlayer->List(index) != wanted) continue;
    if (index == cmbPlayer->ListIndex()) return cmbPlayer_Click();  // perhaps a namesake's entry
    return cmbPlayer->SetListIndex(index);
  }
  FillLists();
}

void ViewPlayer::btnEdit_Click() {
  Area()->ShowOnly(editor_, [this] {
    auto* editor = new EditPlayer(session_);
    connect(editor, &EditPlayer::PlayerSaved, this, &ViewPlayer::ReselectPlayer);
    return editor;
  });
}

void ViewPlayer::btnOK_Click() {
  CloseForm();
}

void ViewPlayer::ReselectPlayer() {
  FillLists();
  for (int index = 0; index < cmbTeam->ListCount(); ++index) {
    if (LowerText(ToLatin1(cmbTeam->List(index))) == session_.PendingTeamName) {
      cmbTeam->SetListIndex(index);
      break;
    }
  }
  for (int slot = 1; slot <= SlotCount; ++slot) {
    const std::string name = PlayerFullText(session_.League, session_.CurTeam, slot);
    if (LowerText(name) == session_.PendingPlayerName) {
      session_.CurSlot = static_cast<std::int16_t>(slot);
      break;
    }
  }
  cmbPosition->SetListIndex(session_.CurSlot - 1);
  ShowNumberAndRatings();
}

}  // namespace rostermill
