#include <QLabel>
#include <QTreeWidget>

#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

void VisitTools(Tour& tour) {
  using driver::Find;
  tour.Pick("mToolCheck");
  tour.Picture(tour.Form("frmCheckLeague"), "league-check");
  tour.Click("frmCheckLeague", "btnOK");

  const LeagueData before = tour.Session().League();
  tour.Pick("mToolVersions");
  tour.Click("frmVersions", "btnCompare");
  QWidget& compare = tour.Form("frmCompare");
  QTreeWidgetItem* group = Find<QTreeWidget>(compare, "lstChanges").topLevelItem(0);
  tour.Require(group != nullptr, "the version differs");
  group->child(0)->setCheckState(0, Qt::Checked);
  tour.Picture(compare, "compare");
  tour.Click("frmCompare", "btnTake");
  tour.Require(tour.Session().League() != before, "what is ticked is taken");
  tour.Pick("mnuEditUndo");
  tour.Require(tour.Session().League() == before, "taking is one step");
  tour.Click("frmCompare", "btnOK");
  tour.Click("frmVersions", "btnOK");
}

}  // namespace rostermill
