#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace rostermill {

/// 128 bits by which bytes are recognized and damage to them is found: XXH3, the same on every
/// machine. A cryptographic hash would take longer than writing the file.
using BytesHash = std::array<std::uint8_t, 16>;

inline std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

BytesHash HashOf(std::span<const std::uint8_t> bytes);

/// As 32 lower-case hexadecimal digits, in the order in which xxhsum prints them.
std::string HexText(const BytesHash& hash);

}  // namespace rostermill
