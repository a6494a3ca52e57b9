#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace rostermill {

/// A count and its noun for a message: "1 byte", "393,232 bytes".
std::string QuantityText(std::uint64_t count, std::string_view noun);

}  // namespace rostermill
