#include <QComboBox>
#include <QLabel>

#include "toolkit/up_down.h"
#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

void VisitSchedule(Tour& tour) {
  using driver::Find;
  tour.Pick("mSchVieAll");
  tour.Picture(tour.Form("ViewSchedule"), "season");
  tour.Form("ViewSchedule").parentWidget()->close();

  tour.Pick("mAFCe1");
  QWidget& weeks = tour.Form("ViewTeamSchedule");
  tour.Require(Find<QLabel>(weeks, "lblTeamName").text() == "HARBORTON SPARROWS",
               "the season is that of the chosen team");
  tour.Picture(weeks, "team-season");
  weeks.parentWidget()->close();

  tour.Pick("mSchEdit");
  QWidget& editor = tour.Form("frmEditSchedule");
  tour.Picture(editor, "edit-schedule");
  for (int week = 0; week < 4; ++week) emit Find<UpDown>(editor, "udWeek").UpClick();
  tour.Choose(Find<QComboBox>(editor, "cmbTeam(0)"), "FROS");
  tour.Picture(editor, "edit-schedule-odd-week");
  tour.Click("frmEditSchedule", "cmdCancel");
}

}  // namespace rostermill
