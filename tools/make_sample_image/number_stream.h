#pragma once

#include <cstdint>

namespace rostermill {

/// Pseudo-random numbers that are the same on every machine (SplitMix64).
class NumberStream {
 public:
  explicit NumberStream(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    return mixed ^ mixed >> 31;
  }

  /// A number from `low` to `high`, both included.
  int Between(int low, int high) {
    return low + static_cast<int>(Next() % static_cast<std::uint64_t>(high - low + 1));
  }

 private:
  std::uint64_t state_;
};

}  // namespace rostermill
