#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "league/open_image.h"

namespace rostermill::fuzz {

struct Section {
  std::size_t first;
  std::size_t size;
};

/// The sections that a load reads, pointers first.
inline constexpr std::array Sections{
    Section{0x329A7, 52},  Section{0x1FC50, 176},  Section{0x21642, 2},    Section{0x21FE0, 28},
    Section{0x239D3, 28},  Section{0x1FD00, 120},  Section{0x00048, 1682}, Section{0x006DA, 10'550},
    Section{0x1FD7C, 660}, Section{0x03010, 3276}, Section{0x0C129, 4},    Section{0x0E1FA, 13},
    Section{0x1D310, 112}, Section{0x2C2E4, 306},  Section{0x32853, 120},  Section{0x329DB, 476},
    Section{0x343E8, 140}, Section{0x34494, 112}};

/// Makes an image from a fuzzer's input. One that is long enough is the image itself; a shorter one
/// is copied to the sections in order and repeated over the rest, so that a few bytes reach far.
/// The header is valid in either case.
inline std::vector<std::uint8_t> ImageOf(std::span<const std::uint8_t> input) {
  constexpr std::array<std::uint8_t, 16> header{'N', 'E', 'S', 0x1A, 0x10, 0x10, 0x40};
  std::vector<std::uint8_t> image(OpenImage::WholeSize);
  if (input.size() >= image.size()) {
    std::copy_n(input.begin(), image.size(), image.begin());
  } else if (!input.empty()) {
    for (std::size_t at = 0; at < image.size(); at += input.size()) {
      const auto piece = input.first(std::min(input.size(), image.size() - at));
      std::copy(piece.begin(), piece.end(), image.begin() + static_cast<std::ptrdiff_t>(at));
    }
    auto rest = input;
    for (const Section& section : Sections) {
      const auto piece = rest.first(std::min(section.size, rest.size()));
      std::copy(piece.begin(), piece.end(),
                image.begin() + static_cast<std::ptrdiff_t>(section.first));
      rest = rest.subspan(piece.size());
    }
  }
  std::copy(header.begin(), header.end(), image.begin());
  return image;
}

}  // namespace rostermill::fuzz
