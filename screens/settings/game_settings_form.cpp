#include "screens/settings/game_settings_form.h"

#include <QDialogButtonBox>
#include <QGridLayout>

#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int year_length = 4;
constexpr int league_text_length = 3;

}  // namespace

frmEditGameSettings::frmEditGameSettings(LeagueSession& session)
    : ChildForm("frmEditGameSettings", "Game Settings"), session_(session) {
  BuildControls();
  LayOut();
  connect(cmdOK, &QPushButton::clicked, this, &frmEditGameSettings::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmEditGameSettings::cmdCancel_Click);
  Form_Load();
}

void frmEditGameSettings::BuildControls() {
  txtRosterYear = new TextBox("txtRosterYear", year_length, ControlCharacters::Kept);
  txtRosterYear->setFont(FixedFont());
  for (int text = 0; text < 3; ++text) {
    txtLeague.Add(new TextBox({}, league_text_length, ControlCharacters::Kept));
    txtLeague[text]->setFont(FixedFont());
  }
  cmdOK = NewButton("cmdOK", "OK");
  SetDefaultButton(cmdOK);
  cmdCancel = NewButton("cmdCancel", "Cancel");
  SetCancelButton(cmdCancel);
}

void frmEditGameSettings::LayOut() {
  auto* Frame1 = ButtonRow(cmdOK, cmdCancel);
  Frame1->setObjectName("Frame1");

  auto* grid = new NaturalGrid(this);
  grid->addWidget(NewCaption("Label1", "Roster Year:", txtRosterYear), 0, 0);
  grid->addWidget(txtRosterYear, 0, 1);
  grid->addWidget(NewCaption("Label2", "League A:", txtLeague[0]), 1, 0);
  grid->addWidget(txtLeague[0], 1, 1);
  grid->addWidget(NewCaption("Label3", "League B:", txtLeague[1]), 2, 0);
  grid->addWidget(txtLeague[1], 2, 1);
  grid->addWidget(NewCaption("Label4", "League C:", txtLeague[2]), 3, 0);
  grid->addWidget(txtLeague[2], 3, 1);
  grid->addWidget(Frame1, 5, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(4, 1);
}

void frmEditGameSettings::Form_Load() {
  txtRosterYear->SetText(FromLatin1(session_.League().RosterYear.str()));
  for (int text = 0; text < 3; ++text) {
    txtLeague[text]->SetText(FromLatin1(session_.League().LeagueText[text + 1].str()));
  }
  txtRosterYear->selectAll();
  filled_ = Texts();
}

QStringList frmEditGameSettings::Texts() const {
  QStringList texts{txtRosterYear->Text()};
  for (const TextBox* box : txtLeague) texts << box->Text();
  return texts;
}

QStringList frmEditGameSettings::NotStored() const {
  return Texts() == filled_ ? QStringList() : QStringList("Game Settings");
}

void frmEditGameSettings::cmdOK_Click() {
  session_.Change("Game Settings", [this](LeagueData& league) {
    league.RosterYear = ToLatin1(txtRosterYear->Text());
    for (int text = 0; text < 3; ++text) {
      league.LeagueText[text + 1] = ToLatin1(txtLeague[text]->Text());
    }
  });
  CloseForm();
}

void frmEditGameSettings::cmdCancel_Click() {
  CloseForm();
}

}  // namespace rostermill
