#include "exchange/patch.h"

#include <algorithm>

#include "exchange/bps_patch.h"
#include "exchange/ips_patch.h"
#include "league/quantity_text.h"
#include "league/text.h"

namespace rostermill {

namespace {

bool BeginsWith(std::span<const std::uint8_t> bytes, std::string_view text) {
  return bytes.size() >= text.size() && std::equal(text.begin(), text.end(), bytes.begin());
}

}  // namespace

std::optional<PatchFormat> PatchFormatOfName(std::string_view path) {
  const std::string name = LowerText(path);
  if (name.ends_with(".bps")) return PatchFormat::Bps;
  if (name.ends_with(".ips")) return PatchFormat::Ips;
  return std::nullopt;
}

std::optional<PatchFormat> PatchFormatOfBytes(std::span<const std::uint8_t> patch) {
  if (BeginsWith(patch, BpsMagic)) return PatchFormat::Bps;
  if (BeginsWith(patch, IpsMagic)) return PatchFormat::Ips;
  return std::nullopt;
}

std::vector<std::uint8_t> MakePatch(PatchFormat format, std::span<const std::uint8_t> base,
                                    std::span<const std::uint8_t> target) {
  return format == PatchFormat::Bps ? MakeBpsPatch(base, target) : MakeIpsPatch(base, target);
}

std::vector<std::uint8_t> ApplyPatch(std::span<const std::uint8_t> base,
                                     std::span<const std::uint8_t> patch) {
  const auto format = PatchFormatOfBytes(patch);
  if (!format) throw PatchError("The patch is neither a BPS nor an IPS file.");
  return *format == PatchFormat::Bps ? ApplyBpsPatch(base, patch) : ApplyIpsPatch(base, patch);
}

void RequirePatchable(std::span<const std::uint8_t> file) {
  if (file.size() <= LargestPatchedFile) return;
  throw PatchError("A file of " + QuantityText(file.size(), "byte") +
                   " is too large to be patched; the limit is " +
                   QuantityText(LargestPatchedFile, "byte") + ".");
}

}  // namespace rostermill
