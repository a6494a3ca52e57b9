#include "exchange/bps_patch.h"

#include "exchange/bps_format.h"
#include "tests/exchange/patch_fixture.h"

namespace rostermill::test {
namespace {

/// Written by hand: metadata, all four actions, copies that go forth, back and into what they make,
/// and numbers of two bytes.
const Bytes hand_patch{0x42, 0x50, 0x53, 0x31, 0x93, 0x41, 0x81,                    // 19 to 321
                       0x84, 0x3C, 0x78, 0x2F, 0x3E,                                // "<x/>"
                       0x8C,                                                        // "the "
                       0x89, 0x6F, 0x64, 0x64,                                      // "odd"
                       0x96, 0x92,                                                  // " brown"
                       0x92, 0x97,                                                  // "quick"
                       0x2F, 0x88, 0x88,                                            // 300 from 4 on
                       0x8B, 0x61, 0x83,                                            // "the"
                       0xCA, 0x02, 0xC1, 0x91, 0x0D, 0x64, 0x71, 0x54, 0xAB, 0xF6,  //
                       0xE6, 0xAC};
const Bytes hand_source = BytesOf("the quick brown fox");

Bytes HandTarget() {
  std::string text = "the ";
  while (text.size() < 318) text += "odd brownquick";
  return BytesOf(text.substr(0, 318) + "the");
}

TEST(BpsPatch, OneWrittenByHandIsAppliedToItsSourceAlone) {
  EXPECT_EQ(ApplyBpsPatch(hand_source, hand_patch), HandTarget());
  EXPECT_EQ(PatchErrorOf([] { ApplyBpsPatch(HandTarget(), hand_patch); }),
            "The BPS patch has already been applied to this file.");
  EXPECT_EQ(PatchErrorOf([] { ApplyBpsPatch(BytesOf("the quick brown cat"), hand_patch); }),
            "The BPS patch is not for this file: it needs one of 19 bytes with the checksum "
            "91C102CA, and this one has 19 bytes with the checksum 003FA184.");
}

TEST(BpsPatch, AnyByteChangedOrMissingIsDamage) {
  for (std::size_t at = 0; at < hand_patch.size(); ++at) {
    Bytes patch = hand_patch;
    patch[at] ^= 0x10;
    const std::string changed = PatchErrorOf([&] { ApplyBpsPatch(hand_source, patch); });
    EXPECT_EQ(changed, at < 4 ? "The patch is not a BPS file."
                              : "The BPS patch is damaged: its checksum doesn't match its bytes.");
    patch.assign(hand_patch.begin(), hand_patch.begin() + static_cast<std::ptrdiff_t>(at));
    EXPECT_NE(PatchErrorOf([&] { ApplyBpsPatch(hand_source, patch); }), "") << at;
  }
  Bytes longer = hand_patch;
  longer.push_back(0);
  EXPECT_NE(PatchErrorOf([&] { ApplyBpsPatch(hand_source, longer); }), "");
}

/// The error of a patch from "ABCD" to "ABCD" whose own checksum is right.
std::string ErrorOfBody(const Bytes& sizes, const Bytes& actions, std::uint32_t target_crc) {
  const Bytes source = BytesOf("ABCD");
  Bytes patch = BytesOf("BPS1");
  patch.insert(patch.end(), sizes.begin(), sizes.end());
  patch.insert(patch.end(), actions.begin(), actions.end());
  const auto put = [&patch](std::uint32_t crc) {
    for (int shift = 0; shift < 32; shift += 8) {
      patch.push_back(static_cast<std::uint8_t>(crc >> shift));
    }
  };
  put(0xDB1720A5);
  put(target_crc);
  put(BpsCrc(patch));
  return PatchErrorOf([&] { ApplyBpsPatch(source, patch); });
}

TEST(BpsPatch, WhatLeadsOutsideOrDoesNotAddUpIsDamage) {
  const auto error_of = [](const Bytes& actions) {
    return ErrorOfBody({0x84, 0x84, 0x80}, actions, 0xDB1720A5);
  };
  const auto damaged = [](const std::string& why) {
    return "The BPS patch is damaged: " + why + ".";
  };
  ASSERT_EQ(error_of({0x8C}), "") << "the whole source";
  const std::string nowhere = damaged("it copies bytes that don't exist");
  for (const Bytes& actions : {
           Bytes{0x81, 'A', 0x86, 0x88},        // 2 bytes of the source from its end on
           Bytes{0x86, 0x86},                   // 2 from its last
           Bytes{0x86, 0x80, 0x86, 0x87},       // 2 from one before its beginning
           Bytes{0x8E, 0x8A},                   // from one past its end
           Bytes{0x83, 0x80},                   // of a target that has nothing yet
           Bytes{0x81, 'A', 0x83, 0x82},        // from its end
           Bytes{0x81, 'A', 0x83, 0x83},        // from one before its beginning
           Bytes{0x81, 'A', 0x83, 0x00, 0xFE},  // from far past its end
       }) {
    EXPECT_EQ(error_of(actions), nowhere) << testing::PrintToString(actions);
  }
  EXPECT_EQ(ErrorOfBody({0x84, 0x85, 0x80}, {0x90}, 0), nowhere) << "the source is shorter";
  EXPECT_EQ(error_of({0x90}), damaged("it produces more bytes than it declares"));
  EXPECT_EQ(error_of({0x8C, 0x80}), damaged("it produces more bytes than it declares"));
  EXPECT_EQ(error_of({0x88}), damaged("it produces fewer bytes than it declares"));
  EXPECT_EQ(error_of({}), damaged("it produces fewer bytes than it declares"));
  EXPECT_EQ(error_of({0x8D, 'A', 'B', 'C'}), damaged("it is cut short"));
  EXPECT_EQ(error_of({0x8E}), damaged("it is cut short"));
  EXPECT_EQ(error_of(Bytes(40, 0x7F)), damaged("a number in it is too long"));
  EXPECT_EQ(error_of({0x8D, 'A', 'B', 'C', 'E'}), damaged("its result doesn't match its checksum"));
  EXPECT_EQ(ErrorOfBody({0x84, 0x84, 0x81}, {}, 0), damaged("it is cut short")) << "metadata";
  EXPECT_EQ(ErrorOfBody({0x84}, {}, 0), damaged("it is cut short"));
}

TEST(BpsPatch, ATargetAboveTheLimitTakesNoMemory) {
  // 2 to the power of 45 bytes, and one byte above 16 MiB.
  EXPECT_EQ(
      ErrorOfBody({0x84, 0x00, 0x7F, 0x7E, 0x7E, 0x7E, 0x7E, 0x86, 0x80}, {0x8C}, 0),
      "The BPS patch would produce a file of 35,184,372,088,832 bytes; the limit is 16,777,216 "
      "bytes.");
  EXPECT_EQ(
      ErrorOfBody({0x84, 0x01, 0x7F, 0x7E, 0x86, 0x80}, {0x8C}, 0),
      "The BPS patch would produce a file of 16,777,217 bytes; the limit is 16,777,216 bytes.");
  EXPECT_EQ(ErrorOfBody({0x84, 0x00, 0x7F, 0x7E, 0x86, 0x80}, {0x8C}, 0),
            "The BPS patch is damaged: it produces fewer bytes than it declares.");
}

TEST(BpsPatch, TheBytesOfASmallPatchAreAsPublished) {
  EXPECT_EQ(MakeBpsPatch(BytesOf("ABCD"), BytesOf("ABCD")),
            (Bytes{'B',  'P',  'S',  '1',  0x84, 0x84, 0x80, 0x8C, 0xA5, 0x20,
                   0x17, 0xDB, 0xA5, 0x20, 0x17, 0xDB, 0xC8, 0xC2, 0x78, 0x13}));
  // The target is the source's end: one copy, of two bytes, between 7 and 12 bytes of frame.
  EXPECT_EQ(MakeBpsPatch(BytesOf("ABCDwxyz"), BytesOf("wxyz")).size(), 21u);
  EXPECT_EQ(MakeBpsPatch({}, {}), (Bytes{'B', 'P', 'S', '1', 0x80, 0x80, 0x80, 0, 0, 0, 0, 0, 0, 0,
                                         0, 0x93, 0x1F, 0xD8, 0x5E}));
}

}  // namespace
}  // namespace rostermill::test
