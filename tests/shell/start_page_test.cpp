#include "shell/start_page.h"

#include <QLabel>
#include <QMenu>
#include <QScreen>

#include "shell/command_line.h"
#include "tests/support/main_window.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

class StartPageTest : public MainWindow {
 protected:
  StartPage& Page() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // to the links before
    return Find<StartPage>(window_, "StartPage");
  }
  void PressLink(int index) {
    QTest::keyClick(&Find<QPushButton>(Page(), MemberName("btnLink", index)), Qt::Key_Return);
    QCoreApplication::processEvents();
  }
};

TEST_F(StartPageTest, OffersRecentFilesThenScreensAndGivesWayToForms) {
  EXPECT_EQ(Page().findChild<QLabel*>("lblLinks"), nullptr) << "no file is recent";
  window_.AddRecentFile(FromUtf8(path_));
  PressLink(0);
  EXPECT_EQ(session_.ImageLoaded, 1);
  EXPECT_EQ(Page().geometry(), Area().viewport()->rect());
  AnswerNextMessage("OK");
  EXPECT_FALSE(window_.OpenImageFile(BinFolder() + "colors.txt"));
  EXPECT_EQ(Find<QLabel>(Page(), "lblStart").text(), "league.nes") << "after a rejected file";

  Activate(window_);
  auto& first = Find<QPushButton>(Page(), "btnLink(0)");
  const int text_width = first.fontMetrics().horizontalAdvance(first.text());
  EXPECT_GE(first.width(), text_width + 6);
  EXPECT_LE(first.width(), text_width + 20) << "only the text can be clicked";
  first.setFocus();
  const QImage with_focus = first.grab().toImage();
  Find<QPushButton>(Page(), "btnLink(1)").setFocus();
  EXPECT_NE(first.grab().toImage(), with_focus);

  PressLink(3);
  EXPECT_TRUE(IsOpen("ViewLeaders"));
  EXPECT_FALSE(Page().isVisible());
  Area().activeSubWindow()->showMinimized();
  EXPECT_FALSE(Page().isVisible());
  Press("ViewLeaders", "btnOK");
  EXPECT_TRUE(Page().isVisible());
}

TEST_F(StartPageTest, TheWindowMenuListsTheFormsInCtrlTabsOrderAndClosesThem) {
  EXPECT_TRUE(window_.OpenImageFile(path_));
  Activate(window_);
  const std::pair<int, const char*> keys[] = {
      {Qt::Key_1, "ViewPlayer"},  {Qt::Key_2, "ViewTeams"},  {Qt::Key_3, "frmEditSchedule"},
      {Qt::Key_4, "ViewLeaders"}, {Qt::Key_5, "frmProbowl"}, {Qt::Key_6, "frmEditGameSettings"}};
  for (const auto& [key, form] : keys) {
    QTest::keyClick(&window_, static_cast<Qt::Key>(key), Qt::ControlModifier);
    EXPECT_TRUE(IsOpen(form)) << form;
  }
  Press("ViewPlayer", "btnEdit");
  const auto listed = [this] {
    QMenu& menu = *Item("mWindow").menu();
    emit menu.aboutToShow();
    QStringList texts;
    for (const QAction* item : menu.actions()) {
      if (!item->isCheckable()) continue;
      EXPECT_EQ(item->objectName(), QString("mWinForm(%1)").arg(texts.size()));
      texts << (item->isChecked() ? "*" : "") + item->text();
    }
    return texts.join(", ").toStdString();
  };
  EXPECT_EQ(listed(),
            "*&1 Edit Player Statstistics, &2 Game Settings, &3 Probowl Data, &4 View Leaders, "
            "&5 RSM Schedule Editor, &6 View Teams, &7 View Player Statstistics");
  Pick("mWinForm(5)");
  EXPECT_EQ(listed().substr(0, 14), "*&1 View Teams");
  for (const char* item : {"mSchVieAll", "mAFCe1", "mToolCheck"}) Pick(item);
  EXPECT_TRUE(listed().ends_with(", &9 RSM Schedule Editor, View Player Statstistics")) << listed();
  Pick("mWinCascade");
  EXPECT_NE(Form("ViewTeams").parentWidget()->pos(), QPoint(0, 0));
  Pick("mWinCloseAll");
  EXPECT_TRUE(Area().subWindowList().isEmpty());
  EXPECT_EQ(listed(), "");
  EXPECT_FALSE(Item("mWinTile").isEnabled());
}

TEST_F(StartPageTest, TheSizeOfTheWindowIsKeptAndFitsTheScreen) {
  const QSize room = window_.screen()->availableGeometry().size();
  for (const auto& [left, opened] :
       {std::pair(QSize(600, 500), QSize(600, 500)), std::pair(QSize(9000, 9000), room * 0.95),
        std::pair(QSize(1, 1), QSize(320, 240))}) {
    window_.setMinimumSize(1, 1);
    window_.show();
    window_.resize(left);
    window_.close();
    settings_.setValue("Window/Size", left == QSize(1, 1) ? left : settings_.value("Window/Size"));
    LeagueSession other;
    FRSMform next(other, &settings_);
    EXPECT_EQ(next.size(), opened.expandedTo(next.minimumSizeHint()));
  }
  window_.show();
  window_.resize(600, 500);
  window_.showMaximized();
  window_.close();
  EXPECT_EQ(settings_.value("Window/Size").toSize(), QSize(600, 500)) << "not the screen's";
}

TEST(CommandLine, TakesOneFileOrAsksForATextAndRefusesTheRest) {
  const auto read = [](const std::vector<std::string>& words) {
    const CommandLine asked = ReadCommandLine(words);
    return asked.Image + "|" + std::to_string(asked.ExitCode) + "|" + asked.Print;
  };
  const std::string see = "; see rostermill --help\n";
  EXPECT_EQ(read({}), "|0|");
  EXPECT_EQ(read({"a b.nes"}), "a b.nes|0|");
  EXPECT_EQ(read({"--", "--help"}), "--help|0|");
  EXPECT_EQ(read({"--version"}), "|0|rostermill " ROSTERMILL_VERSION "\n");
  EXPECT_EQ(read({"--help"}).substr(0, 33), "|0|Usage: rostermill [FILE]\nOpens");
  EXPECT_EQ(read({"-platform", "x"}), "|2|rostermill: unknown option -platform" + see);
  EXPECT_EQ(read({"a.nes", "b.nes"}), "|2|rostermill: only one file can be opened" + see);
  EXPECT_EQ(read({""}), "|2|rostermill: the file's name is empty" + see);
}

}  // namespace
}  // namespace rostermill::test
