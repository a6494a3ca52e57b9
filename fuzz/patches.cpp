// Any patch is applied or rejected, and any two files make patches that turn one into the other.

#include <algorithm>
#include <cstdlib>

#include "exchange/bps_format.h"
#include "exchange/patch.h"

namespace {

using namespace rostermill;
using Bytes = std::vector<std::uint8_t>;

void Require(bool holds) {
  if (!holds) std::abort();
}

void PutCrc(Bytes& patch, std::size_t from_end, std::uint32_t crc) {
  for (std::size_t byte = 0; byte < 4; ++byte) {
    patch[patch.size() - from_end + byte] = static_cast<std::uint8_t>(crc >> 8 * byte);
  }
}

/// Gives a BPS patch the checksums that a reader checks before it runs the actions.
void PutChecksums(Bytes& patch, const Bytes& base) {
  if (PatchFormatOfBytes(patch) != PatchFormat::Bps || patch.size() < 4 + BpsFooterSize) return;
  PutCrc(patch, 12, BpsCrc(base));
  PutCrc(patch, 4, BpsCrc(std::span(patch).first(patch.size() - 4)));
}

void Apply(const Bytes& base, const Bytes& patch) {
  try {
    Require(ApplyPatch(base, patch).size() <= LargestPatchedFile);
  } catch (const PatchError& error) {
    Require(*error.what() != '\0');
  }
}

void MakeAndApply(PatchFormat format, const Bytes& base, const Bytes& target) {
  const Bytes patch = MakePatch(format, base, target);
  Require(PatchFormatOfBytes(patch) == format);
  Require(ApplyPatch(base, patch) == target);
}

}  // namespace

/// The first two bytes are the length of the base, which follows. The rest is a target or a patch.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::size_t length = std::min(std::size_t{data[1]} << 8 | data[0], size - 2);
  const Bytes base(data + 2, data + 2 + length);
  Bytes other(data + 2 + length, data + size);
  MakeAndApply(PatchFormat::Bps, base, other);
  Apply(base, other);
  PutChecksums(other, base);
  Apply(base, other);
  other.resize(base.size());
  MakeAndApply(PatchFormat::Ips, base, other);
  return 0;
}
