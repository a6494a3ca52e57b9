#pragma once

#include "league/league_session.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"

class QGroupBox;

namespace rostermill {

class PlaceLabel;

/// "Roster": the 30 places of the all-star side that RosterConference names. Pressing a place
/// opens the chooser; each pick takes effect at once.
class frmRoster : public ChildForm {
  Q_OBJECT

 public:
  explicit frmRoster(LeagueSession& session);

  /// Shows the names of the side that RosterConference names now, "(nobody)" for a place that
  /// names no player.
  void RefreshRoster();

 private:
  void BuildControls();
  void LayOut();

  void Form_Load();
  /// lblQB_MouseDown to lblK_MouseDown in one: the label shows `place`, 1 to SlotCount, and asks
  /// the chooser for the group of this code.
  void lbl_MouseDown(int place, int code, Qt::MouseButtons Button);
  void btnOK_Click();

  /// The side that RosterConference names.
  const char* Side() const;

  LeagueSession& session_;

  QLabel* lblSide = nullptr;  ///< which side is shown
  ControlArray<QGroupBox> Frame1{"Frame1"};
  BySlot<PlaceLabel*> labels_{};  ///< lblQB(0) to lblK(1), by the place that they show
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
