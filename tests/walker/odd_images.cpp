#include "tests/walker/odd_images.h"

#include <algorithm>
#include <array>

#include "tests/support/sample.h"

namespace rostermill::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

int Below(std::mt19937& random, int end) {
  return static_cast<int>(random() % static_cast<unsigned>(end));
}

std::uint8_t AnyByte(std::mt19937& random) {
  return static_cast<std::uint8_t>(random());
}

/// Overwrites some of the bytes that a load reads.
void Damage(Bytes& image, std::mt19937& random) {
  struct Section {
    int first;
    int size;
  };
  constexpr std::array sections{
      Section{0x00048, 1682}, Section{0x006DA, 10'550}, Section{0x03010, 3276},
      Section{0x1FC50, 176},  Section{0x1FD00, 780},    Section{0x21642, 2},
      Section{0x21FE0, 28},   Section{0x239D3, 28},     Section{0x1D310, 112},
      Section{0x2C2E4, 306},  Section{0x32853, 120},    Section{0x329A7, 528},
      Section{0x0C129, 4},    Section{0x0E1FA, 13}};
  const int hits = 1 + Below(random, 40);
  for (int hit = 0; hit < hits; ++hit) {
    const Section& section = sections[static_cast<std::size_t>(Below(random, sections.size()))];
    image[static_cast<std::size_t>(section.first + Below(random, section.size))] = AnyByte(random);
  }
}

}  // namespace

Bytes OddImage(std::mt19937& random) {
  Bytes image = SampleBytes();
  switch (Below(random, 10)) {
    case 0:
      std::generate(image.begin() + 16, image.end(), [&] { return AnyByte(random); });
      break;
    case 1:
      image.resize(static_cast<std::size_t>(Below(random, 400'000)), 0x41);
      break;
    case 2:
      image[static_cast<std::size_t>(Below(random, 16))] ^= 0x11;
      break;
    case 3:
    case 4:
    case 5:
    case 6:
      Damage(image, random);
      break;
    default:
      break;
  }
  return image;
}

}  // namespace rostermill::test
