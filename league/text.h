#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace rostermill {

/// Text of the cartridge has one byte per character (Latin-1). Only the case of ASCII letters is
/// changed, so that no other byte ever does.
constexpr char UpperChar(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
constexpr char LowerChar(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string UpperText(std::string_view text);
std::string LowerText(std::string_view text);

/// Whether every character is ASCII; the text then has the same bytes in Latin-1 and UTF-8.
bool IsAscii(std::string_view text);

/// `text` cut to `length` characters, or padded to it with blanks on the right.
std::string PaddedText(std::string_view text, std::size_t length);

/// The text without blanks and tabs at its ends.
std::string_view TrimmedText(std::string_view text);

/// The text of a file without the mark that some programs put at the start of UTF-8.
std::string_view WithoutByteOrderMark(std::string_view text);

/// The text with its paragraphs joined by blanks.
std::string OneLine(std::string text);

/// "00" to "FF": the low 8 bits as two upper-case hexadecimal digits.
std::string HexByteText(int byte);

/// A text of exactly N characters: a shorter one is padded with blanks on the right, a longer one
/// is cut.
template <std::size_t N>
class FixedText {
 public:
  FixedText() : text_(N, ' ') {}
  FixedText& operator=(std::string_view text) {
    text_ = PaddedText(text, N);
    return *this;
  }
  const std::string& str() const { return text_; }
  bool operator==(const FixedText&) const = default;

 private:
  std::string text_;
};

}  // namespace rostermill
