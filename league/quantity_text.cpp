#include "league/quantity_text.h"

namespace rostermill {

std::string QuantityText(std::uint64_t count, std::string_view noun) {
  std::string text = std::to_string(count);
  for (int at = static_cast<int>(text.size()) - 3; at > 0; at -= 3) {
    text.insert(static_cast<std::size_t>(at), ",");
  }
  text += " ";
  text += noun;
  if (count != 1) text += "s";
  return text;
}

}  // namespace rostermill
