#include <QApplication>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
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

constexpr std::string_view editors = "AB";
constexpr char tool_user = 'T';

int Number(const char* variable, int standard) {
  const char* text = std::getenv(variable);
  return text == nullptr ? standard : std::atoi(text);
}

unsigned Seed() {
  return static_cast<unsigned>(Number("ROSTERMILL_SHARING_SEED", 1));
}

constexpr int end_patience = 60'000;  // milliseconds

/// A letter's processes, one after another. Each is killed after some saves.
class WriterRow {
 public:
  WriterRow(char letter, Place place, Observer& observer, Chances& chances)
      : writer_{letter, 0}, place_(std::move(place)), observer_(observer), chances_(chances) {
    Start();
  }

  void MayKill() {
    process_->waitForFinished(0);
    if (process_->state() == QProcess::NotRunning) {
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

  void ExpectEnd() {
    process_->waitForFinished(end_patience);
    EXPECT_EQ(process_->state(), QProcess::NotRunning) << writer_.Name();
    EXPECT_EQ(process_->exitStatus(), QProcess::NormalExit) << writer_.Name();
    EXPECT_EQ(process_->exitCode(), 0) << writer_.Name() << ": " << Messages();
  }
  int Kills() const { return kills_; }

 private:
  void Kill() {
    ::kill(-static_cast<pid_t>(process_->processId()), SIGKILL);  // and the rsmtool it has called
    process_->waitForFinished();
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
    process_ = std::make_unique<QProcess>();
    process_->setStandardErrorFile(MessagesFile());
    process_->setChildProcessModifier([] {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);
      ::setpgid(0, 0);
    });
    process_->start("/proc/self/exe",
                    {"--writer", FromUtf8(place_.Folder), QString(QChar(writer_.Letter)),
                     QString::number(writer_.Start)});
    EXPECT_TRUE(process_->waitForStarted());
  }

  QString MessagesFile() const { return FromUtf8(place_.File(writer_.Name() + ".messages")); }
  /// What the process has printed.
  std::string Messages() const {
    QFile file(MessagesFile());
    return file.open(QFile::ReadOnly) ? file.readAll().toStdString() : "";
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
  std::unique_ptr<QProcess> process_;
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
  const QString image = FromUtf8(place.Image());
  EXPECT_EQ(QProcess::execute(FromUtf8(BinFolder() + "rsmtool"), {"resave", image, image}), 0);
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

}  // namespace
}  // namespace rostermill::test

/// With "--writer FOLDER LETTER START" it is a writer, which the test starts itself.
int main(int argc, char** argv) {
  using namespace rostermill::test;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const bool is_writer = argc == 5 && std::string(argv[1]) == "--writer";
  if (!is_writer) testing::InitGoogleTest(&argc, argv);
  const auto home = is_writer ? nullptr : std::make_unique<OwnHome>();
  const QApplication app(argc, argv);
  if (!is_writer) return RUN_ALL_TESTS();
  QApplication::setApplicationName("RostermillTest");
  QApplication::setOrganizationName("RostermillTest");
  const Writer writer{argv[3][0], std::atoi(argv[4])};
  const auto run = writer.Letter == tool_user ? RunToolUser : RunEditor;
  run({argv[2]}, writer, Seed());
}
