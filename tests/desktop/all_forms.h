#pragma once

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

  /// Calls `look` with each child form and each dialog of the program while it is open.
  void VisitAll(const Look& look) {
    look_ = look;
    VisitPlayersAndTeams();
    VisitTheOthers();
  }

 private:
  /// Looks at an open child form.
  void LookAt(const QString& name) {
    SCOPED_TRACE(name.toStdString());
    QCoreApplication::processEvents();
    look_(Form(name));
  }
  void PickAndLookAt(const QString& item, const QString& name) {
    Pick(item);
    LookAt(name);
  }
  /// Looks at the dialog that `open` opens. A control has to have the focus afterward.
  void LookAtDialog(const QString& name, const std::function<void()>& open) {
    SCOPED_TRACE(name.toStdString());
    int looks = 0;
    OnNextDialog([&](QDialog& dialog) {
      EXPECT_EQ(dialog.objectName(), name);
      Activate(dialog);
      ++looks;
      look_(dialog);
      dialog.reject();
    });
    open();
    // A window manager would do this.
    Activate(window_);
    EXPECT_EQ(looks, 1);
    EXPECT_NE(QApplication::focusWidget(), nullptr) << "the focus is lost after the dialog";
  }
  void PressSpace(const QString& form, const QString& control) {
    auto& pressed = Find<QWidget>(Form(form), control);
    pressed.setFocus();
    QTest::keyClick(&pressed, Qt::Key_Space);
  }

  void VisitPlayersAndTeams() {
    PickAndLookAt("mViePlayerData", "ViewPlayer");
    Press("ViewPlayer", "btnEdit");
    LookAt("EditPlayer");
    LookAtDialog("PlayerPhotos", [this] { PressSpace("EditPlayer", "imgFace"); });
    Press("ViewPlayer", "btnOK");
    PickAndLookAt("mVieTeamData", "ViewTeams");
    Press("ViewTeams", "btnEdit");
    LookAt("EditTeam");
    LookAtDialog("ChoosePlay", [this] { Press("EditTeam", "btnPlay(5)"); });
    LookAtDialog("ChooseColor", [this] { Press("EditTeam", "btnChange(0)"); });
    Press("ViewTeams", "btnOK");
  }

  void VisitTheOthers() {
    PickAndLookAt("mSchVieAll", "ViewSchedule");
    PickAndLookAt("mAFCe1", "ViewTeamSchedule");
    PickAndLookAt("mSchEdit", "frmEditSchedule");
    PickAndLookAt("mVieLeaders", "ViewLeaders");
    LookAtDialog("FormPrint", [this] { Press("ViewLeaders", "btnPrint"); });
    PickAndLookAt("mDatProbowl", "frmProbowl");
    Press("frmProbowl", "btnNFCroster");
    LookAt("frmRoster");
    LookAtDialog("frmChoosePlayer", [this] { PressSpace("frmRoster", "lblQB(1)"); });
    PickAndLookAt("mnuEditGameSettings", "frmEditGameSettings");
    PickAndLookAt("mToolVersions", "frmVersions");
    PickAndLookAt("mToolPlayers", "frmAllPlayers");
    LookAtDialog("frmSetRatings", [this] { Press("frmAllPlayers", "btnSet"); });
    PickAndLookAt("mToolCheck", "frmCheckLeague");
    std::vector<std::uint8_t> other = SampleBytes();
    other[0x1FD7C] = 'B';  // the first letter of a city
    WriteFile(folder_.Path("other.nes"), other);
    AnswerNextFileDialog(QString::fromStdString(folder_.Path("other.nes")));
    Pick("mToolCompare");
    Activate(window_);
    LookAt("frmCompare");
    Area().ShowForm(new Loading);
    LookAt("Loading");
  }

  Look look_;
};

}  // namespace rostermill::test
