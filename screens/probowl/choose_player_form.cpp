#include "screens/probowl/choose_player_form.h"

#include <QDialogButtonBox>
#include <QGridLayout>

#include "rules/display_text.h"
#include "toolkit/control_array.h"
#include "toolkit/form_parts.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int teams_of_side = 14;

struct SlotRange {
  int Base;
  int Last;
};

/// The slots that each group code offers: backs, receivers and tight ends are one group, kicker
/// and punter another.
constexpr IndexedArray<SlotRange, 1, 10> group_slots{{{{1, 2},
                                                       {3, 12},
                                                       {3, 12},
                                                       {3, 12},
                                                       {13, 17},
                                                       {18, 20},
                                                       {21, 24},
                                                       {25, 28},
                                                       {29, 30},
                                                       {29, 30}}}};

}  // namespace

frmChoosePlayer::frmChoosePlayer(QWidget* parent, LeagueSession& session)
    : DialogForm(parent, "frmChoosePlayer", "Choose Player"),
      session_(session),
      first_team_(session.RosterConference == 1 ? 1 : 1 + teams_of_side),
      base_slot_(group_slots[session.ChosenSlot].Base),
      last_slot_(group_slots[session.ChosenSlot].Last) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void frmChoosePlayer::BuildControls() {
  cmbTeam = new DropDownList("cmbTeam");
  cmbPlayer = new DropDownList("cmbPlayer");
  cmbTeam->AskForRoom(LongestTeamText);
  btnOK = NewButton("btnOK", "OK");
  btnCancel = NewButton("btnCancel", "Cancel");
}

void frmChoosePlayer::LayOut() {
  auto* Frame1 = ButtonRow(btnOK, btnCancel);
  Frame1->setObjectName("Frame1");

  auto* grid = new QGridLayout(this);
  grid->addWidget(NewCaption(MemberName("Label1", 0), "Team:", cmbTeam), 0, 0);
  grid->addWidget(cmbTeam, 0, 1);
  grid->addWidget(NewCaption(MemberName("Label1", 1), "Player:", cmbPlayer), 1, 0);
  grid->addWidget(cmbPlayer, 1, 1);
  grid->addWidget(Frame1, 3, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 1);
}

void frmChoosePlayer::Connect() {
  connect(cmbTeam, &DropDownList::Click, this, &frmChoosePlayer::cmbTeam_Click);
  connect(btnOK, &QPushButton::clicked, this, &frmChoosePlayer::btnOK_Click);
  connect(btnCancel, &QPushButton::clicked, this, &frmChoosePlayer::btnCancel_Click);
}

void frmChoosePlayer::Form_Load() {
  cmbTeam->Clear();
  for (int team = first_team_; team < first_team_ + teams_of_side; ++team) {
    cmbTeam->AddItem(FromLatin1(TeamListText(session_.League(), team)));
  }
  cmbTeam->SetListIndex(0);
}

void frmChoosePlayer::cmbTeam_Click() {
  cmbPlayer->Clear();
  for (int slot = base_slot_; slot <= last_slot_; ++slot) {
    cmbPlayer->AddItem(FromLatin1(PlayerFullText(session_.League(), PickedTeam(), slot)));
  }
  cmbPlayer->SetListIndex(0);
}

int frmChoosePlayer::PickedTeam() const {
  return first_team_ + cmbTeam->ListIndex();
}

void frmChoosePlayer::btnOK_Click() {
  session_.ChosenTeam = static_cast<std::int16_t>(PickedTeam());
  session_.ChosenSlot = static_cast<std::int16_t>(base_slot_ + cmbPlayer->ListIndex());
  accept();
}

void frmChoosePlayer::btnCancel_Click() {
  reject();
}

void frmChoosePlayer::reject() {
  session_.ChosenTeam = 0;
  session_.ChosenSlot = 0;
  DialogForm::reject();
}

}  // namespace rostermill
