#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace rostermill {

/// The bytes of a cartridge image during a load or a save. Offsets count from the first byte of the
/// file, including its 16-byte header; words are little-endian. Every access is checked: one
/// outside the image throws std::out_of_range and changes nothing.
class OpenImage {
 public:
  /// Length of a whole image: 16 + 16 x 16384 + 16 x 8192.
  static constexpr std::size_t WholeSize = 393'232;

  explicit OpenImage(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

  /// Each read leaves the position just after what it read. An offset below 1 means the current
  /// position, so offset 0 cannot be read this way.
  std::uint16_t ReadWordAt(int offset);
  std::uint8_t ReadByteAt(int offset);
  /// The bytes from `first` up to, not including, `end` as text, one character a byte. A view into
  /// the image, good until the next write.
  std::string_view ReadTextAt(int first, int end) const;

  /// Each write takes the low bits of its value. Positions of reads and writes are not shared.
  void WriteByteAt(int offset, int value);
  void WriteWordAt(int offset, int value);
  void WriteTextAt(int offset, std::string_view text);
  void WriteBytesAt(int offset, std::span<const std::uint8_t> bytes);

  std::span<const std::uint8_t> Bytes() const { return bytes_; }

 private:
  [[noreturn]] static void ThrowOffsetOutside(int offset);
  std::size_t Checked(int offset, std::size_t length) const;

  std::vector<std::uint8_t> bytes_;
  int position_ = 0;
};

// A load makes 5,000 single reads.

inline std::size_t OpenImage::Checked(int offset, std::size_t length) const {
  const auto start = static_cast<std::size_t>(offset);
  if (offset < 0 || start > bytes_.size() || length > bytes_.size() - start) {
    ThrowOffsetOutside(offset);
  }
  return start;
}

inline std::uint8_t OpenImage::ReadByteAt(int offset) {
  const int from = offset < 1 ? position_ : offset;
  const std::uint8_t byte = bytes_[Checked(from, 1)];
  position_ = from + 1;
  return byte;
}

inline std::uint16_t OpenImage::ReadWordAt(int offset) {
  const int from = offset < 1 ? position_ : offset;
  const std::size_t start = Checked(from, 2);
  position_ = from + 2;
  return static_cast<std::uint16_t>(bytes_[start] | bytes_[start + 1] << 8);
}

constexpr int HighNibble(int byte) {
  return byte >> 4 & 0x0F;
}
constexpr int LowNibble(int byte) {
  return byte & 0x0F;
}
constexpr int PackNibbles(int high, int low) {
  return (high & 0x0F) << 4 | (low & 0x0F);
}

}  // namespace rostermill
