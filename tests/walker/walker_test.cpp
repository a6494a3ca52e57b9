#include "tests/walker/walker.h"

#include <QDir>
#include <QPixmapCache>
#include <QSettings>
#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/sample.h"

#ifdef __SANITIZE_ADDRESS__
// Debian's gcc comes with the function, but not its header.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#else
#include <malloc.h>
#endif

namespace rostermill::test {
namespace {

int Number(const char* variable, int standard) {
  return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : standard;
}

constexpr std::size_t kilobyte = 1024;

/// Kilobytes of heap in use.
std::size_t HeapInUse() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes() / kilobyte;
#else
  const auto heap = mallinfo2();
  return (heap.uordblks + heap.hblkhd) / kilobyte;
#endif
}

/// The heap in use with the plain sample league loaded, and without the leaders' names of earlier
/// leagues, which may be kilobytes long.
std::size_t HeapAtRest(FRSMform& window, LeagueSession& session, const std::string& plain_image) {
  EXPECT_TRUE(window.OpenImageFile(plain_image));
  for (LeaderRow& row : session.LeaderRows) std::string().swap(row.Name);
  return HeapInUse();
}

TEST(Walker, NoOrderOfStepsBreaksTheProgram) {
  // Pixmaps that Qt caches would hide what the program leaks.
  QPixmapCache::setCacheLimit(0);
  // Prevents printing.
  qputenv("CUPS_SERVER", "localhost:1");
  TempFolder folder;
  QDir::setCurrent(QString::fromStdString(folder.Path()));
  QSettings settings(QString::fromStdString(folder.Path("settings.ini")), QSettings::IniFormat);
  LeagueSession session;
  session.AppDir = BinFolder();
  FRSMform window(session, &settings);
  window.show();

  const auto seed = static_cast<unsigned>(Number("ROSTERMILL_WALK_SEED", 1));
  const int seconds = Number("ROSTERMILL_WALK_SECONDS", 0);
  const int steps = Number("ROSTERMILL_WALK_STEPS", 1250);
  const std::string plain_image = folder.Path("plain.nes");
  WriteFile(plain_image, SampleBytes());
  Walker walker(window, session, folder.Path(""), seed);
  const auto start = std::chrono::steady_clock::now();
  const auto objects = [&window] { return window.findChildren<QObject*>().size(); };
  qsizetype objects_at_first = 0;
  std::size_t heap_at_first = 0;
  for (int round = 1;
       round <= 2 || std::chrono::steady_clock::now() - start < std::chrono::seconds(seconds);
       ++round) {
    ASSERT_NO_THROW(walker.Run(steps));
    const std::size_t heap = HeapAtRest(window, session, plain_image);
    if (round == 1) {
      objects_at_first = objects();
      heap_at_first = heap;
    }
    EXPECT_LE(objects(), objects_at_first + 200) << "closed forms are not deleted";
    EXPECT_LE(heap, heap_at_first + 2 * kilobyte) << "kilobytes; memory leaks";
    if (seconds > 0) printf("%d steps, %zu KB of heap\n", walker.StepsTaken(), heap);
  }
  EXPECT_GE(walker.StepsTaken(), 2 * steps);
  QDir::setCurrent("/");
}

}  // namespace
}  // namespace rostermill::test
