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

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string PaddedText(std::string_view text, std::size_t length) {
  std::string result(text.substr(0, length));
  result.resize(length, ' ');
  return result;
}

std::string_view TrimmedText(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return text.starts_with(mark) ? text.substr(mark.size()) : text;
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
