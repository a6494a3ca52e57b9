#include "league/quantity_text.h"

namespace rostermill {

std::string QuantityText(std::uint64_t count, std::string_view noun) {
  const std::string digits = std::to_string(count);
  std::string text;
  for (std::size_t at = 0; at < digits.size(); ++at) {
    if (at != 0 && (digits.size() - at) % 3 == 0) text += ',';
    text += digits[at];
  }
  text += " ";
  text += noun;
  if (count != 1) text += "s";
  return text;
}

}  // namespace rostermill
