#pragma once

#include <QPointer>

#include "history/undo_stack.h"
#include "league/league_session.h"
#include "toolkit/color_box.h"
#include "toolkit/control_array.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/elided_label.h"
#include "toolkit/form.h"

namespace rostermill {

class EditTeam;

/// "View Teams": one team at a time, with its texts, jersey colors, formation and the pictures of
/// its plays. Changes nothing. Owns the team editor, which follows the team on view.
class ViewTeams : public ChildForm {
  Q_OBJECT

 public:
  explicit ViewTeams(LeagueSession& session);

  /// Shows the team on view anew, with the list. The editor keeps its pending values unless that
  /// team was changed.
  void ShowTouched(const Touched& touched);
  /// Shows a team as if it had been picked.
  void GoToTeam(int team);
  /// The editor, if it has values that are not stored yet.
  QStringList NotStored() const;

 protected:
  /// Shows the plays at the largest whole factor that there is room for.
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildControls();
  void LayOut();
  QWidget* LayOutGeneral();
  QWidget* LayOutColors();
  QWidget* LayOutMiscellaneous();
  QWidget* LayOutPlayBook();
  void Connect();

  void Form_Load();
  void Form_Unload() override;
  void cmbTeam_Click();
  void btnEdit_Click();
  void btnOK_Click();

  /// Rebuilds the list after the editor has stored the team, and selects and shows it by its new
  /// text.
  void ReselectTeam(const QString& list_text);

  /// Fills the list and selects the team that sorts first. Raises no event.
  void FillList();
  /// Fills the list and selects this team, without an event.
  void SelectInList(int team);
  /// Makes this team, 1 to 28, the one on view and shows it here, and in the editor if asked.
  void ShowTeam(int number, bool in_editor = true);
  void ShowColors();
  void ShowPlays();

  LeagueSession& session_;
  QSize least_size_;  ///< what the plays at factor 1 and the rest around them take
  QPointer<EditTeam> editor_;

  DropDownList* cmbTeam = nullptr;
  ControlArray<ElidedLabel> lblInfo{"lblInfo"};
  ControlArray<ColorBox> picSwatch{"picSwatch"};  ///< colors 1, 3, 4 and 6 of the team
  ControlArray<PictureBox> picRun{"picRun"};
  QPushButton* btnEdit = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
