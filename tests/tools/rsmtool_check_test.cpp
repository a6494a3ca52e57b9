#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class RsmtoolCheck : public RsmtoolTest {};

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
  EXPECT_NE(call(check + " >out.txt 2>err.txt"), 0);
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
    Out({"diff", Image("good.nes"), wild}, 1);
    Out({"export-players", wild, Path("wild.csv")});
    Out({"import-players", wild, Path("wild.csv")});
    WriteFile(folder_.Path("wild.json"), Out({"dump", wild}));
    Out({"apply", wild, Path("wild.json")});
    EXPECT_EQ(BytesOf(wild), bytes) << "nothing to change";
  }
}

}  // namespace
}  // namespace rostermill::test
