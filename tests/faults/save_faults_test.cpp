#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>

#include "league/file_access.h"
#include "league/save_image.h"
#include "tests/faults/fault_walk.h"
#include "tests/faults/rights.h"
#include "tests/support/damage.h"
#include "tests/support/fake_host.h"
#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
namespace fs = std::filesystem;

/// An image that a link leads to, another user's, with an access list, an attribute and bytes after
/// its end, as far as the system allows: every save has all that a save can have to do.
class SaveFaults : public testing::Test {
 protected:
  SaveFaults() : session_(SampleSession()) {
    old_.insert(old_.end(), {0xA1, 0xB2, 0xC3});
    fs::create_directory(folder_.Path("real"));
    fs::create_symlink("real/league.nes", link_);
    session_->ImagePath = link_;
    LeagueOf(*session_).TeamData[3].City = "FAULTON";
    LeagueOf(*session_).QBData[3][1].Accuracy ^= 3;
    PutBackOld();
    EXPECT_EQ(Save(), SaveOutcome::Saved);
    new_ = FileBytes(file_);
    EXPECT_NE(new_, old_);
    before_ = LeagueOf(*session_);
  }

  void PutBackOld() {
    fs::remove(file_);
    WriteFile(file_, old_);
    fs::permissions(file_, fs::perms(0640));
    // User 4103 may read, and the mask lets no more through.
    static const std::string list{
        "\2\0\0\0"
        "\x01\0\6\0\xFF\xFF\xFF\xFF"
        "\x02\0\6\0\x07\x10\0\0"
        "\x04\0\4\0\xFF\xFF\xFF\xFF"
        "\x10\0\4\0\xFF\xFF\xFF\xFF"
        "\x20\0\0\0\xFF\xFF\xFF\xFF",
        44};
    const char* path = file_.c_str();
    const std::vector<bool> given{
        chown(path, 4101, 4102) == 0, setxattr(path, "user.note", "mine", 4, 0) == 0,
        setxattr(path, "system.posix_acl_access", list.data(), list.size(), 0) == 0};
    RecordProperty("owner, attribute and list given", testing::PrintToString(given));
    rights_ = RightsOf(file_);
  }

  SaveOutcome Save() {
    host_.messages.clear();
    return SaveImage(*session_, host_);
  }

  std::vector<SystemCall> TraceOfSave() {
    PutBackOld();
    StartFaults({});
    const SaveOutcome outcome = Save();
    auto trace = StopFaults();
    EXPECT_EQ(outcome, SaveOutcome::Saved);
    return trace;
  }

  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path("real"))) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  void ExpectWholeFile() const {
    EXPECT_TRUE(fs::is_symlink(link_)) << "a save has replaced the link";
    const Bytes now = FileBytes(file_);
    EXPECT_TRUE(now == old_ || now == new_) << "the file is neither the old image nor the new";
    EXPECT_EQ(RightsOf(file_), rights_);
    EXPECT_EQ(LeagueOf(*session_), before_);
  }

  void ExpectRetrySaves() {
    EXPECT_EQ(Save(), SaveOutcome::Saved) << testing::PrintToString(host_.messages);
    EXPECT_EQ(FileBytes(file_), new_);
    EXPECT_EQ(Names(), std::set<std::string>{"league.nes"});
    EXPECT_TRUE(fs::is_symlink(link_));
  }

  void SaveUnder(const Fault& fault) {
    SCOPED_TRACE(TextOf(fault));
    PutBackOld();
    if (fault.Kind == Effect::Kill) {
      EXPECT_TRUE(KilledWhile([&] {
        StartFaults({fault});
        Save();
      }));
      ExpectWholeFile();
      most_names_ = std::max(most_names_, Names().size());
      return ExpectRetrySaves();
    }
    StartFaults({fault});
    const SaveOutcome outcome = Save();
    StopFaults();
    EXPECT_TRUE(FaultStruck());
    ExpectWholeFile();
    EXPECT_FALSE(host_.busy);
    if (outcome == SaveOutcome::Saved) {
      EXPECT_EQ(FileBytes(file_), new_) << "reported as saved, but isn't";
      EXPECT_TRUE(host_.messages.empty());
    } else {
      ASSERT_EQ(host_.messages.size(), 1u) << "a failure must be reported";
      if (fault.Kind == Effect::Error) {
        EXPECT_NE(host_.messages[0].find(std::strerror(fault.Number)), std::string::npos)
            << "without its reason: " << host_.messages[0];
      }
      refused_.insert(fault.Call);
    }
    // What an unlink that fails leaves is swept up by the next save.
    if (fault.Call != "unlink") {
      EXPECT_EQ(Names(), std::set<std::string>{"league.nes"});
    }
    ExpectRetrySaves();
  }

  TempFolder folder_;
  std::string link_ = folder_.Path("link.nes");
  std::string file_ = folder_.Path("real/league.nes");
  Bytes old_ = SampleBytes();
  Bytes new_;
  std::string rights_;
  LeagueData before_;
  std::unique_ptr<LeagueSession> session_;
  FakeHost host_;
  std::set<std::string> refused_;
  std::size_t most_names_ = 0;  ///< that a killed save has left
};

TEST_F(SaveFaults, EveryFailingCallLeavesTheOldImageOrTheNewOne) {
  const auto trace = TraceOfSave();
  EXPECT_GT(trace.size(), 30u);
  for (const SystemCall& call : trace) {
    if (call.Name != "open" || !call.Path.ends_with("/league.nes")) continue;
    EXPECT_NE(call.Flags & O_NONBLOCK, 0) << "a pipe in its place would stop the program";
  }
  const auto one = [this](const Fault& fault) { SaveUnder(fault); };
  for (const int number : {EIO, ENOSPC}) ForEachFault(trace, Effect::Error, number, one);
  for (const Effect effect : {Effect::Short, Effect::Lie, Effect::Kill}) {
    ForEachFault(trace, effect, 0, one);
  }
  for (const auto& [call, count] : CountsOf(trace)) {
    // What these give is not needed for a good save.
    const bool may_fail = call == "openat" || call == "flock" || call == "close";
    EXPECT_TRUE(may_fail || refused_.contains(call)) << call << " may fail unnoticed";
  }
  EXPECT_EQ(most_names_, 2u) << "the walk has missed the time when the file is there unfinished";
}

/// A save that stands still holds the others off, once it has read what it will replace.
TEST_F(SaveFaults, TwoSavesOfOneImageTakeTurns) {
  for (const char* call : {"flock", "pread", "rename"}) {
    SCOPED_TRACE(call);
    PutBackOld();
    SaveOutcome other{};
    const auto held = [&, call = call] {
      StartFaults({{call, 1, false, Effect::Hold}});
      return Save() == SaveOutcome::Saved;
    };
    EXPECT_TRUE(HeldWhile(held, [&] { other = Save(); })) << "the save that was held has failed";
    if (std::string(call) == "flock") {
      EXPECT_EQ(other, SaveOutcome::Saved) << testing::PrintToString(host_.messages);
    } else {
      EXPECT_EQ(other, SaveOutcome::Refused);
      EXPECT_EQ(host_.messages.at(0),
                "Error: " + link_ +
                    " could not be saved: another program is saving it and has not "
                    "finished.\n\nThe file is as it was, and your changes are still here. You can "
                    "try again.");
    }
    ExpectWholeFile();
    EXPECT_EQ(FileBytes(file_), new_);
    EXPECT_EQ(Names(), std::set<std::string>{"league.nes"});
  }
}

TEST_F(SaveFaults, AFileThatHasTheNameOfTheTemporaryOneIsLeftAlone) {
  int at = 0;
  for (const SystemCall& call : TraceOfSave()) {
    at += call.Name == "open" ? 1 : 0;
    if ((call.Flags & O_EXCL) != 0) break;
  }
  SaveUnder({"open", at, false, Effect::Error, EEXIST});
  EXPECT_FALSE(refused_.contains("open")) << "another name is free";
}

TEST_F(SaveFaults, ATemporaryFileThatIsGoneIsNotAMissingImage) {
  SaveUnder({"rename", 1, false, Effect::Error, EACCES});
  StartFaults({{"rename", 1, false, Effect::Error, ENOENT}});
  EXPECT_EQ(Save(), SaveOutcome::Refused);
  StopFaults();
  EXPECT_EQ(host_.messages.at(0),
            "Error: " + link_ +
                " could not be saved: another program removed its temporary file.\n\nThe file is "
                "as it was, and your changes are still here. You can try again.");
}

/// Whenever it goes, it doesn't come back as a new file with other rights.
TEST_F(SaveFaults, AnImageThatIsGoneInTheMiddleOfASaveIsNotCreated) {
  const int count = CountsOf(TraceOfSave())["stat"];
  for (int at = 1; at <= count; ++at) SaveUnder({"stat", at, false, Effect::Error, ENOENT});
  EXPECT_TRUE(refused_.contains("stat"));
}

TEST_F(SaveFaults, ImagesWithOneBeginningOfTheirNamesDontTouchEachOther) {
  const auto save = [this](const std::string& name) {
    session_->ImagePath = folder_.Path("real/" + name);
    EXPECT_EQ(Save(), SaveOutcome::Saved);
  };
  for (const std::string& start : {std::string(70, 'x'), std::string(243, 'x')}) {
    for (const char* year : {"1984.nes", "1985.nes"}) {
      fs::copy_file(file_, folder_.Path("real/" + start + year));
    }
    EXPECT_TRUE(KilledWhile([&] {
      StartFaults({{"rename", 1, false, Effect::Kill, 0}});
      save(start + "1984.nes");
    }));
    const std::size_t count = Names().size();
    save(start + "1985.nes");
    EXPECT_EQ(Names().size(), count) << "it isn't that image's leftover";
    save(start + "1984.nes");
    EXPECT_EQ(Names().size(), count - 1);
  }
}

/// Over a file that is there it is walked with rsmtool, which writes in the same way.
TEST_F(SaveFaults, ANewFileIsWholeOrNotThere) {
  const std::string path = folder_.Path("real/rsm_qb.txt");
  const Bytes lines(9000, 'x');
  WalkFaults([&] { fs::remove(path); }, [&] { ReplaceFile(path, lines); },
             [&](bool done) {
               EXPECT_TRUE(fs::exists(path) ? FileBytes(path) == lines : !done);
               ReplaceFile(path, lines);
               EXPECT_EQ(FileBytes(path), lines);
               EXPECT_EQ(Names(), (std::set<std::string>{"league.nes", "rsm_qb.txt"}));
             });
}

}  // namespace
}  // namespace rostermill::test
