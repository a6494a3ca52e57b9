#include "screens/probowl/probowl_form.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>

#include "screens/probowl/roster_form.h"
#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"

namespace rostermill {

frmProbowl::frmProbowl(LeagueSession& session)
    : ChildForm("frmProbowl", "Probowl Data"), session_(session) {
  BuildControls();
  LayOut();
  Connect();
}

void frmProbowl::BuildControls() {
  btnAFCroster = NewButton("btnAFCroster", "AFC");
  btnNFCroster = NewButton("btnNFCroster", "NFC");
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnOK);
}

void frmProbowl::LayOut() {
  auto* Frame2 = ButtonRow(btnOK, nullptr);
  Frame2->setObjectName("Frame2");

  auto* Frame1 = NewFrame("Frame1", "Rosters");
  auto* rosters = new QHBoxLayout(Frame1);
  rosters->addWidget(btnAFCroster);
  rosters->addWidget(btnNFCroster);

  auto* whole = new NaturalColumn(this);
  whole->addWidget(Frame1);
  whole->addStretch();
  whole->addWidget(Frame2);
}

void frmProbowl::Connect() {
  connect(btnAFCroster, &QPushButton::clicked, this, &frmProbowl::btnAFCroster_Click);
  connect(btnNFCroster, &QPushButton::clicked, this, &frmProbowl::btnNFCroster_Click);
  connect(btnOK, &QPushButton::clicked, this, &frmProbowl::btnOK_Click);
}

void frmProbowl::Form_Unload() {
  CloseIfOpen(roster_);
}

void frmProbowl::btnAFCroster_Click() {
  ShowRoster(1);
}

void frmProbowl::btnNFCroster_Click() {
  ShowRoster(2);
}

void frmProbowl::ShowRoster(int conference) {
  session_.RosterConference = static_cast<std::int16_t>(conference);
  Area()->OpenOrRaise(roster_, [this] { return new frmRoster(session_); })->RefreshRoster();
}

void frmProbowl::RefreshRoster() {
  if (roster_ && roster_->IsOpen()) roster_->RefreshRoster();
}

void frmProbowl::btnOK_Click() {
  CloseForm();
}

}  // namespace rostermill
