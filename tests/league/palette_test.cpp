#include "league/palette.h"

#include <gtest/gtest.h>

#include <set>
#include <system_error>

#include "league/file_access.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

std::string Records(int count, const std::string& line_end = "\n") {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += "Shade " + std::to_string(i) + "," + HexByteText(i) + ",0,FF" + line_end;
  }
  return text;
}

/// The error that a palette text is rejected with; no error if it is accepted.
std::error_code Rejection(const std::string& text) {
  try {
    ParsePalette(text);
    return {};
  } catch (const std::system_error& error) {
    return error.code();
  }
}

TEST(PaletteFile, AcceptsAllLineEndsQuotedNamesAndFieldsOnSeparateLines) {
  for (const std::string line_end : {"\n", "\r\n", "\r"}) {
    const Palette palette = ParsePalette(Records(64, line_end));
    EXPECT_EQ(palette[0], (PaletteRec{"Shade 0", 0, 0, 255}));
    EXPECT_EQ(palette[63], (PaletteRec{"Shade 63", 63, 0, 255}));
  }
  const std::string odd =
      "\"Red, dark\",6c,06,00\r\n"
      "Two Words , 0A ,b,C\r\n"
      "Own\n1\n2\n3\n"
      "\n"
      "\"Sm\xEE\",0,0,0\n";
  const Palette palette = ParsePalette("\xEF\xBB\xBF" + odd + Records(60) + "never read, nor this");
  EXPECT_EQ(palette[0], (PaletteRec{"Red, dark", 0x6C, 6, 0}));
  EXPECT_EQ(palette[1], (PaletteRec{"Two Words", 10, 11, 12}));
  EXPECT_EQ(palette[2], (PaletteRec{"Own", 1, 2, 3}));
  EXPECT_EQ(palette[3], (PaletteRec{"Sm\xC3\xAE", 0, 0, 0}));
  EXPECT_EQ(palette[63].Name, "Shade 59");
}

TEST(PaletteFile, ALongNameIsCutAt64Characters) {
  const std::string letters(63, 'n');
  for (const std::string& name : {letters + " \"of old\"", "\"" + letters + " of old\""}) {
    EXPECT_EQ(ParsePalette(name + ",1,2,3\n" + Records(63))[0], (PaletteRec{letters, 1, 2, 3}));
  }
  EXPECT_EQ(ParsePalette(letters + "\xE9\xE9,1,2,3\n" + Records(63))[0].Name, letters + "\xC3\xA9");
  EXPECT_EQ(ParsePalette(letters + "\xE8\x89\xB2\xE8\x89\xB2,1,2,3\n" + Records(63))[0].Name,
            letters + "\xE8\x89\xB2");
}

TEST(PaletteFile, ANameIsUtf8IfValidAndLatin1Otherwise) {
  const std::vector<std::pair<std::string, std::string>> names{
      {"Bl\xC3\xA5", "Bl\xC3\xA5"},
      {"\xE7\xB4\xBA \xF0\x9F\x8E\xA8", "\xE7\xB4\xBA \xF0\x9F\x8E\xA8"},
      {"Bl\xE5", "Bl\xC3\xA5"},
      {"\xC3", "\xC3\x83"},
      {"\xC0\xAF\x7F\x80\xFF", "\xC3\x80\xC2\xAF\x7F\xC2\x80\xC3\xBF"}};
  for (const auto& [bytes, name] : names) {
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
      EXPECT_EQ(ParsePalette(mark + bytes + ",0,0,0\n" + Records(63))[0].Name, name);
    }
  }
}

TEST(PaletteFile, EveryFaultHasItsError) {
  EXPECT_EQ(Rejection(Records(63)), std::errc::no_message_available);
  EXPECT_EQ(Rejection(""), std::errc::no_message_available);
  EXPECT_EQ(Rejection("Gray,66,xx,66\n" + Records(63)), std::errc::invalid_argument);
  EXPECT_EQ(Rejection("Gray,66,,66\n" + Records(63)), std::errc::invalid_argument);
  EXPECT_EQ(Rejection("Gray,66,-1,66\n" + Records(63)), std::errc::invalid_argument);
  EXPECT_EQ(Rejection("Gray,66,0x6,66\n" + Records(63)), std::errc::invalid_argument);
  EXPECT_EQ(Rejection("Gray,66,100,66\n" + Records(63)), std::errc::result_out_of_range);
  EXPECT_EQ(Rejection("Gray,66,FFFFFFFFFF,66\n" + Records(63)), std::errc::result_out_of_range);
  EXPECT_EQ(Rejection("\"never closed" + Records(64)), std::errc::invalid_argument);
  EXPECT_EQ(Rejection(Records(64)), std::error_code{});
}

TEST(PaletteFile, AnIndexOutsideTheTableHasANameButNoColor) {
  const Palette palette = ParsePalette(Records(64));
  EXPECT_EQ(PaletteName(palette, 63), "Shade 63");
  EXPECT_EQ(PaletteColor(palette, 63), (RgbColor{63, 0, 255}));
  EXPECT_EQ(PaletteName(palette, 64), "Unknown 40");
  EXPECT_EQ(PaletteName(palette, 255), "Unknown FF");
  EXPECT_EQ(PaletteColor(palette, 64), std::nullopt);
  EXPECT_EQ(PaletteColor(palette, -1), std::nullopt);
}

TEST(PaletteFile, OursHas64ColorsWithDifferentNames) {
  const Palette palette = ReadPalette(BinFolder());
  std::set<std::string> names;
  for (const PaletteRec& color : palette) {
    EXPECT_FALSE(color.Name.empty());
    EXPECT_LE(color.Name.size(), 16u) << color.Name;
    names.insert(color.Name);
  }
  EXPECT_EQ(names.size(), 64u);
  EXPECT_EQ(PaletteColor(palette, 22), (RgbColor{0xB5, 0x31, 0x20}));
  EXPECT_EQ(PaletteColor(palette, 32), (RgbColor{0xFF, 0xFE, 0xFF}));
  EXPECT_THROW(ReadPalette(TempFolder().Path("nowhere/")), std::system_error);
}

}  // namespace
}  // namespace rostermill::test
