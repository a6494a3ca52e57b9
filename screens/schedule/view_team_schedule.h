#pragma once

#include "league/league_session.h"
#include "toolkit/control_array.h"
#include "toolkit/elided_label.h"
#include "toolkit/form.h"

namespace rostermill {

/// "Team Schedule": the 17 weeks of the team SchedTeam, one line each. The opponent of a home game
/// is in lower case, that of an away game in upper case. Ctrl+C copies everything.
class ViewTeamSchedule : public ChildForm {
  Q_OBJECT

 public:
  explicit ViewTeamSchedule(const LeagueSession& session);

  /// Shows the season of the current SchedTeam.
  void ShowTeam();

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  /// Marks all lines as selected; a copy takes all of them, marked or not.
  void MarkSelected(bool selected);
  void BuildControls();
  void LayOut();

  void Form_Load();

  QString OpponentText(const ScheduleWeek& week) const;
  QString CopiedText() const;

  const LeagueSession& session_;

  ElidedLabel* lblTeamName = nullptr;
  ControlArray<ElidedLabel> lblOpponent{"lblOpponent"};
};

}  // namespace rostermill
