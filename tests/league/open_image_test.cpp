#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "tests/league/image_bytes.h"

namespace rostermill::test {
namespace {

TEST(OpenImage, AccessesReachTheLastByteAndNoFurther) {
  const Bytes three{7, 8, 9};
  const auto after = [&](const std::function<void(OpenImage&)>& access) {
    OpenImage image(three);
    access(image);
    return BytesOf(image);
  };
  EXPECT_EQ(after([](OpenImage& image) { image.WriteByteAt(2, 0x1FF); }), (Bytes{7, 8, 0xFF}));
  EXPECT_EQ(after([](OpenImage& image) { image.WriteWordAt(1, 0x0304); }), (Bytes{7, 4, 3}));
  EXPECT_EQ(after([](OpenImage& image) { image.WriteTextAt(1, "ab"); }), (Bytes{7, 'a', 'b'}));
  EXPECT_EQ(after([](OpenImage& image) {
              image.WriteBytesAt(0, Bytes{1, 2, 3});
            }),
            (Bytes{1, 2, 3}));
  OpenImage image(three);
  EXPECT_EQ(image.ReadByteAt(2), 9);
  EXPECT_EQ(image.ReadWordAt(1), 0x0908);
  EXPECT_EQ(image.ReadTextAt(0, 3), "\x07\x08\x09");
  EXPECT_THROW(image.ReadByteAt(0), std::out_of_range) << "from where the last read ended";
  EXPECT_THROW(image.ReadWordAt(2), std::out_of_range);
  EXPECT_THROW(image.ReadTextAt(1, 4), std::out_of_range);
  EXPECT_THROW(image.WriteByteAt(3, 0), std::out_of_range);
  EXPECT_THROW(image.WriteByteAt(-1, 0), std::out_of_range);
  EXPECT_THROW(image.WriteWordAt(2, 0), std::out_of_range);
  EXPECT_THROW(image.WriteTextAt(2, "ab"), std::out_of_range);
  EXPECT_THROW(image.WriteBytesAt(1, three), std::out_of_range);
  EXPECT_EQ(BytesOf(image), three);
}

}  // namespace
}  // namespace rostermill::test
