#pragma once

#include "league/league_session.h"
#include "toolkit/click_label.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"
#include "toolkit/picture_box.h"

namespace rostermill {

class ElidedLabel;

/// "Choose Play": the eight plays of the slot PlaySlot, starting with the stored one of the team on
/// view. OK puts the pick into PreviewPlays.
class ChoosePlay : public DialogForm {
  Q_OBJECT

 public:
  ChoosePlay(QWidget* parent, LeagueSession& session);

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void picRun_Click(int Index);
  void btnOK_Click();
  void btnCancel_Click();

  void ShowChoice(int choice);
  void FocusPlay(int choice);

  LeagueSession& session_;
  int slot_;  ///< 1 to 8

  ControlArray<PictureBox> picRun{"picRun"};
  ControlArray<ClickLabel> lblName{"lblName"};
  ElidedLabel* lblChosen = nullptr;
  QPushButton* btnOK = nullptr;
  QPushButton* btnCancel = nullptr;
};

}  // namespace rostermill
