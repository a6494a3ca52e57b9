#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>

#include "league/file_access.h"
#include "league/save_image.h"
#include "tests/faults/fault_walk.h"
#include "tests/support/damage.h"
#include "tests/support/fake_host.h"
#include <sys/stat.h>

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
namespace fs = std::filesystem;

/// An image behind a link, with permissions of its own and bytes behind its end: every save has
/// all that a save can have to do.
class SaveFaults : public testing::Test {
 protected:
  SaveFaults() : session_(SampleSession()) {
    old_.insert(old_.end(), {0xA1, 0xB2, 0xC3});
    fs::create_directory(folder_.Path("real"));
    fs::create_symlink("real/league.nes", link_);
    session_->ImagePath = link_;
    session_->League.TeamData[3].City = "FAULTON";
    session_->League.QBData[3][1].Accuracy ^= 3;
    PutBackOld();
    EXPECT_EQ(Save(), SaveOutcome::Saved);
    new_ = FileBytes(file_);
    EXPECT_NE(new_, old_);
    before_ = session_->League;
  }

  void PutBackOld() {
    fs::remove(file_);
    WriteFile(file_, old_);
    fs::permissions(file_, fs::perms(0640));
  }

  SaveOutcome Save() {
    host_.messages.clear();
    return SaveImage(*session_, host_);
  }

  std::vector<SystemCall> TraceOfSave(std::vector<Fault> always = {}) {
    PutBackOld();
    StartFaults(std::move(always));
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
    EXPECT_EQ(fs::status(file_).permissions(), fs::perms(0640));
    EXPECT_EQ(session_->League, before_);
  }

  void ExpectRetrySaves() {
    EXPECT_EQ(Save(), SaveOutcome::Saved) << testing::PrintToString(host_.messages);
    EXPECT_EQ(FileBytes(file_), new_);
    EXPECT_EQ(Names(), std::set<std::string>{"league.nes"});
    EXPECT_TRUE(fs::is_symlink(link_));
  }

  void SaveUnder(const Fault& fault, std::vector<Fault> always) {
    SCOPED_TRACE(TextOf(fault));
    PutBackOld();
    always.insert(always.begin(), fault);
    StartFaults(std::move(always));
    const SaveOutcome outcome = Save();
    StopFaults();
    EXPECT_TRUE(FaultStruck());
    ExpectWholeFile();
    EXPECT_FALSE(host_.busy);
    if (outcome == SaveOutcome::Saved) {
      EXPECT_EQ(FileBytes(file_), new_) << "told as saved, but isn't";
      EXPECT_TRUE(host_.messages.empty());
    } else {
      ASSERT_EQ(host_.messages.size(), 1u) << "a failure must be told";
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

  /// Walks all faults of reads, writes and errors; `always` stand beside each of them.
  void Walk(const std::vector<Fault>& always) {
    const auto trace = TraceOfSave(always);
    int cases = 0;
    const auto one = [&](const Fault& fault) {
      ++cases;
      SaveUnder(fault, always);
    };
    for (const int number : {EIO, ENOSPC}) ForEachFault(trace, Effect::Error, number, one);
    ForEachFault(trace, Effect::Short, 0, one);
    RecordProperty("cases", cases);
    EXPECT_GT(cases, 100);
  }

  TempFolder folder_;
  std::string link_ = folder_.Path("link.nes");
  std::string file_ = folder_.Path("real/league.nes");
  Bytes old_ = SampleBytes();
  Bytes new_;
  LeagueData before_;
  std::unique_ptr<LeagueSession> session_;
  FakeHost host_;
  std::set<std::string> refused_;
};

/// Makes the system one without nameless files, so that the file has its name from the start.
const Fault no_nameless_files{"open64", 3, false, Effect::Error, EOPNOTSUPP};

TEST_F(SaveFaults, EveryFailingCallLeavesTheOldImageOrTheNewOne) {
  Walk({});
  for (const char* call : {"open64", "read", "write", "fchmod", "fsync", "linkat", "rename"}) {
    EXPECT_TRUE(refused_.contains(call)) << call << " may fail unnoticed";
  }
}

TEST_F(SaveFaults, TheSameWhereTheSystemHasNoNamelessFiles) {
  Walk({no_nameless_files});
}

TEST_F(SaveFaults, AKillBeforeAnyCallLeavesTheOldImageOrTheNewOne) {
  for (const auto& always : {std::vector<Fault>{}, std::vector<Fault>{no_nameless_files}}) {
    std::size_t leftovers = 0;
    ForEachFault(TraceOfSave(always), Effect::Kill, 0, [&](const Fault& fault) {
      SCOPED_TRACE(TextOf(fault));
      PutBackOld();
      EXPECT_TRUE(KilledWhile([&] {
        auto faults = always;
        faults.insert(faults.begin(), fault);
        StartFaults(faults);
        Save();
      }));
      ExpectWholeFile();
      leftovers = std::max(leftovers, Names().size() - 1);
      ExpectRetrySaves();
    });
    EXPECT_EQ(leftovers, 1u) << "the walk has missed the time when the file is there unfinished";
  }
}

/// The last call of this name, or the end.
auto LastOf(const std::vector<SystemCall>& trace, const std::string& name) {
  const auto found = std::find_if(trace.rbegin(), trace.rend(),
                                  [&](const SystemCall& call) { return call.Name == name; });
  return found == trace.rend() ? trace.end() : found.base() - 1;
}

TEST_F(SaveFaults, TheFileIsOnTheDiskBeforeItsNameAndTheNameBeforeTheEnd) {
  const auto trace = TraceOfSave();
  const auto written = LastOf(trace, "write");
  const auto renamed = LastOf(trace, "rename");
  ASSERT_NE(written, trace.end());
  ASSERT_NE(renamed, trace.end());
  EXPECT_EQ(renamed->To, fs::canonical(file_).string());
  long bytes = 0;
  for (const SystemCall& call : trace) {
    if (call.Name == "write" && call.Handle == written->Handle) bytes += call.Result;
  }
  EXPECT_EQ(bytes, 393'235);
  const auto synced = std::find_if(written, renamed, [&](const SystemCall& call) {
    return call.Name == "fsync" && call.Handle == written->Handle && call.Result == 0;
  });
  EXPECT_NE(synced, renamed) << "renamed before it was synced";

  const auto folder = std::find_if(renamed, trace.end(), [&](const SystemCall& call) {
    return call.Name == "open" && call.Path == fs::canonical(folder_.Path("real")).string();
  });
  ASSERT_NE(folder, trace.end()) << "the folder isn't synced";
  EXPECT_TRUE(std::any_of(folder, trace.end(), [&](const SystemCall& call) {
    return call.Name == "fsync" && call.Handle == folder->Handle && call.Result == 0;
  }));
}

TEST_F(SaveFaults, OtherHardLinksKeepTheOldImage) {
  PutBackOld();
  fs::create_hard_link(file_, folder_.Path("other.nes"));
  EXPECT_EQ(Save(), SaveOutcome::Saved);
  EXPECT_EQ(FileBytes(file_), new_);
  EXPECT_EQ(FileBytes(folder_.Path("other.nes")), old_);
}

/// An export, over a file that is there and one that isn't.
TEST_F(SaveFaults, AnExportIsWholeOrNotThere) {
  const std::string path = folder_.Path("real/rsm_qb.txt");
  const Bytes lines(9000, 'x');
  for (const Bytes& old : {Bytes{}, Bytes(50, 'o')}) {
    const auto put_back = [&] {
      fs::remove(path);
      if (!old.empty()) WriteFile(path, old);
    };
    put_back();
    StartFaults({});
    ReplaceFile(path, lines);
    const auto trace = StopFaults();
    const auto now = [&] { return fs::exists(path) ? FileBytes(path) : Bytes{}; };
    const auto one = [&](const Fault& fault) {
      SCOPED_TRACE(TextOf(fault));
      put_back();
      bool failed = false;
      StartFaults({fault});
      try {
        ReplaceFile(path, lines);
      } catch (const FileError&) {
        failed = true;
      }
      StopFaults();
      EXPECT_TRUE(failed ? now() == old || now() == lines : now() == lines);
      ReplaceFile(path, lines);
      EXPECT_EQ(now(), lines);
      EXPECT_EQ(Names(), (std::set<std::string>{"league.nes", "rsm_qb.txt"}));
    };
    for (const int number : {EIO, ENOSPC}) ForEachFault(trace, Effect::Error, number, one);
    ForEachFault(trace, Effect::Short, 0, one);
    ForEachFault(trace, Effect::Kill, 0, [&](const Fault& fault) {
      put_back();
      EXPECT_TRUE(KilledWhile([&] {
        StartFaults({fault});
        ReplaceFile(path, lines);
      }));
      EXPECT_TRUE(now() == old || now() == lines) << TextOf(fault);
    });
  }
}

}  // namespace
}  // namespace rostermill::test
