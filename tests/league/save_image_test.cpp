#include "league/save_image.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "league/file_access.h"
#include "tests/support/damage.h"
#include "tests/support/fake_host.h"
#include <sys/wait.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
namespace fs = std::filesystem;

class SaveImageTest : public testing::Test {
 protected:
  SaveImageTest() : session_(SampleSession()) {
    WriteFile(path_, SampleBytes());
    session_->ImagePath = path_;
  }

  SaveOutcome Save() { return SaveImage(*session_, host_); }

  /// Whether a save as an unprivileged user, in a child process, is refused for want of permission.
  bool RefusedAsUser() {
    const pid_t child = fork();
    if (child == 0) {
      if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(2);
      const bool refused = Save() == SaveOutcome::Refused && host_.messages.size() == 1 &&
                           host_.messages[0].find("Permission denied") != std::string::npos;
      _exit(refused && !host_.busy ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  /// The names of the files in the folder.
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("league.nes");
  std::unique_ptr<LeagueSession> session_;
  FakeHost host_;
};

TEST_F(SaveImageTest, AnsweringNoLeavesTheFileAlone) {
  host_.answer_yes = false;
  const auto written = fs::last_write_time(path_);
  EXPECT_EQ(Save(), SaveOutcome::Declined);
  EXPECT_EQ(fs::last_write_time(path_), written);
  EXPECT_EQ(FileBytes(path_), SampleBytes());
  EXPECT_EQ(host_.beeps, 0);
  ASSERT_EQ(host_.questions.size(), 1u);
  EXPECT_EQ(host_.questions[0],
            "Save Confirmation: Are you sure you want to save to " + path_ + "?");
}

TEST_F(SaveImageTest, SavingAnUnchangedLeagueOnlyAddsWhatEverySaveAdds) {
  EXPECT_EQ(Save(), SaveOutcome::Saved);
  EXPECT_EQ(host_.beeps, 1);
  EXPECT_FALSE(host_.busy);
  EXPECT_TRUE(host_.messages.empty());
  const Bytes saved = FileBytes(path_);
  for (const int offset : DifferingOffsets(SampleBytes(), saved)) {
    const auto within = [offset](int first, int size) {
      return offset >= first && offset < first + size;
    };
    EXPECT_TRUE(within(0x21642, 10) || within(0x30FF8, 18) || within(0x21FE0, 28) ||
                within(0x31E80, 28) || offset == 0x3CDC || offset == 0x329DA)
        << std::hex << offset;
  }
  EXPECT_EQ(saved[0x21642], 0x8A);
  EXPECT_EQ(saved[0x329DA], 0xFF);
}

TEST_F(SaveImageTest, BytesOutsideTheSectionsAndAfterTheImageAreKept) {
  Bytes changed = SampleBytes();
  changed[0x5000] = static_cast<std::uint8_t>(~changed[0x5000]);
  changed[0] = 0x00;  // the header isn't checked again
  changed.insert(changed.end(), {1, 2, 3});
  WriteFile(path_, changed);
  EXPECT_EQ(Save(), SaveOutcome::Saved);
  const Bytes saved = FileBytes(path_);
  ASSERT_EQ(saved.size(), 393'235u);
  EXPECT_EQ(saved[0x5000], changed[0x5000]);
  EXPECT_EQ(saved[0], 0x00);
  EXPECT_EQ((Bytes{saved.end() - 3, saved.end()}), (Bytes{1, 2, 3}));
}

TEST_F(SaveImageTest, TheWindowStaysAliveWhileAHugeFileIsCopied) {
  EXPECT_EQ(Save(), SaveOutcome::Saved);
  const int yields_before = host_.yields;
  constexpr int megabytes = 8;
  fs::resize_file(path_, megabytes << 20);
  std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp((megabytes << 20) - 3).write("end", 3);
  file.close();
  host_.yields = 0;
  EXPECT_EQ(Save(), SaveOutcome::Saved);
  EXPECT_GT(host_.yields, yields_before + megabytes);
  const Bytes saved = FileBytes(path_);
  ASSERT_EQ(saved.size(), std::size_t{megabytes} << 20);
  EXPECT_EQ((Bytes{saved.end() - 4, saved.end()}), (Bytes{0, 'e', 'n', 'd'}));
}

TEST_F(SaveImageTest, TextsThatDontFitAreRefusedBeforeTheFileIsTouched) {
  LeagueOf(*session_).NameData[1][1].LastName.append(2000, 'X');
  const auto written = fs::last_write_time(path_);
  EXPECT_EQ(Save(), SaveOutcome::Refused);
  EXPECT_EQ(fs::last_write_time(path_), written);
  ASSERT_EQ(host_.messages.size(), 1u);
  EXPECT_NE(host_.messages[0].find(" letters.\n\nNothing was written."), std::string::npos);
  EXPECT_EQ(host_.beeps, 0);
  EXPECT_FALSE(host_.busy);
}

TEST_F(SaveImageTest, AMissingShortOrOddTargetIsRefusedAndNotCreated) {
  WriteFile(path_, Bytes(100));
  EXPECT_EQ(Save(), SaveOutcome::Refused);
  EXPECT_NE(host_.messages.back().find("it is 100 bytes long"), std::string::npos);
  EXPECT_EQ(FileBytes(path_).size(), 100u);

  fs::remove(path_);
  EXPECT_EQ(Save(), SaveOutcome::Refused);
  EXPECT_NE(host_.messages.back().find("No such file or directory.\n\nA save needs the image"),
            std::string::npos);
  EXPECT_TRUE(Names().empty());

  fs::create_directory(path_);
  EXPECT_EQ(Save(), SaveOutcome::Refused);
  EXPECT_NE(host_.messages.back().find("could not be saved: it is not a regular file."),
            std::string::npos);
}

TEST_F(SaveImageTest, UnwritableFilesAndFoldersKeepTheOldImage) {
  fs::permissions(folder_.Path(), fs::perms(0777));
  fs::permissions(path_, fs::perms(0444));
  EXPECT_TRUE(RefusedAsUser()) << "a read-only file";
  fs::permissions(path_, fs::perms(0222));
  EXPECT_TRUE(RefusedAsUser()) << "an unreadable file";
  fs::permissions(path_, fs::perms(0666));
  fs::permissions(folder_.Path(), fs::perms(0555));
  EXPECT_TRUE(RefusedAsUser()) << "a read-only folder";
  EXPECT_EQ(FileBytes(path_), SampleBytes());
  EXPECT_EQ(Names(), std::set<std::string>{"league.nes"});
}

TEST_F(SaveImageTest, LeftoversOfAKilledSaveAreRemovedAndTheUsersFilesStay) {
  WriteFile(folder_.Path(".league.nes.rostermill-aB3xYz"), Bytes(10));
  WriteFile(folder_.Path("league.nes.backup"), Bytes(10));
  WriteFile(folder_.Path(".league.nes.rostermill-notes"), Bytes(10));
  EXPECT_EQ(Save(), SaveOutcome::Saved);
  EXPECT_EQ(Names(), (std::set<std::string>{"league.nes", "league.nes.backup",
                                            ".league.nes.rostermill-notes"}));
}

/// Another program must not remove a file that is still being written.
TEST_F(SaveImageTest, AFileThatIsBeingWrittenIsLeftAlone) {
  bool between = false;
  host_.at_yield = [&] {
    if (between || Names().size() == 1) return;
    between = true;
    ReplaceFile(path_, Bytes{1, 2, 3});
  };
  EXPECT_EQ(Save(), SaveOutcome::Saved);
  EXPECT_TRUE(between);
  EXPECT_EQ(Names(), std::set<std::string>{"league.nes"});
  EXPECT_EQ(FileBytes(path_).size(), 393'232u);
}

TEST_F(SaveImageTest, AnExceptionAmidTheStepsFreesTheWindowAndWritesNothing) {
  LeagueOf(*session_).RosterYear = "77";
  host_.at_yield = [] { throw std::bad_alloc(); };
  EXPECT_EQ(Save(), SaveOutcome::Refused);
  EXPECT_EQ(host_.messages,
            std::vector<std::string>{"Error: " + path_ +
                                     " could not be saved: there is not enough memory."});
  EXPECT_FALSE(host_.busy);

  host_.at_yield = [this] {
    EXPECT_TRUE(host_.busy);
    throw std::runtime_error("unexpected");
  };
  EXPECT_THROW(Save(), std::runtime_error);
  EXPECT_FALSE(host_.busy);
  EXPECT_EQ(host_.beeps, 0);
  EXPECT_EQ(FileBytes(path_), SampleBytes());
}

}  // namespace
}  // namespace rostermill::test
