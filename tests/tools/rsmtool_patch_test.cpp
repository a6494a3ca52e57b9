#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolPatch : public RsmtoolTest {};

TEST_F(RsmtoolPatch, MadeAndAppliedItGivesTheImageAndSaysWhatChanges) {
  const QString base = Image("base.nes");
  const QString changed = Image("changed.nes", {{0x6DA, {0x77}}, {0x5FFF1, {2, 3, 4}}});
  const std::string told =
      "SPARROWS QB 1 sam PLOVER: Number 01 -> 77\nAlso: 3 bytes outside the league\n";
  for (const char* name : {"league.bps", "league.IPS"}) {
    const QString patch = Path(name);
    const Result made = Run({"make-patch", base, changed, patch});
    EXPECT_EQ(made.Code, 0);
    EXPECT_EQ(made.Err, "rsmtool: " + patch.toStdString() + " written, " +
                            std::to_string(BytesOf(patch).size()) + " bytes\n");
    EXPECT_LT(BytesOf(patch).size(), 100u);
    EXPECT_EQ(Out({"apply-patch", "--dry-run", base, patch}), told);
    EXPECT_EQ(BytesOf(base), SampleBytes());
    const QString out = patch + ".nes";
    const Result applied = Run({"apply-patch", base, patch, out});
    EXPECT_EQ(applied.Out, told);
    EXPECT_EQ(applied.Err, "rsmtool: " + out.toStdString() + " written\n");
    EXPECT_EQ(BytesOf(out), BytesOf(changed));
    Out({"apply-patch", Image("again.nes"), patch});
    EXPECT_EQ(BytesOf(Path("again.nes")), BytesOf(changed));
    EXPECT_TRUE(Out({"versions", Path("again.nes")}).ends_with("before apply-patch\n"));
  }
}

TEST_F(RsmtoolPatch, WhatCanNotBeMadeOrAppliedIsToldAndNothingIsWritten) {
  const QString base = Image("base.nes");
  const QString changed = Image("changed.nes", {{0x6DA, {0x77}}});
  Out({"make-patch", base, changed, Path("league.bps")});
  ExpectMessage({"make-patch", base, changed, "league.txt"}, 2,
                "the name of a patch ends with .bps or .ips");
  ExpectMessage({"make-patch", base, changed, changed}, 2,
                "the name of a patch ends with .bps or .ips");
  Bytes longer = SampleBytes();
  longer.push_back(1);
  WriteFile(folder_.Path("longer.nes"), longer);
  const Result ips = Run({"make-patch", base, Path("longer.nes"), Path("l.ips")});
  EXPECT_EQ(ips.Code, 2);
  EXPECT_NE(ips.Err.find(".bps"), std::string::npos) << ips.Err;

  Out({"make-patch", base, base, Path("empty.ips")});
  const std::string as_it_is = "nothing to change; " + base.toStdString() + " stays as it is";
  ExpectMessage({"apply-patch", base, Path("empty.ips")}, 0, as_it_is);

  const QString other = Image("other.nes", {{0x6DA, {0x55}}});
  const Result wrong_base = Run({"apply-patch", other, Path("league.bps")});
  EXPECT_EQ(wrong_base.Code, 2);
  EXPECT_EQ(wrong_base.Out, "");
  EXPECT_EQ(BytesOf(other)[0x6DA], 0x55);
  // Cuts the header: "PATCH", offset 0, 1 byte, "EOF".
  const Bytes no_image{'P', 'A', 'T', 'C', 'H', 0, 0, 0, 0, 1, 'X', 'E', 'O', 'F'};
  WriteFile(folder_.Path("no.ips"), no_image);
  ExpectMessage(
      {"apply-patch", base, Path("no.ips")}, 2,
      folder_.Path("no.ips") + ": it would leave a file that is not an image of this game");
  ExpectMessage({"apply-patch", base, changed}, 2,
                changed.toStdString() + ": The patch is neither a BPS nor an IPS file");
  EXPECT_EQ(BytesOf(base), SampleBytes());
}

}  // namespace
}  // namespace rostermill::test
