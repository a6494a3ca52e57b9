#include "screens/schedule/edit_schedule.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/support/dialogs.h"
#include "tests/support/sample.h"

namespace rostermill {
namespace {

using test::Find;
using test::LeagueOf;

/// The editor on a league whose teams 1 to 28 are "AA" to "BB", with 12 games in week 1.
class EditScheduleTest : public testing::Test {
 protected:
  EditScheduleTest() {
    for (int team = 1; team <= 28; ++team) {
      league().TeamData[team].Abbreviation =
          std::string{static_cast<char>('A' + (team - 1) / 26),
                      static_cast<char>('A' + (team - 1) % 26), '.', ' '};
    }
    for (ScheduleWeek& week : league().ScheduleData) {
      week = {};
      week.GameCount = 12;
      for (int game = 0; game < 14; ++game) SetGame(week, game, game, 27 - game);
    }
  }

  static void SetGame(ScheduleWeek& week, int game, int away, int home) {
    week.Games[game].AwayTeam = static_cast<std::int16_t>(away);
    week.Games[game].HomeTeam = static_cast<std::int16_t>(home);
  }

  void Open() {
    form = std::make_unique<frmEditSchedule>(*session);
    form->show();
    QApplication::setActiveWindow(form.get());
  }

  LeagueData& league() { return LeagueOf(*session); }
  QString Team(int side) {
    return QString::fromStdString(league().TeamData[side + 1].Abbreviation);
  }
  GamePlace& Stored(int week, int game) { return league().ScheduleData[week].Games[game]; }
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
    for (int game = 0; game < 14; ++game) {
      const bool shown = Box(2 * game).isVisible();
      EXPECT_EQ(shown, Box(2 * game + 1).isVisible()) << game;
      EXPECT_EQ(shown, Find<QLabel>(*form, QString("lblAt(%1)").arg(game)).isVisible()) << game;
      if (!shown) continue;
      EXPECT_EQ(rows, game) << "a gap between the rows";
      ++rows;
    }
    return rows;
  }

  std::unique_ptr<LeagueSession> session = test::SampleSession();
  std::unique_ptr<frmEditSchedule> form;
};

TEST_F(EditScheduleTest, StepsThroughTheWeeks) {
  SetGame(league().ScheduleData[16], 0, 27, 4);
  league().ScheduleData[16].GameCount = 1;
  Open();
  EXPECT_EQ(form->windowTitle(), "RSM Schedule Editor");
  EXPECT_EQ(Caption("lblWeek"), "Week: 1");
  for (int game = 0; game < 14; ++game) {
    const bool shown = game < 12;
    EXPECT_EQ(Box(2 * game).Text(), shown ? Team(game) : "");
    EXPECT_EQ(Box(2 * game + 1).Text(), shown ? Team(27 - game) : "");
    const QString name = QString("Game %1, ").arg(game + 1);
    EXPECT_EQ(Box(2 * game).accessibleName(), name + "visitor");
    EXPECT_EQ(Box(2 * game + 1).accessibleName(), name + "host");
  }
  EXPECT_EQ(RowsShown(), 12);
  Step("udWeek", "Down");
  EXPECT_EQ(Caption("lblWeek"), "Week: 17");
  EXPECT_EQ(Caption("lblGames"), "Games: 1");
  EXPECT_EQ(Find<UpDown>(*form, "udWeek").accessibleName(), "Week: 17");
  EXPECT_EQ(Find<UpDown>(*form, "upGames").accessibleName(), "Games: 1");
  EXPECT_EQ(Box(0).Text(), "BB. ");
  EXPECT_EQ(Box(1).Text(), "AE. ");
  EXPECT_EQ(Box(2).Text(), "");
  EXPECT_EQ(RowsShown(), 1);
  Step("udWeek", "Up");
  EXPECT_EQ(Caption("lblWeek"), "Week: 1");
}

TEST_F(EditScheduleTest, AHiddenGameKeepsItsTeams) {
  league().ScheduleData[2].GameCount = 14;
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
  EXPECT_EQ(league().ScheduleData[2].GameCount, 14);
  EXPECT_EQ(Stored(2, 13).AwayTeam, 13);
  EXPECT_EQ(Stored(2, 13).HomeTeam, 14);
  EXPECT_EQ(league().ScheduleData[3].GameCount, 1);
}

TEST_F(EditScheduleTest, TypedTextIsTakenWhenTheBoxIsLeft) {
  league().TeamData[1].Abbreviation = "BZ. ";
  league().TeamData[9].Abbreviation = "BC. ";
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
  EXPECT_EQ(Stored(0, 1).AwayTeam, 26);
  EXPECT_EQ(Stored(0, 1).HomeTeam, 8);
  EXPECT_EQ(Stored(0, 2).AwayTeam, 2);
  EXPECT_EQ(Stored(0, 2).HomeTeam, 25);
  EXPECT_EQ(Stored(0, 3).AwayTeam, 10) << "OK takes a text before its box is left";
}

TEST_F(EditScheduleTest, EnterAndEscAnswerTheTextFirstAndTheFormThen) {
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
  Enter(4, "");
  EXPECT_FALSE(press(Qt::Key_Return)) << "an empty box has nothing to take";
  EXPECT_EQ(Stored(0, 0).HomeTeam, 10);
  EXPECT_EQ(Stored(0, 1).AwayTeam, 1);
  EXPECT_EQ(Stored(0, 1).HomeTeam, 26);
  EXPECT_EQ(Stored(0, 2).AwayTeam, 2);

  Open();
  Enter(1, "al");
  EXPECT_TRUE(press(Qt::Key_Escape));
  EXPECT_FALSE(press(Qt::Key_Escape));
  EXPECT_EQ(Stored(0, 0).HomeTeam, 10);
}

TEST_F(EditScheduleTest, CancelLeavesNoTrace) {
  const LeagueData before = league();
  Open();
  Type(0, "ak");
  Step("upGames", "Down");
  Step("udWeek", "Down");
  Box(3).SetListIndex(7);
  QTest::keyClick(&Box(3), Qt::Key_Escape);
  EXPECT_FALSE(form->IsOpen());
  EXPECT_EQ(league(), before);

  // A program that ends takes the form away under a box that is being typed in.
  Open();
  Box(1).setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&Box(1), "ak");
  form.reset();
  EXPECT_EQ(league(), before);
}

TEST_F(EditScheduleTest, AWholeWeekCanBeTypedFromOneBoxToTheNext) {
  LeagueData expected = league();
  Open();
  Find<UpDown>(*form, "udWeek").setFocus(Qt::TabFocusReason);
  const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
  press(Qt::Key_Up);
  press(Qt::Key_Tab);
  for (int step = 0; step < 2; ++step) press(Qt::Key_Up);
  expected.ScheduleData[1].GameCount = 14;
  for (int index = 0; index < 28; ++index) {
    press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &Box(index)) << index;
    const int team = (index * 5 + 3) % 28;  // every team once
    QTest::keyClicks(QApplication::focusWidget(), Team(team).left(2).toLower());
    GamePlace& place = expected.ScheduleData[1].Games[index / 2];
    (index % 2 == 0 ? place.AwayTeam : place.HomeTeam) = static_cast<std::int16_t>(team);
  }
  EXPECT_EQ(Caption("lblTwice"), "AO. ") << "the host before, while the last box is typed in";
  for (int times = 0; times < 2; ++times) press(Qt::Key_Return);
  EXPECT_EQ(league(), expected);
}

TEST_F(EditScheduleTest, AVisitChangesNoAllStarSide) {
  league().LeagueText[2] = "AK.";  // begins a team's abbreviation
  SetGame(league().ScheduleData[0], 0, 28, 29);
  Open();
  EXPECT_EQ(Box(0).Text(), "AK.");
  EXPECT_EQ(Box(0).ListIndex(), -1);
  Box(0).setFocus();
  QTest::keyClick(&Box(0), Qt::Key_Tab);
  EXPECT_EQ(Box(0).Text(), "AK.");
  Type(1, "ac");
  Press("cmdOK");
  EXPECT_EQ(Stored(0, 0).AwayTeam, 28);
  EXPECT_EQ(Stored(0, 0).HomeTeam, 2);
}

TEST_F(EditScheduleTest, OfTwoTeamsWithOneAbbreviationAVisitKeepsTheHigher) {
  league().TeamData[20].Abbreviation = "AC. ";
  SetGame(league().ScheduleData[0], 0, 19, 19);
  SetGame(league().ScheduleData[0], 1, 19, 5);
  Open();
  Box(0).setFocus(Qt::TabFocusReason);
  for (int tab = 0; tab < 4; ++tab) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  Enter(1, "ad");
  QTest::keyClick(&Box(1), Qt::Key_Escape);
  EXPECT_EQ(Box(1).Text(), "AC. ");
  Type(2, "ac. ");
  Box(4).SetListIndex(3);  // the second "AC. "
  ASSERT_EQ(Box(4).Text(), "AC. ");
  league().TeamData[5].Abbreviation = "NEW ";
  Type(6, "ae");
  EXPECT_EQ(Box(6).Text(), "") << "no team has this abbreviation any more";
  Press("cmdOK");
  EXPECT_EQ(Stored(0, 0).AwayTeam, 19);
  EXPECT_EQ(Stored(0, 0).HomeTeam, 19);
  EXPECT_EQ(Stored(0, 1).AwayTeam, 2) << "a typed team is the lower one";
  EXPECT_EQ(Stored(0, 1).HomeTeam, 5);
  EXPECT_EQ(Stored(0, 2).AwayTeam, 2) << "a picked one too";
  EXPECT_EQ(Stored(0, 3).AwayTeam, 3);
}

TEST_F(EditScheduleTest, AnAbbreviationChangedMeanwhileShowsAsItIsNow) {
  Open();
  league().TeamData[1].Abbreviation = "A";
  Step("udWeek", "Up");
  EXPECT_EQ(Box(0).Text(), "A");
  EXPECT_EQ(Box(0).ListIndex(), -1);
  Box(0).setFocus(Qt::TabFocusReason);
  QTest::keyClick(&Box(0), Qt::Key_Tab);
  EXPECT_EQ(Box(0).Text(), "A");
  Press("cmdOK");
  EXPECT_EQ(Stored(1, 0).AwayTeam, 0);
}

TEST_F(EditScheduleTest, WhatIsOddIsShownAtOnceAndStoredAllTheSame) {
  Open();
  EXPECT_EQ(Caption("lblTwice"), "none");
  EXPECT_EQ(Caption("lblWithoutGame"), "AM. , AN. , AO. , AP. ");
  EXPECT_TRUE(Caption("lblSeason").endsWith("  204"));
  Type(0, "ab");
  Type(5, "ac");
  EXPECT_EQ(Caption("lblTwice"), "AB. ");
  EXPECT_EQ(Caption("lblItself"), "AC. ");
  EXPECT_EQ(Find<QLabel>(*form, "lblItself").toolTip(), "AC. ");
  Step("upGames", "Down");
  EXPECT_TRUE(Caption("lblSeason").endsWith("  203"));
  Press("cmdOK");
  EXPECT_EQ(Stored(0, 0).AwayTeam, 1);
  EXPECT_EQ(Stored(0, 2).HomeTeam, 2);
}

}  // namespace
}  // namespace rostermill
