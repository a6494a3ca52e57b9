#include <QApplication>
#include <QClipboard>

#include "screens/schedule/edit_schedule.h"
#include "screens/schedule/view_schedule.h"
#include "screens/schedule/view_team_schedule.h"
#include "tests/screens/screen_fixture.h"

namespace rostermill::test {
namespace {

void SetGame(ScheduleWeek& week, int game, int away, int home) {
  week.Games[game].AwayTeam = static_cast<std::int16_t>(away);
  week.Games[game].HomeTeam = static_cast<std::int16_t>(home);
}

/// The editor on a league whose teams 1 to 28 are "AA" to "BB", with 12 games in week 1.
class EditScheduleTest : public ScreenTest {
 protected:
  EditScheduleTest() {
    for (int team = 1; team <= 28; ++team) {
      League().TeamData[team].Abbreviation =
          std::string{static_cast<char>('A' + (team - 1) / 26),
                      static_cast<char>('A' + (team - 1) % 26), '.', ' '};
    }
    for (ScheduleWeek& week : League().ScheduleData) {
      week = {};
      week.GameCount = 12;
      for (int game = 0; game < 14; ++game) SetGame(week, game, game, 27 - game);
    }
  }

  void Open() {
    form = std::make_unique<frmEditSchedule>(*session_);
    form->show();
    QApplication::setActiveWindow(form.get());
  }

  /// The stored games from `first` to `last`, each as "visitor@host ".
  std::string Games(int week, int first, int last) {
    std::string games;
    for (int game = first; game <= last; ++game) {
      const GamePlace& place = League().ScheduleData[week].Games[game];
      games += std::to_string(place.AwayTeam) + "@" + std::to_string(place.HomeTeam) + " ";
    }
    return games;
  }
  ComboBox& Box(int index) { return Find<ComboBox>(*form, QString("cmbTeam(%1)").arg(index)); }
  QString Caption(const QString& name) { return Find<QLabel>(*form, name).text(); }
  void Step(const QString& steps, const QString& button, int times = 1) {
    while (times-- > 0) {
      QTest::mouseClick(&Find<QWidget>(Find<UpDown>(*form, steps), button), Qt::LeftButton);
    }
  }
  void Press(const QString& button) { Find<QPushButton>(*form, button).click(); }
  /// Types over the text in the box.
  void Enter(int index, const QString& text) {
    Box(index).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Box(index), Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) QTest::keyClick(&Box(index), Qt::Key_Delete);
    QTest::keyClicks(&Box(index), text);
  }
  /// Types over the text in the box, and leaves it.
  void Type(int index, const QString& text) {
    Enter(index, text);
    QTest::keyClick(&Box(index), Qt::Key_Tab);
  }
  int RowsShown() {
    int rows = 0;
    for (int game = 0; game < 14; ++game) rows += Box(2 * game).isVisible() ? 1 : 0;
    return rows;
  }

  std::unique_ptr<frmEditSchedule> form;
};

TEST_F(EditScheduleTest, StepsThroughTheWeeks) {
  SetGame(League().ScheduleData[16], 0, 27, 4);
  League().ScheduleData[16].GameCount = 1;
  Open();
  EXPECT_EQ(RowsShown(), 12);
  const auto& steps = Find<UpDown>(*form, "upGames");
  const int place = steps.x();
  Step("udWeek", "Down");
  QApplication::sendPostedEvents();
  EXPECT_NEAR(steps.x(), place, 1) << "the buttons stay under the pointer";
  EXPECT_EQ(Caption("lblWeek"), "Week: 17");
  EXPECT_EQ(Caption("lblGames"), "Games: 1");
  EXPECT_EQ(Box(0).Text(), "BB. ");
  EXPECT_EQ(Box(1).Text(), "AE. ");
  EXPECT_EQ(RowsShown(), 1);
  Step("udWeek", "Up");
  EXPECT_EQ(Caption("lblWeek"), "Week: 1");
}

TEST_F(EditScheduleTest, EveryTeamCanBePicked) {
  Open();
  for (int team = 0; team < 28; ++team) {
    const auto abbreviation = QString::fromStdString(League().TeamData[team + 1].Abbreviation);
    Box(0).SetListIndex(Box(0).findText(abbreviation));
    Press("cmdOK");
    EXPECT_EQ(League().ScheduleData[0].Games[0].AwayTeam, team);
    Open();
    EXPECT_EQ(Box(0).Text(), abbreviation);
  }
}

TEST_F(EditScheduleTest, AHiddenGameKeepsItsTeams) {
  League().ScheduleData[2].GameCount = 14;
  Open();
  Step("udWeek", "Up", 2);
  Step("upGames", "Up");
  EXPECT_EQ(Caption("lblGames"), "Games: 14");
  Step("upGames", "Down");
  Step("udWeek", "Up");
  Step("udWeek", "Down");
  EXPECT_EQ(RowsShown(), 13);
  Step("upGames", "Up");
  EXPECT_EQ(RowsShown(), 14);
  EXPECT_EQ(Box(26).Text(), "");
  Step("udWeek", "Up");
  Step("udWeek", "Down");
  EXPECT_EQ(Box(26).Text(), "AN. ");
  Step("udWeek", "Up");
  Step("upGames", "Down", 20);
  EXPECT_EQ(Caption("lblGames"), "Games: 1");
  Press("cmdOK");
  EXPECT_EQ(League().ScheduleData[2].GameCount, 14);
  EXPECT_EQ(Games(2, 13, 13), "13@14 ");
  EXPECT_EQ(League().ScheduleData[3].GameCount, 1);
}

TEST_F(EditScheduleTest, TypedTextIsTakenWhenTheBoxIsLeft) {
  League().TeamData[1].Abbreviation = "BZ. ";
  League().TeamData[9].Abbreviation = "BC. ";
  Open();
  Type(2, "b");
  EXPECT_EQ(Box(2).Text(), "BA. ");
  Type(3, "BC");
  EXPECT_EQ(Box(3).Text(), "BC. ");
  Type(4, "xyz");
  EXPECT_EQ(Box(4).Text(), "");
  Type(5, "");
  EXPECT_EQ(Box(5).Text(), "");
  Enter(6, "ak");
  Press("cmdOK");
  // OK takes a text before its box is left, here the last visitor's.
  EXPECT_EQ(Games(0, 1, 3), "26@8 2@25 10@24 ");
}

TEST_F(EditScheduleTest, EnterAndEscAnswerTheTextFirstAndTheFormThen) {
  League().ScheduleData[0].GameCount = 14;
  Open();
  const auto press = [this](Qt::Key key) {
    if (form->IsOpen()) QTest::keyClick(QApplication::focusWidget(), key);
    return form->IsOpen();
  };
  Enter(1, "ak");
  EXPECT_TRUE(press(Qt::Key_Return));
  EXPECT_EQ(Box(1).Text(), "AK. ");
  Enter(2, "ac");
  EXPECT_TRUE(press(Qt::Key_Escape));
  EXPECT_EQ(Box(2).Text(), "AB. ");
  Enter(3, "xyz");
  EXPECT_TRUE(press(Qt::Key_Enter));
  EXPECT_EQ(Box(3).Text(), "");
  EXPECT_TRUE(press(Qt::Key_Escape));
  EXPECT_EQ(Box(3).Text(), "BA. ");
  Enter(27, "ab");
  EXPECT_TRUE(press(Qt::Key_Return));
  EXPECT_EQ(Caption("lblTwice"), "AB. , AK. ") << "as soon as the text is taken";
  Enter(4, "");
  EXPECT_FALSE(press(Qt::Key_Return)) << "an empty box has nothing to take";
  EXPECT_EQ(Games(0, 0, 2) + Games(0, 13, 13), "0@10 1@26 2@25 13@1 ");
}

TEST_F(EditScheduleTest, CancelLeavesNoTrace) {
  const LeagueData before = League();
  Open();
  Type(0, "ak");
  Step("upGames", "Down");
  Step("udWeek", "Down");
  Box(3).SetListIndex(7);
  QTest::keyClick(&Box(3), Qt::Key_Escape);
  EXPECT_FALSE(form->IsOpen());
  EXPECT_EQ(League(), before);

  // A program that ends takes the form away under a box that is being typed in.
  Open();
  Box(1).setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&Box(1), "ak");
  form.reset();
  EXPECT_EQ(League(), before);
}

TEST_F(EditScheduleTest, ASideThatTheListLacksIsShownAsItIsAndKeptByAVisit) {
  League().LeagueText[2] = "AK.";  // begins a team's abbreviation
  SetGame(League().ScheduleData[0], 0, 28, 29);
  Open();
  League().TeamData[1].Abbreviation = "A";  // changed meanwhile
  for (const char* text : {"AK.", "A"}) {
    EXPECT_EQ(Box(0).Text(), text);
    EXPECT_EQ(Box(0).ListIndex(), -1);
    Box(0).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Box(0), Qt::Key_Tab);
    EXPECT_EQ(Box(0).Text(), text);
    Step("udWeek", "Up");
  }
  Step("udWeek", "Down", 2);
  Type(1, "ac");
  Press("cmdOK");
  EXPECT_EQ(Games(0, 0, 0), "28@2 ");
  EXPECT_EQ(Games(1, 0, 0), "0@27 ");
}

TEST_F(EditScheduleTest, OfTwoTeamsWithOneAbbreviationAVisitKeepsTheHigher) {
  League().TeamData[20].Abbreviation = "AC. ";
  SetGame(League().ScheduleData[0], 0, 19, 19);
  SetGame(League().ScheduleData[0], 1, 19, 5);
  Open();
  EXPECT_EQ(Caption("lblItself"), "AC. ");
  Box(0).setFocus(Qt::TabFocusReason);
  for (int tab = 0; tab < 4; ++tab) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  Enter(1, "ad");
  QTest::keyClick(&Box(1), Qt::Key_Escape);
  EXPECT_EQ(Box(1).Text(), "AC. ");
  Type(2, "ac. ");
  Box(4).SetListIndex(3);  // the second "AC. "
  ASSERT_EQ(Box(4).Text(), "AC. ");
  League().TeamData[5].Abbreviation = "NEW ";
  Type(6, "ae");
  EXPECT_EQ(Box(6).Text(), "") << "no team has this abbreviation any more";
  Press("cmdOK");
  // A typed team is the lower one, and a picked one too.
  EXPECT_EQ(Games(0, 0, 3), "19@19 2@5 2@25 3@24 ");
}

class ScheduleViewsTest : public ScreenTest {
 protected:
  ScheduleViewsTest() {
    League().TeamData[28].City = "WEST<B>MARK";
    for (ScheduleWeek& week : League().ScheduleData) week = {};
  }

  void AddGame(int week, int away, int home) {
    ScheduleWeek& place = League().ScheduleData[week];
    SetGame(place, place.GameCount++, away, home);
  }
};

TEST_F(ScheduleViewsTest, TheGridFillsItsWindowWithVisitorAtHostInTheirWeek) {
  AddGame(0, 0, 1);
  AddGame(0, 28, 29);
  AddGame(16, 1, 27);
  League().ScheduleData[5].Games[0] = {.HomeTeam = 1, .AwayTeam = 1};
  ViewSchedule form(*session_);
  auto& grid = Find<FlexGrid>(form, "grdSchedule");
  EXPECT_EQ(grid.TextMatrix(0, 2), "OAK @ ELM");
  EXPECT_EQ(grid.TextMatrix(5, 1), "");
  EXPECT_EQ(grid.columnWidth(0), 67);  // 1000 twips at 96 dpi
  EXPECT_EQ(grid.columnWidth(2), 87);  // 1300 twips
  EXPECT_EQ(grid.columnWidth(3), 64);
  EXPECT_TRUE(grid.item(16, 1)->toolTip().contains("at WEST&lt;B&gt;MARK BEES"));
  form.show();
  for (const QSize size : {QSize(300, 150), QSize(1600, 900)}) {
    form.resize(size);
    QApplication::processEvents();
    EXPECT_EQ(grid.geometry(), form.rect());
  }
}

TEST_F(ScheduleViewsTest, TheGridCopiesAsTabSeparatedText) {
  AddGame(0, 0, 1);
  AddGame(1, 1, 0);
  AddGame(3, 0, 27);
  AddGame(3, 27, 1);
  ViewSchedule form(*session_);
  form.show();
  QApplication::setActiveWindow(&form);
  auto& grid = Find<FlexGrid>(form, "grdSchedule");
  grid.setFocus();
  QTest::keyClick(&grid, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 18);  // the last line ends too
  EXPECT_EQ(lines[1], " Week 2\tWIND @ HARB" + QString(13, '\t'));
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                    grid.visualItemRect(grid.item(0, 1)).center());
  QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "HARB @ WIND\n");
  // Cells between two selected ones are not selected themselves.
  for (const auto& [row, column] : {std::pair{1, 0}, {3, 0}, {3, 2}}) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      grid.visualRect(grid.model()->index(row, column)).center());
  }
  QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            "\tHARB @ WIND\t\n"
            " Week 2\t\t\n"
            " Week 4\t\tPEAC @ WIND\n");
}

TEST_F(ScheduleViewsTest, ATeamsLinesShowHostsInCapitalsAndVisitorsInSmallLetters) {
  AddGame(1, 0, 27);
  AddGame(2, 0, 27);
  AddGame(2, 28, 0);
  AddGame(5, 0, 0);
  session_->SchedTeam = 1;
  ViewTeamSchedule form(*session_);
  const auto line = [&](int week) {
    return Find<QLabel>(form, QString("lblOpponent(%1)").arg(week)).text();
  };
  EXPECT_EQ(line(1), "WEST<B>MARK BEES");
  EXPECT_EQ(line(2), "oak");
  EXPECT_EQ(line(5), "harborton sparrows");

  session_->SchedTeam = 28;
  form.ShowTeam();
  EXPECT_EQ(line(1), "harborton sparrows");

  form.show();
  QApplication::setActiveWindow(&form);
  form.setFocus();
  QTest::keyClick(&form, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split('\n');
  EXPECT_EQ(lines[0], "WEST<B>MARK BEES");
  EXPECT_EQ(lines[2], "Week 2\tharborton sparrows");

  for (const bool selected : {true, false}) {
    if (selected) QTest::keyClick(&form, Qt::Key_A, Qt::ControlModifier);
    if (!selected) QTest::mouseClick(&form, Qt::LeftButton);
    for (const char* label : {"lblTeamName", "lblOpponent(0)", "lblOpponent(16)"}) {
      const auto role = Find<QLabel>(form, label).backgroundRole();
      EXPECT_EQ(role == QPalette::Highlight, selected) << label;
    }
  }
}

}  // namespace
}  // namespace rostermill::test
