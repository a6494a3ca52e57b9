#include <QByteArray>
#include <gmock/gmock.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <functional>
#include <regex>

#include "history/data_folder.h"
#include "history/store_folder.h"
#include "history/version_store.h"
#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// Calls `act` while a variable of the environment has this value.
void With(const char* name, const std::string& value, const std::function<void()>& act) {
  const QByteArray old = qgetenv(name);
  qputenv(name, QByteArray::fromStdString(value));
  tzset();
  act();
  old.isNull() ? qunsetenv(name) : qputenv(name, old);
  tzset();
}

class RsmtoolVersions : public RsmtoolTest {
 protected:
  RsmtoolVersions() {
    Image("league.nes");
    WriteFile(folder_.Path("p.csv"), std::string("Team,Slot,Number\n1,1,22\n"));
  }

  /// The versions' lines without their times.
  std::string Listed(const QString& path) {
    static const std::regex time("(^|\n)([0-9]+) *  20..-..-.. ..:..:..(?=  .)");
    return std::regex_replace(Out({"versions", path}), time, "$1$2");
  }

  Bytes Kept(const QString& path, int number) {
    return VersionStore(DataFolder()).Read(path.toStdString(), number).Bytes;
  }

  const QString league_ = Path("league.nes");
  const std::string name_ = folder_.Path("league.nes");
  const QString players_ = Path("p.csv");
};

TEST_F(RsmtoolVersions, TimesAreLocalInTheListAndUniversalInJson) {
  Out({"resave", league_, league_});
  const auto when = VersionStore(DataFolder()).List(name_)[0].When;
  const auto text = [&](const char* format, std::chrono::minutes shift) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(when + shift);
    std::array<char, 100> chars{};
    std::strftime(chars.data(), chars.size(), format, std::gmtime(&seconds));
    return std::string(chars.data());
  };
  With("TZ", "XYZ-5:30", [&] {
    EXPECT_EQ(Out({"versions", league_}), text("1  %Y-%m-%d %H:%M:%S  first state, before resave\n",
                                               std::chrono::minutes(330)));
    EXPECT_EQ(Out({"versions", "--json", league_}),
              text("[\n  {\n    \"number\": 1,\n    \"time\": \"%Y-%m-%dT%H:%M:%SZ\",\n", {}) +
                  "    \"what\": \"before resave\",\n    \"firstState\": true,\n"
                  "    \"fileSize\": 393232,\n    \"cut\": false\n  }\n]\n");
  });
  EXPECT_EQ(Out({"versions", "--json", players_}), "[]\n");
}

TEST_F(RsmtoolVersions, RestoreWritesTheBytesBackAndKeepsWhatItReplaces) {
  Out({"import-players", league_, players_});
  const Bytes imported = BytesOf(league_);
  ExpectMessage({"restore", league_, "1"}, 0, "version 1 written to " + name_);
  EXPECT_EQ(BytesOf(league_), SampleBytes());
  const std::string list = "2  before restore\n1  first state, before import-players\n";
  EXPECT_EQ(Listed(league_), list);
  EXPECT_EQ(Kept(league_, 2), imported);

  Out({"restore", league_, "2", Path("copy.nes")});
  EXPECT_EQ(BytesOf(Path("copy.nes")), imported);
  const Result out = Run({"restore", league_, "2", "-"});
  EXPECT_EQ(Bytes(out.Out.begin(), out.Out.end()), imported);
  EXPECT_EQ(out.Err, "");
  EXPECT_EQ(BytesOf(league_), SampleBytes());

  fs::remove(name_);
  Out({"restore", "--no-version", league_, "2"});
  EXPECT_EQ(BytesOf(league_), imported) << "a deleted image";
  WriteFile(name_, std::string("damaged"));
  Out({"restore", "--no-version", league_, "2"});
  EXPECT_EQ(Listed(league_), list);
}

/// What restore keeps takes the place of the oldest version, here the very one that it restores.
TEST_F(RsmtoolVersions, TheOldestVersionIsRestoredBeforeItGoes) {
  const VersionStore store(DataFolder());
  for (std::uint8_t sign = '0'; sign < '0' + 31; ++sign) {
    store.Keep(name_, {{sign}, 1}, "before a save");
  }
  const std::string list = Listed(league_);
  EXPECT_THAT(list, testing::StartsWith("31  before a save\n"));
  EXPECT_THAT(Out({"versions", league_}), HasSubstr("\n9   20")) << "one column";
  Out({"restore", league_, "2"});
  EXPECT_EQ(BytesOf(league_), Bytes{'1'});
  EXPECT_EQ(Listed(league_), "32  before restore\n" + list.substr(0, list.find("\n2 ") + 1) +
                                 "1  first state, before a save\n");
}

TEST_F(RsmtoolVersions, OfALongFileTheStartIsRestoredAndTheRestStays) {
  Bytes before = SampleBytes(), after = before;
  before.resize(5'000'000, 0xA5);
  after.resize(5'000'000, 0x5A);
  WriteFile(name_, before);
  Out({"import-players", league_, players_});
  EXPECT_EQ(Listed(league_),
            "1  first state, before import-players, only the first 393,232 bytes of 5,000,000 "
            "bytes\n");
  EXPECT_THAT(Out({"versions", "--json", league_}),
              HasSubstr("\"fileSize\": 5000000,\n    \"cut\": true\n"));
  Bytes now = BytesOf(league_);
  EXPECT_NE(now, before);
  std::fill(now.begin() + 393'232, now.end(), 0x5A);
  WriteFile(name_, now);
  Out({"restore", league_, "1", Path("copy.nes")});
  EXPECT_EQ(BytesOf(Path("copy.nes")), after);
  Out({"restore", league_, "1"});
  EXPECT_EQ(BytesOf(league_), after);

  fs::remove(name_);
  ExpectMessage({"restore", league_, "1"}, 2,
                "version 1 is only the first 393,232 bytes, and " + name_ +
                    ", which has the rest, is not there");
}

TEST_F(RsmtoolVersions, ADamagedVersionIsToldAndNothingIsWritten) {
  Out({"import-players", league_, players_});
  Out({"restore", league_, "1"});
  for (const auto& entry : fs::directory_iterator(ImageFolder(DataFolder(), name_))) {
    if (entry.path().extension() == ".nes") WriteFile(entry.path(), Bytes(393'232));
  }
  ExpectMessage({"restore", league_, "2"}, 2,
                "version 2 of " + name_ + " could not be read: Version 2 is damaged.");
  EXPECT_EQ(BytesOf(league_), SampleBytes());
}

TEST_F(RsmtoolVersions, AVersionThatCantBeKeptStopsNothing) {
  With("XDG_DATA_HOME", players_.toStdString(), [&] {
    const Result result = Run({"import-players", league_, players_});
    EXPECT_EQ(result.Code, 0);
    EXPECT_THAT(result.Err, testing::StartsWith("rsmtool: " + name_ +
                                                " was written, but its earlier version could not "
                                                "be kept: Not a directory\nrsmtool: 1 change "));
    EXPECT_EQ(BytesOf(league_)[0x6DA], 0x22);
    EXPECT_EQ(Run({"resave", "--no-version", league_, league_}).Err, "");
    ExpectMessage({"versions", league_}, 2,
                  "the versions of " + name_ + " could not be read: Not a directory");
  });
}

TEST_F(RsmtoolVersions, TheFolderIsTheUsersDataFolder) {
  const auto expect = [](const std::string& share, const std::string& base) {
    With("XDG_DATA_HOME", share, [&] { EXPECT_EQ(DataFolder(), base + "/rostermill/versions"); });
  };
  expect("/somewhere/else", "/somewhere/else");
  With("HOME", "/home/sam", [&] {
    for (const char* unusable : {"", "share"}) expect(unusable, "/home/sam/.local/share");
  });
}

}  // namespace
}  // namespace rostermill::test
