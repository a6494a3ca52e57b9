#include <filesystem>
#include <fstream>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolUsage : public RsmtoolTest {};

TEST_F(RsmtoolUsage, HelpIsOnStandardOutputAndNamesEveryCommand) {
  const std::string all = Out({"--help"});
  for (const char* command :
       {"check", "find", "diff", "dump", "apply", "merge", "make-patch", "apply-patch",
        "export-players", "import-players", "export-teams", "import-teams", "export-schedule",
        "import-schedule", "resave", "versions", "restore"}) {
    EXPECT_NE(all.find(std::string("\n  ") + command + " "), std::string::npos) << command;
    const std::string one = Out({command, "--help"});
    EXPECT_TRUE(one.starts_with(std::string("Usage: rsmtool ") + command + " ")) << one;
    EXPECT_EQ(Out({"help", command}), one);
  }
  EXPECT_NE(all.find("3 a file was written"), std::string::npos);
  EXPECT_TRUE(Out({"--version"}).starts_with("rsmtool 1."));
}

TEST_F(RsmtoolUsage, AWrongCallIsOneLineAndTwo) {
  const QString a = Image("a.nes");
  const std::vector<std::pair<QStringList, std::string>> calls{
      {{}, "no command is given; see rsmtool --help"},
      {{"chek", a}, "there is no command \"chek\"; see rsmtool --help"},
      {{"restore", a, "1", "b.nes", "c.nes"},
       "restore takes no file c.nes; see rsmtool restore --help"},
      {{"export-players", "--no-version", a},
       "Unknown option 'no-version'; see rsmtool export-players --help"},
      {{"dump", a, "b.json"}, "dump takes no file b.json; see rsmtool dump --help"},
      {{"dump", "--json", a}, "Unknown option 'json'; see rsmtool dump --help"},
      {{"help", "nosuch"}, "there is no command \"nosuch\"; see rsmtool --help"},
      {{"--help", "check", "dump"}, "help takes one command; see rsmtool --help"},
      {{"import-players", "-", "p.csv"},
       "import-players needs the image as a file that it can change"},
      {{"merge", a, "-", a}, "merge needs the image as a file that it can change"}};
  for (const auto& [arguments, line] : calls) ExpectMessage(arguments, 2, line);
  const std::vector<std::tuple<QStringList, int, QString>> needs{
      {{"check", "dump", "versions", "export-players", "export-teams", "export-schedule"},
       1,
       "a file"},
      {{"apply", "diff", "resave", "import-players", "import-teams", "import-schedule",
        "apply-patch"},
       2,
       "two files"},
      {{"find"}, 2, "a file and words"},
      {{"restore"}, 2, "a file and a version's number"},
      {{"merge"}, 3, "three images"},
      {{"make-patch"}, 3, "two images and the patch's name"}};
  for (const auto& [commands, count, what] : needs) {
    for (const QString& command : commands) {
      const QString line = command + " needs " + what + "; see rsmtool " + command + " --help";
      ExpectMessage(QStringList{command} + QStringList(count - 1, a), 2, line.toStdString());
      if (count == 1 || QStringList{"find", "resave", "restore"}.contains(command)) continue;
      ExpectMessage(QStringList{command} + QStringList(count, "-"), 2,
                    "standard input can't be read twice");
    }
  }
  EXPECT_EQ(BytesOf(a), SampleBytes());
}

TEST_F(RsmtoolUsage, WhatIsNotARegularFileIsSaidToBe) {
  for (const QString& path : {Path(""), QString("/dev/null")}) {
    const std::string name = path.toStdString();
    EXPECT_EQ(Out({"check", path}, 2), name + ": it is not a regular file\n");
    ExpectMessage({"dump", path}, 2, name + ": it is not a regular file");
    ExpectMessage({"resave", Image("a.nes"), path}, 2,
                  name + " could not be written: it is not a regular file");
  }
}

/// "export-players *.nes" in a folder with two images.
TEST_F(RsmtoolUsage, AnotherImageIsNeverWrittenOver) {
  const QString a = Image("a.nes");
  const QString b = Image("b.nes", {{0x6DA, {0x12}}});
  const Bytes b_bytes = BytesOf(b);
  const Bytes other_game{'N', 'E', 'S', 0x1A, 2, 1};
  WriteFile(folder_.Path("other.nes"), other_game);
  std::filesystem::create_symlink("b.nes", folder_.Path("link.csv"));
  std::filesystem::create_symlink("a.nes", folder_.Path("link.nes"));
  const std::vector<QStringList> calls{{"export-players", a, a},
                                       {"export-players", a, b},
                                       {"export-players", a, Path("other.nes")},
                                       {"export-players", a, Path("link.csv")},
                                       {"resave", a, b},
                                       {"resave", a, Path("other.nes")}};
  for (const QStringList& call : calls) {
    ExpectMessage(
        call, 2,
        call[2].toStdString() +
            " is a cartridge image, and this would write over it; choose another name, or "
            "remove it first");
  }
  EXPECT_EQ(BytesOf(a), SampleBytes());
  EXPECT_EQ(BytesOf(b), b_bytes);
  EXPECT_EQ(BytesOf(Path("other.nes")), other_game);
  Out({"resave", a, Path("link.nes")});  // the image itself by another name
  EXPECT_NE(BytesOf(a), SampleBytes());
}

/// Else half a spreadsheet would be taken for a whole one.
TEST_F(RsmtoolUsage, InputThatCantBeReadAndOutputThatCantBeWrittenAreTrouble) {
  struct : std::streambuf {
    int underflow() override { throw std::runtime_error("read"); }
  } broken;
  std::istream in(&broken);
  std::ofstream full("/dev/full");
  std::ostringstream err;
  Console console{in, full, err};
  EXPECT_EQ(RunRsmtool({"import-players", Image("a.nes"), "-"}, console), 2);
  EXPECT_EQ(RunRsmtool({"dump", Path("a.nes")}, console), 2);
  EXPECT_EQ(err.str(),
            "rsmtool: standard input: could not be read\n"
            "rsmtool: standard output could not be written\n");
}

}  // namespace
}  // namespace rostermill::test
