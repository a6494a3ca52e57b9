// Writes the sample league as a whole image that has never been saved, with a program that shows
// it. The bytes outside its sections and the program are noise, so that a stray write is noticed.

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "league/file_access.h"
#include "league/open_image.h"
#include "league/save_image.h"
#include "tools/make_sample_image/sample_league.h"

namespace rostermill {

namespace {

std::vector<std::uint8_t> Noise() {
  constexpr std::array<std::uint8_t, 16> header{'N', 'E', 'S', 0x1A, 0x10, 0x10, 0x40};
  NumberStream numbers(0x5EED);
  std::vector<std::uint8_t> bytes(OpenImage::WholeSize);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(numbers.Next());
  std::copy(header.begin(), header.end(), bytes.begin());
  return bytes;
}

/// What a save adds to a stock image: both pieces of formation code, their tables, and fillers.
struct Addition {
  int offset;
  int size;
};
constexpr std::array<Addition, 6> additions{
    {{0x21642, 10}, {0x30FF8, 18}, {0x21FE0, 28}, {0x31E80, 28}, {0x3CDC, 1}, {0x329DA, 1}}};

void MakeStock(OpenImage& image, const std::vector<std::uint8_t>& noise) {
  for (const auto& [offset, size] : additions) {
    image.WriteBytesAt(offset, std::span(noise).subspan(static_cast<std::size_t>(offset),
                                                        static_cast<std::size_t>(size)));
  }
  constexpr int formation_mark = 0x21642;
  constexpr int stock_mark = 0x02A0;
  image.WriteWordAt(formation_mark, stock_mark);
}

/// The pieces of the program, which the linker has named; tools/sample_cartridge/cartridge.cfg has
/// their addresses.
struct Piece {
  std::string_view suffix;
  int offset;
};
constexpr std::array<Piece, 7> pieces{{{"", 0x3E010},
                                       {".vectors", 0x4000A},
                                       {".tiles", 0x5E010},
                                       {".exit_a", 0x21660},
                                       {".exit_b0", 0x3100E},
                                       {".exit_b1", 0x31014},
                                       {".exit_b2", 0x3101A}}};

void AddProgram(OpenImage& image, const std::string& cartridge) {
  for (const auto& [suffix, offset] : pieces) {
    const auto piece = ReadFileStart(cartridge + std::string(suffix), OpenImage::WholeSize);
    image.WriteBytesAt(offset, piece.Bytes);
  }
}

void MakeSampleImage(const std::string& path, const std::string& cartridge) {
  const LeagueData league = BuildSampleLeague();
  if (const auto overflow = TextOverflow(league)) throw std::length_error(*overflow);
  const std::vector<std::uint8_t> noise = Noise();
  OpenImage image(noise);
  WriteLeague(image, league, [] {});
  MakeStock(image, noise);
  AddProgram(image, cartridge);
  ReplaceFile(path, image.Bytes());
}

}  // namespace

}  // namespace rostermill

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: make_sample_image FILE CARTRIDGE\n", stderr);
    return 2;
  }
  try {
    rostermill::MakeSampleImage(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_sample_image: %s: %s\n", argv[1], error.what());
    return 1;
  }
  return 0;
}
