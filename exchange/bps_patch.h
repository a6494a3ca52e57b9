#pragma once

#include "exchange/patch.h"

namespace rostermill {

/// BPS: "BPS1", the lengths of source, target and metadata, the metadata, actions that put the
/// target together from its beginning, and the CRC-32 of source, target and all of the patch before
/// it, low byte first. Numbers are of variable length: 7 bits a byte, the lowest first, bit 7 on
/// the last byte, and each further byte counts from where the shorter numbers end.
inline constexpr std::string_view BpsMagic = "BPS1";

/// Throws PatchError for files above LargestPatchedFile. Metadata are empty. Bytes that have moved
/// within the file, or are repeated, take a few bytes of the patch.
std::vector<std::uint8_t> MakeBpsPatch(std::span<const std::uint8_t> base,
                                       std::span<const std::uint8_t> target);

/// Throws PatchError for a damaged patch, for a target above LargestPatchedFile, and for a base
/// that the patch isn't made for. The message for a base that already is the target says so.
std::vector<std::uint8_t> ApplyBpsPatch(std::span<const std::uint8_t> base,
                                        std::span<const std::uint8_t> patch);

}  // namespace rostermill
