#include "tests/support/damage.h"
#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolDump : public RsmtoolTest {};
class RsmtoolResave : public RsmtoolTest {};

TEST_F(RsmtoolDump, EveryFieldIsInItsPlaceAndOrder) {
  const QString path = Image("dump.nes", {{0x0C129, {'1', '9', '9', '3'}},
                                          {0x0E1FA, {'A', 'B', 'C'}},
                                          {0x0E1FF, {'"', '\\', 0x07}},
                                          {0x0E204, {'x', 0xE9, 'z'}},
                                          {0x1FD7C, {'H'}},
                                          {0x1FD00, {'A', '.', 'B', ' '}},
                                          {0x2C2E4, {1, 2, 3, 4, 5, 63}},
                                          {0x343E8, {11, 12, 13, 14, 15}},
                                          {0x34494, {21, 22, 23, 24}},
                                          {0x1D310, {0x12, 0x34, 0x56, 0x7C}},
                                          {0x6DA, {0x12}},
                                          {0x3010, {0x12, 0x34, 0xFF, 0x56, 0x78}},
                                          {0x301A, {0x9A, 0xBC, 0x00, 0xDE}},
                                          {0x239D3, {0x23}}});
  const std::string out = Out({"dump", path});
  const std::string text = InOneLine(out.substr(0, 5000));
  const std::string head =
      R"({ "rosterYear": "1993", "leagueText": [ "ABC", "\"\\\u0007", "xéz" ], "teams": [ { )"
      R"("index": 1, "city": "HARBORTON", "nickname": "SPARROWS", "abbreviation": "A.B ", )"
      R"("formation": 0, "colors": [ 1, 2, 3, 4, 5, 63 ], "divChampColors": [ 11, 12, 13, )"
      R"(14, 15 ], "confChampColors": [ 21, 22, 23, 24 ], "plays": [ 1, 2, 3, 4, 5, 6, 7, 0 )"
      R"(], "players": [ { "slot": 1, "label": "QB 1", "group": "QB", "firstName": "sam", )"
      R"("lastName": "PLOVER", "jerseyNumber": "12", "face": 255, "ratings": { )"
      R"("rushingPower": 1, "runningSpeed": 2, "maximumSpeed": 3, "hittingPower": 4, )"
      R"("passingSpeed": 5, "passControl": 6, "accuracy": 7, "avoidPassBlock": 8 } }, { )"
      R"("slot": 2, )";
  EXPECT_EQ(text.substr(0, head.size()), head);
  const std::string skill =
      R"("face": 0, "ratings": { "rushingPower": 9, "runningSpeed": 10, "maximumSpeed": 11, )"
      R"("hittingPower": 12, "ballControl": 13, "receptions": 14 }, "kickReturner": true, )"
      R"("puntReturner": false }, { "slot": 4,)";
  EXPECT_NE(text.find(skill), std::string::npos) << text;
  EXPECT_TRUE(out.starts_with("{\n  \"rosterYear\": \"1993\",\n  \"leagueText\": [\n    \"ABC\","));
}

TEST_F(RsmtoolDump, OtherGroupsScheduleAndAllStars) {
  const QString path = Image("dump.nes", {{0x3042, {0x12, 0x34, 0x80}},
                                          {0x3051, {0x12, 0x34, 0x81, 0x56}},
                                          {0x307D, {0x12, 0x34, 0x82, 0x67}},
                                          {0x329C9, {1, 0}},
                                          {0x329DB, {0x1B, 0x00}},
                                          {0x32853, {0x1B, 0x1D}},
                                          {0x32853 + 60, {0x00, 0x00}}});
  const std::string text = InOneLine(Out({"dump", path}));
  const std::string ratings =
      R"("ratings": { "rushingPower": 1, "runningSpeed": 2, "maximumSpeed": 3, "hittingPower": 4)";
  // The schedule is counted from 0 and has only the games in use; all-stars are counted from 1.
  for (const std::string& part :
       {R"("slot": 13, "label": "C", "group": "Line", "firstName": "toby", "lastName": "YARROW", )"
        R"("jerseyNumber": "59", "face": 128, )" +
            ratings + " } }, {",
        R"("face": 129, )" + ratings + R"(, "passInterception": 5, "quickness": 6 } }, {)",
        R"("face": 130, )" + ratings + R"(, "kickingAbility": 6, "avoidKickBlock": 7 } }, {)",
        std::string(R"( "schedule": [ [ { "away": 27, "home": 0 } ], [], [ {)"),
        std::string(R"( "probowl": [ [ { "team": 28, "slot": 30 }, {)"),
        std::string(R"( } ], [ { "team": 1, "slot": 1 }, {)")}) {
    EXPECT_NE(text.find(part), std::string::npos) << part;
  }
}

TEST_F(RsmtoolResave, TheCopyIsWhatASaveOfTheEditorWrites) {
  const QString in = Image("in.nes", {{0x328D3, {0x00}}, {0x342D8, {0x99}}});
  const Bytes before = BytesOf(in);
  Out({"resave", in, Path("out.nes")});
  EXPECT_EQ(BytesOf(in), before) << "the source stays as it is";
  const Bytes after = BytesOf(Path("out.nes"));
  EXPECT_EQ(after, SavedBytes(SampleLeague()));
}

TEST_F(RsmtoolResave, BytesAfterTheImageAndPipesAreCarried) {
  Bytes longer = SampleBytes();
  longer.insert(longer.end(), {1, 2, 3});
  const Result result = Run({"resave", "-", "-"}, std::string(longer.begin(), longer.end()));
  EXPECT_EQ(result.Code, 0) << result.Err;
  ASSERT_EQ(result.Out.size(), 393'235u);
  EXPECT_EQ(result.Out.substr(393'232), "\x01\x02\x03");
}

TEST_F(RsmtoolResave, WhatCantBeSavedLeavesTheTargetAlone) {
  // Every name reaches to the end of the bank.
  Bytes wild = SampleBytes();
  for (std::size_t at = 0x48; at < 0x6DA; at += 4) wild[at] = wild[at + 1] = 0xFF;
  WriteFile(folder_.Path("wild.nes"), wild);
  const Result result = Run({"resave", Path("wild.nes"), Path("wild.nes")});
  EXPECT_EQ(result.Code, 2);
  EXPECT_TRUE(result.Err.starts_with("rsmtool: The players' names are too long for the image"));
  EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), 1) << "one line";
  EXPECT_EQ(BytesOf(Path("wild.nes")), wild);
  const QString out = Image("out.nes");
  Out({"resave", out, Path("no/such/folder.nes")}, 2);
  ExpectMessage({"resave", Path("none.nes"), out}, 2,
                folder_.Path("none.nes") + ": No such file or directory");
  EXPECT_EQ(BytesOf(out), SampleBytes());
}

}  // namespace
}  // namespace rostermill::test
