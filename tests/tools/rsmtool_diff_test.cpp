#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolDiff : public RsmtoolTest {};

TEST_F(RsmtoolDiff, TheSameLeagueIsNoDifference) {
  const QString a = Image("a.nes");
  Out({"resave", a, Path("b.nes")});
  EXPECT_EQ(Out({"diff", a, Path("b.nes")}), "") << "a save changes bytes, not the league";
  EXPECT_EQ(Out({"diff", "--json", a, Path("b.nes")}), "[]\n");
}

TEST_F(RsmtoolDiff, APlayersChangesInTheWordsOfTheGame) {
  const QString a = Image("a.nes", {{0x6DA, {0x12}}, {0x3010, {0x00, 0x00, 99, 0x70, 0x00}}});
  const QString b = Image("b.nes", {{0x6DA, {0x07, 't', 'o', 'm', 'H', 'E', 'R', 'O', 'N', 'S'}},
                                    {0x3010, {0x00, 0x0F, 100, 0x90, 0x00}}});
  EXPECT_EQ(Out({"diff", a, b}, 1),
            "SPARROWS QB 1 sam PLOVER: Name sam PLOVER -> tom HERONS\n"
            "SPARROWS QB 1 sam PLOVER: Number 12 -> 07\n"
            "SPARROWS QB 1 sam PLOVER: Face 99 -> 100\n"
            "SPARROWS QB 1 sam PLOVER: Hitting Power 6 -> 100\n"
            "SPARROWS QB 1 sam PLOVER: Passing Speed 50 -> 63\n");
}

TEST_F(RsmtoolDiff, OneLineForEachKindOfChange) {
  const QString a = Image("a.nes", {{0x0C129, {'1', '9', '9', '1'}},
                                    {0x0E204, {'O', 'L', 'D'}},
                                    {0x239D3, {0x22}},
                                    {0x2C2E4, {2}},
                                    {0x343E8 + 4, {7}},
                                    {0x34494, {1}},
                                    {0x1D310, {0x60}},
                                    {0x1D313, {0x00}},
                                    {0x329DB, {0, 0x1C}},
                                    {0x32853, {0, 0}}});
  const QString b = Image("b.nes", {{0x0C129, {'1', '9', '9', '2'}},
                                    {0x0E204, {'N', 'E', 0x1B}},
                                    {0x1FD7C, {'B'}},
                                    {0x1FD00, {'A', 'B', 'C', 'D'}},
                                    {0x239D3, {0x02}},
                                    {0x2C2E4, {63}},
                                    {0x343E8 + 4, {8}},
                                    {0x34494, {64}},
                                    {0x1D310, {0x70}},
                                    {0x1D313, {0x09}},
                                    {0x329DB, {0x1C, 0}},
                                    {0x32853, {0x1C, 0}}});
  EXPECT_EQ(Out({"diff", a, b}, 1),
            "League: Roster Year 1991 -> 1992\n"
            "League: League C OLD -> NE\\x1B\n"
            "SPARROWS: City HARBORTON -> BARBORTON\n"
            "SPARROWS: Abbreviation HARB -> ABCD\n"
            "SPARROWS: Uniform Color 1 2 -> 63\n"
            "SPARROWS: Division Champion Color 5 7 -> 8\n"
            "SPARROWS: Conference Champion Color 1 1 -> 64\n"
            "SPARROWS: Run 1 FB Open Left -> Toss Sweep Right\n"
            "SPARROWS: Pass 4 Shotgun XY Bomb -> Unknown play 9\n"
            "SPARROWS: Kick Returner RB 1 jon ASHLAR -> nobody\n"
            "Week 1: Game 1 SPARROWS at OAK all-stars -> OAK all-stars at SPARROWS\n"
            "AFC Pro Bowl: QB 1 SPARROWS QB 1 sam PLOVER -> nobody (team 29, slot 1)\n");
}

TEST_F(RsmtoolDiff, FormationsAndLengthsOfWeeks) {
  Out({"resave", Image("in.nes"), Path("a.nes")});
  Bytes bytes = BytesOf(Path("a.nes"));
  bytes[0x21FE0] = 1;
  bytes[0x329C9 + 16] = 13;
  WriteFile(folder_.Path("b.nes"), bytes);
  const std::string head = "SPARROWS: Formation 2RB 2WR 1TE -> 1RB 4WR\nWeek 17: Game 14 ";
  const std::string out = Out({"diff", Path("a.nes"), Path("b.nes")}, 1);
  EXPECT_EQ(out.substr(0, head.size()), head);
  EXPECT_TRUE(out.ends_with(" -> no game\n")) << out;
}

TEST_F(RsmtoolDiff, MachinesGetTheSameAsJson) {
  const QString a = Image("a.nes", {{0x3013, {0x70}}, {0x329DB, {0, 1}}});
  const QString b = Image("b.nes", {{0x3013, {0x90}}, {0x329DB, {1, 1}}});
  const std::string head = R"([
  {
    "team": 1,
    "slot": 1,
    "subject": "SPARROWS QB 1 sam PLOVER",
    "what": "Passing Speed",
    "from": "50",
    "to": "63"
  },
  {
    "subject": "Week 1",
    "what": "Game 1",
    "from": "SPARROWS at )";
  EXPECT_EQ(Out({"diff", "--json", a, b}, 1).substr(0, head.size()), head);
}

TEST_F(RsmtoolDiff, TroubleIsTwo) {
  WriteFile(folder_.Path("text.nes"), std::string("no image"));
  ExpectMessage({"diff", Image("a.nes"), Path("text.nes")}, 2,
                folder_.Path("text.nes") + ": not an image of this game");
}

}  // namespace
}  // namespace rostermill::test
