#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "bench/pairs.h"
#include "history/league_history.h"
#include "history/undo_stack.h"
#include "history/version_store.h"
#include "league/file_access.h"
#include "league/load_image.h"
#include "league/player_names.h"
#include "league/save_image.h"
#include "league/team_data.h"
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

namespace rostermill::bench {

namespace {

constexpr int load_pairs = 2000;
constexpr int save_pairs = 150;

/// Shows nothing, confirms every question, and exits if there is an error message.
class SilentHost : public PipelineHost {
 public:
  void SetBusy(bool) override {}
  void SetLoadingCaption(LoadStep, std::string_view) override {}
  void CloseLoading() override {}
  void YieldToWindow() override {}
  void Beep() override {}
  void UpdateCommandState() override {}
  void ShowMessage(MessageKind, const std::string& text, const std::string&) override {
    std::fprintf(stderr, "%s\n", text.c_str());
    std::exit(1);
  }
  bool Confirm(const Question&) override { return true; }
  std::string AskForText(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
};

void Check(bool holds, const char* what) {
  if (holds) return;
  std::perror(what);
  std::exit(1);
}

/// The bare cost of a load: one open and one read, into newly allocated memory.
void ReadBare(const std::string& path) {
  std::vector<std::uint8_t> bytes(OpenImage::WholeSize);
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  Check(file >= 0, "open");
  Check(::read(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "read");
  ::close(file);
}

/// The bare cost of a save: a temporary file is synced and renamed, and its folder is synced.
void WriteBare(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  const std::string temporary = path + ".new";
  const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  Check(file >= 0, "open");
  Check(::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "write");
  Check(::fsync(file) == 0, "fsync");
  ::close(file);
  Check(::rename(temporary.c_str(), path.c_str()) == 0, "rename");
  const std::string folder_path = std::filesystem::path(path).parent_path();
  const int folder = ::open(folder_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  Check(folder >= 0 && ::fsync(folder) == 0, "fsync of the folder");
  ::close(folder);
}

void Load(LeagueSession& session) {
  SilentHost host;
  if (LoadImage(session, host) != LoadOutcome::Loaded) std::exit(1);
}

void Save(const LeagueSession& session) {
  SilentHost host;
  if (SaveImage(session, host) != SaveOutcome::Saved) std::exit(1);
}

/// Fills everything that can grow to the image's capacity: names, team texts and schedule.
void FillToTheLimits(LeagueData& league) {
  for (int team = 1; NameBytesNeeded(league) < NameDataCapacity; team = team % TeamCount + 1) {
    for (NameRec& name : league.NameData[team]) {
      if (NameBytesNeeded(league) < NameDataCapacity) name.LastName += 'X';
    }
  }
  for (int team = 1; TeamTextBytesNeeded(league) < TeamTextCapacity; team = team % TeamCount + 1) {
    league.TeamData[team].City += 'X';
  }
  for (ScheduleWeek& week : league.ScheduleData) week.GameCount = GamesPerWeek;
}

/// With `give_back`, each load gets its memory from the system, as the only load of a process does;
/// otherwise it reuses the memory of the load before it, which is still in the caches.
void CompareLoads(LeagueSession& session, const std::string& which, double goal, bool give_back) {
  const auto time = [give_back](auto work) {
    if (give_back) malloc_trim(0);
    return Milliseconds(work);
  };
  Compare(
      {"load" + which, goal, load_pairs}, [&] { return time([&] { Load(session); }); },
      [&] { return time([&] { ReadBare(session.ImagePath); }); });
}

/// Milliseconds. Nobody saves hundreds of times a second, and ext4 searches past each file that was
/// deleted within the last five seconds when it makes another.
template <typename Work>
double CostOfSave(const Work& work) {
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  return Milliseconds(work);
}

void CompareSaves(LeagueSession& session, const std::string& copy, const std::string& which) {
  const auto bytes = ReadFileStart(session.ImagePath, OpenImage::WholeSize).Bytes;
  Compare(
      {"save" + which, 1.25, save_pairs}, [&] { return CostOfSave([&] { Save(session); }); },
      [&] { return CostOfSave([&] { WriteBare(copy, bytes); }); });
}

void ChangeARating(LeagueSession& session, int turn) {
  session.Change("turn", [turn](LeagueData& league) {
    league.QBData[1 + turn / 16 % TeamCount][1].Accuracy = static_cast<std::int16_t>(turn % 16);
  });
}

/// A save that keeps what it replaces, against two bare saves. Each save replaces another state.
void CompareKeptSaves(LeagueSession& session, const std::string& copy) {
  const std::string folder = std::filesystem::path(copy).parent_path();
  std::filesystem::remove_all(folder + "/versions");
  LeagueHistory history(session, folder + "/versions");
  SilentHost host;
  if (LoadImage(session, host, history) != LoadOutcome::Loaded) std::exit(1);
  const auto bytes = ReadFileStart(session.ImagePath, OpenImage::WholeSize).Bytes;
  int turn = 0;
  Compare(
      {"save that keeps an earlier version", 1.25, save_pairs},
      [&] {
        history.KeepUnsaved();  // as the editor does a second after a save
        ChangeARating(session, ++turn);
        return CostOfSave([&] {
          if (SaveImage(session, host, history) != SaveOutcome::Saved) std::exit(1);
        });
      },
      [&] {
        return CostOfSave([&] {
          WriteBare(copy, bytes);
          WriteBare(copy, bytes);
        });
      });
}

/// A step with as many before it as there can be, against the first one.
void CompareLaterSteps(const std::string& bin, const std::string& work) {
  struct Editor {
    Editor(const std::string& app_dir, const std::string& versions) : History(Session, versions) {
      SilentHost host;
      Session.AppDir = app_dir;
      Session.ImagePath = app_dir + "sample.nes";
      if (LoadImage(Session, host, History) != LoadOutcome::Loaded) std::exit(1);
    }
    double CostOfStep() {
      const double cost = Milliseconds([this] { ChangeARating(Session, ++Turn); });
      History.Undo();
      return cost;
    }

    LeagueSession Session;
    LeagueHistory History;
    int Turn = 0;
  };
  Editor full(bin + "/", work + "full"), fresh(bin + "/", work + "fresh");
  for (std::size_t step = 0; step < UndoStack::Limit; ++step)
    ChangeARating(full.Session, ++full.Turn);
  Compare(
      {"a step after 199 others, against the first", 1.1, 1000}, [&] { return full.CostOfStep(); },
      [&] { return fresh.CostOfStep(); });
}

/// Keeps versions of an image, of which there are so many, in a store with so many other images.
class Keeper {
 public:
  Keeper(const std::string& folder, std::vector<std::uint8_t> bytes, int versions, int others)
      : bytes_(std::move(bytes)),
        store_(folder + "/store", {versions, std::uint64_t{4} << 30}),
        image_(folder + "/league.nes") {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    for (int other = 0; other < others; ++other) {
      const std::string text = std::to_string(other);
      const auto path = std::filesystem::path(folder) / text;
      const std::vector<std::uint8_t> bytes_of_other(text.begin(), text.end());
      store_.Keep(path, {bytes_of_other, bytes_of_other.size()}, "other");
    }
    for (int version = 0; version < versions; ++version) CostOfKeeping();
  }

  double CostOfKeeping() {
    ++turn_;
    bytes_[OpenImage::WholeSize - 1] = static_cast<std::uint8_t>(turn_);
    bytes_[OpenImage::WholeSize - 2] = static_cast<std::uint8_t>(turn_ / 256);
    const double cost = CostOfSave([this] {
      store_.Keep(image_, {bytes_, bytes_.size()}, "before a save");
    });
    store_.DropOld(image_);
    return cost;
  }

 private:
  std::vector<std::uint8_t> bytes_;
  VersionStore store_;
  std::string image_;
  int turn_ = 0;
};

void CompareKeepings(const std::string& image, const std::string& work) {
  const auto bytes = ReadFileStart(image, OpenImage::WholeSize).Bytes;
  Keeper few(work + "few", bytes, 1, 0), many(work + "many", bytes, 30, 0),
      images(work + "images", bytes, 30, 200);
  Compare(
      {"a version kept beside 30 others, against one", 1.2, save_pairs},
      [&] { return many.CostOfKeeping(); }, [&] { return few.CostOfKeeping(); });
  Compare(
      {"a version kept beside those of 200 other images", 1.2, save_pairs},
      [&] { return images.CostOfKeeping(); }, [&] { return few.CostOfKeeping(); });
}

/// One load or one save for an instruction counter; the league to save is read first.
int RunOnce(LeagueSession& session, const std::string& what) {
  if (what == "--load") Load(session);
  if (what == "--save") {
    OpenImage image(ReadFileStart(session.ImagePath, OpenImage::WholeSize).Bytes);
    session.SetLeague(ReadLeague(image));
    Save(session);
  }
  return 0;
}

}  // namespace

}  // namespace rostermill::bench

/// bench_league BIN-FOLDER WORK-FOLDER [--load | --save]
int main(int argc, char** argv) {
  using namespace rostermill;
  using namespace rostermill::bench;
  if (argc < 3) return 2;
  LeagueSession session;
  session.AppDir = std::string(argv[1]) + "/";
  const std::string work = std::string(argv[2]) + "/pipelines/";
  std::filesystem::create_directories(work);
  session.ImagePath = work + "league.nes";
  std::filesystem::copy_file(session.AppDir + "sample.nes", session.ImagePath,
                             std::filesystem::copy_options::overwrite_existing);
  if (argc > 3) return RunOnce(session, argv[3]);
  const std::string bare = work + "bare.nes";
  CompareLoads(session, " of a whole image", 1.5, true);
  CompareSaves(session, bare, " of a whole image");
  CompareKeptSaves(session, bare);
  session.Change("fill", FillToTheLimits);
  Save(session);
  CompareLoads(session, ", texts and 238 games at their limits", 1.5, true);
  CompareSaves(session, bare, ", texts and 238 games at their limits");
  CompareLoads(session, ", repeated in the same memory", 0, false);
  CompareLaterSteps(argv[1], work);
  CompareKeepings(session.ImagePath, work);
}
