#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

#include "screens/schedule/view_schedule.h"
#include "screens/schedule/view_team_schedule.h"
#include "tests/support/dialogs.h"
#include "tests/support/sample.h"

namespace rostermill {
namespace {

using test::Find;
using test::LeagueOf;

class ScheduleViewsTest : public testing::Test {
 protected:
  ScheduleViewsTest() {
    NameTeam(1, "HARBORTON", "SPARROWS", "HAR.");
    NameTeam(2, "PORT & VALE", "KILNS", "P&V ");
    NameTeam(28, "WEST<B>MARK", "MILLS", "WES.");
    LeagueOf(*session).LeagueText[2] = "SUN";
    LeagueOf(*session).LeagueText[3] = "MOO";
    for (ScheduleWeek& week : LeagueOf(*session).ScheduleData) week = {};
  }

  void NameTeam(int team, const char* city, const char* nickname, const char* abbreviation) {
    TeamRec& rec = LeagueOf(*session).TeamData[team];
    rec.City = city;
    rec.Nickname = nickname;
    rec.Abbreviation = abbreviation;
  }

  void AddGame(int week, int away, int home) {
    ScheduleWeek& place = LeagueOf(*session).ScheduleData[week];
    place.Games[place.GameCount].AwayTeam = static_cast<std::int16_t>(away);
    place.Games[place.GameCount].HomeTeam = static_cast<std::int16_t>(home);
    ++place.GameCount;
  }

  std::unique_ptr<LeagueSession> session = test::SampleSession();
};

// Would catch host before visitor, trimmed abbreviations, a stale game in the grid, and columns
// left at the default width though some week has a game there.
TEST_F(ScheduleViewsTest, TheGridHoldsTheSeason) {
  AddGame(0, 0, 1);
  AddGame(0, 28, 29);
  AddGame(16, 1, 27);
  LeagueOf(*session).ScheduleData[5].Games[0] = {.HomeTeam = 1, .AwayTeam = 1};
  ViewSchedule form(*session);
  EXPECT_EQ(form.windowTitle(), "NFL Schedule");
  auto& grid = Find<FlexGrid>(form, "grdSchedule");
  EXPECT_EQ(grid.rowCount(), 17);
  EXPECT_EQ(grid.columnCount(), 15);
  EXPECT_EQ(grid.TextMatrix(0, 0), " Week 1");
  EXPECT_EQ(grid.TextMatrix(16, 0), " Week 17");
  EXPECT_EQ(grid.TextMatrix(0, 1), "HAR. @ P&V ");
  EXPECT_EQ(grid.TextMatrix(0, 2), "SUN @ MOO");
  EXPECT_EQ(grid.TextMatrix(16, 1), "P&V  @ WES.");
  EXPECT_EQ(grid.TextMatrix(5, 1), "");
  EXPECT_EQ(grid.columnWidth(0), 67);  // 1000 twips at 96 dpi
  EXPECT_EQ(grid.columnWidth(2), 87);  // 1300 twips
  EXPECT_GT(grid.columnWidth(1), grid.fontMetrics().horizontalAdvance("P&V  @ WES."));
  EXPECT_EQ(grid.columnWidth(3), 64);
  EXPECT_EQ(grid.item(0, 1)->toolTip(), "HARBORTON SPARROWS at PORT & VALE KILNS");
  EXPECT_TRUE(grid.item(16, 1)->toolTip().contains("at WEST&lt;B&gt;MARK MILLS"));
}

// Would catch a gap beside the grid, and a cursor that walks under the fixed column.
TEST_F(ScheduleViewsTest, TheGridFillsItsWindowAndKeepsTheWeeksInView) {
  for (int game = 0; game < 14; ++game) AddGame(3, 0, 1);
  ViewSchedule form(*session);
  form.show();
  auto& grid = Find<FlexGrid>(form, "grdSchedule");
  for (const QSize size : {QSize(300, 150), QSize(1600, 900), QSize(420, 200)}) {
    form.resize(size);
    QApplication::processEvents();
    EXPECT_EQ(grid.geometry(), form.rect());
  }
  grid.setCurrentCell(3, 14);
  EXPECT_GT(grid.horizontalScrollBar()->value(), 0);
  for (int column = 13; column >= 1; --column) {
    grid.setCurrentCell(3, column);
    EXPECT_GE(grid.visualItemRect(grid.item(3, column)).left(), 67) << column;
  }
}

// Would catch a copy that leaves out the weeks or breaks rows, and one of more or less than
// the selection.
TEST_F(ScheduleViewsTest, TheGridCopiesAsTabSeparatedText) {
  AddGame(0, 0, 1);
  AddGame(1, 1, 0);
  AddGame(3, 0, 27);
  AddGame(3, 27, 1);
  ViewSchedule form(*session);
  form.show();
  QApplication::setActiveWindow(&form);
  auto& grid = Find<FlexGrid>(form, "grdSchedule");
  grid.setFocus();
  QTest::keyClick(&grid, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 18);  // the last line ends too
  EXPECT_EQ(lines[1], " Week 2\tP&V  @ HAR." + QString(13, '\t'));
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                    grid.visualItemRect(grid.item(0, 1)).center());
  QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "HAR. @ P&V \n");
  // Cells between two selected ones are not selected themselves.
  for (const auto& [row, column] : {std::pair{1, 0}, {3, 0}, {3, 2}}) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      grid.visualRect(grid.model()->index(row, column)).center());
  }
  QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            "\tHAR. @ P&V \t\n"
            " Week 2\t\t\n"
            " Week 4\t\tWES. @ P&V \n");
}

// Would catch the venue's case the wrong way round, the team itself on a line, and the first of
// two games in a week winning.
TEST_F(ScheduleViewsTest, ATeamsLinesTellHomeFromAway) {
  AddGame(0, 1, 0);
  AddGame(1, 0, 27);
  AddGame(2, 0, 27);
  AddGame(2, 28, 0);
  AddGame(3, 1, 27);
  AddGame(5, 0, 0);
  session->SchedTeam = 1;
  ViewTeamSchedule form(*session);
  const auto line = [&](int week) {
    return Find<QLabel>(form, QString("lblOpponent(%1)").arg(week)).text();
  };
  EXPECT_EQ(Find<QLabel>(form, "lblTeamName").text(), "HARBORTON SPARROWS");
  EXPECT_EQ(line(0), "port & vale kilns");
  EXPECT_EQ(line(1), "WEST<B>MARK MILLS");
  EXPECT_EQ(line(2), "sun");
  EXPECT_EQ(line(3), "Bye Week");
  EXPECT_EQ(line(5), "harborton sparrows");
  EXPECT_EQ(line(16), "Bye Week");

  EXPECT_EQ(Find<QLabel>(form, "lblOpponent(0)").toolTip(), "port & vale kilns");

  session->SchedTeam = 28;
  form.ShowTeam();
  EXPECT_EQ(Find<QLabel>(form, "lblTeamName").text(), "WEST<B>MARK MILLS");
  EXPECT_EQ(line(0), "Bye Week");
  EXPECT_EQ(line(1), "harborton sparrows");

  form.show();
  QApplication::setActiveWindow(&form);
  form.setFocus();
  QTest::keyClick(&form, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split('\n');
  EXPECT_EQ(lines[0], "WEST<B>MARK MILLS");
  EXPECT_EQ(lines[2], "Week 2\tharborton sparrows");
}

}  // namespace
}  // namespace rostermill
