#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace rostermill {

/// A patch that can't be made, read or applied. what() is one or two sentences for the user.
class PatchError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

enum class PatchFormat { Bps, Ips };

/// The largest file, in bytes, that is patched or comes out of a patch; no format's numbers and no
/// damaged header make anything take more memory.
inline constexpr std::size_t LargestPatchedFile = std::size_t{16} << 20;

/// The format by the ending of a patch's file name, ".bps" or ".ips" in any case; empty for others.
std::optional<PatchFormat> PatchFormatOfName(std::string_view path);

/// The format by the first bytes of a patch; empty for others.
std::optional<PatchFormat> PatchFormatOfBytes(std::span<const std::uint8_t> patch);

/// The patch that turns `base` into `target`. Throws PatchError where the format can't hold it.
std::vector<std::uint8_t> MakePatch(PatchFormat format, std::span<const std::uint8_t> base,
                                    std::span<const std::uint8_t> target);

/// What `base` becomes by a patch in any of the formats. Throws PatchError for a patch in none of
/// them or a damaged one, and for a base that it isn't made for where the format can say so.
std::vector<std::uint8_t> ApplyPatch(std::span<const std::uint8_t> base,
                                     std::span<const std::uint8_t> patch);

/// Throws PatchError for a file above LargestPatchedFile.
void RequirePatchable(std::span<const std::uint8_t> file);

}  // namespace rostermill
