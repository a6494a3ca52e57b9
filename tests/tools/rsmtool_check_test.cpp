#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class RsmtoolCheck : public RsmtoolTest {};

TEST_F(RsmtoolCheck, ACleanImageIsCleanStockOrSaved) {
  const QString stock = Image("stock.nes");
  EXPECT_EQ(Out({"check", stock}), stock.toStdString() +
                                       ": a whole image, stock, never saved, nothing odd\n"
                                       "  names: 9,154 bytes used, 1,396 bytes left\n"
                                       "  team texts: 497 bytes used, 163 bytes left\n");
  Out({"resave", stock, Path("saved.nes")});
  EXPECT_THAT(Out({"check", Path("saved.nes")}),
              HasSubstr(": a whole image, saved, nothing odd\n"));
}

/// Damage that a load brings into range without a word, and the line that reports it.
struct Damage {
  int Offset;
  Bytes Values;
  const char* Line;
};

TEST_F(RsmtoolCheck, WhatALoadLeavesOutOrChangesIsReported) {
  const std::vector<Damage> damages{
      {0x239D3, {0x02}, "returners: SPARROWS: no kick returner: the value 0 names no player"},
      {0x239D3, {0x2C}, "returners: SPARROWS: no punt returner: the value 12 names no player"},
      {0x48, {0xCB}, "names: the first name pointer leads to 0x6DB, not 0x6DA"},
      {0x4A, {0xCA, 0x86}, "names: SPARROWS QB 1: no name entry: neither number nor name"},
      {0x4A,
       {0xC9, 0x86},
       "names: SPARROWS QB 1: the name's pointers are out of order; it is read as empty"},
      {0x6D8, {0x21, 0xB0}, "outside the space for names"},
      {0x6DA, {0x1F}, "names: SPARROWS QB 1 sam PLOVER: the number 1F is not decimal"},
      {0x6DB,
       {'s', 'a', 'm', 'p', 'l', 'o', 'v', 'e', 'r'},
       "names: SPARROWS QB 1: the name has no capital letter; it is read as empty"},
      {0x1FC50, {0x6D, 0xBD}, "team texts: the first text pointer is 0xBD6D, not 0xBD6C"},
      {0x1FC92,
       {0x00, 0x00},
       "team texts: team 1: nickname pointers are out of order; it is read as empty"},
      {0x1FCC8, {0xFF, 0xFF}, "nickname is at 0x1FF19, outside the space for team texts"},
      {0x1FCC8, {0xFF, 0xFF}, "  odd, texts: The teams' cities and names are too long for the "},
      {0x1FC50, {0x00, 0x80, 0x00, 0x80}, "team texts: SPARROWS: no city\n"},
      {0x21642,
       {0x34, 0x12},
       "formations: the formation mark 0x1234 is neither that of a stock image nor of a saved one; "
       "all formations are read as 0"},
      {0x21642, {0x8A, 0xA6}, "formations: the formation code is damaged"},
      {0x32853 + 2 * 29, {0x1B, 0x1E}, "pro bowl: AFC P names nobody: team 28, slot 31"},
      {0x32853 + 2 * 30, {0x1C, 0x1E}, "pro bowl: NFC QB 1 names nobody: team 29, slot 31"},
      {0x2C410 + 5, {0x40}, "uniform color 6 is 64; the palette ends at 63"},
      {0x343E8, {0xFF}, "SPARROWS: division champion color 1 is 255; the palette ends at 63"},
      {0x34494 + 3, {0x80}, "SPARROWS: conference champion color 4 is 128"},
      {0x1D310, {0x8F}, "playbooks: SPARROWS: playbook slot 1 holds 8, which is not a play\n"},
      {0x1D310, {0x8F}, "playbook slot 2 holds 15, which is not a play; it is read as 0"},
      {0x329A9, {0x00, 0x80}, "schedule: week 2's pointer leads to 0x32010, not 0x329F7"},
      {0x329C9, {0x0F}, "schedule: week 1 counts 15 games; 14 are read"},
      {0x329DB, {0x1E}, "schedule: week 1, game 1: visiting team number 30 is read as 0"},
      {0x329DC, {0xFF}, "schedule: week 1, game 1: home team number 255 is read as 0"},
      {0x0C129, {'1', '9', 0x1B, '1'}, "the roster year \"19\\x1B1\" is not four digits"}};
  for (const Damage& damage : damages) {
    const QString path = Image("odd.nes", {{damage.Offset, damage.Values}});
    EXPECT_THAT(Out({"check", path}, 1), HasSubstr(damage.Line));
  }
}

TEST_F(RsmtoolCheck, ATeamTwiceInAWeekAndAgainstItselfIsReported) {
  const QString path = Image("twice.nes", {{0x329C9, {2}}, {0x329DB, {0, 9, 0, 0}}});
  const std::string out = Out({"check", path}, 1);
  for (const char* part : {"3 oddities\n", "week 2's pointer leads to 0x329F7, not 0x329DF\n",
                           "  odd, schedule: SPARROWS: week 1 has it against itself\n",
                           "  odd, schedule: SPARROWS: week 1 has it 2 times\n"}) {
    EXPECT_THAT(out, HasSubstr(part));
  }
}

TEST_F(RsmtoolCheck, ASavedImagesFormationsAreLookedAt) {
  Out({"resave", Image("in.nes"), Path("saved.nes")});
  Bytes bytes = BytesOf(Path("saved.nes"));
  bytes[0x21FE0] = 3;
  bytes[0x31E80] = 2;
  WriteFile(folder_.Path("saved.nes"), bytes);
  const std::string out = Out({"check", Path("saved.nes")}, 1);
  EXPECT_THAT(out, HasSubstr("saved, 2 oddities\n"));
  EXPECT_THAT(out, HasSubstr("  odd, formations: SPARROWS: formation 3 is read as 0\n"
                             "  odd, formations: SPARROWS: the two formation tables differ: 3, "
                             "which counts, and 2\n"));
}

TEST_F(RsmtoolCheck, WhatIsNoUsableImageGivesTwoAndTheOthersAreStillChecked) {
  Bytes bad = SampleBytes();
  bad[4] = 8;
  WriteFile(folder_.Path("bad.nes"), bad);
  bad = SampleBytes();
  bad.pop_back();
  WriteFile(folder_.Path("short.nes"), bad);
  const std::string folder = folder_.Path("");
  EXPECT_THAT(
      Out({"check", Path("bad.nes"), Path("short.nes"), Path("none.nes"), Image("good.nes")}, 2),
      StartsWith(folder + "bad.nes: not an image of this game\n" + folder +
                 "short.nes: cut short: it is 393,231 bytes long, and a whole image has 393,232 "
                 "bytes\n" +
                 folder + "none.nes: No such file or directory\n" + folder +
                 "good.nes: a whole image"));
}

TEST_F(RsmtoolCheck, MachinesGetOneObjectAFile) {
  const QString odd = Image("\x7F\".nes", {{0x239D3, {0x0B}}, {0x328D3, {0x0B}}, {0x6DA, {0x1F}}});
  EXPECT_EQ(Out({"check", "--json", odd, Path("none.nes")}, 2),
            "[\n  {\n    \"file\": \"" + folder_.Path("\\u007f\\\".nes") + R"(",
    "usable": true,
    "state": "stock",
    "names": {
      "used": 9154,
      "capacity": 10550,
      "left": 1396
    },
    "teamTexts": {
      "used": 497,
      "capacity": 660,
      "left": 163
    },
    "oddities": [
      {
        "section": "returners",
        "team": 1,
        "subject": "SPARROWS",
        "text": "no kick returner: the value 0 names no player"
      },
      {
        "section": "names",
        "team": 1,
        "slot": 1,
        "subject": "SPARROWS QB 1 sam PLOVER",
        "text": "the number 1F is not decimal"
      }
    ]
  },
  {
    "file": ")" +
                folder_.Path("none.nes") +
                R"(",
    "usable": false,
    "reason": "No such file or directory"
  }
]
)");
}

TEST_F(RsmtoolCheck, StandardInputAndBytesAfterTheImage) {
  Bytes longer = SampleBytes();
  longer.push_back(0);
  const Result result = Run({"check", "-"}, std::string(longer.begin(), longer.end()));
  EXPECT_EQ(result.Code, 1);
  EXPECT_THAT(result.Out,
              StartsWith("standard input: a whole image, stock, never saved, 1 oddity\n"));
  EXPECT_THAT(result.Out, HasSubstr("  odd, file: 1 byte after the image\n"));
  longer.resize(SampleBytes().size() + (64 << 20) + 123'456);
  const Result whole = Run({"check", "-"}, std::string(longer.begin(), longer.end()));
  EXPECT_THAT(whole.Out, HasSubstr("  odd, file: 67,232,320 bytes after the image\n"));
}

TEST_F(RsmtoolCheck, ProgressIsForTerminalsOnly) {
  QStringList arguments{"check"};
  for (int n = 0; n < 25; ++n) arguments << Path("none.nes");
  EXPECT_EQ(Run(arguments).Err, "");
  err_is_terminal_ = true;
  EXPECT_EQ(Run(arguments).Err, "\r10 of 25\r20 of 25\r\x1B[K");
  out_is_terminal_ = true;
  EXPECT_EQ(Run(arguments).Err, "") << "the reports themselves show how far it is";
}

TEST_F(RsmtoolCheck, TheProgramSeesWhereItsTerminalIs) {
  std::string check = "'" + BinFolder() + "rsmtool' check";
  for (int n = 0; n < 10; ++n) check += " none.nes";
  const auto call = [this](const std::string& line) {
    return std::system(("cd '" + folder_.Path() + "' && " + line).c_str());
  };
  const auto text = [this](const char* file) {
    const Bytes bytes = BytesOf(Path(file));
    return std::string(bytes.begin(), bytes.end());
  };
  call(check + " >out.txt 2>err.txt");
  EXPECT_EQ(text("err.txt"), "");
  // It gives a program a terminal, and writes down what the program writes there.
  if (call("script -qec true err.txt >out.txt </dev/null") != 0) {
    GTEST_SKIP() << "skipped: script has no terminal to give";
  }
  call("script -qec \"" + check + " >out.txt\" err.txt >shown.txt </dev/null");
  EXPECT_THAT(text("err.txt"), HasSubstr("\r10 of 10\r"));
  call("script -qec \"" + check + "\" err.txt >shown.txt </dev/null");
  EXPECT_THAT(text("err.txt"), testing::Not(HasSubstr("10 of 10")));
}

/// Every pointer wild at once: nothing may crash, and names as long as the bank stay off the
/// screen.
TEST_F(RsmtoolCheck, NoDamageCrashesAnyCommand) {
  for (const int word : {0x0000, 0x7FF0, 0x86CA, 0xFFFF}) {
    Bytes bytes = SampleBytes();
    const auto fill = [&](int first, int end) {
      for (int at = first; at < end; at += 36) {
        bytes[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>(word);
        bytes[static_cast<std::size_t>(at + 1)] = static_cast<std::uint8_t>(word >> 8);
      }
    };
    fill(0x48, 0x6DA);
    fill(0x1FC50, 0x1FD00);
    fill(0x329A7, 0x32A40);
    WriteFile(folder_.Path("wild.nes"), bytes);
    const QString wild = Path("wild.nes");
    std::istringstream lines(Out({"check", wild}, 1));
    for (std::string line; std::getline(lines, line);) EXPECT_LT(line.size(), 400u) << line;
    const auto dump = QJsonDocument::fromJson(QByteArray::fromStdString(Out({"dump", wild})));
    EXPECT_EQ(dump.object()["teams"].toArray().size(), 28) << word;
    Out({"diff", Image("good.nes"), wild}, 1);
    Out({"export-players", wild, Path("wild.csv")});
    EXPECT_EQ(Out({"import-players", wild, Path("wild.csv")}), "") << word;
    WriteFile(folder_.Path("wild.json"), Out({"dump", wild}));
    EXPECT_EQ(Out({"apply", wild, Path("wild.json")}), "") << word;
    EXPECT_EQ(BytesOf(wild), bytes) << "nothing to change";
  }
}

}  // namespace
}  // namespace rostermill::test
