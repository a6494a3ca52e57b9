#include <QLineEdit>

#include "screens/probowl/place_label.h"
#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

void VisitProbowl(Tour& tour) {
  using driver::Find;
  tour.Pick("mDatProbowl");
  tour.Picture(tour.Form("frmProbowl"), "probowl");
  tour.Click("frmProbowl", "btnNFCroster");
  QWidget& roster = tour.Form("frmRoster");
  tour.Picture(roster, "roster");
  driver::OnNextDialog([&tour](QDialog& chooser) {
    tour.Choose(Find<QComboBox>(chooser, "cmbTeam"), "PEACHFORD");
    tour.Picture(chooser, "choose-player");
    driver::ClickButton(chooser, "OK");
  });
  emit Find<PlaceLabel>(roster, "lblK(1)").MouseDown(Qt::LeftButton);
  const ProbowlRec& punter = tour.Session().League().ProbowlData[2][30];
  tour.Require(punter.Team == 28 && punter.Slot == 29, "the picked player takes the place");
  tour.Click("frmProbowl", "btnOK");
}

void VisitSettings(Tour& tour) {
  tour.Pick("mnuEditGameSettings");
  QWidget& settings = tour.Form("frmEditGameSettings");
  driver::Find<QLineEdit>(settings, "txtRosterYear").setText("1991");
  tour.Picture(settings, "game-settings");
  tour.Click("frmEditGameSettings", "cmdOK");
  tour.Require(tour.Session().League().RosterYear.str() == "1991", "the year is stored");
}

}  // namespace rostermill
