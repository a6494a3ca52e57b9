#include "history/bytes_hash.h"

#include <algorithm>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace rostermill {

BytesHash HashOf(std::span<const std::uint8_t> bytes) {
  XXH128_canonical_t canonical;
  XXH128_canonicalFromHash(&canonical, XXH3_128bits(bytes.data(), bytes.size()));
  BytesHash hash{};
  std::ranges::copy(canonical.digest, hash.begin());
  return hash;
}

std::string HexText(const BytesHash& hash) {
  static constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : hash) {
    text += digits[byte / 16];
    text += digits[byte % 16];
  }
  return text;
}

}  // namespace rostermill
