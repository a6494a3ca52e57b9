// Any bytes after a valid header load, and if the texts fit, a save of the league loads back equal.

#include "league/load_image.h"

#include <cstdio>
#include <cstdlib>

#include "fuzz/image_input.h"
#include "tests/support/round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto image = rostermill::fuzz::ImageOf({data, size});
  if (!rostermill::IsImageHeader(image)) std::abort();
  if (const auto fault = rostermill::test::RoundTripFault(image)) {
    std::fprintf(stderr, "%s\n", fault->c_str());
    std::abort();
  }
  return 0;
}
