#include "shell/rsm_form.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include "league/load_steps.h"
#include "shell/loading.h"
#include "shell/window_icon.h"
#include "tests/support/main_window.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

class MainForm : public MainWindow {
 protected:
  QString Status() { return Find<QLabel>(window_, "StatusBar1.Panels(1)").text(); }
};

/// The names, captions and shortcuts of the visible items, and in braces those of their submenus;
/// items that can't be picked are in brackets.
QString Described(const QList<QAction*>& items) {
  QStringList described;
  for (const QAction* item : items) {
    QString text = item->objectName();
    if (!item->isSeparator()) text += '=' + item->text();
    if (!item->shortcut().isEmpty()) text += ' ' + item->shortcut().toString();
    if (item->menu() != nullptr) text += " {" + Described(item->menu()->actions()) + '}';
    if (item->isVisible()) described << (item->isEnabled() ? text : '[' + text + ']');
  }
  return described.join(", ");
}

TEST_F(MainForm, TheMenuOffersWhatCanBePickedAndNamesTheTeams) {
  const QString menu =
      "mFilE=&File {[mFilUnloadROM=&Unload ROM Ctrl+W], mFilLoadROM=&Load ROM... Ctrl+O, "
      "[mFilSaveROM=&Save ROM Ctrl+S], mFilB1, "
      "mnuFileRecentFiles=&Recent Files {mnuFileRecent(0)=&1 /a.nes}, mnuFileB2, "
      "mFilExit=&Exit Ctrl+Q}, mView=&Edit {[mnuEditGameSettings=&Game Settings Ctrl+6], mDatB1, "
      "[mViePlayerData=&Players Ctrl+1], [mVieTeamData=&Teams Ctrl+2], mnuEditB2, "
      "[mSchEdit=&Schedule Ctrl+3], [mDatProbowl=Pro&bowl Roster Ctrl+5], mnuEditB3, "
      "<mnuEditUndo=&Undo Ctrl+Z>, <mnuEditRedo=&Redo Ctrl+Shift+Z>}, "
      "mView1=&View {[mVieLeaders=&Leaders Ctrl+4], [mSchView=&Schedule {mSchVieAll=&League, "
      "mSchVieB1, mSchVieAFC=&AFC {"
      "mSchVieAFCEast=&East {mAFCe1=%1, mAFCe2=%2, mAFCe3=%3, mAFCe4=%4, mAFCe5=%5}, "
      "mSchVieAFCCentral=&Central {mAFCc1=%6, mAFCc2=%7, mAFCc3=%8, mAFCc4=%9}, "
      "mSchVieAFCWest=&West {mAFCw1=%10, mAFCw2=%11, mAFCw3=%12, mAFCw4=%13, mAFCw5=%14}}, "
      "mSchVieNFC=&NFC {"
      "mVieNFCEast=&East {mNFCe1=%15, mNFCe2=%16, mNFCe3=%17, mNFCe4=%18, mNFCe5=%19}, "
      "mVieNFCCentral=&Central {mNFCc1=%20, mNFCc2=%21, mNFCc3=%22, mNFCc4=%23, mNFCc5=%24}, "
      "mViewNFCWest=&West {mNFCw1=%25, mNFCw2=%26, mNFCw3=%27, mNFCw4=%28}}}]}, "
      "mTools=&Tools {[mToolPlayers=All &Players Ctrl+F], [mToolCheck=&Check League], "
      "[mToolCompare=Co&mpare With...], [mToolMerge=Mer&ge With...], [mToolPatch=Make Patc&h...], "
      "mnuToolB1, [mToolPlay=Pla&y F5], mToolEmulator=Choose &Emulator..., mnuToolB2, "
      "[mToolVersions=Earlier &Versions], <mToolUnsaved=Bring Back &Unsaved Changes>}, "
      "mWindow=&Window {<mWinTile=&Tile>, <mWinCascade=&Cascade>, <mWinCloseAll=Close &All>, "
      "mWinB1}, mHelp=&Help {mHelAbout=&About}";
  const auto expect_menu = [&](bool loaded) {
    QString expected = menu;
    if (loaded) expected.remove('[').remove(']');
    expected.replace('<', '[').replace('>', ']');
    for (const TeamRec& team : LeagueOf(session_).TeamData) {
      expected = expected.arg(loaded ? FromLatin1(team.City + " " + team.Nickname) : " ");
    }
    EXPECT_EQ(Described(window_.menuBar()->actions()).toStdString(), expected.toStdString());
  };
  window_.AddRecentFile("/a.nes");
  expect_menu(false);
  AnswerNextMessage("OK");
  EXPECT_FALSE(window_.OpenImageFile(BinFolder() + "colors.txt"));
  expect_menu(false);
  EXPECT_TRUE(window_.OpenImageFile(path_));
  expect_menu(true);
  LeagueOf(session_).TeamData[1].City = "A\tB & C";
  window_.UpdateCommandState();
  EXPECT_EQ(Item("mAFCe1").text(), "A B && C SPARROWS");
  AnswerNextMessage("Yes");
  Item("mFilUnloadROM").trigger();
  expect_menu(false);
}

TEST_F(MainForm, EachTeamsItemShowsItsSchedule) {
  Load(path_);
  int team = 0;
  for (const char* division : {"mAFCe", "mAFCc", "mAFCw", "mNFCe", "mNFCc", "mNFCw"}) {
    for (int place = 1; auto* item = window_.findChild<QAction*>(division + QString::number(place));
         ++place) {
      item->trigger();
      EXPECT_EQ(Find<QLabel>(Form("ViewTeamSchedule"), "lblTeamName").text(), item->text());
      EXPECT_EQ(session_.SchedTeam, ++team);
    }
  }
  EXPECT_EQ(team, 28);
}

TEST_F(MainForm, OpensInTheMiddleOfTheScreenAndSaysWhatItIs) {
  const QRect screen = window_.screen()->availableGeometry();
  EXPECT_LT((window_.geometry().center() - screen.center()).manhattanLength(), 20);
  EXPECT_EQ(window_.size(), QSize(1440, 860).boundedTo(screen.size() * 0.95));
  EXPECT_EQ(window_.windowTitle(), "Rostermill");
  EXPECT_EQ(Status(), "No ROM Loaded");
  EXPECT_EQ(Find<QLabel>(window_, "StatusBar1.Panels(2)").text(), "Rostermill " ROSTERMILL_VERSION);
  for (const int size : {16, 24, 32, 48, 64, 128}) {
    const QString drawn = QString(":/icons/rostermill-%1.png").arg(size);
    EXPECT_EQ(WindowIcon().pixmap(size).toImage(), QPixmap(drawn).toImage()) << size;
  }
  QString text;
  QString title;
  AnswerNextMessage("OK", &text, &title);
  Item("mHelAbout").trigger();
  EXPECT_EQ(title, "About");
  EXPECT_TRUE(text.startsWith("Rostermill, " ROSTERMILL_VERSION "\n")) << text.toStdString();
  EXPECT_TRUE(text.contains(qVersion())) << text.toStdString();
  Item("mFilExit").trigger();
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(MainForm, ALoadShowsItsStepsAndTakesNoCommandMeanwhile) {
  EXPECT_TRUE(window_.OpenImageFile(path_));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QStringList lines;
  QTimer::singleShot(0, [&] {
    EXPECT_FALSE(window_.isEnabled());
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    auto& loading = dynamic_cast<ChildForm&>(Form("Loading"));
    const QRect place = loading.parentWidget()->geometry();
    EXPECT_EQ(place.center(), Area().viewport()->rect().center());
    Item("mVieLeaders").trigger();
    QObject::connect(&loading, &ChildForm::Unloaded, [&] {
      for (const QLabel* line : loading.findChildren<QLabel*>()) lines << line->text();
    });
  });
  EXPECT_TRUE(window_.OpenImageFile(path_));
  EXPECT_EQ(lines,
            QStringList({"Validating...File OK", "Player Attributes...Done", "Player Names...Done",
                         "Team Data...Done", "Team Colors...Done", "Default Playbooks...Done",
                         "Schedule...Done", "Game Settings...Done"}));
  EXPECT_FALSE(IsOpen("Loading") || IsOpen("ViewLeaders"));
  EXPECT_TRUE(window_.isEnabled());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(Status().toStdString(), path_);
}

TEST_F(MainForm, ARejectedFileOrACancelLeavesPathStatusAndLeagueInUse) {
  Load("");
  EXPECT_EQ(session_.ImageLoaded, 0);
  Load(path_);
  const LeagueData before = LeagueOf(session_);
  WriteFile(folder_.Path("other.nes"), std::string("not an image"));
  AnswerNextFileDialog(FromUtf8(folder_.Path("other.nes")));
  OnNextDialog([](QDialog& dialog) {
    auto& box = dynamic_cast<QMessageBox&>(dialog);
    EXPECT_EQ(box.text(), "Not a valid ROM file!");
    EXPECT_EQ(box.windowTitle(), "Error");
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    box.accept();
  });
  Item("mFilLoadROM").trigger();
  EXPECT_EQ(session_.ImagePath, path_);
  EXPECT_EQ(Status().toStdString(), path_);
  EXPECT_EQ(LeagueOf(session_), before);
  EXPECT_FALSE(IsOpen("Loading"));
  EXPECT_EQ(window_.GetRecentFiles(), (RecentFiles::List{FromUtf8(path_), "", "", ""}));
  OnNextDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
  Item("mFilUnloadROM").trigger();
  EXPECT_EQ(session_.ImageLoaded, 1) << "Enter unloads nothing";
}

TEST_F(MainForm, AMissingPaletteIsAskedForAndABlankAnswerEndsTheProgram) {
  session_.AppDir = folder_.Path("");
  OnNextDialog([](QDialog& dialog) {
    auto& box = dynamic_cast<QInputDialog&>(dialog);
    EXPECT_EQ(box.windowTitle(), "File Not Found");
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    box.setTextValue(QString::fromStdString(BinFolder()));
    box.accept();
  });
  EXPECT_TRUE(window_.OpenImageFile(path_));
  EXPECT_EQ(session_.AppDir, BinFolder());

  session_.AppDir = folder_.Path("");
  OnNextDialog([](QDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(window_.OpenImageFile(path_));
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace rostermill::test
