#pragma once

#include "league/league_session.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/form.h"

namespace rostermill {

/// "Choose Player": picks a player of a position group from the 14 teams of the side that
/// RosterConference names. ChosenSlot passes in the group code, 1 to 10. OK leaves the player's
/// team and slot in ChosenTeam and ChosenSlot; any other way out leaves 0 in both.
class frmChoosePlayer : public DialogForm {
  Q_OBJECT

 public:
  frmChoosePlayer(QWidget* parent, LeagueSession& session);

  void reject() override;

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void cmbTeam_Click();
  void btnOK_Click();
  void btnCancel_Click();

  int PickedTeam() const;

  LeagueSession& session_;
  int first_team_;
  int base_slot_;
  int last_slot_;

  DropDownList* cmbTeam = nullptr;
  DropDownList* cmbPlayer = nullptr;
  QPushButton* btnOK = nullptr;
  QPushButton* btnCancel = nullptr;
};

}  // namespace rostermill
