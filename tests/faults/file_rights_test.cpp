#include "league/file_rights.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <filesystem>

#include "league/access_list.h"
#include "league/file_access.h"
#include "league/save_image.h"
#include "tests/faults/fault_walk.h"
#include "tests/faults/rights.h"
#include "tests/support/damage.h"
#include "tests/support/fake_host.h"
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;

// Ids that no Debian gives away. The players' group is in no user's database either, so a member is
// who has it in the list of the process.
constexpr uid_t ann = 41001;
constexpr uid_t bob = 41002;
constexpr gid_t anns_group = 41001;
constexpr gid_t bobs_group = 41002;
constexpr gid_t players = 41010;

/// An image that two users save, each in a process with that user's rights alone.
class SharedFolder : public testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "skipped: it takes root to be two users";
    session_->ImagePath = path_;
    fs::permissions(folder_.Path(), fs::perms(0777));
  }

  void PutImage(uid_t owner, gid_t group, mode_t mode) {
    fs::remove(path_);
    WriteFile(path_, SampleBytes());
    ASSERT_EQ(chown(path_.c_str(), owner, group), 0);
    ASSERT_EQ(chmod(path_.c_str(), mode), 0);
  }

  /// Sets access lists with Debian's `acl`; false and the reason where that can't be.
  bool SetLists(const std::string& arguments) {
    int status = 0;
    lists_reason_ = OutputOf("setfacl " + arguments, status);
    return status == 0;
  }

  std::string Lists() {
    int status = 0;
    return OutputOf("getfacl --numeric --omit-header --absolute-names " + path_, status);
  }

  /// What `act` gives as this user, who is in `group` and in `groups`.
  static bool As(uid_t user, gid_t group, const std::vector<gid_t>& groups,
                 const std::function<bool()>& act) {
    const pid_t child = fork();
    if (child == 0) {
      const bool changed =
          setgroups(groups.size(), groups.data()) == 0 && setgid(group) == 0 && setuid(user) == 0;
      _exit(changed && act() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  bool Saves() {
    const bool saved = SaveImage(*session_, host_) == SaveOutcome::Saved;
    for (const std::string& message : host_.messages) fprintf(stderr, "%s\n", message.c_str());
    return saved && host_.messages.empty();
  }

  bool RefusesWith(const std::string& reason) {
    return SaveImage(*session_, host_) == SaveOutcome::Refused &&
           host_.messages.at(0).find(reason) != std::string::npos;
  }

  bool Opens(int flags) const {
    const int file = open(path_.c_str(), flags);
    return file >= 0 && close(file) == 0;
  }

  /// "owner:group mode", without what else RightsOf gives.
  std::string Owned() const {
    const std::string rights = RightsOf(path_);
    return rights.substr(0, rights.find(' ', rights.find(' ') + 1));
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("league.nes");
  std::unique_ptr<LeagueSession> session_ = SampleSession();
  FakeHost host_;
  std::string lists_reason_;
};

TEST_F(SharedFolder, ASaveByAMemberKeepsTheGroupAndTheOwnerIn) {
  PutImage(ann, players, 0660);
  EXPECT_TRUE(As(bob, bobs_group, {players}, [&] { return Saves(); }));
  EXPECT_EQ(Owned(), "41002:41010 100660");
  EXPECT_TRUE(As(ann, anns_group, {players}, [&] { return Saves(); }));
  EXPECT_EQ(Owned(), "41001:41010 100660");
}

TEST_F(SharedFolder, AGroupThatCannotBeKeptMustNotLoseOrGainRights) {
  for (const mode_t mode : {0664U, 0640U, 0604U, 0654U, 0645U}) {
    PutImage(ann, players, mode);
    EXPECT_TRUE(As(ann, anns_group, {}, [&] { return RefusesWith("its group, 41010, whose"); }));
    EXPECT_EQ(fs::status(path_).permissions(), fs::perms(mode)) << std::oct << mode;
    EXPECT_EQ(FileBytes(path_), SampleBytes());
  }
  for (const mode_t mode : {0644U, 0600U}) {
    PutImage(ann, players, mode);
    EXPECT_TRUE(As(ann, anns_group, {}, [&] { return Saves(); })) << std::oct << mode;
    EXPECT_EQ(fs::status(path_).permissions(), fs::perms(mode));
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(SharedFolder, AccessListsAndAttributesAreCarriedOver) {
  PutImage(ann, players, 0640);
  // A fresh file in this folder starts with an entry that the image doesn't have.
  if (!SetLists("-m d:u:41009:rwx " + folder_.Path())) GTEST_SKIP() << "skipped: " << lists_reason_;
  const std::string plain = RightsOf(path_);
  EXPECT_TRUE(As(ann, anns_group, {players}, [&] { return Saves(); }));
  EXPECT_EQ(RightsOf(path_), plain);

  ASSERT_TRUE(SetLists("-m u:41005:rw,u:41006:-,g:41020:r,m:rw " + path_)) << lists_reason_;
  ASSERT_EQ(setxattr(path_.c_str(), "user.note", "1984", 4, 0), 0);
  const std::string full = RightsOf(path_);
  EXPECT_TRUE(As(ann, anns_group, {players}, [&] { return Saves(); }));
  EXPECT_EQ(RightsOf(path_), full);
}

TEST_F(SharedFolder, TheOwnerOfAListedImageKeepsTheirRights) {
  PutImage(ann, anns_group, 0644);
  if (!SetLists("-m u:41002:rw,u:41005:rw,m:r " + path_)) GTEST_SKIP() << lists_reason_;
  EXPECT_TRUE(As(bob, bobs_group, {}, [&] { return RefusesWith("Permission denied"); }));
  ASSERT_TRUE(SetLists("-m u:41002:rw,u:41005:-,u:41006:rwx,m:rw " + path_));
  EXPECT_TRUE(As(bob, bobs_group, {}, [&] { return Saves(); }));
  EXPECT_EQ(Owned(), "41002:41002 100664");
  EXPECT_EQ(Lists(),
            "user::rw-\nuser:41001:rw-\nuser:41002:rw-\nuser:41005:---\nuser:41006:rw-\n"
            "group::r--\nmask::rw-\nother::r--\n\n");
  EXPECT_TRUE(As(ann, anns_group, {}, [&] { return Opens(O_RDWR); }));
}

TEST(AccessList, AUserGetsAnEntryAndNobodyElseARight) {
  const auto list = [](const std::vector<std::array<std::uint8_t, 3>>& entries) {
    std::vector<std::uint8_t> bytes{2, 0, 0, 0};
    for (const auto& [tag, rights, id] : entries) {
      bytes.insert(bytes.end(), {tag, 0, rights, 0, id, 0, 0, 0});
    }
    return bytes;
  };
  // The owner, two users, the group, another group, the mask and the others.
  AccessList rights(
      list({{1, 7, 9}, {2, 4, 51}, {2, 7, 52}, {4, 6, 9}, {8, 3, 60}, {16, 4, 9}, {32, 3, 9}}));
  rights.AddUser(51, 6);
  EXPECT_EQ(
      rights.Bytes(),
      list({{1, 7, 9}, {2, 6, 51}, {2, 4, 52}, {4, 4, 9}, {8, 0, 60}, {16, 6, 9}, {32, 3, 9}}));
  EXPECT_EQ(rights.Mask(), 6U);
  EXPECT_EQ(rights.Group(), 4U);
  EXPECT_EQ(rights.CommonOfGroups(), 0U);
}

/// Members of the saver's group may be in the listed group as well, which is kept out.
TEST_F(SharedFolder, TheGroupThatAListedImageGetsHasNoWiderRights) {
  PutImage(ann, players, 0644);
  if (!SetLists("-m g:41020:-,m:r " + path_)) GTEST_SKIP() << "skipped: " << lists_reason_;
  EXPECT_TRUE(As(ann, anns_group, {}, [&] { return Saves(); }));
  EXPECT_EQ(Owned(), "41001:41001 100644");
  EXPECT_EQ(Lists(), "user::rw-\ngroup::---\ngroup:41020:---\nmask::r--\nother::r--\n\n");
  EXPECT_FALSE(As(bob, anns_group, {41020}, [&] { return Opens(O_RDONLY); }));
}

/// A file system that takes no list: the mode alone must not let in whom the list has kept out.
TEST_F(SharedFolder, RightsThatAreRefusedNeverGetWider) {
  const auto rights_after = [&](const std::string& list) {
    PutImage(ann, players, 0644);
    if (!SetLists("-m " + list + " " + path_)) return lists_reason_;
    EXPECT_TRUE(As(ann, anns_group, {players}, [&] {
      StartFaults({{"fsetxattr", 1, true, Effect::Error, EOPNOTSUPP}});
      return Saves();
    }));
    return RightsOf(path_);
  };
  const std::string mask = rights_after("u:41005:rw");
  if (mask == lists_reason_) GTEST_SKIP() << "skipped: " << lists_reason_;
  EXPECT_EQ(mask, "41001:41010 100644") << "the mask is not the group's";
  EXPECT_EQ(rights_after("u:41005:-"), "41001:41010 100600");
  EXPECT_EQ(rights_after("g:41020:-,g::rw,o::rw"), "41001:41010 100600");
}

TEST_F(SharedFolder, AFolderThatCannotBeReadIsNoReasonForDoubt) {
  PutImage(ann, anns_group, 0644);
  fs::permissions(folder_.Path(), fs::perms(0333));
  EXPECT_TRUE(As(ann, anns_group, {}, [&] {
    StartFaults({});
    return Saves() && CountsOf(StopFaults())["syncfs"] == 1;
  }));
  EXPECT_TRUE(As(ann, anns_group, {}, [&] {
    StartFaults({{"syncfs", 1, false, Effect::Error, EIO}});
    return RefusesWith("could not confirm that it is safe: Input/output error.");
  })) << "the disk's own fault is the reason, not that the folder can't be read";
  fs::permissions(folder_.Path(), fs::perms(0777));
  EXPECT_EQ(FileBytes(path_)[0x21642], 0x8A);
}

}  // namespace
}  // namespace rostermill::test
