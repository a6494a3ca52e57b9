#include <QLabel>
#include <QPushButton>

#include "shell/rsm_form.h"
#include "toolkit/picture_box.h"
#include "toolkit/text_box.h"
#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

namespace {

/// Takes a picture of the next dialog, clicks a picture in it, and presses OK.
void PickInNextDialog(Tour& tour, const QString& picture_name, const QString& pick) {
  driver::OnNextDialog([&tour, picture_name, pick](QDialog& dialog) {
    emit driver::Find<PictureBox>(dialog, pick).Click();
    tour.Picture(dialog, picture_name);
    driver::ClickButton(dialog, "OK");
  });
}

}  // namespace

void VisitTeams(Tour& tour) {
  using driver::Find;
  tour.Pick("mVieTeamData");
  QWidget& viewer = tour.Form("ViewTeams");
  tour.Choose(Find<QComboBox>(viewer, "cmbTeam"), "RIVERMOOR");
  tour.Picture(viewer, "view-teams");
  tour.Click("ViewTeams", "btnEdit");
  QWidget& editor = tour.Form("EditTeam");
  tour.Picture(editor, "edit-team");

  PickInNextDialog(tour, "choose-play", "picRun(6)");
  tour.Click("EditTeam", "btnPlay(5)");
  tour.Require(Find<QPushButton>(editor, "btnPlay(5)").text() == "Oneback Z Cross",
               "the picked play is pending");
  driver::OnNextDialog([&tour](QDialog& dialog) {
    tour.Picture(dialog, "choose-color");
    driver::ClickButton(dialog, "Cancel");
  });
  tour.Click("EditTeam", "btnChange(0)");

  Find<TextBox>(editor, "txtName").setText("NAVIGATORS AHOY");
  tour.Picture(editor, "edit-team-changed");
  tour.Click("EditTeam", "btnSave");
  tour.Require(Find<QLabel>(viewer, "lblInfo(1)").text() == " NAVIGATORS AHOY",
               "the viewer follows the editor");
  tour.Picture(tour.Window(), "team-viewer-and-editor");
  Find<TextBox>(editor, "txtCity").SetText(QString(200, 'X'));
  tour.Picture(editor, "edit-team-texts-too-long");
  tour.Click("ViewTeams", "btnOK");
}

}  // namespace rostermill
