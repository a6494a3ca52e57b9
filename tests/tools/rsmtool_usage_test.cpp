#include <fstream>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolUsage : public RsmtoolTest {};

TEST_F(RsmtoolUsage, HelpIsOnStandardOutputAndNamesEveryCommand) {
  const Result all = Run({"--help"});
  EXPECT_EQ(all.Code, 0);
  EXPECT_EQ(all.Err, "");
  for (const char* command :
       {"check", "dump", "diff", "resave", "export-players", "import-players"}) {
    EXPECT_NE(all.Out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
    const Result one = Run({command, "--help"});
    EXPECT_EQ(one.Code, 0);
    EXPECT_EQ(one.Out.rfind(std::string("Usage: rsmtool ") + command + " ", 0), 0u) << one.Out;
    EXPECT_EQ(Run({"help", command}).Out, one.Out);
  }
  EXPECT_EQ(Run({"--version"}).Out.rfind("rsmtool 1.", 0), 0u);
}

TEST_F(RsmtoolUsage, AWrongCallIsOneLineAndTwo) {
  const QString a = Image("a.nes");
  const std::vector<std::pair<QStringList, std::string>> calls{
      {{}, "no command is given; see rsmtool --help"},
      {{"chek", a}, "there is no command \"chek\"; see rsmtool --help"},
      {{"check"}, "check needs a file; see rsmtool check --help"},
      {{"diff", a}, "diff needs two files; see rsmtool diff --help"},
      {{"dump", a, "b.json"}, "dump takes no file b.json; see rsmtool dump --help"},
      {{"dump", "--json", a}, "Unknown option 'json'; see rsmtool dump --help"},
      {{"diff", "-", "-"}, "standard input can't be read twice"},
      {{"export-players", a, a},
       a.toStdString() + " is the image itself; give the CSV another name"},
      {{"import-players", "-", "p.csv"},
       "import-players needs the image as a file that it can change"}};
  for (const auto& [arguments, line] : calls) {
    const Result result = Run(arguments);
    EXPECT_EQ(result.Code, 2) << line;
    EXPECT_EQ(result.Err, "rsmtool: " + line + "\n");
    EXPECT_EQ(result.Out, "");
  }
  EXPECT_EQ(BytesOf(a), SampleBytes());
}

TEST_F(RsmtoolUsage, OutputThatCantBeWrittenIsTrouble) {
  std::istringstream in;
  std::ofstream full("/dev/full");
  std::ostringstream err;
  Console console{in, full, err};
  EXPECT_EQ(RunRsmtool({"dump", Image("a.nes")}, console), 2);
  EXPECT_EQ(err.str(), "rsmtool: standard output could not be written\n");
}

}  // namespace
}  // namespace rostermill::test
