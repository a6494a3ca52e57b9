#include <QSettings>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <set>

#include "tests/faults/fault_walk.h"
#include "tests/support/sample.h"
#include "toolkit/keep_setting.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

/// The recent files and a form's columns, as the editor keeps them.
void Store(const std::string& file, const QString& recent, char columns) {
  QSettings settings(FromUtf8(file), QSettings::IniFormat);
  settings.setValue("RecentFiles/File1", recent);
  settings.setValue("AllPlayers/Columns", QByteArray(20'000, columns));
  settings.sync();
}

/// Qt writes them. A fault leaves the old ones or the new ones, never half of them.
TEST(SettingsFaults, SettingsAreTheOldOnesOrTheNewOnes) {
  const TempFolder folder;
  int number = 0;
  std::set<std::string> kept_old;
  std::vector<SystemCall> trace;
  // Qt remembers what it has read from a file, so each fault has a file of its own.
  const auto walk = [&](const Fault& fault) {
    SCOPED_TRACE(TextOf(fault));
    const std::string file = folder.Path(std::to_string(++number) + ".ini");
    Store(file, "old.nes", 'o');
    const auto store = [&] {
      StartFaults({fault});
      Store(file, "new.nes", 'n');
    };
    if (fault.Kind == Effect::Kill) {
      EXPECT_TRUE(KilledWhile(store));
    } else {
      store();
      trace = StopFaults();
      EXPECT_NE(FaultStruck(), fault.Call.empty());
    }
    std::filesystem::copy_file(file, file + "-copy");
    const QSettings found(FromUtf8(file + "-copy"), QSettings::IniFormat);
    const QString recent = found.value("RecentFiles/File1").toString();
    const bool old = recent == "old.nes";
    EXPECT_EQ(recent, old ? "old.nes" : "new.nes");
    EXPECT_EQ(found.value("AllPlayers/Columns").toByteArray(), QByteArray(20'000, old ? 'o' : 'n'));
    EXPECT_EQ(found.allKeys().size(), 2);
    if (old) kept_old.insert(fault.Call);
  };
  walk({});
  EXPECT_EQ(kept_old.size(), 0u);
  const auto calls = trace;
  ForEachFault(calls, Effect::Short, 0, walk);
  ForEachFault(calls, Effect::Kill, 0, walk);
  // That the last bytes don't reach the file, Qt doesn't notice; KeepSetting sees to the room.
  const int last_write = CountsOf(calls)["write"];
  ForEachFault(calls, Effect::Error, ENOSPC, [&](const Fault& fault) {
    if (fault.Call != "write" || (fault.At < last_write && !fault.Onward)) walk(fault);
  });
  for (const char* call : {"open64", "write", "rename"})
    EXPECT_TRUE(kept_old.contains(call)) << call;
}

}  // namespace
}  // namespace rostermill::test
