#pragma once

#include <QCheckBox>

#include "league/league_session.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"
#include "toolkit/picture_box.h"
#include "toolkit/text_box.h"

namespace rostermill {

class AttributePanel;
class ElidedLabel;

/// "Edit Player Statstistics": changes the player at CurTeam and CurSlot. All that is pending
/// lives in the controls' own texts; btnSavePlayer moves it into the league.
class EditPlayer : public ChildForm {
  Q_OBJECT

 public:
  explicit EditPlayer(LeagueSession& session);

  /// Fills the form for the current player and discards pending changes.
  void FillEditPlayer();
  /// Shows the name of the player's team.
  void ShowTeamTitle();
  /// "Edit Player (Sam Plover)" if there are pending changes.
  QStringList NotStored() const;

 signals:
  /// The player has been stored; PendingTeamName and PendingPlayerName now identify him.
  void PlayerSaved();
  /// Asks for the next (+1) or the previous (-1) slot of the team.
  void SlotStepped(int step);

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void Form_Unload() override;
  void imgFace_MouseDown(Qt::MouseButtons buttons);
  void btnMinus_Click(int Index);
  void btnPlus_Click(int Index);
  void btnSavePlayer_Click();
  void btnClose_Click();

  /// All that can be pending, as it is shown.
  QStringList Values() const;
  void StepRating(int place, int direction);
  void StepNumber(int direction);
  void StoreName(LeagueData& league);
  void StoreRatingsAndFace(LeagueData& league);
  void StoreReturners(LeagueData& league);

  LeagueSession& session_;
  QStringList filled_;  ///< Values after the form was filled

  ElidedLabel* lblTeam = nullptr;
  TextBox* txtPlayer = nullptr;
  QLabel* lblNumber = nullptr;
  PictureBox* imgFace = nullptr;
  QLabel* lblFace = nullptr;
  AttributePanel* Frame1 = nullptr;
  ControlArray<QPushButton> btnMinus{"btnMinus"};
  ControlArray<QPushButton> btnPlus{"btnPlus"};
  QCheckBox* chkKick = nullptr;
  QCheckBox* chkPunt = nullptr;
  QPushButton* btnSavePlayer = nullptr;
  QPushButton* btnClose = nullptr;
};

}  // namespace rostermill
