#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolPlayers : public RsmtoolTest {};

TEST_F(RsmtoolPlayers, ATableCanBeInUtf16) {
  const std::string table(
      "\xFF\xFET\0e\0a\0m\0\t\0S\0l\0o\0t\0\t\0F\0i\0r\0s\0t\0N\0a\0m\0e\0\n\0"
      "1\0\t\0001\0\t\0s\0\xE9\0m\0",
      56);
  const Result result = Run({"import-players", Image("league.nes"), "-"}, table);
  EXPECT_EQ(result.Code, 0) << result.Err;
  const Bytes after = BytesOf(Path("league.nes"));
  EXPECT_EQ(Bytes(after.begin() + 0x6DB, after.begin() + 0x6DF), (Bytes{'s', 0xE9, 'm', 'P'}));
}

TEST_F(RsmtoolPlayers, NamesThatDontFitTheImageAreRefusedTogether) {
  std::string table = "Team,Slot,First Name,Last Name\n";
  for (int row = 0; row < 840; ++row) {
    table +=
        std::to_string(row / 30 + 1) + "," + std::to_string(row % 30 + 1) + ",abcdefg,HIJKLMNO\n";
  }
  const QString image = Image("league.nes");
  for (const QStringList& options : {QStringList{}, {"--dry-run"}}) {
    const Result result = Run(QStringList{"import-players", image, "-"} + options, table);
    EXPECT_EQ(result.Code, 2);
    EXPECT_EQ(result.Err,
              "rsmtool: The players' names are too long for the image: they need 13,440 bytes, and "
              "it has room for 10,550 bytes. Shorten them by 2,890 letters.\n");
  }
  EXPECT_EQ(BytesOf(image), SampleBytes());
}

}  // namespace
}  // namespace rostermill::test
