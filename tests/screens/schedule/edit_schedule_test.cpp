#include "screens/schedule/edit_schedule.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "league/load_image.h"
#include "league/save_image.h"
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
  GamePlace& Stored(int week, int game) { return league().ScheduleData[week].Games[game]; }
  ComboBox& Box(int index) { return Find<ComboBox>(*form, QString("cmbTeam(%1)").arg(index)); }
  QString Caption(const QString& name) { return Find<QLabel>(*form, name).text(); }
  void Step(const QString& steps, const QString& button, int times = 1) {
    while (times-- > 0) {
      QTest::mouseClick(&Find<QWidget>(Find<UpDown>(*form, steps), button), Qt::LeftButton);
    }
  }
  void Press(const QString& button) { Find<QPushButton>(*form, button).click(); }
  /// Types over what stands in the box.
  void Enter(int index, const QString& text) {
    Box(index).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Box(index), Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) QTest::keyClick(&Box(index), Qt::Key_Delete);
    QTest::keyClicks(&Box(index), text);
  }
  /// Types over what stands in the box, and leaves it.
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

// Would catch visitor and host swapped, a list index taken for a team, and a week that doesn't
// wrap or that keeps texts of the week before.
TEST_F(EditScheduleTest, StepsThroughTheWeeks) {
  SetGame(league().ScheduleData[16], 0, 27, 4);
  league().ScheduleData[16].GameCount = 1;
  Open();
  EXPECT_EQ(form->windowTitle(), "RSM Schedule Editor");
  EXPECT_EQ(Caption("lblWeek"), "Week: 1");
  EXPECT_EQ(Box(0).Text(), "AA. ");
  EXPECT_EQ(Box(1).Text(), "BB. ");
  EXPECT_EQ(RowsShown(), 12);
  Step("udWeek", "Down");
  EXPECT_EQ(Caption("lblWeek"), "Week: 17");
  EXPECT_EQ(Caption("lblGames"), "Games: 1");
  EXPECT_EQ(Box(0).Text(), "BB. ");
  EXPECT_EQ(Box(1).Text(), "AE. ");
  EXPECT_EQ(Box(2).Text(), "");
  EXPECT_EQ(RowsShown(), 1);
  Step("udWeek", "Up");
  EXPECT_EQ(Caption("lblWeek"), "Week: 1");
}

// Would catch a count past 14 or below 1, a step that clears or fills game places, and a caption
// that doesn't follow.
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

// Would catch a completion that isn't the first in sorted order, one that heeds case, and a
// wiped or cleared box that changes the stored team.
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
  Press("cmdOK");
  EXPECT_EQ(Stored(0, 1).AwayTeam, 26);
  EXPECT_EQ(Stored(0, 1).HomeTeam, 8);
  EXPECT_EQ(Stored(0, 2).AwayTeam, 2);
  EXPECT_EQ(Stored(0, 2).HomeTeam, 25);
}

// Would catch an Enter that commits a season with a text half typed, an Esc that drops it, and
// either of them that never comes through.
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

// Would catch a text that OK leaves behind when it comes without a change of the focus.
TEST_F(EditScheduleTest, OkTakesATextThatIsStillBeingTyped) {
  Open();
  Enter(1, "ak");
  Press("cmdOK");
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

// Would catch a week that can't be typed from one box to the next, and a commit of only the week
// on view.
TEST_F(EditScheduleTest, AWholeWeekByKeyboardSurvivesTheFile) {
  Open();
  Find<UpDown>(*form, "udWeek").setFocus(Qt::TabFocusReason);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  for (int step = 0; step < 2; ++step) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  for (int index = 0; index < 28; ++index) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &Box(index)) << index;
    const int team = (index * 5 + 3) % 28;  // every team once
    QTest::keyClicks(QApplication::focusWidget(),
                     QString("%1%2").arg(team < 26 ? 'a' : 'b').arg(QChar('a' + team % 26)));
  }
  EXPECT_EQ(Caption("lblTwice"), "AO. ");  // the host before, while the last box is typed in
  for (int press = 0; press < 2; ++press) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }

  test::TempFolder folder;
  const std::string path = folder.Path("season.nes");
  test::WriteFile(path, test::SampleBytes());
  SaveLeague(league(), path, [] {});
  const auto bytes = test::FileBytes(path);
  EXPECT_EQ(bytes[0x329CA], 14);
  EXPECT_EQ(bytes[0x329DB + 24], 3);  // behind the 12 games of week 1: the first visitor
  EXPECT_EQ(bytes[0x329DB + 25], 8);
  EXPECT_EQ(bytes[0x329DB + 51], (27 * 5 + 3) % 28);
  OpenImage image(bytes);
  const LeagueData loaded = ReadLeague(image);
  for (int week = 0; week < 17; ++week) {
    const ScheduleWeek& saved = league().ScheduleData[week];
    ASSERT_EQ(loaded.ScheduleData[week].GameCount, saved.GameCount);
    for (int game = 0; game < saved.GameCount; ++game) {
      EXPECT_EQ(loaded.ScheduleData[week].Games[game], saved.Games[game]) << week << " " << game;
    }
  }
}

// Would catch an all-star side that a mere visit turns into a team or wipes.
TEST_F(EditScheduleTest, AllStarSidesStandUntilOverwritten) {
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

// Would catch a pick of an abbreviation that no team has any more, and the higher of two equal
// ones being stored.
TEST_F(EditScheduleTest, AbbreviationsDecideNotThePlaceInTheList) {
  league().TeamData[20].Abbreviation = "AC. ";
  Open();
  Box(0).SetListIndex(3);  // the second "AC. ", team number 19
  ASSERT_EQ(Box(0).Text(), "AC. ");
  league().TeamData[5].Abbreviation = "NEW ";
  Type(2, "ae");
  EXPECT_EQ(Box(2).Text(), "");
  Press("cmdOK");
  EXPECT_EQ(Stored(0, 0).AwayTeam, 2);
  EXPECT_EQ(Stored(0, 1).AwayTeam, 1);
}

// Would catch a walk through the boxes, or an Esc in one, that moves a game from the higher of two
// teams with one abbreviation to the lower.
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
  Press("cmdOK");
  EXPECT_EQ(Stored(0, 0).AwayTeam, 19);
  EXPECT_EQ(Stored(0, 0).HomeTeam, 19);
  EXPECT_EQ(Stored(0, 1).AwayTeam, 2) << "a typed team is the lower one";
  EXPECT_EQ(Stored(0, 1).HomeTeam, 5);
}

// Would catch a new abbreviation that leaves the box blank, or that is taken for another team's.
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

// Would catch information that lags behind the games, or that bars what it tells of.
TEST_F(EditScheduleTest, TellsWhatIsOddAndStoresItAllTheSame) {
  Open();
  EXPECT_EQ(Caption("lblTwice"), "none");
  EXPECT_EQ(Caption("lblWithoutGame"), "AM. , AN. , AO. , AP. ");
  EXPECT_TRUE(Caption("lblSeason").endsWith("  204"));
  Type(0, "ab");
  Type(5, "ac");
  EXPECT_EQ(Caption("lblTwice"), "AB. ");
  EXPECT_EQ(Caption("lblItself"), "AC. ");
  Step("upGames", "Down");
  EXPECT_TRUE(Caption("lblSeason").endsWith("  203"));
  Press("cmdOK");
  EXPECT_EQ(Stored(0, 0).AwayTeam, 1);
  EXPECT_EQ(Stored(0, 2).HomeTeam, 2);
}

}  // namespace
}  // namespace rostermill
