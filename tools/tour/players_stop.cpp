#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "shell/rsm_form.h"
#include "toolkit/picture_box.h"
#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

void VisitPlayers(Tour& tour) {
  using driver::Find;
  tour.Pick("mViePlayerData");
  QWidget& viewer = tour.Form("ViewPlayer");
  tour.Picture(viewer, "view-player");
  auto& teams = Find<QComboBox>(viewer, "cmbTeam");
  auto& positions = Find<QComboBox>(viewer, "cmbPosition");
  tour.Choose(teams, "RIVERMOOR");
  tour.Choose(positions, "WR 3");
  tour.Click("ViewPlayer", "btnEdit");
  QWidget& editor = tour.Form("EditPlayer");
  tour.Picture(editor, "edit-player-receiver");
  tour.Choose(positions, "QB 1");
  Find<QPushButton>(editor, "btnPlus(4)").click();
  Find<QPushButton>(editor, "btnMinus(8)").click();
  Find<QLineEdit>(editor, "txtPlayer").setText("dale tern");
  Find<QPushButton>(editor, "btnSavePlayer").click();
  tour.Require(Find<QLineEdit>(editor, "txtPlayer").text() == "Dale Tern",
               "the editor shows the stored player");
  tour.Require(Find<QComboBox>(viewer, "cmbPlayer").currentText() == "TERN, dale",
               "the viewer follows the editor");
  tour.Picture(editor, "edit-player");
  tour.Picture(tour.Window(), "viewer-and-editor");
  driver::OnNextDialog([&tour](QDialog& photos) {
    tour.Picture(photos, "player-photos-first-page");
    Find<QRadioButton>(photos, "radBlack").click();
    tour.Picture(photos, "player-photos-second-page");
    emit Find<PictureBox>(photos, "imgFace(17)").Click();
    driver::ClickButton(photos, "OK");
  });
  emit Find<PictureBox>(editor, "imgFace").MouseDown(Qt::LeftButton);
  tour.Require(Find<QLabel>(editor, "lblFace").text() == "145", "the picked face is pending");
  tour.Choose(positions, "LT");
  tour.Picture(viewer, "view-player-lineman");
  tour.Click("ViewPlayer", "btnOK");
}

}  // namespace rostermill
