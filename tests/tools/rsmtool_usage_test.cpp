#include <filesystem>
#include <fstream>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolUsage : public RsmtoolTest {};

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
