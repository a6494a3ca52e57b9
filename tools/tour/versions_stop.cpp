#include <QLabel>
#include <QTreeWidget>

#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

void VisitVersions(Tour& tour) {
  using driver::Find;
  tour.Pick("mToolVersions");
  QWidget& versions = tour.Form("frmVersions");
  tour.Click("frmVersions", "btnCompare");
  tour.Picture(versions, "earlier-versions");
  const LeagueData saved = tour.Session().League();
  tour.Click("frmVersions", "btnBring");
  tour.Require(Find<QLabel>(*versions.window(), "lblChanged").text() == "Changed",
               "what is brought back differs from the file");
  tour.Picture(*versions.window(), "brought-back");
  tour.Pick("mnuEditUndo");
  tour.Require(tour.Session().League() == saved, "bringing back is one step");
  tour.Click("frmVersions", "btnOK");
}

}  // namespace rostermill
