#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace rostermill {

// What the two sides of a BPS patch share.

/// The low 2 bits of an action; the number above them is its length less one.
enum class BpsAction : std::uint8_t {
  SourceRead,  ///< from the source, at the offset reached in the target
  TargetRead,  ///< the bytes that follow in the patch
  SourceCopy,  ///< from the source; an offset follows, counted from the end of the last SourceCopy
  TargetCopy   ///< from the target made so far, counted likewise; may run into what it makes
};

/// Source's, target's and the patch's own CRC-32, 4 bytes each, at the end.
inline constexpr std::size_t BpsFooterSize = 12;

std::uint32_t BpsCrc(std::span<const std::uint8_t> bytes);

}  // namespace rostermill
