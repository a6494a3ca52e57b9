#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

void VisitTools(Tour& tour) {
  using driver::Find;
  tour.Pick("mToolPlayers");
  QWidget& players = tour.Form("frmAllPlayers");
  auto& find = Find<QLineEdit>(players, "txtFind");
  find.setText("qb PC>=50");
  tour.Require(Find<QLabel>(players, "lblCount").text() != "840 of 840 players", "some are found");
  tour.Picture(players, "all-players-found");
  find.clear();
  tour.Picture(players, "all-players");
  driver::OnNextDialog([&tour](QDialog& dialog) {
    Find<QCheckBox>(dialog, "chkRating(0)").click();
    tour.Picture(dialog, "set-ratings");
    dialog.reject();
  });
  tour.Click("frmAllPlayers", "btnSet");
  tour.Click("frmAllPlayers", "btnOK");
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
