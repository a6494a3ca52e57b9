#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace rostermill {

/// 128 bits by which bytes are recognized and damage to them is found: XXH3, the same on every
/// machine. A cryptographic hash would take longer than writing the file.
using BytesHash = std::array<std::uint8_t, 16>;

BytesHash HashOf(std::span<const std::uint8_t> bytes);

/// As 32 lower-case hexadecimal digits, in the order in which xxhsum prints them.
std::string HexText(const BytesHash& hash);

}  // namespace rostermill
