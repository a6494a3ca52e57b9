#pragma once

#include <QPointer>

#include "history/undo_stack.h"
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

  /// Shows the player on view anew, with all lists. The editor keeps its pending values unless that
  /// player was changed.
  void ShowTouched(const Touched& touched);
  /// Shows a player, of two namesakes too, as if he had been picked.
  void GoToPlayer(int team, int slot);
  /// The editor, if it has values that are not stored yet.
  QStringList NotStored() const;

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

  /// Goes to the next (+1) or the previous (-1) slot of the team; there is none after the last.
  void StepSlot(int step);
  /// Rebuilds the lists after the editor has stored a player, and shows the player who has the
  /// pending name; of namesakes the one with the lower slot.
  void ReselectPlayer();

  /// Fills the lists of teams and positions and selects the team that sorts first.
  void FillTeams();
  /// Fills the list of the team's players, selects the one who sorts first, and labels the
  /// positions for the team's formation.
  void FillPlayers(int team);
  /// Fills all lists and selects the team, without an event.
  void FillListsFor(int team);
  /// The team or slot whose text is selected; 0 if the league has none, because the list was filled
  /// before another image was loaded or a name was changed. Of equal texts the lowest counts.
  int PickedTeam() const;
  int PickedSlot(int team) const;
  /// Fills all lists and shows the first player of the first team.
  void ShowFirstTeam();
  /// Makes this player the current one and shows him here and in the editor. cmbPlayer must list
  /// his team. Changes of the lists' selections raise no events.
  void ShowPlayer(int team, int slot);
  /// The same without the editor.
  void ShowPlayerHere(int team, int slot);

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
