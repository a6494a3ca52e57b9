#include <QByteArray>
#include <gmock/gmock.h>

#include <ctime>
#include <filesystem>

#include "history/data_folder.h"
#include "history/store_folder.h"
#include "history/version_store.h"
#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::MatchesRegex;

/// Gives a variable of the environment another value until its end.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name), old_(qgetenv(name)) {
    qputenv(name, QByteArray::fromStdString(value));
    tzset();
  }
  ~Variable() {
    old_.isNull() ? qunsetenv(name_) : qputenv(name_, old_);
    tzset();
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  QByteArray old_;
};

class RsmtoolVersions : public RsmtoolTest {
 protected:
  RsmtoolVersions() {
    Image("league.nes");
    WriteFile(folder_.Path("p.csv"), std::string("Team,Slot,Number\n1,1,22\n"));
  }

  /// The versions' lines without their times.
  std::string Listed(const QString& path) {
    const Result result = Run({"versions", path});
    EXPECT_EQ(result.Code, 0) << result.Err;
    std::istringstream lines(result.Out);
    std::string all;
    for (std::string line; std::getline(lines, line);) {
      EXPECT_THAT(line, MatchesRegex("[0-9]+ *  20..-..-.. ..:..:..  .+"));
      all += line.substr(0, line.find(' ')) + line.substr(line.find(':') + 6) + "\n";
    }
    return all;
  }

  Bytes Kept(const QString& path, int number) {
    return VersionStore(DataFolder()).Read(path.toStdString(), number).Bytes;
  }

  /// A file too long to be kept whole, an image at its start.
  Bytes Long(std::uint8_t rest) {
    Bytes bytes = SampleBytes();
    bytes.resize(5'000'000, rest);
    return bytes;
  }

  const QString league_ = Path("league.nes");
  const QString players_ = Path("p.csv");
};

TEST_F(RsmtoolVersions, WhatACommandReplacesIsKeptAndNothingElse) {
  ASSERT_EQ(Run({"import-players", "--dry-run", league_, players_}).Code, 0);
  ASSERT_EQ(Run({"import-players", "--no-version", Image("without.nes"), players_}).Code, 0);
  ASSERT_EQ(Run({"export-players", league_, Path("table.csv")}).Code, 0);
  ASSERT_EQ(Run({"export-players", league_, Path("table.csv")}).Code, 0);
  ASSERT_EQ(Run({"resave", league_, Path("new.nes")}).Code, 0);
  ASSERT_EQ(Run({"resave", league_, "-"}).Code, 0);
  for (const char* name : {"league.nes", "without.nes", "table.csv", "new.nes"}) {
    const Result none = Run({"versions", Path(name)});
    EXPECT_EQ(none.Code, 0);
    EXPECT_EQ(none.Out, "");
    EXPECT_EQ(none.Err, "rsmtool: no versions of " + folder_.Path(name) + " are kept\n");
  }

  ASSERT_EQ(Run({"import-players", league_, players_}).Code, 0);
  const Bytes imported = BytesOf(league_);
  ASSERT_EQ(Run({"resave", league_, league_}).Code, 0);
  EXPECT_EQ(Listed(league_), "2  before resave\n1  first state, before import-players\n");
  EXPECT_EQ(Kept(league_, 1), SampleBytes());
  EXPECT_EQ(Kept(league_, 2), imported);

  ASSERT_EQ(Run({"resave", league_, league_}).Code, 0);
  EXPECT_EQ(Listed(league_), "2  before resave\n1  first state, before import-players\n")
      << "the same bytes again";

  WriteFile(folder_.Path("notes.txt"), std::string("notes"));
  ASSERT_EQ(Run({"resave", league_, Path("notes.txt")}).Code, 0);
  EXPECT_EQ(Kept(Path("notes.txt"), 1), (Bytes{'n', 'o', 't', 'e', 's'}));
}

TEST_F(RsmtoolVersions, TimesAreLocalInTheListAndUniversalInJson) {
  const Variable zone("TZ", "XYZ-5:30");
  ASSERT_EQ(Run({"resave", league_, league_}).Code, 0);
  const auto when = VersionStore(DataFolder()).List(league_.toStdString())[0].When;
  const auto text = [&](const char* format, std::chrono::minutes shift) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(when + shift);
    std::array<char, 100> chars{};
    std::strftime(chars.data(), chars.size(), format, std::gmtime(&seconds));
    return std::string(chars.data());
  };
  EXPECT_EQ(Run({"versions", league_}).Out,
            text("1  %Y-%m-%d %H:%M:%S  first state, before resave\n", std::chrono::minutes(330)));
  EXPECT_EQ(Run({"versions", "--json", league_}).Out,
            text("[\n  {\n    \"number\": 1,\n    \"time\": \"%Y-%m-%dT%H:%M:%SZ\",\n",
                 std::chrono::minutes(0)) +
                "    \"what\": \"before resave\",\n    \"firstState\": true,\n"
                "    \"fileSize\": 393232,\n    \"cut\": false\n  }\n]\n");
  EXPECT_EQ(Run({"versions", "--json", players_}).Out, "[]\n");
}

TEST_F(RsmtoolVersions, RestoreWritesTheBytesBackAndKeepsWhatItReplaces) {
  ASSERT_EQ(Run({"import-players", league_, players_}).Code, 0);
  const Bytes imported = BytesOf(league_);
  const Result back = Run({"restore", league_, "1"});
  EXPECT_EQ(back.Code, 0);
  EXPECT_EQ(back.Err, "rsmtool: version 1 written to " + folder_.Path("league.nes") + "\n");
  EXPECT_EQ(BytesOf(league_), SampleBytes());
  EXPECT_EQ(Listed(league_), "2  before restore\n1  first state, before import-players\n");
  EXPECT_EQ(Kept(league_, 2), imported);

  EXPECT_EQ(Run({"restore", league_, "2", Path("copy.nes")}).Code, 0);
  EXPECT_EQ(BytesOf(Path("copy.nes")), imported);
  const Result out = Run({"restore", league_, "2", "-"});
  EXPECT_EQ(Bytes(out.Out.begin(), out.Out.end()), imported);
  EXPECT_EQ(out.Err, "");
  EXPECT_EQ(BytesOf(league_), SampleBytes());

  fs::remove(folder_.Path("league.nes"));
  EXPECT_EQ(Run({"restore", "--no-version", league_, "2"}).Code, 0) << "a deleted image";
  EXPECT_EQ(BytesOf(league_), imported);
  WriteFile(folder_.Path("league.nes"), std::string("damaged"));
  EXPECT_EQ(Run({"restore", "--no-version", league_, "2"}).Code, 0);
  EXPECT_EQ(Listed(league_), "2  before restore\n1  first state, before import-players\n");
}

/// What restore keeps takes the place of the oldest version, here the very one that it restores.
TEST_F(RsmtoolVersions, TheOldestVersionIsRestoredBeforeItGoes) {
  const VersionStore store(DataFolder());
  for (char sign = '0'; sign < '0' + 31; ++sign) {
    store.Keep(league_.toStdString(), {{static_cast<std::uint8_t>(sign)}, 1}, "before a save");
  }
  const std::string list = Listed(league_);
  EXPECT_THAT(list, testing::StartsWith("31  before a save\n"));
  EXPECT_THAT(Run({"versions", league_}).Out, HasSubstr("\n9   20")) << "one column";
  EXPECT_EQ(Run({"restore", league_, "2"}).Code, 0);
  EXPECT_EQ(BytesOf(league_), Bytes{'1'});
  EXPECT_EQ(Listed(league_), "32  before restore\n" + list.substr(0, list.find("\n2 ") + 1) +
                                 "1  first state, before a save\n");
}

TEST_F(RsmtoolVersions, OfALongFileTheStartIsRestoredAndTheRestStays) {
  const QString path = Path("long.nes");
  WriteFile(folder_.Path("long.nes"), Long(0xA5));
  ASSERT_EQ(Run({"import-players", path, players_}).Code, 0);
  EXPECT_EQ(Listed(path),
            "1  first state, before import-players, only the first 393,232 bytes of 5,000,000 "
            "bytes\n");
  EXPECT_THAT(Run({"versions", "--json", path}).Out,
              HasSubstr("\"fileSize\": 5000000,\n    \"cut\": true\n"));
  Bytes now = BytesOf(path);
  EXPECT_NE(now, Long(0xA5));
  std::fill(now.begin() + 393'232, now.end(), 0x5A);
  WriteFile(folder_.Path("long.nes"), now);
  EXPECT_EQ(Run({"restore", path, "1", Path("copy.nes")}).Code, 0);
  EXPECT_EQ(BytesOf(Path("copy.nes")), Long(0x5A));
  EXPECT_EQ(Run({"restore", path, "1"}).Code, 0);
  EXPECT_EQ(BytesOf(path), Long(0x5A));

  fs::remove(folder_.Path("long.nes"));
  const Result gone = Run({"restore", path, "1"});
  EXPECT_EQ(gone.Code, 2);
  EXPECT_EQ(gone.Err, "rsmtool: version 1 is only the first 393,232 bytes, and " +
                          folder_.Path("long.nes") + ", which has the rest, is not there\n");
}

TEST_F(RsmtoolVersions, AWrongNameOrNumberIsToldAndNothingIsWritten) {
  ASSERT_EQ(Run({"import-players", league_, players_}).Code, 0);
  ASSERT_EQ(Run({"restore", league_, "1"}).Code, 0);
  const QString other = Image("other.nes", {{0x6DA, {0x12}}});
  const std::string league = league_.toStdString();
  const std::string numbers = "; it has 2, 1";
  const std::vector<std::pair<QStringList, std::string>> calls{
      {{"restore", league_, "3"}, league + " has no version 3" + numbers},
      {{"restore", league_, "1x"}, league + " has no version 1x" + numbers},
      {{"restore", league_, "99999999999"}, league + " has no version 99999999999" + numbers},
      {{"restore", other, "1"}, "no versions of " + other.toStdString() + " are kept"},
      {{"restore", league_, "2", other},
       other.toStdString() +
           " is a cartridge image, and this would write over it; choose another name, or remove it "
           "first"},
      {{"restore", "-", "1"}, "restore needs the image as a file"},
      {{"versions", "-"}, "versions needs the image as a file"},
      {{"versions", Path("leauge.nes")},
       folder_.Path("leauge.nes") + ": No such file or directory"}};
  for (const auto& [arguments, line] : calls) {
    const Result result = Run(arguments);
    EXPECT_EQ(result.Code, 2) << line;
    EXPECT_EQ(result.Err, "rsmtool: " + line + "\n");
    EXPECT_EQ(result.Out, "");
  }
  EXPECT_EQ(BytesOf(league_), SampleBytes());
  EXPECT_EQ(BytesOf(other)[0x6DA], 0x12);

  const auto folder = fs::directory_iterator(ImageFolder(DataFolder(), league));
  for (const auto& entry : folder) {
    if (entry.path().extension() == ".nes") WriteFile(entry.path(), Bytes(393'232));
  }
  EXPECT_EQ(Run({"restore", league_, "2"}).Err,
            "rsmtool: version 2 of " + league + " could not be read: Version 2 is damaged.\n");
  EXPECT_EQ(BytesOf(league_), SampleBytes());
}

TEST_F(RsmtoolVersions, AVersionThatCantBeKeptStopsNothing) {
  const Variable share("XDG_DATA_HOME", players_.toStdString());
  const std::string line = "rsmtool: " + league_.toStdString() +
                           " was written, but its earlier version could not be kept: Not a "
                           "directory\n";
  const Result result = Run({"import-players", league_, players_});
  EXPECT_EQ(result.Code, 0);
  EXPECT_EQ(result.Err.substr(0, line.size() + 18), line + "rsmtool: 1 change ") << result.Err;
  EXPECT_EQ(BytesOf(league_)[0x6DA], 0x22);
  const Result without = Run({"resave", "--no-version", league_, league_});
  EXPECT_EQ(without.Code, 0);
  EXPECT_EQ(without.Err, "");
  const Result unread = Run({"versions", league_});
  EXPECT_EQ(unread.Code, 2);
  EXPECT_EQ(unread.Err, "rsmtool: the versions of " + league_.toStdString() +
                            " could not be read: Not a directory\n");
}

TEST_F(RsmtoolVersions, TheFolderIsTheUsersDataFolder) {
  {
    const Variable share("XDG_DATA_HOME", "/somewhere/else");
    EXPECT_EQ(DataFolder(), "/somewhere/else/rostermill/versions");
  }
  const Variable home("HOME", "/home/sam");
  for (const char* unusable : {"", "share"}) {
    const Variable share("XDG_DATA_HOME", unusable);
    EXPECT_EQ(DataFolder(), "/home/sam/.local/share/rostermill/versions");
  }
}

}  // namespace
}  // namespace rostermill::test
