#include "league/file_rights.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string_view>
#include <vector>

#include "league/access_list.h"
#include "league/file_error.h"
#include <grp.h>
#include <linux/limits.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace rostermill {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// What `read` puts into a buffer and gives the size of; nothing where it is refused.
template <typename Read>
std::optional<Bytes> Taken(std::size_t limit, Read read) {
  Bytes bytes(limit);
  const ssize_t size = read(bytes.data(), bytes.size());
  if (!Granted(size)) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(size));
  return bytes;
}

std::optional<Bytes> AttributeOf(const std::string& path, const char* name) {
  return Taken(XATTR_SIZE_MAX, [&](void* bytes, std::size_t size) {
    return ::getxattr(path.c_str(), name, bytes, size);
  });
}

std::optional<Bytes> AttributeOf(const FileHandle& file, const char* name) {
  return Taken(XATTR_SIZE_MAX, [&](void* bytes, std::size_t size) {
    return ::fgetxattr(file.Number(), name, bytes, size);
  });
}

/// False where the file system refuses it.
bool SetAttribute(const FileHandle& file, const char* name, const Bytes& value) {
  return AttributeOf(file, name) == value ||
         Granted(::fsetxattr(file.Number(), name, value.data(), value.size(), 0));
}

/// Takes away the list that a fresh file has from its folder.
void RemoveAccessList(const FileHandle& file) {
  if (!AttributeOf(file, AccessList::Attribute)) return;
  if (::fremovexattr(file.Number(), AccessList::Attribute) != 0) FailWith(errno);
}

void SetMode(const FileHandle& file, mode_t mode) {
  if ((file.Facts().st_mode & 07777) == mode) return;
  if (::fchmod(file.Number(), mode) != 0) FailWith(errno);
}

std::string NameOfGroup(gid_t group) {
  const struct group* entry = ::getgrgid(group);
  return entry == nullptr ? std::to_string(group) : entry->gr_name;
}

struct Kept {
  bool Owner = false;
  bool Group = false;
};

Kept SetOwnerAndGroup(const FileHandle& file, const struct stat& old) {
  const struct stat fresh = file.Facts();
  Kept kept{fresh.st_uid == old.st_uid, fresh.st_gid == old.st_gid};
  if (!kept.Owner && Granted(::fchown(file.Number(), old.st_uid, old.st_gid))) return {true, true};
  constexpr uid_t same = static_cast<uid_t>(-1);
  if (!kept.Group) kept.Group = Granted(::fchown(file.Number(), same, old.st_gid));
  return kept;
}

void SetRights(const std::string& from, const FileHandle& to) {
  const struct stat old = FactsOf(from);
  const Kept kept = SetOwnerAndGroup(to, old);
  mode_t mode = old.st_mode & (kept.Owner && kept.Group ? 07777 : 01777);
  std::optional<AccessList> list;
  if (const auto bytes = AttributeOf(from, AccessList::Attribute)) list.emplace(*bytes);

  // With a list, the mode has its mask in the place of the group's rights.
  const unsigned group = list ? list->Group() : mode >> 3 & 7;
  if (!kept.Group && group != (mode & 7)) {
    throw FileError(EPERM, "the system doesn't let you keep its group, " + NameOfGroup(old.st_gid) +
                               ", whose rights to it would change");
  }
  if (!list) {
    RemoveAccessList(to);
    return SetMode(to, mode);
  }
  const unsigned common = list->CommonOfEntries();
  if (!kept.Owner) list->AddUser(old.st_uid, mode >> 6 & 7);
  // The new group's members had the others' rights, or those of their groups' entries.
  if (!kept.Group) list->LimitGroup(list->CommonOfGroups());
  if (SetAttribute(to, AccessList::Attribute, list->Bytes())) {
    return SetMode(to, (mode & ~070U) | list->Mask() << 3);
  }
  // Without its entries, whom they held back counts as one of the group or of the others.
  RemoveAccessList(to);
  SetMode(to, (mode & ~077U) | (group & common) << 3 | (mode & common & 7));
}

/// The system keeps these itself, for the bytes of one file.
bool IsOfTheContents(std::string_view name) {
  constexpr std::array<std::string_view, 3> names{"security.capability", "security.evm",
                                                  "security.ima"};
  return std::find(names.begin(), names.end(), name) != names.end();
}

void CopyAttributes(const std::string& from, const FileHandle& to) {
  const auto names = Taken(XATTR_LIST_MAX, [&](void* bytes, std::size_t size) {
    return ::listxattr(from.c_str(), static_cast<char*>(bytes), size);
  });
  if (!names) return;
  // Each ends with a zero byte.
  for (auto at = names->begin(); at != names->end();) {
    const auto end = std::find(at, names->end(), 0);
    const std::string name(at, end);
    at = end + 1;
    if (name == AccessList::Attribute || IsOfTheContents(name)) continue;
    if (const auto value = AttributeOf(from, name.c_str())) SetAttribute(to, name.c_str(), *value);
  }
}

}  // namespace

void CarryOverRights(const std::string& from, const FileHandle& to) {
  SetRights(from, to);
  CopyAttributes(from, to);
}

}  // namespace rostermill
