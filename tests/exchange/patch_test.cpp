#include "exchange/patch.h"

#include <algorithm>
#include <array>
#include <random>

#include "tests/exchange/patch_fixture.h"
#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

using Random = std::mt19937;

TEST(Patch, TheFormatIsThatOfTheNameOrOfTheFirstBytes) {
  EXPECT_EQ(PatchFormatOfName("/a/year.ips/new.bps"), PatchFormat::Bps);
  EXPECT_EQ(PatchFormatOfName("NEW.IPS"), PatchFormat::Ips);
  for (const char* name : {"new.ipsx", "bps", "", "ips.", "new.bps/"}) {
    EXPECT_EQ(PatchFormatOfName(name), std::nullopt) << name;
  }
  EXPECT_EQ(PatchFormatOfBytes(BytesOf("BPS1")), PatchFormat::Bps);
  EXPECT_EQ(PatchFormatOfBytes(BytesOf("PATCHEOF")), PatchFormat::Ips);
  for (const char* bytes : {"", "BPS", "BPS2", "PATC", "NES\x1A"}) {
    EXPECT_EQ(PatchFormatOfBytes(BytesOf(bytes)), std::nullopt) << bytes;
  }
  EXPECT_EQ(PatchErrorOf([] { ApplyPatch(BytesOf("a"), BytesOf("UPS1")); }),
            "The patch is neither a BPS nor an IPS file.");
}

std::size_t Below(Random& random, std::size_t limit) {
  return limit == 0 ? 0 : random() % limit;
}

Bytes RandomBytes(Random& random, std::size_t size, unsigned kinds) {
  Bytes bytes(size);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() % kinds);
  return bytes;
}

/// Changes one place: a byte, a run, neighbors a few bytes apart or, for `any_length`, one that
/// moves, repeats, inserts or removes a piece.
void Edit(Random& random, Bytes& bytes, bool any_length) {
  const auto at = static_cast<std::ptrdiff_t>(Below(random, bytes.size()));
  const auto size = static_cast<std::ptrdiff_t>(
      Below(random, std::min<std::size_t>(bytes.size() - static_cast<std::size_t>(at), 60)));
  const auto first = bytes.begin() + at;
  const Bytes piece(first, first + size);
  const auto to = static_cast<std::ptrdiff_t>(Below(random, bytes.size() - piece.size() + 1));
  switch (random() % (any_length ? 6 : 3)) {
    case 0:
      if (!bytes.empty()) *first ^= static_cast<std::uint8_t>(1 + random() % 255);
      return;
    case 1:
      std::fill_n(first, size, static_cast<std::uint8_t>(random()));
      return;
    case 2:
      for (std::ptrdiff_t place = 0; place < size; place += 1 + static_cast<int>(random() % 8)) {
        first[place] ^= 0xFF;
      }
      return;
    case 3:
      bytes.erase(first, first + size);
      return;
    case 4:
      bytes.insert(bytes.begin() + to, piece.begin(), piece.end());
      return;
    default: {
      const Bytes fresh = RandomBytes(random, piece.size(), 256);
      bytes.insert(first, fresh.begin(), fresh.end());
    }
  }
}

TEST(Patch, MadeAndAppliedAnyChangeComesOutByteForByte) {
  for (unsigned seed = 1; seed <= 4000; ++seed) {
    Random random(seed);
    const bool bps = seed % 2 == 0;
    // Few kinds of bytes make runs and repetitions.
    const Bytes base = RandomBytes(random, Below(random, 800), seed % 3 == 0 ? 2 : 256);
    Bytes target = base;
    for (auto edits = random() % 6; edits > 0; --edits) Edit(random, target, bps);
    const Bytes patch = MakePatch(bps ? PatchFormat::Bps : PatchFormat::Ips, base, target);
    ASSERT_EQ(ApplyPatch(base, patch), target) << "seed " << seed;
    ASSERT_LE(patch.size(), target.size() + 40) << "seed " << seed;
  }
}

TEST(Patch, LargeFilesAreRefusedByAllOfIt) {
  const Bytes large(LargestPatchedFile + 1);
  const std::string message =
      "A file of 16,777,217 bytes is too large to be patched; the limit is 16,777,216 bytes.";
  for (const PatchFormat format : {PatchFormat::Bps, PatchFormat::Ips}) {
    EXPECT_EQ(PatchErrorOf([&] { MakePatch(format, large, {}); }), message);
    EXPECT_EQ(PatchErrorOf([&] { MakePatch(format, {}, large); }), message);
    const Bytes patch = MakePatch(format, {}, {});
    EXPECT_EQ(PatchErrorOf([&] { ApplyPatch(large, patch); }), message);
  }
}

TEST(Patch, EmptyWholeNewAndLongerFiles) {
  Random random(1);
  Bytes image = SampleBytes();
  image.resize(60'000);
  Bytes with_tail = image;
  with_tail.insert(with_tail.end(), 1000, 0x55);
  const Bytes zeros(image.size());
  const std::array files{Bytes{}, image, with_tail, zeros, RandomBytes(random, image.size(), 256)};
  for (const Bytes& base : files) {
    for (const Bytes& target : files) {
      EXPECT_TRUE(ApplyPatch(base, MakePatch(PatchFormat::Bps, base, target)) == target);
      if (base.size() != target.size()) continue;
      EXPECT_TRUE(ApplyPatch(base, MakePatch(PatchFormat::Ips, base, target)) == target);
    }
  }
  EXPECT_LE(MakePatch(PatchFormat::Bps, image, zeros).size(), 40u) << "one run";
  EXPECT_LE(MakePatch(PatchFormat::Bps, image, with_tail).size(), 40u);
}

TEST(Patch, WhatAnEditorChangesStaysSmall) {
  const LeagueData league = SampleLeague();
  const Bytes base = SavedBytes(league);
  const auto size_of = [&](PatchFormat format, auto change) {
    LeagueData changed = league;
    change(changed);
    const Bytes target = SavedBytes(changed);
    const Bytes patch = MakePatch(format, base, target);
    EXPECT_TRUE(ApplyPatch(base, patch) == target);
    return patch.size();
  };
  const auto numbers = [](LeagueData& changed) {
    for (int team = 1; team <= TeamCount; ++team) changed.NameData[team][team].JerseyNumber = "98";
  };
  EXPECT_LE(size_of(PatchFormat::Bps, numbers), 200u);
  EXPECT_LE(size_of(PatchFormat::Ips, numbers), 260u);
  // The first name's letter moves 839 names, 10,000 bytes; their pointers change all.
  const auto longer_name = [](LeagueData& changed) { changed.NameData[1][1].LastName += 'X'; };
  EXPECT_LE(size_of(PatchFormat::Bps, longer_name), 1'800u);
  const auto trade = [](LeagueData& changed) {
    std::swap(changed.NameData[3], changed.NameData[17]);
  };
  EXPECT_LE(size_of(PatchFormat::Bps, trade), 1'100u);
}

TEST(Patch, TheLongestOfSeveralMatchesIsCopied) {
  Random random(2);
  const Bytes target = RandomBytes(random, 200, 256);
  Bytes base;
  for (int place = 0; place < 9; ++place)
    base.insert(base.end(), target.begin(), target.begin() + 9);
  base.insert(base.end(), target.begin(), target.end());
  EXPECT_EQ(MakePatch(PatchFormat::Bps, base, target).size(), 25u);
}

TEST(Patch, ManyEditsOfWhatHasMovedStaySmallAmidLookAlikes) {
  Random random(1);
  const Bytes base = RandomBytes(random, 20'000, 2);
  Bytes target = base;
  for (int edit = 0; edit < 100; ++edit) target[Below(random, target.size())] = 0xFF;
  target.insert(target.begin(), 7);
  // Six bytes an edit; by the look of the bytes alone it would be 40.
  EXPECT_LE(MakePatch(PatchFormat::Bps, base, target).size(), 650u);
}

}  // namespace
}  // namespace rostermill::test
