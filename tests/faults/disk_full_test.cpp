#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "league/save_image.h"
#include "tests/support/damage.h"
#include "tests/support/fake_host.h"
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

/// What goes wrong on a full disk; empty for nothing.
std::string FaultOnFullDisk(const std::string& folder) {
  const std::string path = folder + "/league.nes";
  const auto old = SampleBytes();
  WriteFile(path, old);
  auto session = SampleSession();
  session->ImagePath = path;
  LeagueOf(*session).TeamData[1].City = "FULLTON";
  const LeagueData before = LeagueOf(*session);
  FakeHost host;
  if (SaveImage(*session, host) != SaveOutcome::Refused) return "not refused";
  if (host.messages.size() != 1) return "not told";
  if (host.messages[0].find(std::strerror(ENOSPC)) == std::string::npos) return host.messages[0];
  if (FileBytes(path) != old) return "the old image is gone";
  if (LeagueOf(*session) != before) return "the league has changed";
  if (std::distance(fs::directory_iterator(folder), {}) != 1) return "a file stays behind";
  if (mount("tmpfs", folder.c_str(), "tmpfs", MS_REMOUNT, "size=2m") != 0) return {};
  if (SaveImage(*session, host) != SaveOutcome::Saved) return "the retry fails";
  return {};
}

TEST(DiskFull, ASaveIsRefusedAndSucceedsOnceThereIsRoom) {
  TempFolder folder;
  constexpr int cannot_mount = 77;
  const pid_t child = fork();
  if (child == 0) {
    if (!MountSmallDisk(folder.Path())) _exit(cannot_mount);
    const std::string fault = FaultOnFullDisk(folder.Path());
    std::fprintf(stderr, "%s", fault.c_str());
    _exit(fault.empty() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  if (WEXITSTATUS(status) == cannot_mount) {
    GTEST_SKIP() << "skipped: this machine lets the test mount no file system of its own";
  }
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace rostermill::test
