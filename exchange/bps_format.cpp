#include "exchange/bps_format.h"

#include <zlib.h>

namespace rostermill {

std::uint32_t BpsCrc(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint32_t>(crc32_z(0, bytes.data(), bytes.size()));
}

}  // namespace rostermill
