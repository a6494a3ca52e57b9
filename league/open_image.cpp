#include "league/open_image.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace rostermill {

void OpenImage::ThrowOffsetOutside(int offset) {
  throw std::out_of_range("offset " + std::to_string(offset) + " outside the image");
}

std::string_view OpenImage::ReadTextAt(int first, int end) const {
  if (end <= first) return {};
  const std::size_t length = static_cast<std::size_t>(end - first);
  return {reinterpret_cast<const char*>(bytes_.data()) + Checked(first, length), length};
}

void OpenImage::WriteByteAt(int offset, int value) {
  bytes_[Checked(offset, 1)] = static_cast<std::uint8_t>(value);
}

void OpenImage::WriteWordAt(int offset, int value) {
  const std::size_t start = Checked(offset, 2);
  bytes_[start] = static_cast<std::uint8_t>(value);
  bytes_[start + 1] = static_cast<std::uint8_t>(value >> 8);
}

void OpenImage::WriteTextAt(int offset, std::string_view text) {
  const std::size_t start = Checked(offset, text.size());
  std::transform(text.begin(), text.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(start),
                 [](char c) { return static_cast<std::uint8_t>(c); });
}

void OpenImage::WriteBytesAt(int offset, std::span<const std::uint8_t> bytes) {
  const std::size_t start = Checked(offset, bytes.size());
  std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(start));
}

}  // namespace rostermill
