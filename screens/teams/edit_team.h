#pragma once

#include "league/league_session.h"
#include "screens/teams/edit_team_parts.h"
#include "toolkit/color_box.h"
#include "toolkit/control_array.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/elided_button.h"
#include "toolkit/form.h"
#include "toolkit/text_box.h"

namespace rostermill {

/// "Edit Team": changes the team ViewTeam. Pending values are in the working copies of the session,
/// and btnSave moves them into the league; champion colors go there at once.
class EditTeam : public ChildForm {
  Q_OBJECT

 public:
  explicit EditTeam(LeagueSession& session);

  /// Copies the team on view into the working copies and shows it; pending changes are discarded.
  void LoadTeam();
  /// "Edit Team (Harborton Sparrows)" if there are pending changes.
  QStringList NotStored() const;

 signals:
  /// The team has been stored; `list_text` is its new text in team lists.
  void TeamSaved(const QString& list_text);

 private:
  void BuildControls();
  void LayOut();
  QWidget* LayOutGeneral();
  QWidget* LayOutColors();
  QWidget* LayOutPlayBook();
  void Connect();

  void Form_Load();
  void Form_Unload() override;
  void txtCity_Change();
  void txtName_Change();
  void txtAbbreviation_Change();
  void btnChange_Click(int Index);
  void btnPlay_Click(int Index);
  void Option1_Click(int Index);
  void Option2_Click(int Index);
  void Option3_Click(int Index);
  void picDivChamp_Click(int Index);
  void picConfChamp_Click(int Index);
  void btnSave_Click();
  void btnCancel_Click();

  /// Shows the champion colors of the team on view and its working copies, except the three texts,
  /// which their boxes already show.
  void FillEditTeam();
  void ShowJerseyColors();
  void ShowTextRoom();
  void SetSkin(int Index, int skin);
  /// `colors` is one of the team's tables of champion colors; `step` names the change.
  template <typename Colors>
  void ChooseChampColor(Colors TeamRec::*colors, int color, const std::string& step);

  /// All that can be pending, as it is shown.
  QStringList Values() const;

  LeagueSession& session_;
  QStringList filled_;  ///< Values after the form was filled

  TextBox* txtCity = nullptr;
  TextBox* txtName = nullptr;
  TextBox* txtAbbreviation = nullptr;
  ControlArray<ElidedButton> btnChange{"btnChange"};
  DropDownList* cmbFormation = nullptr;
  ControlArray<ElidedButton> btnPlay{"btnPlay"};
  ControlArray<PictureBox> picJersey{"picJersey", 2};
  SkinOptions skins_;
  ControlArray<ColorBox> picDivChamp{"picDivChamp"};
  ControlArray<ColorBox> picConfChamp{"picConfChamp"};
  QLabel* imgTextsTooLong = nullptr;
  QLabel* lblTextRoom = nullptr;
  QPushButton* btnSave = nullptr;
  QPushButton* btnCancel = nullptr;
};

}  // namespace rostermill
