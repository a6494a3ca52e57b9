#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolPlayers : public RsmtoolTest {
 protected:
  const std::string stock_effects =
      "Also: rewritten, ratings: 1 byte\n"
      "Also: the formation code is added, which a stock image does not have\n"
      "Also: rewritten, schedule: 1 byte\n";

  /// Imports the text into a fresh copy of the sample.
  Result Import(const std::string& csv, const QStringList& options = {}) {
    Image("league.nes");
    WriteFile(folder_.Path("players.csv"), csv);
    return Run(QStringList{"import-players"} + options +
               QStringList{Path("league.nes"), Path("players.csv")});
  }

  /// What a dry run of the text says would change, without what any save of the sample changes.
  std::string Changes(const std::string& csv) {
    Result result = Import(csv, {"--dry-run"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(BytesOf(Path("league.nes")), SampleBytes()) << "a dry run writes nothing";
    if (result.Out.empty()) return result.Err;
    EXPECT_EQ(result.Err, "");
    EXPECT_TRUE(result.Out.ends_with(stock_effects)) << result.Out;
    return result.Out.substr(0, result.Out.size() - stock_effects.size());
  }

  /// The errors of the text, without the file's name; nothing may have been written.
  std::string Errors(const std::string& csv) {
    const Result result = Import(csv);
    EXPECT_EQ(result.Code, 2) << csv;
    EXPECT_EQ(BytesOf(Path("league.nes")), SampleBytes()) << csv;
    return QString::fromStdString(result.Err).remove(Path("players.csv") + ": ").toStdString();
  }
};

/// A row with these cells for each of the 840 players.
std::string Everybody(const std::string& headings, const std::string& cells) {
  std::string csv = "Team,Slot," + headings + "\n";
  for (int row = 0; row < 840; ++row) {
    csv += std::to_string(row / 30 + 1) + "," + std::to_string(row % 30 + 1) + "," + cells + "\n";
  }
  return csv;
}

TEST_F(RsmtoolPlayers, TheExportIsWrittenAsASpreadsheetReadsIt) {
  const QString image =
      Image("league.nes", {{0x6DA, {0x12, 's', 0xE9, 'm', 'P', ',', '"', 'V', 'E', 'R'}},
                           {0x3010, {0x12, 0x34, 0xFF, 0x56, 0x78}},
                           {0x301A, {0x9A, 0xBC, 0x00, 0xDE}},
                           {0x3042, {0x00, 0x0F, 0x10}},
                           {0x3051, {0x00, 0x00, 0x00, 0x1F}},
                           {0x307D, {0x00, 0x00, 0x00, 0x2E}},
                           {0x239D3, {0x23}}});
  const std::string out = Out({"export-players", image});
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 841);
  const std::string head =
      "Team,Team Name,Slot,Position,First Name,Last Name,Number,Face,Rushing Power,Running Speed,"
      "Maximum Speed,Hitting Power,Passing Speed,Pass Control,Accuracy,Avoid Pass Block,"
      "Ball Control,Receptions,Pass Interception,Quickness,Kicking Ability,Avoid Kick Block,"
      "Kick Returner,Punt Returner\r\n"
      "1,HARBORTON SPARROWS,1,QB "
      "1,s\xC3\xA9m,\"P,\"\"VER\",12,255,13,19,25,31,38,44,50,56,,,,,,,,\r\n";
  EXPECT_EQ(out.substr(0, head.size()), head);
  for (const char* part :
       {"\r\n1,HARBORTON SPARROWS,3,RB 1,jon,ASHLAR,23,0,63,69,75,81,,,,,88,94,,,,,yes,no\r\n",
        "\r\n1,HARBORTON SPARROWS,13,C,toby,YARROW,59,16,6,6,6,100,,,,,,,,,,,,\r\n",
        ",0,6,6,6,6,,,,,,,13,100,,,,\r\n1,HARBORTON SPARROWS,19,NT,",
        ",0,6,6,6,6,,,,,,,,,19,94,,\r\n1,HARBORTON SPARROWS,30,P,",
        ",4,WR 3,"}) {  // team 8 plays 1RB 4WR
    EXPECT_NE(out.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(Out({"export-players", image, Path("out.csv")}), "");
  EXPECT_EQ(BytesOf(Path("out.csv")), Bytes(out.begin(), out.end()));
}

TEST_F(RsmtoolPlayers, AnExportThatIsImportedChangesNothing) {
  // Also where the image holds what an import would turn away: an empty and an odd name.
  const QString image = Image(
      "odd.nes", {{0x6DA, {0x1F, 's', 'a', 'm', 'p'}}, {0x4C, {0xD4, 0x86}}, {0x239D3, {0x00}}});
  const Bytes bytes = BytesOf(image);
  Out({"export-players", image, Path("p.csv")});
  Out({"import-players", image, Path("p.csv")});
  EXPECT_EQ(BytesOf(image), bytes);
}

TEST_F(RsmtoolPlayers, AFewCellsInAnyOrderChangeTheirBytesOnly) {
  const Result result = Import(
      "kick_returner,PASSING SPEED,team,Last Name,slot,number,face\n"
      ",63,1,Heron,1,7,255\n"
      "yes,,1,Ashlar,3,,\n");
  EXPECT_EQ(result.Code, 0) << result.Err;
  EXPECT_EQ(result.Err,
            "rsmtool: 5 changes written to " + folder_.Path("league.nes") + "\n" + stock_effects);
  const Bytes after = BytesOf(Path("league.nes"));
  EXPECT_EQ(Bytes(after.begin() + 0x6DA, after.begin() + 0x6E3),
            (Bytes{0x07, 's', 'a', 'm', 'H', 'E', 'R', 'O', 'N'}));
  EXPECT_EQ(after[0x4A], 0xD3) << "a shorter name moves the next one's pointer";
  EXPECT_EQ(after[0x3012], 0xFF);
  EXPECT_EQ(after[0x3013] >> 4, 9);
  EXPECT_EQ(after[0x239D3] >> 4, 2) << "RB 1 returns kicks";
  EXPECT_EQ(after[0x328D3], after[0x239D3]);
  EXPECT_EQ(Run({"diff", Image("old.nes"), Path("league.nes")}).Out,
            "SPARROWS: Kick Returner WR 3 clem PETREL -> RB 1 jon ASHLAR\n"
            "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> sam HERON\n"
            "SPARROWS QB 1 sam PLOVER: Number 01 -> 07\n"
            "SPARROWS QB 1 sam PLOVER: Face 99 -> 255\n"
            "SPARROWS QB 1 sam PLOVER: Passing Speed 44 -> 63\n");
}

/// A save that moves a duty, a game's team or an edited text without a word.
TEST_F(RsmtoolPlayers, WhatTheSaveChangesByItselfIsReported) {
  Out({"resave", Image("stock.nes"), Path("odd.nes")});
  Bytes bytes = BytesOf(Path("odd.nes"));
  bytes[0x239D3] = 0x02;  // kick returner 0 of team 1
  bytes[0x329DB] = 0x1E;  // visitor 30 in week 1, game 1
  bytes[0x1FD7C] = 'h';   // the first letter of team 1's city
  bytes[0x1D310] = 0xF0;  // run 15 of team 1
  bytes[0x34328] = 0x3F;  // team 11's copy of uniform color 1
  bytes[0x1E2BD] = '?';   // one of the roster year's places
  WriteFile(folder_.Path("odd.nes"), bytes);
  WriteFile(folder_.Path("p.csv"), std::string("Team,Slot,Number,Last Name\n1,1,22,Plovers\n"));
  const std::string effects =
      "Also: SPARROWS: City hARBORTON -> HARBORTON\n"
      "Also: SPARROWS: Kick Returner nobody -> RB 1 jon ASHLAR\n"
      "Also: put in order, returners: SPARROWS: no kick returner: the value 0 names no player\n"
      "Also: put in order, returners: SPARROWS: the two returner tables differ: 0x2, which counts, "
      "and 0x85\n"
      "Also: put in order, playbooks: SPARROWS: playbook slot 1 holds 15, which is not a play; it "
      "is read as 0\n"
      "Also: put in order, schedule: week 1, game 1: visiting team number 30 is read as 0\n"
      "Also: rewritten, returners: 2 bytes\n"
      "Also: rewritten, team texts: 1 byte\n"
      "Also: rewritten, colors: 1 byte\n"
      "Also: rewritten, playbooks: 1 byte\n"
      "Also: rewritten, schedule: 1 byte\n"
      "Also: rewritten, game settings: 1 byte\n";
  const Result dry = Run({"import-players", "--dry-run", Path("odd.nes"), Path("p.csv")});
  EXPECT_EQ(dry.Out,
            "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> sam PLOVERS\n"
            "SPARROWS QB 1 sam PLOVER: Number 01 -> 22\n" +
                effects);
  EXPECT_EQ(dry.Err, "");
  EXPECT_EQ(BytesOf(Path("odd.nes")), bytes);
  const Result import = Run({"import-players", Path("odd.nes"), Path("p.csv")});
  EXPECT_EQ(import.Out, "");
  EXPECT_EQ(import.Err,
            "rsmtool: 2 changes written to " + folder_.Path("odd.nes") + "\n" + effects);
  EXPECT_EQ(BytesOf(Path("odd.nes"))[0x239D3], 0x22) << "RB 1 returns kicks";
}

TEST_F(RsmtoolPlayers, AllPlayersEditedAtOnce) {
  EXPECT_EQ(Import(Everybody("Rushing Power,Number,Face", "100,98,254")).Code, 0);
  const Bytes after = BytesOf(Path("league.nes"));
  // The record sizes of a team: 2 of 5 bytes, 10 of 4, 5 of 3, 11 of 4 and 2 of 4.
  std::size_t at = 0x3010;
  for (int team = 1; team <= 28; ++team) {
    for (int slot = 1; slot <= 30; ++slot) {
      EXPECT_EQ(after[at] >> 4, 15) << team << "/" << slot;
      EXPECT_EQ(after[at + 2], 254) << team << "/" << slot;
      at += slot <= 2 ? 5 : slot >= 13 && slot <= 17 ? 3 : 4;
    }
  }
  EXPECT_EQ(after[0x6DA], 0x98);
  EXPECT_EQ(at, 0x3CDCu);
}

TEST_F(RsmtoolPlayers, HabitsOfSpreadsheets) {
  const std::string changes =
      "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> sam HER,ON\n"
      "SPARROWS QB 1 sam PLOVER: Passing Speed 44 -> 63\n";
  EXPECT_EQ(Changes("Team,Slot,Last Name,Passing Speed\n1,1,\"Her,on\",63"), changes)
      << "a quoted comma, and no line end after the last row";
  EXPECT_EQ(Changes("\xEF\xBB\xBF\"Team\",Slot,Last Name,Passing Speed,,\r\n"
                    "1,1, \tHER,63\r\n"),
            "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> sam HER\n"
            "SPARROWS QB 1 sam PLOVER: Passing Speed 44 -> 63\n")
      << "byte order mark, CRLF, blanks, unused columns";
  EXPECT_EQ(Changes("Team,Slot,Number\r1,1,2\r,,\r\r , ,\r\n"),
            "SPARROWS QB 1 sam PLOVER: Number 01 -> 02\n")
      << "old line ends and empty rows at the end";
  EXPECT_EQ(Changes("Team,Slot,Number,Position\n1,1,1,qb1\n1,4,,WR 3\n01,9,,\n"),
            "rsmtool: nothing to change; " + folder_.Path("league.nes") + " stays as it is\n")
      << "a lost zero, and the label under another formation";
  EXPECT_EQ(Changes("Team,Slot,First Name\n1,1,\n"),
            "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> PLOVER\n")
      << "an empty name is a name";
  EXPECT_EQ(Changes("Team,Slot,First Name\n1,1,S\xC3\xA9m\n"),
            "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> s\xC3\xA9m PLOVER\n")
      << "UTF-8 in, Latin-1 in the image";
  const std::string number = "SPARROWS QB 1 sam PLOVER: Number 01 -> 02\n";
  EXPECT_EQ(Changes("Team;Slot;Number\r\n1;1;2\r\n"), number);
  EXPECT_EQ(Changes("Team\tSlot\tNumber\n1\t\"1\"\t2\n"), number);
  const std::string utf16(
      "\xFF\xFET\0e\0a\0m\0\t\0S\0l\0o\0t\0\t\0F\0i\0r\0s\0t\0N\0a\0m\0e\0\n\0"
      "1\0\t\0001\0\t\0s\0\xE9\0m\0",
      56);
  const std::string named = "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> s\xC3\xA9m PLOVER\n";
  EXPECT_EQ(Changes(utf16), named);
  EXPECT_EQ(Changes("Team,Slot,First Name\n1,1,S\xE9m\n"), named) << "Latin-1";
}

TEST_F(RsmtoolPlayers, PlayersAreFoundByWhatPeopleCallThem) {
  const std::string number = "SPARROWS QB 1 sam PLOVER: Number 01 -> 02\n";
  for (const char* team : {"1", "harb", "Sparrows", "Harborton Sparrows"}) {
    for (const char* slot : {"Slot,Number\n", "Position,Number\n"}) {
      const std::string key = slot[0] == 'S' ? "1" : "qb 1";
      EXPECT_EQ(Changes(std::string("Team,") + slot + team + "," + key + ",2\n"), number) << team;
    }
  }
  EXPECT_EQ(Changes("Team Name,Position,Number\nSPARROWS,QB1,2\n"), number);
  EXPECT_EQ(Errors("Team Name,Position,Number\nNOBODY,QB1,2\n,QB1,2\nSPARROWS,XX,3\n"),
            "line 2, column 1 (Team Name): \"NOBODY\" names no team\n"
            "line 3, column 1 (Team Name): \"\" names no team\n"
            "line 4, column 2 (Position), SPARROWS: \"XX\" is neither a slot from 1 to 30 nor a "
            "position of the team\n"
            "rsmtool: 3 errors; nothing was written\n");
}

TEST_F(RsmtoolPlayers, OptionsForTablesThatAreNotQuiteRight) {
  const auto dry = [this](const std::string& csv, const QString& option) {
    const Result result = Import(csv, {"--dry-run", option});
    EXPECT_EQ(result.Code, 0) << result.Err;
    return result.Out.substr(0, result.Out.find("Also"));
  };
  EXPECT_EQ(dry("Team,Slot,My Notes,Number\n1,1,good,2\n", "--ignore-unknown"),
            "SPARROWS QB 1 sam PLOVER: Number 01 -> 02\n");
  EXPECT_EQ(dry("Team,Slot,Passing Speed,Accuracy,Hitting Power\n1,1,60,66,0\n", "--round"),
            "SPARROWS QB 1 sam PLOVER: Passing Speed 44 -> 63\n");
  // The rows of a receiver and a center were swapped.
  EXPECT_EQ(dry("Team,Slot,Kick Returner\n1,9,no\n1,13,yes\n", "--returners=keep"),
            "SPARROWS: Kick Returner WR 3 clem PETREL -> RB 1 jon ASHLAR\n");
  ExpectMessage({"import-players", "--returners=no", "a", "b"}, 2,
                "the only value of --returners is \"keep\"; see rsmtool import-players --help");
}

TEST_F(RsmtoolPlayers, EveryErrorIsReportedWithItsPlaceAndNothingIsWritten) {
  EXPECT_EQ(
      Errors("Team,Slot,Position,First Name,Last Name,Number,Face,Accuracy,Receptions\n"
             "1,1,QB 2,,,,,,\n"
             "1,2,,,plover,100,256,51,\n"
             "1,3,,,,0x1,-1,50,7\n"
             "0,31,,,,,,,\n"
             "\n"
             "1,4,,\"a\nb\",\"x\",,,,,more\n"
             "1,5,,\xE2\x82\xAC,9LIVES,,,,\n"
             "1,6,,franklin,LONGFELLOW,,,,\n"
             "1,2,,,,,,,\n"),
      "line 2, column 3 (Position), SPARROWS: slot 1 is QB 1, not QB 2\n"
      "line 3, column 6 (Number), SPARROWS: \"100\" is not a number from 0 to 99\n"
      "line 3, column 7 (Face), SPARROWS: \"256\" is not a face number from 0 to 255\n"
      "line 3, column 8 (Accuracy), SPARROWS: \"51\" is not a rating; the nearest are 50 and 56\n"
      "line 4, column 6 (Number), SPARROWS: \"0x1\" is not a number from 0 to 99\n"
      "line 4, column 7 (Face), SPARROWS: \"-1\" is not a face number from 0 to 255\n"
      "line 4, column 8 (Accuracy), SPARROWS: RB 1 has no Accuracy\n"
      "line 4, column 9 (Receptions), SPARROWS: \"7\" is not a rating; the nearest are 6 and 13\n"
      "line 5, column 1 (Team): \"0\" names no team\n"
      "line 5, column 2 (Slot): \"31\" is neither a slot from 1 to 30 nor a position of the team\n"
      "line 8, column 5 (Last Name), SPARROWS: \"a\\x0AbX\" holds a control character\n"
      "line 8, column 10: there is a value, and no heading above it\n"
      "line 9, column 4 (First Name), SPARROWS: it holds a character outside Latin-1\n"
      "line 9, column 5 (Last Name), SPARROWS: the last name \"9LIVES\" must begin with a letter "
      "from "
      "A to Z\n"
      "line 10, column 5 (Last Name), SPARROWS: \"franklin LONGFELLOW\" has more than 15 letters\n"
      "line 11, SPARROWS: the same player is in line 3 already\n"
      "rsmtool: 16 errors; nothing was written\n");
}

TEST_F(RsmtoolPlayers, AFileWithOneErrorIsTurnedAway) {
  const std::vector<std::pair<std::string, std::string>> files{
      {"", "line 1: the file is empty\n"},
      {"Team,Slot,Spe\x1B[m\n", "line 1, column 3: \"Spe\\x1B[m\" is not a known column\n"},
      {"Team,Slot,Speed\n1,1,6\n1,2,13\n", "line 1, column 3: \"Speed\" is not a known column\n"},
      {"Team,,Slot\n1,,1\n1,6,2\n1,13,3\n",
       "line 3, column 2: there is a value, and no heading above it\n"},
      {"Team,Slot,Face,FACE\n", "line 1, column 4 (Face): the column \"FACE\" appears twice\n"},
      {"Team,Face\n1,2\n", "line 1: the column \"Slot\" or \"Position\" is missing\n"},
      {"Team,Slot\n1,\"1\n", "line 2, column 2: a quote is opened and never closed\n"},
      {"Team,Slot\n1,\"1\"x\n", "line 2, column 2: there is text after a closing quote\n"},
      {"Team,Slot,Kick Returner\n1,9,yes\n1,8,1\n2,9,yes\n",
       "line 3, column 3 (Kick Returner), SPARROWS: line 2 names another of the same team\n"},
      {"Team,Slot,Punt Returner\n1,6,no\n",
       "line 2, column 3 (Punt Returner), SPARROWS: this leaves the team without one; say yes for "
       "another of its "
       "players, or use --returners=keep\n"},
      {"Team,Slot,Kick Returner\n1,13,yes\n",
       "line 2, column 3 (Kick Returner), SPARROWS: only slots 3 to 12 can be returners\n"},
      {"Team,Slot,Punt Returner\n1,12,maybe\n",
       "line 2, column 3 (Punt Returner), SPARROWS: \"maybe\" is neither yes nor no\n"}};
  for (const auto& [csv, line] : files) {
    EXPECT_EQ(Errors(csv), line + "rsmtool: 1 error; nothing was written\n");
  }
}

TEST_F(RsmtoolPlayers, ATeamHasOneReturnerForEachDuty) {
  const std::string head = "Team,Slot,Kick Returner,Punt Returner\n";
  EXPECT_EQ(Changes(head + "1,9,no,no\n1,8,X,\n1,1,no,no\n"),
            "SPARROWS: Kick Returner WR 3 clem PETREL -> WR 2 orin VINE\n");
  EXPECT_EQ(Changes(head + "1,9,yes,TRUE\n"),
            "SPARROWS: Punt Returner RB 4 jed TEASEL -> WR 3 clem PETREL\n");
}

TEST_F(RsmtoolPlayers, NamesThatDontFitTheImageAreRefusedTogether) {
  const std::string csv = Everybody("First Name,Last Name", "abcdefg,HIJKLMNO");
  const std::string line =
      "rsmtool: The players' names are too long for the image: they need 13,440 bytes, and it has "
      "room for 10,550 bytes. Shorten them by 2,890 letters.\n";
  EXPECT_EQ(Errors(csv), line);
  EXPECT_EQ(Run({"import-players", "--dry-run", Path("league.nes"), "-"}, csv).Err, line)
      << "a dry run says it too";
}

}  // namespace
}  // namespace rostermill::test
