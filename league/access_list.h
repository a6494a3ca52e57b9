#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <sys/types.h>

namespace rostermill {

/// A POSIX access control list with entries beyond owner, group and others, as the extended
/// attribute system.posix_acl_access holds it. Rights are 0 to 7, as in a mode.
class AccessList {
 public:
  static constexpr const char* Attribute = "system.posix_acl_access";

  /// Throws FileError for bytes that aren't a list.
  explicit AccessList(std::span<const std::uint8_t> bytes);
  std::vector<std::uint8_t> Bytes() const;

  /// The most that the group and any entry of a user or group can have.
  unsigned Mask() const { return RightsOf(MaskTag); }
  /// What the file's group has.
  unsigned Group() const { return RightsOf(GroupTag) & Mask(); }
  /// What all groups with an entry have, and all users as well.
  unsigned CommonOfGroups() const { return Common(NamedGroupTag); }
  unsigned CommonOfEntries() const { return Common(NamedUserTag | NamedGroupTag); }

  void LimitGroup(unsigned rights);
  /// Gives a user an entry, and to nobody else any right.
  void AddUser(uid_t user, unsigned rights);

 private:
  enum Tag : unsigned { NamedUserTag = 2, GroupTag = 4, NamedGroupTag = 8, MaskTag = 16 };

  struct Entry {
    unsigned Tag = 0;
    unsigned Rights = 0;
    std::uint32_t Id = 0;
  };

  /// All rights if the list has no entry of this kind.
  unsigned RightsOf(unsigned tag) const;
  unsigned Common(unsigned tags) const;

  std::vector<Entry> entries_;
};

}  // namespace rostermill
