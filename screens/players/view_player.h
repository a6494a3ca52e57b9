#pragma once

#include <QPointer>

#include "league/league_session.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/form.h"
#include "toolkit/picture_box.h"

namespace rostermill {

class AttributePanel;
class EditPlayer;

/// "View Player Statstistics": one of the 840 players at a time, picked by team, by name or by
/// position. Changes nothing. Owns the player editor, which follows the player on view.
class ViewPlayer : public ChildForm {
  Q_OBJECT

 public:
  explicit ViewPlayer(LeagueSession& session);

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void Form_Unload() override;
  void cmbTeam_Click();
  void cmbPlayer_Click();
  void cmbPosition_Click();
  void btnEdit_Click();
  void btnOK_Click();

  /// Rebuilds the lists after the editor has stored a player, and selects him again by his name.
  void ReselectPlayer();

  void FillLists();
  void ShowNumberAndRatings();

  LeagueSession& session_;
  QPointer<EditPlayer> editor_;

  DropDownList* cmbTeam = nullptr;
  DropDownList* cmbPlayer = nullptr;
  DropDownList* cmbPosition = nullptr;
  QLabel* lblNumber = nullptr;
  PictureBox* imgFace = nullptr;
  AttributePanel* Frame1 = nullptr;
  QPushButton* btnEdit = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
