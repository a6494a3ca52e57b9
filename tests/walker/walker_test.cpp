#include "tests/walker/walker.h"

#include <QDir>
#include <QSettings>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

int Number(const char* variable, int otherwise) {
  return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : otherwise;
}

/// Megabytes of memory in use.
long MemoryInUse() {
  long pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> pages;
  return pages * 4096 / 1'000'000;
}

TEST(Walker, NoOrderOfStepsBreaksTheProgram) {
  // Nothing is ever printed.
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
  const int steps = Number("ROSTERMILL_WALK_STEPS", 2500);
  Walker walker(window, session, folder.Path(""), seed);
  const auto start = std::chrono::steady_clock::now();
  const auto objects = [&window] { return window.findChildren<QObject*>().size(); };
  qsizetype objects_at_first = 0;
  do {
    ASSERT_NO_THROW(walker.Run(steps));
    if (objects_at_first == 0) objects_at_first = objects();
    EXPECT_LE(objects(), objects_at_first + 200) << "closed forms stay behind";
    if (seconds > 0) printf("%d steps, %ld MB\n", walker.StepsTaken(), MemoryInUse());
  } while (std::chrono::steady_clock::now() - start < std::chrono::seconds(seconds));
  EXPECT_GE(walker.StepsTaken(), steps);
  QDir::setCurrent("/");
}

}  // namespace
}  // namespace rostermill::test
