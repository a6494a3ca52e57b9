#include <filesystem>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolTables : public RsmtoolTest {
 protected:
  Result Import(const QString& what, const std::string& table, const QStringList& options = {}) {
    Image("league.nes");
    WriteFile(folder_.Path("table.csv"), table);
    return Run(QStringList{"import-" + what, Path("league.nes"), Path("table.csv")} + options);
  }
  /// What a dry run says would change, without what any save of the sample changes.
  std::string Changes(const QString& what, const std::string& table) {
    const Result result = Import(what, table, {"--dry-run"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(BytesOf(Path("league.nes")), SampleBytes());
    return result.Out.substr(0, result.Out.find("Also"));
  }
  std::string Errors(const QString& what, const std::string& table) {
    const Result result = Import(what, table);
    EXPECT_EQ(result.Code, 2) << table;
    EXPECT_EQ(BytesOf(Path("league.nes")), SampleBytes());
    return QString::fromStdString(result.Err).remove(Path("table.csv") + ": ").toStdString();
  }
};

TEST_F(RsmtoolTables, AnExportThatIsImportedChangesNothing) {
  // A week without games, a visitor that is an all-star side, two equal abbreviations, an unknown
  // play and a color above 63.
  const QString image = Image("odd.nes", {{0x329C8, {0}},
                                          {0x329DB, {28}},
                                          {0x1FD04, {'H', 'A', 'R', 'B'}},
                                          {0x1D313, {0x09}},
                                          {0x34494, {64}}});
  const Bytes before = BytesOf(image);
  for (const QString what : {"players", "teams", "schedule"}) {
    Out({"export-" + what, image, Path("t.csv")});
    EXPECT_EQ(Run({"import-" + what, image, Path("t.csv")}).Err,
              "rsmtool: nothing to change; " + image.toStdString() + " stays as it is\n")
        << what.toStdString();
    const std::string piped(before.begin(), before.end());
    EXPECT_EQ(Run({"import-" + what, "-", Path("t.csv"), Path("new.nes")}, piped).Code, 0);
    std::filesystem::remove(folder_.Path("new.nes"));
  }
  EXPECT_EQ(BytesOf(image), before);
}

TEST_F(RsmtoolTables, TeamsAsASpreadsheetReadsThem) {
  const std::string out = Out({"export-teams", Image("a.nes", {{0x2C2E4, {0x30}}})});
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 29);
  EXPECT_TRUE(
      out.starts_with("Team,City,Name,Abbreviation,Formation,Uniform Color 1,Uniform Color 1 "
                      "Name,Uniform Color 2,"))
      << out;
  EXPECT_NE(out.find(",Conference Champion Color 4 Name,Run 1,Run 1 Name,"), std::string::npos);
  EXPECT_NE(out.find(",Run 4,Run 4 Name,Pass 1,Pass 1 Name,"), std::string::npos);
  const std::string row = out.substr(out.find("\r\n") + 2);
  EXPECT_TRUE(row.starts_with("1,HARBORTON,SPARROWS,HARB,2RB 2WR 1TE,48,")) << row;
  EXPECT_NE(row.find(",FB Open Left,"), std::string::npos) << row;
}

TEST_F(RsmtoolTables, ATeamsCellsChangeTheirBytesOnly) {
  const Result result = Import("teams",
                               "team;city;abbreviation;formation;uniform color 1;run 1 name\r\n"
                               "sparrows;Newtown;nw;1rb 4wr;63;toss sweep right\r\n");
  EXPECT_EQ(result.Code, 0) << result.Err;
  const Bytes after = BytesOf(Path("league.nes"));
  EXPECT_EQ(Bytes(after.begin() + 0x1FD00, after.begin() + 0x1FD04), (Bytes{'N', 'W', ' ', ' '}));
  EXPECT_EQ(Bytes(after.begin() + 0x1FD7C, after.begin() + 0x1FD83),
            (Bytes{'N', 'E', 'W', 'T', 'O', 'W', 'N'}));
  EXPECT_EQ(after[0x2C2E4], 63);
  const std::string play = Changes("teams", "Team,Run 1 Name\n1,Toss Sweep Right\n");
  EXPECT_TRUE(play.starts_with("SPARROWS: Run 1 ") && play.ends_with(" -> Toss Sweep Right\n"));
}

TEST_F(RsmtoolTables, WrongTeamsAreTurnedAway) {
  EXPECT_EQ(
      Errors("teams",
             "Team,City,Abbreviation,Formation,Uniform Color 1,Run 1,Run 1 Name\n"
             "1,ABCDEFGHIJKLMNOP,ABCDE,3RB,64,8,\n"
             "2,,,,,,No Such Play\n"
             "29,,,,,,\n"
             "1,,,,,,\n"
             "3,,,,,5,Toss Sweep Right\n"),
      "line 2, column 2 (City), SPARROWS: \"ABCDEFGHIJKLMNOP\" has more than 15 characters\n"
      "line 2, column 3 (Abbreviation), SPARROWS: \"ABCDE\" has more than 4 characters\n"
      "line 2, column 4 (Formation), SPARROWS: \"3RB\" is not a formation; they are \"2RB 2WR "
      "1TE\", \"1RB 4WR\" and \"1RB 3WR 1TE\"\n"
      "line 2, column 5 (Uniform Color 1), SPARROWS: \"64\" is not a number from 0 to 63\n"
      "line 2, column 6 (Run 1), SPARROWS: \"8\" is not a number from 0 to 7\n"
      "line 3, column 7 (Run 1 Name), OTTERS: \"No Such Play\" is not a name of any\n"
      "line 4, column 1 (Team): \"29\" names no team\n"
      "line 5, SPARROWS: the same team is in line 2 already\n"
      "line 6, column 7 (Run 1 Name), FOXES: it is not the name of number 5\n"
      "rsmtool: 9 errors; nothing was written\n");
}

TEST_F(RsmtoolTables, AScheduleReplacesTheWeeksItNames) {
  const std::string out = Out({"export-schedule", Image("a.nes")});
  EXPECT_TRUE(out.starts_with("Week,Visitor,Host\r\n1,")) << out;
  const Result result = Import("schedule", "Week,Visitor,Host\n17,sparrows,2\n17,30,Harb\n16,,\n");
  EXPECT_EQ(result.Code, 0) << result.Err;
  const std::string now = Out({"export-schedule", Path("league.nes")});
  EXPECT_TRUE(now.ends_with("\r\n16,,\r\n17,HARB,WIND\r\n17,30,HARB\r\n")) << now;
  EXPECT_EQ(now.substr(0, now.find("\r\n16,")), out.substr(0, out.find("\r\n16,")));
}

TEST_F(RsmtoolTables, WrongGamesAreTurnedAway) {
  std::string full = "Week,Visitor,Host\n";
  for (int game = 0; game < 15; ++game) full += "3,1,2\n";
  EXPECT_EQ(Errors("schedule", full),
            "line 16: week 3 has more than 14 games\nrsmtool: 1 error; nothing was written\n");
  EXPECT_EQ(Errors("schedule", "Week,Visitor,Host\n18,1,2\n1,31,2\n1,1,\n"),
            "line 2, column 1 (Week): \"18\" is not a week from 1 to 17\n"
            "line 3, column 2 (Visitor): \"31\" names no team\n"
            "line 4, column 3 (Host): \"\" names no team\n"
            "rsmtool: 3 errors; nothing was written\n");
  EXPECT_EQ(Errors("schedule", "Week,Host\n1,2\n"),
            "line 1: the column \"Visitor\" is missing\nrsmtool: 1 error; nothing was written\n");
}

TEST_F(RsmtoolTables, PlayersAreFoundByWords) {
  const QString image = Image("a.nes", {{0x3010, {0x12, 0x34, 99, 0x56, 0x78}}});
  EXPECT_EQ(
      Out({"find", image, "PLOV", "sparrow", "qb1", "#01"}),
      "1  1   SPARROWS QB 1 sam PLOVER #01  RP 13 RS 19 MS 25 HP 31 PS 38 PC 44 PA 50 APB 56\n");
  EXPECT_EQ(Out({"find", image, "plover", "otters"}, 1), "");
  EXPECT_EQ(Out({"find", "--json", image, "plover", "01"}),
            R"([
  {
    "team": 1,
    "slot": 1,
    "teamName": "HARBORTON SPARROWS",
    "position": "QB 1",
    "name": "sam PLOVER",
    "number": "01",
    "ratings": {
      "RP": 13,
      "RS": 19,
      "MS": 25,
      "HP": 31,
      "PS": 38,
      "PC": 44,
      "PA": 50,
      "APB": 56
    }
  }
]
)");
}

}  // namespace
}  // namespace rostermill::test
