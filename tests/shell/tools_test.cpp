#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include "exchange/patch.h"
#include "tests/support/main_window.h"
#include "toolkit/drop_down_list.h"

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The screens of the Tools menu that look at the whole league.
class Tools : public MainWindow {
 protected:
  Tools() { EXPECT_TRUE(window_.OpenImageFile(path_)); }

  QTreeWidget& List(const QString& form, const QString& name) {
    return Find<QTreeWidget>(Form(form), name);
  }
  QString Text(const QString& form, const QString& label) {
    return Find<QLabel>(Form(form), label).text();
  }
  /// All lines of a list, those of a group indented; a ticked one with a star.
  std::string Lines(const QString& form, const QString& name) {
    QStringList lines;
    QTreeWidget& list = List(form, name);
    const auto text_of = [&](const QTreeWidgetItem& item) {
      QStringList cells;
      for (int column = 0; column < list.columnCount(); ++column) {
        if (!item.text(column).isEmpty()) cells << item.text(column);
      }
      const QString star = item.checkState(0) == Qt::Checked ? "*" : "";
      return star + cells.join(" | ");
    };
    for (int at = 0; at < list.topLevelItemCount(); ++at) {
      const QTreeWidgetItem& group = *list.topLevelItem(at);
      if (group.isHidden()) continue;
      lines << text_of(group);
      for (int line = 0; line < group.childCount(); ++line) {
        if (!group.child(line)->isHidden()) lines << "  " + text_of(*group.child(line));
      }
    }
    return lines.join('\n').toStdString();
  }
  void Select(QTreeWidget& list, const QString& text) {
    const auto found = list.findItems(text, Qt::MatchContains | Qt::MatchRecursive);
    ASSERT_FALSE(found.isEmpty()) << text.toStdString();
    list.setCurrentItem(found.first());
  }
  QString OtherImage(std::initializer_list<std::pair<int, std::uint8_t>> bytes) {
    Bytes other = SampleBytes();
    for (const auto& [offset, value] : bytes) other[static_cast<std::size_t>(offset)] = value;
    WriteFile(folder_.Path("other.nes"), other);
    return QString::fromStdString(folder_.Path("other.nes"));
  }
  void Compare(const QString& file) {
    AnswerNextFileDialog(file);
    Pick("mToolCompare");
  }
};

TEST_F(Tools, TheCheckFollowsTheLeagueAndLeadsToEachScreen) {
  Pick("mToolCheck");
  QTreeWidget& list = List("frmCheckLeague", "lstFindings");
  session_.Change("oddities", [](LeagueData& league) {
    for (ScheduleWeek& week : league.ScheduleData) week = league.ScheduleData[0];
    league.TeamData[2].Abbreviation = league.TeamData[1].Abbreviation;
    league.NameData[1][2] = league.NameData[1][1];
    league.NameData[3][30].LastName = "plover";
    for (SkillRec& player : league.SkillData[4]) player.KickReturner = 0;
    league.TeamData[5].TeamColors[6] = 64;
    league.TeamPlays[6][8] = 9;
    league.ScheduleData[16].Games[1] = league.ScheduleData[16].Games[0];
    league.ScheduleData[15].GameCount = 0;
    league.ProbowlData[1][2] = league.ProbowlData[1][1];
    league.ProbowlData[2][30].Team = 29;
  });
  EXPECT_EQ(Text("frmCheckLeague", "lblSummary"), "16 findings");
  EXPECT_EQ(Lines("frmCheckLeague", "lstFindings"),
            R"(Teams with the same name: 1
  Teams 1 and 2 have the same abbreviation, "HARB"
Names that the next load would not give back: 1
  FOXES P amos plover: the last name "plover" must begin with a letter from A to Z
Players who are alike: 2
  SPARROWS QB 1 sam PLOVER and QB 2 have the same name
  SPARROWS QB 1 sam PLOVER and QB 2 have the same number, 01
Returners: 1
  HERONS: nobody is the kick returner
Colors: 1
  LANTERNS: uniform color 6 is 64, which is not a color
Plays: 1
  MASONS: play 8 is 9, which is not a play
Weeks: 3
  Week 16 has no games
  Week 17, twice: SPARROWS and BEES
  Week 17, without a game: OTTERS and NEWTS
Games per team: 4
  SPARROWS play 17 games in the season; most teams play 16 games
  OTTERS play 15 games in the season; most teams play 16 games
  NEWTS play 15 games in the season; most teams play 16 games
  BEES play 17 games in the season; most teams play 16 games
All-star rosters: 2
  AFC QB 2: FERRETS QB 1 knut JUNIPER is AFC QB 1 already
  NFC P: nobody (team 29, slot 30))");
  const auto show = [&](const QString& finding) {
    Select(list, finding);
    Press("frmCheckLeague", "btnShow");
  };
  show("the next load");
  EXPECT_FALSE(Find<QPushButton>(Form("frmCheckLeague"), "btnShow").isEnabled()) << "a title";
  show("have the same name");
  EXPECT_EQ(Find<DropDownList>(Form("ViewPlayer"), "cmbPosition").Text(), "QB 2");
  show("which is not a color");
  EXPECT_EQ(session_.ViewTeam, 5);
  EXPECT_TRUE(IsOpen("ViewTeams"));
  Press("ViewTeams", "btnEdit");
  auto& city = Find<QLineEdit>(Form("EditTeam"), "txtCity");
  city.setText("PENDING");
  show("which is not a color");
  EXPECT_EQ(city.text(), "PENDING") << "the team is on view already";
  Press("EditTeam", "btnCancel");
  show("Week 16 has no games");
  EXPECT_EQ(Text("frmEditSchedule", "lblWeek"), "Week: 16");
  show("NFC P: ");
  EXPECT_TRUE(IsOpen("frmRoster"));
  EXPECT_EQ(session_.RosterConference, 2);
  session_.RosterConference = 1;
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(session_.RosterConference, 2) << "Enter shows it as well";
  EXPECT_TRUE(IsOpen("frmCheckLeague"));
  Press("frmCheckLeague", "btnOK");
  EXPECT_FALSE(IsOpen("frmCheckLeague"));
}

TEST_F(Tools, WhatIsTickedIsTakenAsOneStep) {
  Compare(OtherImage({{0x6DA, 0x77}, {0x3013, 0x91}, {0x1FD7C, 'B'}}));
  const std::string city = "SPARROWS\n  City | HARBORTON | BARBORTON";
  const std::string control = "\n  QB 1 sam PLOVER: Pass Control | 44 | 13";
  const std::string lines = city + "\n  QB 1 sam PLOVER: Number | 01 | 77" +
                            "\n  QB 1 sam PLOVER: Passing Speed | 44 | 63" + control;
  EXPECT_EQ(Lines("frmCompare", "lstChanges"), lines);
  EXPECT_EQ(Text("frmCompare", "lblCount"), "4 differences");
  QTreeWidget& list = List("frmCompare", "lstChanges");
  Find<QLineEdit>(Form("frmCompare"), "txtFilter").setText("qb p");
  EXPECT_EQ(Text("frmCompare", "lblCount"), "4 differences, 3 shown");
  list.topLevelItem(0)->setCheckState(0, Qt::Checked);
  EXPECT_EQ(Text("frmCompare", "lblCount"), "4 differences, 3 shown, 3 ticked");
  list.topLevelItem(0)->child(3)->setCheckState(0, Qt::Unchecked);
  Select(list, "QB 1");
  Press("frmCompare", "btnShow");
  const LeagueData before = session_.League();
  Press("frmCompare", "btnTake");
  EXPECT_EQ(Text("ViewPlayer", "lblNumber"), "#77") << "the open viewer shows what was taken";
  EXPECT_EQ(session_.League().NameData[1][1].JerseyNumber, "77");
  EXPECT_EQ(session_.League().QBData[1][1].PassingSpeed, 9);
  EXPECT_EQ(session_.League().QBData[1][1].PassControl, before.QBData[1][1].PassControl);
  EXPECT_EQ(session_.League().TeamData[1].City, before.TeamData[1].City) << "it was not shown";
  Find<QLineEdit>(Form("frmCompare"), "txtFilter").clear();
  EXPECT_EQ(Lines("frmCompare", "lstChanges"), city + control);
  Select(list, "Pass Control");
  Press("frmCompare", "btnShow");
  EXPECT_EQ(Find<DropDownList>(Form("ViewPlayer"), "cmbPosition").Text(), "QB 1");
  Pick("mnuEditUndo");
  EXPECT_TRUE(session_.League() == before);
  EXPECT_EQ(Lines("frmCompare", "lstChanges"), lines);
}

TEST_F(Tools, TheGamesOfAWeekAreTakenTogether) {
  const ScheduleWeek week = session_.League().ScheduleData[0];
  session_.Change("a week", [](LeagueData& league) {
    std::swap(league.ScheduleData[0].Games[0], league.ScheduleData[0].Games[1]);
  });
  Compare(QString::fromStdString(path_));
  QTreeWidget& list = List("frmCompare", "lstChanges");
  list.topLevelItem(0)->child(1)->setCheckState(0, Qt::Checked);
  EXPECT_EQ(list.topLevelItem(0)->child(0)->checkState(0), Qt::Checked);
  Press("frmCompare", "btnTake");
  EXPECT_EQ(session_.League().ScheduleData[0], week);
  EXPECT_EQ(Text("frmCompare", "lblCount"), "No difference");
}

TEST_F(Tools, OtherKindsOfFilesAreComparedAndBadOnesAreToldOf) {
  const Bytes image = SampleBytes();
  Bytes target = image;
  target[0x6DA] = 0x77;
  WriteFile(folder_.Path("a.ips"), MakePatch(PatchFormat::Ips, image, target));
  WriteFile(folder_.Path("a.json"), std::string(R"({"teams": [{"index": 1, "players":
      [{"slot": 1, "jerseyNumber": "77"}]}]})"));
  WriteFile(folder_.Path("a.csv"), std::string("Team,Slot,Number\n1,1,77\n"));
  for (const char* name : {"a.ips", "a.json", "a.csv"}) {
    Compare(QString::fromStdString(folder_.Path(name)));
    EXPECT_EQ(Lines("frmCompare", "lstChanges"), "SPARROWS\n  QB 1 sam PLOVER: Number | 01 | 77");
    Press("frmCompare", "btnOK");
  }
  WriteFile(folder_.Path("bad.csv"), std::string("Team,Slot,Number\n1,1,777\n"));
  const auto told_of = [this](const std::string& file) {
    QString told;
    AnswerNextFileDialog(QString::fromStdString(folder_.Path(file)));
    AnswerNextMessage("OK", &told);
    Pick("mToolCompare");
    return told.toStdString();
  };
  EXPECT_EQ(told_of("bad.csv"),
            folder_.Path("bad.csv") +
                " gives no league:\n\nline 2, column 3 (Number), SPARROWS: \"777\" is not a "
                "number from 0 to 99");
  const std::string too_large =
      folder_.Path("a.ips") + " gives no league:\n\nThe file is too large.";
  std::filesystem::resize_file(folder_.Path("a.ips"), 67'108'864);
  EXPECT_NE(told_of("a.ips"), too_large);
  std::filesystem::resize_file(folder_.Path("a.ips"), 67'108'865);
  EXPECT_EQ(told_of("a.ips"), too_large);
  EXPECT_FALSE(IsOpen("frmCompare"));
}

TEST_F(Tools, AMergeTicksWhatOnlyTheOthersChanged) {
  session_.Change("ours", [](LeagueData& league) {
    league.NameData[1][1].JerseyNumber = "55";
    league.TeamData[2].City = "OURS";
  });
  AnswerNextFileDialog(OtherImage({{0x6DA, 0x77}, {0x1FD7C, 'B'}}));
  OnNextDialog([](QDialog& dialog) {
    auto& input = dynamic_cast<QInputDialog&>(dialog);
    EXPECT_EQ(input.comboBoxItems(),
              (QStringList{"The file as it is on the disk", "Another file..."}));
    input.accept();
  });
  Pick("mToolMerge");
  EXPECT_EQ(Form("frmCompare").windowTitle(), "Merge");
  EXPECT_EQ(Lines("frmCompare", "lstChanges"),
            "SPARROWS\n  *City | HARBORTON | BARBORTON\n  QB 1 sam PLOVER: Number | 55 | 77 "
            "  (both changed it)");
  QTreeWidgetItem& group = *List("frmCompare", "lstChanges").topLevelItem(0);
  EXPECT_FALSE(group.child(0)->font(2).bold());
  EXPECT_TRUE(group.child(1)->font(2).bold());
  Press("frmCompare", "btnTake");
  EXPECT_EQ(session_.League().TeamData[1].City, "BARBORTON");
  EXPECT_EQ(session_.League().TeamData[2].City, "OURS");
  EXPECT_EQ(session_.League().NameData[1][1].JerseyNumber, "55");
}

TEST_F(Tools, AMergeNeedsALeagueThatBothWereMadeFrom) {
  AnswerNextFileDialog(OtherImage({}));
  OnNextDialog([](QDialog& dialog) {
    dynamic_cast<QInputDialog&>(dialog).setTextValue("Another file...");
    dialog.accept();
  });
  AnswerNextFileDialog(QString::fromStdString(BinFolder() + "colors.txt"));
  QString told;
  OnNextDialog([&told](QDialog& dialog) {
    told = dialog.windowTitle() + ": " + dynamic_cast<QMessageBox&>(dialog).text();
    dialog.accept();
  });
  Pick("mToolMerge");
  EXPECT_EQ(told, "Merge: It is not an image of this game.");
  EXPECT_FALSE(IsOpen("frmCompare"));
}

TEST_F(Tools, APatchHoldsWhatIsInMemory) {
  session_.Change("a number",
                  [](LeagueData& league) { league.NameData[1][1].JerseyNumber = "77"; });
  for (const char* name : {"mine.bps", "mine.ips"}) {
    OnNextDialog([&](QDialog& dialog) {
      dialog.accept();
      AnswerNextFileDialog(QString::fromStdString(folder_.Path(name)));
    });
    Pick("mToolPatch");
    const Bytes patched = ApplyPatch(SampleBytes(), FileBytes(folder_.Path(name)));
    EXPECT_EQ(patched[0x6DA], 0x77) << name;
  }
  EXPECT_EQ(FileBytes(path_), SampleBytes()) << "the image itself is not written";
  OnNextDialog([](QDialog& dialog) { dialog.reject(); });
  Pick("mToolPatch");
  session_.Change("a long city",
                  [](LeagueData& league) { league.TeamData[1].City = std::string(999, 'A'); });
  AnswerNextMessage("OK");
  Pick("mToolPatch");
}

}  // namespace
}  // namespace rostermill::test
