#include "league/load_image.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/damage.h"
#include "tests/support/fake_host.h"
#include <sys/stat.h>

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

class LoadImageTest : public testing::Test {
 protected:
  LoadImageTest() { session_.AppDir = BinFolder(); }

  LoadOutcome Load(const Bytes& bytes) {
    WriteFile(path_, bytes);
    session_.ImagePath = path_;
    return LoadImage(session_, host_);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("league.nes");
  LeagueSession session_;
  FakeHost host_;
};

TEST(ImageHeader, OnlyTheSupportedLayoutPasses) {
  const Bytes good{0x4E, 0x45, 0x53, 0x1A, 0x10, 0x10, 0x40, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  EXPECT_TRUE(IsImageHeader(good));
  Bytes battery = good;
  battery[6] = 0x42;
  EXPECT_TRUE(IsImageHeader(battery));
  for (std::size_t at = 0; at < good.size(); ++at) {
    Bytes bad = good;
    bad[at] = static_cast<std::uint8_t>(bad[at] ^ 0x01);
    EXPECT_FALSE(IsImageHeader(bad)) << "byte " << at;
  }
  EXPECT_FALSE(IsImageHeader(std::span(good).first(15)));
  EXPECT_FALSE(IsImageHeader({}));
}

TEST_F(LoadImageTest, AGoodImageIsLoadedWithOneBeepAndNoMessage) {
  EXPECT_EQ(Load(SampleBytes()), LoadOutcome::Loaded);
  EXPECT_EQ(session_.ImageLoaded, 1);
  EXPECT_EQ(LeagueOf(session_).TeamData[28].City, "PEACHFORD");
  EXPECT_FALSE(LeagueOf(session_).PaletteData[63].Name.empty());
  EXPECT_EQ(host_.beeps, 1);
  EXPECT_FALSE(host_.busy);
  EXPECT_FALSE(host_.loading_open);
  EXPECT_TRUE(host_.messages.empty());
  ASSERT_EQ(host_.captions.size(), 16u);
  EXPECT_EQ(host_.captions[0], "0:Validating...Checking");
  EXPECT_EQ(host_.captions[1], "0:Validating...File OK");
  EXPECT_EQ(host_.captions[2], "1:Player Attributes...Loading");
  EXPECT_EQ(host_.captions[15], "7:Game Settings...Done");
  EXPECT_EQ(host_.yields, 28 + 840 + 28 + 28);
}

TEST_F(LoadImageTest, ALongerFileLoadsAndASecondLoadLeavesNothingOfTheFirst) {
  Bytes longer = SampleBytes();
  longer.resize(longer.size() + 5000, 0xEE);
  EXPECT_EQ(Load(longer), LoadOutcome::Loaded);
  LeagueOf(session_).NameData[3][3] = {"old", "NAME", "99"};
  EXPECT_EQ(Load(SampleBytes()), LoadOutcome::Loaded);
  LeagueData fresh = SampleLeague();
  fresh.PaletteData = LeagueOf(session_).PaletteData;
  EXPECT_EQ(LeagueOf(session_), fresh);
}

TEST_F(LoadImageTest, OtherFilesAreRejectedAndTheLeagueStays) {
  ASSERT_EQ(Load(SampleBytes()), LoadOutcome::Loaded);
  const LeagueData before = LeagueOf(session_);
  const std::string wrong = "Error: Not a valid ROM file!";
  const Bytes image = SampleBytes();
  Bytes bad = image;
  bad[7] = 0x01;
  for (const auto& [bytes, message] : std::vector<std::pair<Bytes, std::string>>{
           {bad, wrong},
           {{}, wrong},
           {{image.begin(), image.begin() + 16},
            wrong + "\n\nThe file is 16 bytes long; a whole image has 393,232 bytes."},
           {{image.begin(), image.end() - 1},
            wrong + "\n\nThe file is 393,231 bytes long; a whole image has 393,232 bytes."}}) {
    host_.messages.clear();
    EXPECT_EQ(Load(bytes), LoadOutcome::Rejected);
    EXPECT_EQ(host_.messages, std::vector{message});
    EXPECT_EQ(LeagueOf(session_), before);
    EXPECT_EQ(session_.ImageLoaded, 1);
    EXPECT_FALSE(host_.busy);
  }
}

TEST_F(LoadImageTest, PathsWithoutARegularFileAreRejectedAndNoFileIsCreated) {
  const std::string missing = folder_.Path("missing.nes");
  const std::string pipe = folder_.Path("pipe.nes");  // reading it would block
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {missing, folder_.Path(), pipe, std::string("/dev/null")}) {
    session_.ImagePath = path;
    host_.messages.clear();
    EXPECT_EQ(LoadImage(session_, host_), LoadOutcome::Rejected) << path;
    const std::string reason = "\n\n" + path + " is not a regular file.";
    EXPECT_EQ(host_.messages.at(0),
              "Error: Not a valid ROM file!" + (path == missing ? "" : reason));
  }
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(LoadImageTest, TheProgramsFolderIsAskedForUntilThePaletteIsFound) {
  session_.AppDir = folder_.Path("nowhere/");
  host_.folder_answers = {folder_.Path("elsewhere"), BinFolder().substr(0, BinFolder().size() - 1)};
  EXPECT_EQ(Load(SampleBytes()), LoadOutcome::Loaded);
  EXPECT_EQ(session_.AppDir, BinFolder()) << "a missing separator is added";
  ASSERT_EQ(host_.prompts.size(), 2u);
  EXPECT_EQ(host_.prompts[0],
            "File Not Found: Please Enter Path of Rostermill. (Example: C:\\RSML\\). Leave blank "
            "to end program. [" +
                folder_.Path("nowhere/") + "]");

  session_.AppDir = folder_.Path("nowhere/");
  EXPECT_EQ(Load(SampleBytes()), LoadOutcome::EndProgram) << "after a blank answer";
  EXPECT_EQ(host_.prompts.size(), 3u);
  EXPECT_FALSE(host_.busy || !host_.messages.empty());
}

TEST_F(LoadImageTest, ADamagedPaletteEndsTheProgramWithItsNumber) {
  session_.AppDir = folder_.Path("");
  WriteFile(folder_.Path("colors.txt"), std::string("Black,0,0,0\n"));
  EXPECT_EQ(Load(SampleBytes()), LoadOutcome::EndProgram);
  ASSERT_EQ(host_.messages.size(), 1u);
  EXPECT_TRUE(host_.messages[0].starts_with("Error: Error: 61\n\n" + folder_.Path("colors.txt") +
                                            ": record 2: the file ends before its 64 records"))
      << host_.messages[0];
  EXPECT_FALSE(host_.busy);
}

TEST_F(LoadImageTest, AnExceptionAmidTheStepsFreesTheWindow) {
  host_.at_yield = [] { throw std::bad_alloc(); };
  EXPECT_EQ(Load(SampleBytes()), LoadOutcome::EndProgram);
  EXPECT_EQ(host_.messages, std::vector<std::string>{"Error: Error: 12\n\nstd::bad_alloc"});
  EXPECT_FALSE(host_.busy || host_.loading_open);

  host_.loading_open = true;
  host_.at_yield = [this] {
    EXPECT_TRUE(host_.busy);
    throw std::runtime_error("unexpected");
  };
  EXPECT_THROW(Load(SampleBytes()), std::runtime_error);
  EXPECT_FALSE(host_.busy || host_.loading_open);
  EXPECT_EQ(host_.messages.size(), 1u);
}

}  // namespace
}  // namespace rostermill::test
