#include <QApplication>
#include <QProcess>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <deque>
#include <memory>

#include "history/data_folder.h"
#include "history/store_folder.h"
#include "history/unsaved_store.h"
#include "tests/sharing/observer.h"
#include "tests/sharing/stamp.h"
#include "tests/sharing/writers.h"
#include "tests/support/own_home.h"
#include "toolkit/qt_strings.h"
#include <sys/prctl.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

constexpr char tool_user = 'T';

unsigned Seed() {
  return static_cast<unsigned>(qEnvironmentVariableIntValue("ROSTERMILL_SHARING_SEED"));
}

/// Runs the processes of one writer, one after another.
class WriterRow {
 public:
  WriterRow(char letter, Place place) : letter_(letter), place_(std::move(place)) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.setChildProcessModifier([] {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);
      ::setpgid(0, 0);
    });
    Start();
  }

  void ExpectRunning() {
    process_.waitForFinished(0);
    if (process_.state() != QProcess::NotRunning) return;
    ADD_FAILURE() << name_ << " has ended";
    Start();
  }

  void Kill() {
    ::kill(-static_cast<pid_t>(process_.processId()), SIGKILL);  // and the rsmtool it has called
    process_.waitForFinished();
    Start();
  }

  void ExpectEnd() {
    process_.waitForFinished(60'000);
    EXPECT_EQ(process_.state(), QProcess::NotRunning) << name_;
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit) << name_;
    EXPECT_EQ(process_.exitCode(), 0) << name_;
  }

 private:
  void Start() {
    name_ = letter_ + std::to_string(100 + ++started_).substr(1);
    process_.start("/proc/self/exe", {"--writer", FromUtf8(place_.Folder), FromUtf8(name_)});
    EXPECT_TRUE(process_.waitForStarted());
  }

  char letter_;
  Place place_;
  int started_ = 0;
  std::string name_;
  QProcess process_;
};

/// What killed writers have left goes with later saves, and later unsaved changes.
void ExpectNoLeftovers(const Place& place, const std::string& versions) {
  const QString image = FromUtf8(place.Image());
  EXPECT_EQ(QProcess::execute(FromUtf8(BinFolder() + "rsmtool"), {"resave", image, image}), 0);
  UnsavedStore(DataFolder(), place.Image()).Keep("{}");
  for (const std::string& folder : {place.ImageFolder(), versions}) {
    for (const std::string& name : FilesIn(folder)) EXPECT_FALSE(name.starts_with('.')) << name;
  }
}

TEST(Sharing, WritersOfOneImageNeverTearItAndLoseNothing) {
  const TempFolder folder;
  const Place place{folder.Path("")};
  std::filesystem::create_directory(place.ImageFolder());
  WriteFile(place.Image(), StampedImage(FirstStamp));
  const std::string versions = ImageFolder(DataFolder(), place.Image());
  MakeImageFolder(versions, CanonicalPath(place.Image()));
  SCOPED_TRACE("seed " + std::to_string(Seed()));

  Chances chances(Seed(), "observer");
  Observer observer(place, versions);
  std::deque<WriterRow> rows;
  for (const char letter : {'A', 'B', tool_user}) rows.emplace_back(letter, place);
  const auto now = [] { return std::chrono::steady_clock::now(); };
  const int seconds = qEnvironmentVariableIntValue("ROSTERMILL_SHARING_SECONDS");
  const auto end = now() + std::chrono::seconds(seconds > 0 ? seconds : 8);
  constexpr int fewest_saves = 10;
  int kills = 0;
  int saves_at_kill = 3;  // even a short run has some kills
  while (now() < end ||
         (observer.Count(Saved) < fewest_saves && now() < end + std::chrono::minutes(2))) {
    observer.Look(std::chrono::milliseconds(2));
    for (WriterRow& row : rows) row.ExpectRunning();
    // Half of them while somebody writes a file.
    if (observer.Count(About) >= saves_at_kill && chances.OneIn(observer.SawWriting() ? 2 : 50)) {
      rows[static_cast<std::size_t>(chances.Below(3))].Kill();
      ++kills;
      saves_at_kill = observer.Count(About) + 1 + chances.Below(8);
    }
  }
  WriteFile(place.StopFile(), "");
  for (WriterRow& row : rows) row.ExpectEnd();
  observer.Look({});
  observer.ExpectNothingLost();
  ExpectNoLeftovers(place, versions);
  EXPECT_GE(observer.Count(Saved), fewest_saves);
  EXPECT_GT(kills, 0);
  for (const auto& [kind, count] : observer.Counts()) printf("%s %d, ", kind.c_str(), count);
  printf("%d kills\n", kills);
}

}  // namespace
}  // namespace rostermill::test

/// With "--writer FOLDER NAME" it is a writer, which the test starts itself.
int main(int argc, char** argv) {
  using namespace rostermill::test;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const bool is_writer = argc == 4 && std::string(argv[1]) == "--writer";
  if (!is_writer) testing::InitGoogleTest(&argc, argv);
  const auto home = is_writer ? nullptr : std::make_unique<OwnHome>();
  const QApplication app(argc, argv);
  if (!is_writer) return RUN_ALL_TESTS();
  QApplication::setApplicationName("RostermillTest");
  QApplication::setOrganizationName("RostermillTest");
  const std::string name = argv[3];
  const auto run = name[0] == tool_user ? RunToolUser : RunEditor;
  run({argv[2]}, name, Seed());
}
