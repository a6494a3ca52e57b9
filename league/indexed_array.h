#pragma once

#include <array>
#include <cstddef>

namespace rostermill {

/// Throws std::out_of_range.
[[noreturn]] void ThrowIndexOutside(int index, int first, int last);

/// A fixed table whose first element has the index First and whose last has the index Last.
/// The range is checked in every build; an index outside it throws std::out_of_range.
template <typename T, int First, int Last>
class IndexedArray {
  static_assert(First <= Last);

 public:
  static constexpr int first = First;
  static constexpr int last = Last;
  static constexpr int count = Last - First + 1;

  constexpr T& operator[](int index) { return items_[Place(index)]; }
  constexpr const T& operator[](int index) const { return items_[Place(index)]; }

  constexpr auto begin() { return items_.begin(); }
  constexpr auto end() { return items_.end(); }
  constexpr auto begin() const { return items_.begin(); }
  constexpr auto end() const { return items_.end(); }

  bool operator==(const IndexedArray&) const = default;

  /// The elements in order; public so that a constant table can be written as a list.
  std::array<T, static_cast<std::size_t>(count)> items_{};

 private:
  static constexpr std::size_t Place(int index) {
    if (index < First || index > Last) ThrowIndexOutside(index, First, Last);
    return static_cast<std::size_t>(index - First);
  }
};

}  // namespace rostermill
