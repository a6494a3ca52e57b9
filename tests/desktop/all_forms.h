#pragma once

#include "screens/probowl/place_label.h"
#include "shell/loading.h"
#include "tests/support/main_window.h"
#include "toolkit/picture_box.h"

namespace rostermill::test {

/// The main window with the sample league loaded, and a visit to every form that it can show.
class AllForms : public MainWindow {
 protected:
  AllForms() {
    EXPECT_TRUE(window_.OpenImageFile(path_));
    Activate(window_);
  }

  using Look = std::function<void(QWidget& form)>;

  /// Calls `look` with an open child form.
  void LookAt(const QString& name, const Look& look) {
    SCOPED_TRACE(name.toStdString());
    QCoreApplication::processEvents();
    look(Form(name));
  }
  /// Calls `look` with the dialog that `open` opens. A control has to have the focus afterward.
  void LookAtDialog(const QString& name, const Look& look, const std::function<void()>& open) {
    SCOPED_TRACE(name.toStdString());
    int looks = 0;
    OnNextDialog([&](QDialog& dialog) {
      EXPECT_EQ(dialog.objectName(), name);
      Activate(dialog);
      ++looks;
      look(dialog);
      dialog.reject();
    });
    open();
    // A window manager would do this.
    Activate(window_);
    EXPECT_EQ(looks, 1);
    EXPECT_NE(QApplication::focusWidget(), nullptr) << "the focus is lost after the dialog";
  }

  /// Calls `look` with each child form and each dialog of the program while it is open.
  void VisitAll(const Look& look) {
    VisitPlayersAndTeams(look);
    VisitTheOthers(look);
  }

 private:
  void VisitPlayersAndTeams(const Look& look) {
    Pick("mViePlayerData");
    LookAt("ViewPlayer", look);
    Press("ViewPlayer", "btnEdit");
    LookAt("EditPlayer", look);
    LookAtDialog("PlayerPhotos", look, [this] {
      auto& face = Find<PictureBox>(Form("EditPlayer"), "imgFace");
      face.setFocus();
      QTest::keyClick(&face, Qt::Key_Space);
    });
    Press("ViewPlayer", "btnOK");
    Pick("mVieTeamData");
    LookAt("ViewTeams", look);
    Press("ViewTeams", "btnEdit");
    LookAt("EditTeam", look);
    LookAtDialog("ChoosePlay", look, [this] { Press("EditTeam", "btnPlay(5)"); });
    LookAtDialog("ChooseColor", look, [this] { Press("EditTeam", "btnChange(0)"); });
    Press("ViewTeams", "btnOK");
  }

  void VisitTheOthers(const Look& look) {
    Pick("mSchVieAll");
    LookAt("ViewSchedule", look);
    Pick("mAFCe1");
    LookAt("ViewTeamSchedule", look);
    Pick("mSchEdit");
    LookAt("frmEditSchedule", look);
    Pick("mVieLeaders");
    LookAt("ViewLeaders", look);
    LookAtDialog("FormPrint", look, [this] { Press("ViewLeaders", "btnPrint"); });
    Pick("mDatProbowl");
    LookAt("frmProbowl", look);
    Press("frmProbowl", "btnNFCroster");
    LookAt("frmRoster", look);
    LookAtDialog("frmChoosePlayer", look, [this] {
      auto& place = Find<PlaceLabel>(Form("frmRoster"), "lblQB(1)");
      place.setFocus();
      QTest::keyClick(&place, Qt::Key_Space);
    });
    Pick("mnuEditGameSettings");
    LookAt("frmEditGameSettings", look);
    Pick("mToolVersions");
    LookAt("frmVersions", look);
    Pick("mToolPlayers");
    LookAt("frmAllPlayers", look);
    LookAtDialog("frmSetRatings", look, [this] { Press("frmAllPlayers", "btnSet"); });
    Pick("mToolCheck");
    LookAt("frmCheckLeague", look);
    std::vector<std::uint8_t> other = SampleBytes();
    other[0x1FD7C] = 'B';  // the first letter of a city
    WriteFile(folder_.Path("other.nes"), other);
    AnswerNextFileDialog(QString::fromStdString(folder_.Path("other.nes")));
    Pick("mToolCompare");
    Activate(window_);
    LookAt("frmCompare", look);
    Area().ShowForm(new Loading);
    LookAt("Loading", look);
  }
};

}  // namespace rostermill::test
