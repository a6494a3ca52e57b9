#include "league/access_list.h"

#include <algorithm>
#include <cerrno>

#include "league/file_error.h"

namespace rostermill {

namespace {

// A version, then entries of tag, rights and id, all little-endian.
constexpr std::uint32_t version = 2;
constexpr std::size_t header_size = 4;
constexpr std::size_t entry_size = 8;

std::uint32_t Number(std::span<const std::uint8_t> bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
  return number;
}

void Append(std::vector<std::uint8_t>& bytes, std::uint32_t number, int size) {
  for (; size > 0; --size, number >>= 8) bytes.push_back(static_cast<std::uint8_t>(number));
}

}  // namespace

AccessList::AccessList(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < header_size + entry_size || (bytes.size() - header_size) % entry_size != 0 ||
      Number(bytes.first(header_size)) != version) {
    FailWith(EINVAL);
  }
  for (bytes = bytes.subspan(header_size); !bytes.empty(); bytes = bytes.subspan(entry_size)) {
    entries_.push_back(
        {Number(bytes.first(2)), Number(bytes.subspan(2, 2)), Number(bytes.subspan(4, 4))});
  }
}

std::vector<std::uint8_t> AccessList::Bytes() const {
  std::vector<std::uint8_t> bytes;
  Append(bytes, version, 4);
  for (const Entry& entry : entries_) {
    Append(bytes, entry.Tag, 2);
    Append(bytes, entry.Rights, 2);
    Append(bytes, entry.Id, 4);
  }
  return bytes;
}

unsigned AccessList::RightsOf(unsigned tag) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [tag](const Entry& entry) { return entry.Tag == tag; });
  return found == entries_.end() ? 7 : found->Rights;
}

unsigned AccessList::Common(unsigned tags) const {
  unsigned rights = Mask();
  for (const Entry& entry : entries_) {
    if ((entry.Tag & tags) != 0) rights &= entry.Rights;
  }
  return rights;
}

void AccessList::LimitGroup(unsigned rights) {
  for (Entry& entry : entries_) {
    if (entry.Tag == GroupTag) entry.Rights &= rights;
  }
}

void AccessList::AddUser(uid_t user, unsigned rights) {
  std::erase_if(entries_, [user](const Entry& entry) {
    return entry.Tag == NamedUserTag && entry.Id == user;
  });
  // A wider mask must not let through what it has held back.
  const unsigned mask = Mask();
  for (Entry& entry : entries_) {
    if ((entry.Tag & (NamedUserTag | GroupTag | NamedGroupTag)) != 0) entry.Rights &= mask;
    if (entry.Tag == MaskTag) entry.Rights |= rights;
  }
  // The owner's entry is the first, and users come after it.
  entries_.insert(entries_.begin() + 1, {NamedUserTag, rights, user});
}

}  // namespace rostermill
