#include <QSettings>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "league/save_image.h"
#include "tests/support/damage.h"
#include "tests/support/fake_host.h"
#include "toolkit/keep_setting.h"
#include "toolkit/qt_strings.h"
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;

/// Mounts a file system of 600 KB, room for an image and a half, that this process alone sees.
bool MountSmallDisk(const std::string& folder) {
  const uid_t user = geteuid();
  const gid_t group = getegid();
  if (unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
  if (user != 0) {
    // Whoever is nobody in there can't make a file.
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " + std::to_string(user) + " 1";
    std::ofstream("/proc/self/gid_map") << "0 " + std::to_string(group) + " 1";
  }
  return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=600k") == 0;
}

void SaveOnFullDisk(const std::string& folder) {
  const std::string path = folder + "/league.nes";
  WriteFile(path, SampleBytes());
  auto session = SampleSession();
  session->ImagePath = path;
  LeagueOf(*session).TeamData[1].City = "FULLTON";
  const LeagueData before = LeagueOf(*session);
  FakeHost host;
  EXPECT_EQ(SaveImage(*session, host), SaveOutcome::Refused);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_NE(host.messages[0].find(std::strerror(ENOSPC)), std::string::npos) << host.messages[0];
  EXPECT_EQ(FileBytes(path), SampleBytes());
  EXPECT_EQ(LeagueOf(*session), before);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "a file is left";
  if (mount("tmpfs", folder.c_str(), "tmpfs", MS_REMOUNT, "size=2m") != 0) return;
  EXPECT_EQ(SaveImage(*session, host), SaveOutcome::Saved) << "with room again";
}

void KeepSettingOnFullDisk(const std::string& folder) {
  const std::string path = folder + "/settings.ini";
  const auto keep = [&](const char* value) {
    QSettings settings(FromUtf8(path), QSettings::IniFormat);
    KeepSetting(settings, "Recent Files/0", value);
  };
  keep("old.nes");
  const auto before = FileBytes(path);
  std::ofstream(folder + "/filler") << std::string(1 << 20, 'x');
  keep("new.nes");
  EXPECT_EQ(FileBytes(path), before);
  fs::remove(folder + "/filler");
  keep("new.nes");
  EXPECT_NE(FileBytes(path), before) << "with room again";
}

/// Calls `act` in a process that has the small disk at `folder`.
void OnSmallDisk(void (*act)(const std::string& folder)) {
  TempFolder folder;
  constexpr int cannot_mount = 77;
  const pid_t child = fork();
  if (child == 0) {
    if (!MountSmallDisk(folder.Path())) _exit(cannot_mount);
    act(folder.Path());
    std::fflush(stdout);
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == cannot_mount) {
    GTEST_SKIP() << "skipped: this machine lets the test mount no file system of its own";
  }
  EXPECT_EQ(status, 0);
}

TEST(DiskFull, ASaveIsRefusedAndSucceedsOnceThereIsRoom) {
  OnSmallDisk(SaveOnFullDisk);
}

TEST(DiskFull, SettingsStayAsTheyWere) {
  OnSmallDisk(KeepSettingOnFullDisk);
}

}  // namespace
}  // namespace rostermill::test
