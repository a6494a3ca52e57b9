#include "exchange/ips_patch.h"

#include <algorithm>

#include "tests/exchange/patch_fixture.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

constexpr std::size_t eof_offset = 0x454F46;

Bytes Patch(std::initializer_list<int> body) {
  Bytes patch = BytesOf("PATCH");
  for (const int byte : body) patch.push_back(static_cast<std::uint8_t>(byte));
  return patch;
}

std::string ErrorOf(const Bytes& patch) {
  return PatchErrorOf([&] { ApplyIpsPatch(BytesOf("0123456789"), patch); });
}

TEST(IpsPatch, OneWrittenByHandIsAppliedRight) {
  const Bytes patch = Patch({0,   0,   8,  0, 2, 'y', 'z',       // to the end
                             0,   0,   1,  0, 0, 0,   4,   'r',  // a run
                             0,   0,   4,  0, 1, 'w',            // over a part of it
                             0,   0,   7,  0, 0, 0,   0,   '?',  // a run of no length
                             'E', 'O', 'F'});
  EXPECT_EQ(ApplyIpsPatch(BytesOf("0123456789"), patch), BytesOf("0rrrw567yz"));
  EXPECT_EQ(ApplyIpsPatch(BytesOf("0123456789"), Patch({'E', 'O', 'F', 0, 0, 4})), BytesOf("0123"));
  EXPECT_EQ(ApplyIpsPatch({}, Patch({'E', 'O', 'F'})), Bytes());
}

TEST(IpsPatch, WhatIsDamagedOrLeadsOutsideIsRefused) {
  const std::string cut = "The IPS patch is cut short.";
  const Bytes whole = Patch({0, 0, 1, 0, 2, 'a', 'b', 0, 0, 4, 0, 0, 0, 2, 'c', 'E', 'O', 'F'});
  ASSERT_EQ(ErrorOf(whole), "");
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(ErrorOf({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)}),
              size < 5 ? "The patch is not an IPS file." : cut);
  }
  EXPECT_NE(ErrorOf(Patch({0, 0, 1, 0, 0, 0xFF, 0xFF, 'a', 'E', 'O', 'F'})), "");
  EXPECT_NE(ErrorOf(Patch({0xFF, 0xFF, 0xFF, 0, 1, 'a', 'E', 'O', 'F'})), "");
  EXPECT_EQ(ErrorOf(Patch({'E', 'O', 'F', 0})),
            "The IPS patch is damaged: it goes on for 1 byte after its end.");
  EXPECT_NE(ErrorOf(Patch({'E', 'O', 'F', 0, 0, 4, 0})), "");
  for (const Bytes& outside :
       {Patch({0, 0, 9, 0, 2, 'a', 'b', 'E', 'O', 'F'}), Patch({'E', 'O', 'F', 0, 0, 11})}) {
    EXPECT_EQ(ErrorOf(outside),
              "The IPS patch is not for this file: it needs one of at least 11 bytes, and this "
              "one has 10 bytes.");
  }
  EXPECT_EQ(PatchErrorOf([] { MakeIpsPatch(BytesOf("a"), BytesOf("ab")); }),
            "An IPS patch can't change the length of a file: one has 1 byte, the other 2 bytes. "
            "Use a name ending in .bps instead.");
}

TEST(IpsPatch, RecordsAndRunsAreAsShortAsTheyGet) {
  const auto patch_of = [](std::string_view target) {
    return MakeIpsPatch(Bytes(target.size(), '.'), BytesOf(target));
  };
  EXPECT_EQ(patch_of("..."), Patch({'E', 'O', 'F'}));
  EXPECT_EQ(patch_of(".a.....b"), Patch({0, 0, 1, 0, 7, 'a', '.', '.', '.', '.', '.', 'b',  //
                                         'E', 'O', 'F'}))
      << "one record is no longer than two";
  EXPECT_EQ(patch_of(".a......b"), Patch({0, 0, 1, 0, 1, 'a', 0, 0, 8, 0, 1, 'b', 'E', 'O', 'F'}));
  EXPECT_EQ(patch_of(".aaaa"), Patch({0, 0, 1, 0, 0, 0, 4, 'a', 'E', 'O', 'F'}));
  EXPECT_EQ(patch_of("aaa"), Patch({0, 0, 0, 0, 3, 'a', 'a', 'a', 'E', 'O', 'F'}));
  EXPECT_EQ(patch_of("xyaaaaaaaaa"),
            Patch({0, 0, 0, 0, 2, 'x', 'y', 0, 0, 2, 0, 0, 0, 9, 'a', 'E', 'O', 'F'}));
  EXPECT_EQ(patch_of("aaaaaaaaaxy"),
            Patch({0, 0, 0, 0, 0, 0, 9, 'a', 0, 0, 9, 0, 2, 'x', 'y', 'E', 'O', 'F'}));
}

TEST(IpsPatch, LongChangesTakeSeveralRecords) {
  const Bytes base(140'000, 0);
  const Bytes run = MakeIpsPatch(base, Bytes(140'000, 7));
  EXPECT_EQ(run, Patch({0x00, 0x00, 0x00, 0, 0, 0xFF, 0xFF, 7,  //
                        0x00, 0xFF, 0xFF, 0, 0, 0xFF, 0xFF, 7,  //
                        0x01, 0xFF, 0xFE, 0, 0, 0x22, 0xE2, 7,  //
                        'E',  'O',  'F'}));
  Bytes plain;
  while (plain.size() < 140'000) plain.push_back(static_cast<std::uint8_t>(1 + plain.size() % 9));
  const Bytes patch = MakeIpsPatch(base, plain);
  EXPECT_EQ(patch.size(), 5 + 3 * 5 + 140'000 + 3);
  EXPECT_EQ(ApplyIpsPatch(base, patch), plain);
}

TEST(IpsPatch, TheHeaderOfAnImageIsAlwaysInIt) {
  const Bytes image = SampleBytes();
  Bytes changed = image;
  changed[100] ^= 1;
  EXPECT_EQ(MakeIpsPatch(image, image),
            Patch({0,   0,   0,  0, 7, 'N', 'E', 'S', 0x1A, 0x10, 0x10, 0x40,  //
                   0,   0,   7,  0, 0, 0,   9,   0,                            //
                   'E', 'O', 'F'}));
  Bytes other = image;
  std::fill_n(other.begin(), 16, std::uint8_t{0xEE});
  EXPECT_EQ(ApplyIpsPatch(other, MakeIpsPatch(image, changed)), changed);
}

/// The offset and length of each record.
using Records = std::vector<std::pair<std::size_t, std::size_t>>;
Records RecordsOf(const Bytes& patch) {
  Records records;
  for (std::size_t at = 5; at + 3 < patch.size();) {
    const std::size_t offset =
        std::size_t{patch[at]} << 16 | std::size_t{patch[at + 1]} << 8 | patch[at + 2];
    const std::size_t size = std::size_t{patch[at + 3]} << 8 | patch[at + 4];
    const std::size_t run = size == 0 ? std::size_t{patch[at + 5]} << 8 | patch[at + 6] : size;
    records.emplace_back(offset, run);
    at += 5 + (size == 0 ? 3 : size);
  }
  return records;
}

TEST(IpsPatch, NoRecordBeginsWhereItsOffsetReadsAsTheEnd) {
  const Bytes base(eof_offset + 70'000, '.');
  const auto check = [&](std::size_t first, std::string_view text) {
    Bytes target = base;
    std::copy(text.begin(), text.end(), target.begin() + static_cast<std::ptrdiff_t>(first));
    const Bytes patch = MakeIpsPatch(base, target);
    for (const auto& [offset, length] : RecordsOf(patch)) {
      EXPECT_NE(offset, eof_offset);
      EXPECT_GT(length, 0u);
    }
    EXPECT_TRUE(ApplyIpsPatch(base, patch) == target) << first << " " << text.substr(0, 30);
    return RecordsOf(patch);
  };
  const std::string run(20, 'r');
  std::string mixed;
  while (mixed.size() < 66'000) mixed += "mixture";
  EXPECT_EQ(check(eof_offset, "x"), (Records{{eof_offset - 1, 2}})) << "a byte earlier";
  EXPECT_EQ(check(eof_offset - 1, "xy"), (Records{{eof_offset - 1, 2}}));
  EXPECT_EQ(check(eof_offset + 1, "x"), (Records{{eof_offset + 1, 1}}));
  for (const std::size_t before : {0u, 1u, 2u, 8u, 9u, 13u, 14u, 19u, 20u}) {
    check(eof_offset - before, run);
    check(eof_offset - before, mixed.substr(0, before) + run);
    check(eof_offset - before, std::string(before, 'r') + mixed.substr(0, 30));
  }
  // A record of full length would end there.
  check(eof_offset - 65'535, mixed);
  check(eof_offset - 65'535, std::string(66'000, 'r'));
  check(eof_offset - 65'535, std::string(65'535, 'r') + "x");
}

}  // namespace
}  // namespace rostermill::test
