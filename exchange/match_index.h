#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace rostermill {

/// Finds places of a text that begin with the same bytes as another, through chains of the places
/// whose first bytes have the same hash. The text has at most 2 to the power of 31 bytes and
/// outlives the index.
class MatchIndex {
 public:
  /// Matches shorter than this aren't found.
  static constexpr std::size_t ShortestMatch = 4;

  explicit MatchIndex(std::span<const std::uint8_t> text)
      : text_(text),
        hash_bits_(std::clamp(static_cast<int>(std::bit_width(text.size())), 8, 18)),
        heads_(std::size_t{1} << hash_bits_, none),
        next_(text.size(), none) {}

  /// Makes a place known; one with fewer than ShortestMatch bytes left can't match.
  void Insert(std::size_t place) {
    if (text_.size() - place < ShortestMatch) return;
    std::int32_t& head = heads_[HashAt(text_, place)];
    next_[place] = head;
    head = static_cast<std::int32_t>(place);
  }

  /// Calls `each` with the places known that may match `other` from `at` on, the last one made
  /// known first, and no more than the few that keep the search short.
  template <typename Each>
  void ForEachCandidate(std::span<const std::uint8_t> other, std::size_t at, Each each) const {
    if (other.size() - at < ShortestMatch) return;
    std::int32_t place = heads_[HashAt(other, at)];
    for (int tries = 0; place != none && tries < most_tries; ++tries) {
      each(static_cast<std::size_t>(place));
      place = next_[static_cast<std::size_t>(place)];
    }
  }

 private:
  static constexpr std::int32_t none = -1;
  static constexpr int most_tries = 64;

  std::size_t HashAt(std::span<const std::uint8_t> bytes, std::size_t at) const {
    std::uint32_t word = 0;
    std::memcpy(&word, &bytes[at], sizeof word);
    constexpr std::uint32_t golden_ratio = 0x9E3779B1;
    return word * golden_ratio >> (32 - hash_bits_);
  }

  std::span<const std::uint8_t> text_;
  int hash_bits_;
  std::vector<std::int32_t> heads_;  ///< the last place of each hash
  std::vector<std::int32_t> next_;   ///< the place made known before, by place
};

}  // namespace rostermill
