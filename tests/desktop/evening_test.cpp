#include <QMessageBox>
#include <QTableView>
#include <QTreeWidget>

#include "tests/desktop/story.h"
#include "tests/support/expected_text.h"
#include "tests/support/main_window.h"
#include "tests/support/typing.h"
#include "toolkit/color_box.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/up_down.h"

namespace rostermill::test {
namespace {

/// Opens all forms and records what each step changes in any of them.
class Evening : public MainWindow {
 protected:
  Evening() {
    EXPECT_TRUE(window_.OpenImageFile(path_));
    Activate(window_);
    for (const char* item :
         {"mViePlayerData", "mVieTeamData", "mSchVieAll", "mAFCe1", "mSchEdit", "mVieLeaders",
          "mnuEditGameSettings", "mToolVersions", "mToolCheck", "mToolPlayers", "mDatProbowl"}) {
      Pick(item);
    }
    Press("frmProbowl", "btnAFCroster");
    Press("ViewPlayer", "btnEdit");
    Press("ViewTeams", "btnEdit");
    story_.emplace(window_, session_, QString::fromStdString(folder_.Path()));
  }

  /// Performs a step and answers its messages with these buttons.
  void Step(const QString& title, const QStringList& answers, const std::function<void()>& act) {
    QString told = title;
    for (const QString& answer : answers) {
      OnNextDialog([&told, answer](QDialog& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        const QString text = box.text() + ' ' + box.informativeText();
        told += ", message " + box.windowTitle() + ": " + text + " -> " + answer;
        ClickButton(dialog, answer);
      });
    }
    act();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    story_->Tell(told);
  }
  void Type(const QString& form, const QString& box, const QString& text) {
    auto& line = Find<QLineEdit>(Form(form), box);
    line.selectAll();
    QTest::keyClicks(&line, text);
  }
  void PickEntry(const QString& form, const QString& list, int index) {
    Find<DropDownList>(Form(form), list).SetListIndex(index);
  }

  std::optional<Story> story_;
};

TEST_F(Evening, EveryFormFollowsEveryStep) {
  Step("A player of the team on view gets a name and a power", {}, [&] {
    Type("EditPlayer", "txtPlayer", "Ann Auk");
    Press("EditPlayer", "btnPlus(0)");
    Press("EditPlayer", "btnSavePlayer");
  });
  Step("A back returns kicks", {}, [&] {
    PickEntry("ViewPlayer", "cmbPosition", 2);
    Find<QAbstractButton>(Form("EditPlayer"), "chkKick").click();
    Press("EditPlayer", "btnSavePlayer");
  });
  Step("The team moves", {}, [&] {
    Type("EditTeam", "txtCity", "Ankle");
    Type("EditTeam", "txtAbbreviation", "ankl");
    PickEntry("EditTeam", "cmbFormation", 1);
    Press("EditTeam", "btnSave");
  });
  Step("It gets a champion's color", {}, [&] {
    OnNextDialog([](QDialog& dialog) {
      emit Find<ColorBox>(dialog, "picColor(9)").Click();
      ClickButton(dialog, "OK");
    });
    emit Find<ColorBox>(Form("EditTeam"), "picDivChamp(1)").Click();
  });
  Step("A game less in the first week", {}, [&] {
    emit Find<UpDown>(Form("frmEditSchedule"), "upGames").DownClick();
    Press("frmEditSchedule", "cmdOK");
  });
  Step("Another year", {}, [&] {
    Type("frmEditGameSettings", "txtRosterYear", "2031");
    Press("frmEditGameSettings", "cmdOK");
  });
  Step("A cell of the table", {}, [&] {
    auto& grid = Find<QTableView>(Form("frmAllPlayers"), "grdPlayers");
    grid.model()->setData(grid.model()->index(0, 3), "Heron", Qt::EditRole);
  });
  Step("An all-star", {}, [&] {
    OnNextDialog([](QDialog& dialog) {
      Find<DropDownList>(dialog, "cmbTeam").SetListIndex(3);
      Find<DropDownList>(dialog, "cmbPlayer").SetListIndex(1);
      ClickButton(dialog, "OK");
    });
    QTest::keyClick(&Find<QWidget>(Form("frmRoster"), "lblQB(1)"), Qt::Key_Space);
  });
  for (const char* what : {"the all-star", "the cell", "the year", "the game", "the color",
                           "the move", "the returner", "the name"}) {
    Step(QString("Undo ") + what, {}, [&] { Pick("mnuEditUndo"); });
  }
  Step("Redo the name", {}, [&] { Pick("mnuEditRedo"); });
  Step("Redo the returner", {}, [&] { Pick("mnuEditRedo"); });
  Step("A number is typed but not stored", {}, [&] { Press("EditPlayer", "btnPlus(8)"); });
  Step("A save is declined", {"No"}, [&] { Pick("mFilSaveROM"); });
  Step("A save", {"Yes"}, [&] { Pick("mFilSaveROM"); });
  Step("The first state is compared", {}, [&] { Press("frmVersions", "btnCompare"); });
  Step("The first state is brought back", {}, [&] { Press("frmVersions", "btnBring"); });
  Step("Not any more", {}, [&] { Pick("mnuEditUndo"); });
  Step("A part of it is taken", {}, [&] {
    Find<QTreeWidget>(Form("frmCompare"), "lstChanges")
        .topLevelItem(0)
        ->setCheckState(0, Qt::Checked);
    Press("frmCompare", "btnTake");
  });
  Step("The image is not unloaded", {"No"}, [&] { Pick("mFilUnloadROM"); });
  Step("The image is unloaded", {"Yes"}, [&] { Pick("mFilUnloadROM"); });
  Step("It is loaded again", {}, [&] { EXPECT_TRUE(window_.OpenImageFile(path_)); });
  ExpectTextOfFile("desktop/evening.txt", story_->Sections());
}

}  // namespace
}  // namespace rostermill::test
