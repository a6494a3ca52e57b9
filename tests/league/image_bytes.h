#pragma once

#include <algorithm>
#include <string>

#include "league/save_image.h"
#include "tests/support/damage.h"

namespace rostermill::test {

using Bytes = std::vector<std::uint8_t>;

inline Bytes BytesOf(const OpenImage& image) {
  return {image.Bytes().begin(), image.Bytes().end()};
}

inline Bytes BytesAt(const Bytes& bytes, int offset, int length) {
  return {bytes.begin() + offset, bytes.begin() + offset + length};
}

inline std::string TextAt(const Bytes& bytes, int offset, int length) {
  return {bytes.begin() + offset, bytes.begin() + offset + length};
}

inline int WordAt(const Bytes& bytes, int offset) {
  return bytes.at(static_cast<std::size_t>(offset)) | bytes.at(static_cast<std::size_t>(offset + 1))
                                                          << 8;
}

template <typename Values>
void Put(Bytes& bytes, int offset, const Values& values) {
  std::copy(std::begin(values), std::end(values), bytes.begin() + offset);
}

inline void PutWord(Bytes& bytes, int offset, int value) {
  Put(bytes, offset,
      Bytes{static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8)});
}

}  // namespace rostermill::test
