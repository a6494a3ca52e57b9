#include "tests/support/damage.h"
#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolResave : public RsmtoolTest {};

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
