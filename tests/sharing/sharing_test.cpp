#include <QApplication>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>

#include "history/data_folder.h"
#include "history/store_folder.h"
#include "history/unsaved_store.h"
#include "tests/sharing/editor.h"
#include "tests/sharing/observer.h"
#include "tests/sharing/process.h"
#include "tests/sharing/stamp.h"
#include "tests/sharing/tool_user.h"
#include "tests/support/own_home.h"

namespace rostermill::test {
namespace {

constexpr std::string_view editors = "AB";
constexpr char tool_user = 'T';

int Number(const char* variable, int standard) {
  const char* text = std::getenv(variable);
  return text == nullptr ? standard : std::atoi(text);
}

unsigned Seed() {
  return static_cast<unsigned>(Number("ROSTERMILL_SHARING_SEED", 1));
}

/// A letter's processes, one after another. Each is killed after some saves.
class WriterRow {
 public:
  WriterRow(char letter, Place place, Observer& observer, Chances& chances)
      : writer_{letter, 0}, place_(std::move(place)), observer_(observer), chances_(chances) {
    Start();
  }

  void MayKill() {
    if (process_->Ended()) {
      ADD_FAILURE() << writer_.Name() << " has ended: " << Messages();
      return Start();
    }
    const auto now = std::chrono::steady_clock::now();
    if (observer_.Saves(writer_) < life_) {
      end_ = now + delay_;
    } else if (now >= end_ && (!within_write_ || observer_.SawWriting())) {
      Kill();
    }
  }

  void ExpectEnd() const {
    EXPECT_EQ(process_->ExitCode(std::chrono::seconds(60)), 0)
        << writer_.Name() << ": " << Messages();
  }
  int Kills() const { return kills_; }

 private:
  void Kill() {
    process_->Kill();
    ++kills_;
    Start();
  }

  void Start() {
    ++writer_.Start;
    // Even a short run has some kills.
    life_ = 2 + chances_.Below(writer_.Start == 1 ? 6 : 20);
    delay_ = std::chrono::milliseconds(1 << chances_.Below(10));
    within_write_ = chances_.Below(2) == 0;
    observer_.Follow(writer_);
    process_ = std::make_unique<Process>(
        std::vector<std::string>{"/proc/self/exe", "--writer", place_.Folder,
                                 std::string(1, writer_.Letter), std::to_string(writer_.Start)},
        Process::Group::Own, MessagesFile());
  }

  std::string MessagesFile() const { return place_.File(writer_.Name() + ".messages"); }
  /// What the process has printed.
  std::string Messages() const {
    const auto bytes = FileBytes(MessagesFile());
    return {bytes.begin(), bytes.end()};
  }

  Writer writer_;
  Place place_;
  Observer& observer_;
  Chances& chances_;
  int life_ = 0;  ///< how many saves it may begin
  std::chrono::milliseconds
      delay_{};                ///< from the beginning of the last of them to its kill, at least
  bool within_write_ = false;  ///< it is killed while somebody writes a file
  std::chrono::steady_clock::time_point end_;
  int kills_ = 0;
  std::unique_ptr<Process> process_;
};

std::vector<std::string> HiddenFiles(const std::string& folder) {
  std::vector<std::string> hidden;
  for (const std::string& name : FilesIn(folder)) {
    if (name.starts_with('.')) hidden.push_back(name);
  }
  return hidden;
}

/// What killed writers have left goes with later saves, and later unsaved changes.
void ExpectNoLeftovers(const Place& place, const std::string& versions) {
  const std::string rsmtool = BinFolder() + "rsmtool";
  Process save({rsmtool, "resave", place.Image(), place.Image()}, Process::Group::Parents);
  EXPECT_EQ(save.ExitCode(std::chrono::seconds(60)), 0);
  UnsavedStore(DataFolder(), place.Image()).Keep("{}");
  EXPECT_EQ(HiddenFiles(place.ImageFolder()), std::vector<std::string>());
  EXPECT_EQ(HiddenFiles(versions), std::vector<std::string>());
}

TEST(Sharing, WritersOfOneImageNeverTearItAndLoseNothing) {
  const TempFolder folder;
  const Place place{folder.Path("")};
  std::filesystem::create_directory(place.ImageFolder());
  WriteFile(place.Image(), StampedImage(FirstStamp));
  const std::string versions = ImageFolder(DataFolder(), place.Image());
  MakeImageFolder(versions, CanonicalPath(place.Image()));
  SCOPED_TRACE("seed " + std::to_string(Seed()));

  Chances chances(Seed(), {'Z', 0});
  Observer observer(place, versions);
  std::vector<std::unique_ptr<WriterRow>> rows;
  for (const char letter : std::string(editors) + tool_user) {
    rows.push_back(std::make_unique<WriterRow>(letter, place, observer, chances));
  }
  const std::chrono::seconds seconds(Number("ROSTERMILL_SHARING_SECONDS", 8));
  const auto end = std::chrono::steady_clock::now() + seconds;
  constexpr int fewest_saves = 10;
  while (std::chrono::steady_clock::now() < end ||
         (observer.Count(Saved) < fewest_saves &&
          std::chrono::steady_clock::now() < end + std::chrono::minutes(2))) {
    observer.Look(std::chrono::milliseconds(2));
    for (const auto& row : rows) row->MayKill();
  }
  WriteFile(place.StopFile(), "");
  int kills = 0;
  for (const auto& row : rows) {
    row->ExpectEnd();
    kills += row->Kills();
  }
  observer.Look({});
  observer.ExpectNothingLost();
  ExpectNoLeftovers(place, versions);
  EXPECT_GE(observer.Count(Saved), fewest_saves);
  printf("%s, %d kills\n", observer.Summary().c_str(), kills);
}

/// "--writer FOLDER LETTER START": what the test starts itself as.
int RunWriter(int argc, char** argv) {
  const Place place{argv[2]};
  const Writer writer{argv[3][0], std::atoi(argv[4])};
  if (writer.Letter == tool_user) return RunToolUser(place, writer, Seed());
  const QApplication app(argc, argv);
  QApplication::setApplicationName("RostermillTest");
  QApplication::setOrganizationName("RostermillTest");
  return RunEditor(place, writer, Seed());
}

}  // namespace
}  // namespace rostermill::test

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (argc == 5 && std::string(argv[1]) == "--writer") {
    return rostermill::test::RunWriter(argc, argv);
  }
  testing::InitGoogleTest(&argc, argv);
  const rostermill::test::OwnHome home;
  return RUN_ALL_TESTS();
}
