#include "league/text.h"

#include <algorithm>

namespace rostermill {

std::string UpperText(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), UpperChar);
  return result;
}

std::string LowerText(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), LowerChar);
  return result;
}

std::string PaddedText(std::string_view text, std::size_t length) {
  std::string result(text.substr(0, length));
  result.resize(length, ' ');
  return result;
}

std::string OneLine(std::string text) {
  for (std::size_t at = 0; (at = text.find("\n\n", at)) != std::string::npos;) {
    text.replace(at, 2, " ");
  }
  return text;
}

std::string HexByteText(int byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  return {digits[static_cast<std::size_t>(byte >> 4 & 0x0F)],
          digits[static_cast<std::size_t>(byte & 0x0F)]};
}

}  // namespace rostermill
