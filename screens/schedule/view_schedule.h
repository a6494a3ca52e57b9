#pragma once

#include "league/league_session.h"
#include "toolkit/flex_grid.h"
#include "toolkit/form.h"

namespace rostermill {

/// "NFL Schedule": the whole season in one grid, a row per week and a cell per game, as it was when
/// the window opened.
class ViewSchedule : public ChildForm {
  Q_OBJECT

 public:
  explicit ViewSchedule(const LeagueSession& session);

 private:
  void LayOut();

  void Form_Load();

  void ShowWeek(int w);

  const LeagueSession& session_;

  FlexGrid* grdSchedule = nullptr;
};

}  // namespace rostermill
