#pragma once

#include "league/league_session.h"
#include "toolkit/color_box.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"

namespace rostermill {

class ElidedLabel;
class GridWalk;

/// "Choose Color": the 64 colors of the palette. ColorSlot says who asks. The pick is left in
/// ColorChoice, NoColor after Cancel; OK also puts a jersey color into PreviewColors. The close box
/// leaves ColorChoice at the last pick and stores nothing.
class ChooseColor : public DialogForm {
  Q_OBJECT

 public:
  /// `current_color` is the initial pick for a champion color; for a jersey color it is taken from
  /// PreviewColors.
  ChooseColor(QWidget* parent, LeagueSession& session, int current_color = 0);

  /// Esc.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void picColor_Click(int Index);
  void btnOK_Click();
  void btnCancel_Click();

  bool AsksForJersey() const { return session_.ColorSlot != NoColor; }
  void ShowCurrentColor();
  void CenterOnScreen();

  LeagueSession& session_;
  int CurrentColor;

  ControlArray<ColorBox> picColor{"picColor"};
  GridWalk* walk_ = nullptr;
  ColorBox* picCurrentColor = nullptr;
  ElidedLabel* lblColor = nullptr;
  QPushButton* btnOK = nullptr;
  QPushButton* btnCancel = nullptr;
};

}  // namespace rostermill
