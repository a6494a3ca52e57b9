#include "league/indexed_array.h"

#include <stdexcept>
#include <string>

namespace rostermill {

void ThrowIndexOutside(int index, int first, int last) {
  throw std::out_of_range("index " + std::to_string(index) + " outside " + std::to_string(first) +
                          " to " + std::to_string(last));
}

}  // namespace rostermill
