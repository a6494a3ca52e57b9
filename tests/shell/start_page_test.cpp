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
  StartPage& Page() { return Find<StartPage>(window_, "StartPage"); }
  /// The visible texts of the page, in reading order.
  std::string Texts() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList texts;
    for (const QWidget* part : Page().findChildren<QWidget*>()) {
      if (!part->isVisibleTo(&window_)) continue;
      if (auto* label = qobject_cast<const QLabel*>(part)) texts << label->text();
      if (auto* link = qobject_cast<const QPushButton*>(part)) texts << '<' + link->text() + '>';
    }
    texts.removeAll("");
    return texts.join('|').toStdString();
  }
  void PressLink(int index) {
    QTest::keyClick(&Find<QPushButton>(Page(), MemberName("btnLink", index)), Qt::Key_Return);
    QCoreApplication::processEvents();
  }
};

TEST_F(StartPageTest, OffersRecentFilesThenScreensAndGivesWayToForms) {
  const std::string invitation = "Drop a .nes file here, or press Ctrl+O";
  EXPECT_EQ(Texts(), invitation);
  window_.AddRecentFile(FromUtf8(path_));
  EXPECT_EQ(Texts(), invitation + "|Recent files|<" + path_ + ">");
  PressLink(0);
  EXPECT_EQ(session_.ImageLoaded, 1);
  const std::string screens =
      "league.nes|28 teams|<Players>|Ctrl+1|<Teams>|Ctrl+2|<Schedule>|Ctrl+3|<Leaders>|Ctrl+4|"
      "<Probowl Roster>|Ctrl+5|<Game Settings>|Ctrl+6|<All Players>|Ctrl+F";
  EXPECT_EQ(Texts(), screens);
  const QStringList keys{"Ctrl+1", "Ctrl+2", "Ctrl+3", "Ctrl+4", "Ctrl+5", "Ctrl+6", "Ctrl+F"};
  for (const QLabel* label : Page().findChildren<QLabel*>()) {
    const auto link = static_cast<int>(keys.indexOf(label->text()));
    if (link < 0) continue;
    const QRect beside = Find<QPushButton>(Page(), MemberName("btnLink", link)).geometry();
    EXPECT_LT(std::abs(label->geometry().center().y() - beside.center().y()), 5) << link;
  }
  EXPECT_EQ(Page().geometry(), Area().viewport()->rect());
  AnswerNextMessage("OK");
  EXPECT_FALSE(window_.OpenImageFile(BinFolder() + "colors.txt"));
  EXPECT_EQ(Texts(), screens) << "after a rejected file";

  Activate(window_);
  auto& first = Find<QPushButton>(Page(), "btnLink(0)");
  first.setFocus();
  const QImage with_focus = first.grab().toImage();
  Find<QPushButton>(Page(), "btnLink(1)").setFocus();
  EXPECT_NE(first.grab().toImage(), with_focus);
  first.setFocus();
  QStringList reached;
  for (int link = 0; link < 7; ++link) {
    reached << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(reached.join(' ').toStdString(),
            "btnLink(0) btnLink(1) btnLink(2) btnLink(3) btnLink(4) btnLink(5) btnLink(6)");

  PressLink(3);
  EXPECT_TRUE(IsOpen("ViewLeaders"));
  EXPECT_FALSE(Page().isVisible());
  Area().activeSubWindow()->showMinimized();
  EXPECT_FALSE(Page().isVisible());
  Press("ViewLeaders", "btnOK");
  EXPECT_EQ(Texts(), screens);
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
