#pragma once

#include "exchange/patch.h"

namespace rostermill {

/// IPS: "PATCH", records, "EOF". A record is an offset in 3 bytes, a length in 2 and as many bytes;
/// the length 0 makes it a run: a count in 2 bytes and the byte that is repeated. Numbers have
/// their high byte first. Three bytes after "EOF", if present, are the length to which the
/// file is cut. Nothing in a patch identifies the file it is made for.
inline constexpr std::string_view IpsMagic = "PATCH";

/// Throws PatchError for files of different lengths, since not every reader knows the cut, and for
/// files above LargestPatchedFile, where offsets end too. For a target with a header of this game's
/// images the header is always in the patch, so that it also fits an image with another header.
std::vector<std::uint8_t> MakeIpsPatch(std::span<const std::uint8_t> base,
                                       std::span<const std::uint8_t> target);

/// Throws PatchError for a patch that ends too early or holds something after its end, and for one
/// with a record or a cut outside `base`.
std::vector<std::uint8_t> ApplyIpsPatch(std::span<const std::uint8_t> base,
                                        std::span<const std::uint8_t> patch);

}  // namespace rostermill
