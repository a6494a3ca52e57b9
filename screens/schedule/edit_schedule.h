#pragma once

#include <array>
#include <cstdint>

#include "league/league_session.h"
#include "rules/season_facts.h"
#include "toolkit/combo_box.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"
#include "toolkit/up_down.h"

class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;

namespace rostermill {

/// "RSM Schedule Editor": changes the season week by week, in a copy that OK puts back. Box 2g is
/// the visitor of game g, box 2g + 1 its host. Below the games the form points out what is odd
/// about the week; nothing is forbidden. A text typed in a box is taken when the box is left or
/// Enter is pressed; Esc shows the stored team again.
class frmEditSchedule : public ChildForm {
  Q_OBJECT

 public:
  explicit frmEditSchedule(LeagueSession& session);

  /// Shows a week, 1 to 17.
  void GoToWeek(int week);
  /// "Edit Schedule" if the season here is not stored yet.
  QStringList NotStored() const;

 protected:
  /// Enter and Esc apply to a text that is not taken yet before they reach the buttons.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildControls();
  QLayout* LayOutSteps();
  QGroupBox* LayOutGames();
  QLayout* LayOutFacts();
  void LayOut();
  void Connect();

  void Form_Load();
  void udWeek_UpClick();
  void udWeek_DownClick();
  void upGames_UpClick();
  void upGames_DownClick();
  void cmbTeam_Click(int Index);
  void cmbTeam_LostFocus(int Index);
  void cmdOK_Click();
  void cmdCancel_Click();

  /// Fills the screen for a week, 0 to 16.
  void LoadWeek(std::uint8_t weekNum);
  /// Shows the rows of the games in use, and their number.
  void ShowGames();

  /// Shows the stored team of a box, as plain text if the list does not have it.
  void FillBox(int Index);
  /// Whether the box shows something other than what the form put there.
  bool IsTyped(int Index) const;
  /// Selects the first entry that begins with the typed text; clears a text that begins none.
  void CompleteText(int Index);
  void ShowFacts();
  /// The stored team number of a box of the week on view.
  std::int16_t& SideOf(int Index);

  LeagueSession& session_;
  /// What each box was last filled with, or what was picked in it since.
  std::array<QString, 2 * GamesPerWeek> filled_text_;
  Season WorkSchedule;
  Season filled_schedule_;  ///< as it was when the form opened
  std::uint8_t CurrentWeek = 0;
  bool LoadingWeek = false;

  QLabel* lblWeek = nullptr;
  UpDown* udWeek = nullptr;
  QLabel* lblGames = nullptr;
  UpDown* upGames = nullptr;
  ControlArray<ComboBox> cmbTeam{"cmbTeam"};
  ControlArray<QLabel> lblAt{"lblAt"};
  QLabel* lblSeason = nullptr;
  QLabel* lblTwice = nullptr;
  QLabel* lblItself = nullptr;
  QLabel* lblWithoutGame = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;
};

}  // namespace rostermill
