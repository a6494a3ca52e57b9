#include <QDir>
#include <QLabel>
#include <QPixmapCache>
#include <QSettings>
#include <QTest>
#include <gtest/gtest.h>
#ifndef __SANITIZE_ADDRESS__
#include <malloc.h>
#endif

#include <chrono>

#include "rules/face_paths.h"
#include "tests/support/sample.h"
#include "tests/walker/walker.h"
#include "toolkit/picture_cache.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

int Number(const char* variable, int standard) {
  return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : standard;
}

/// Kilobytes of heap in use with the plain sample league loaded, and without the leaders' names of
/// earlier leagues, which may be kilobytes long. 0 under the sanitizers, which find leaks.
std::size_t HeapAtRest(FRSMform& window, LeagueSession& session, const std::string& plain_image) {
  EXPECT_TRUE(window.OpenImageFile(plain_image));
  for (LeaderRow& row : session.LeaderRows) std::string().swap(row.Name);
#ifdef __SANITIZE_ADDRESS__
  return 0;
#else
  const auto heap = mallinfo2();
  return (heap.uordblks + heap.hblkhd) / 1024;
#endif
}

TEST(Walker, NoOrderOfStepsBreaksTheProgram) {
  // Pixmaps that Qt caches would hide what the program leaks.
  QPixmapCache::setCacheLimit(0);
  // Prevents printing.
  qputenv("CUPS_SERVER", "localhost:1");
  TempFolder folder;
  QDir::setCurrent(QString::fromStdString(folder.Path()));
  QSettings settings(QString::fromStdString(folder.Path("settings.ini")), QSettings::IniFormat);
  settings.setValue("Emulator/Program", "true");  // starts nothing
  LeagueSession session;
  session.AppDir = BinFolder();
  FRSMform window(session, &settings);
  window.show();
  // What is kept once it has been shown, the photos and a font for an odd character, would look
  // like a leak.
  QLabel odd_character(QString(QChar(0x263A)));
  odd_character.show();
  QTest::qWait(1);
  odd_character.hide();
  for (int face = 0; face < 256; ++face) LoadPicture(FromUtf8(FacePath(BinFolder(), face)));
  const std::string plain_image = folder.Path("plain.nes");
  WriteFile(plain_image, SampleBytes());

  const int seed = Number("ROSTERMILL_WALK_SEED", 1);
  const std::chrono::seconds seconds(Number("ROSTERMILL_WALK_SECONDS", 0));
  const int steps = Number("ROSTERMILL_WALK_STEPS", 800);
  SCOPED_TRACE("seed " + std::to_string(seed));
  Walker walker(window, session, folder.Path(""), static_cast<unsigned>(seed));
  const auto start = std::chrono::steady_clock::now();
  qsizetype objects_at_first = 0;
  std::size_t heap_at_first = 0;
  int round = 0;
  do {
    walker.Run(steps);
    const std::size_t heap = HeapAtRest(window, session, plain_image);
    const qsizetype objects = window.findChildren<QObject*>().size();
    if (++round == 1) {
      objects_at_first = objects;
      heap_at_first = heap;
    }
    EXPECT_LE(objects, objects_at_first + 200) << "closed forms are not deleted";
    EXPECT_LE(heap, heap_at_first + 2048) << "kilobytes; memory leaks";
    if (seconds.count() > 0) printf("%d steps, %zu KB of heap\n", walker.StepsTaken(), heap);
  } while (!testing::Test::HasFailure() &&
           (round < 2 || std::chrono::steady_clock::now() - start < seconds));
  EXPECT_EQ(walker.StepsTaken(), round * steps);
  QDir::setCurrent("/");
}

}  // namespace
}  // namespace rostermill::test
