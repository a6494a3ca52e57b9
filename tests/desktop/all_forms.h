#pragma once

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "screens/probowl/place_label.h"
#include "shell/loading.h"
#include "shell/rsm_form.h"
#include "tests/support/dialogs.h"
#include "tests/support/sample.h"
#include "toolkit/picture_box.h"

namespace rostermill::test {

/// The main window with the sample league loaded, and a visit to every form that it can show.
class AllForms : public testing::Test {
 protected:
  AllForms() : path_(folder_.Path("league.nes")) {
    session_.AppDir = BinFolder();
    WriteFile(path_, SampleBytes());
    window_.show();
    EXPECT_TRUE(window_.OpenImageFile(path_));
    Activate(window_);
  }
  ~AllForms() override { EXPECT_EQ(DialogsStillExpected(), 0); }

  void Pick(const QString& item) {
    Find<QAction>(window_, item).trigger();
    QCoreApplication::processEvents();
  }
  QWidget& Form(const QString& name) { return Find<ChildForm>(window_, name); }
  ChildArea& Area() { return *window_.findChild<ChildArea*>(); }
  void Press(const QString& form, const QString& button) {
    Find<QPushButton>(Form(form), button).click();
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

  TempFolder folder_;
  std::string path_;
  LeagueSession session_;
  QSettings settings_{QString::fromStdString(folder_.Path("settings.ini")), QSettings::IniFormat};
  FRSMform window_{session_, &settings_};

  static void Activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
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
    Area().ShowForm(new Loading);
    LookAt("Loading", look);
  }
};

}  // namespace rostermill::test
