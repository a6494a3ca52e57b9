#include "bench/pairs.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace rostermill::bench {

namespace {

constexpr int warm_up_pairs = 2;

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

void Compare(const Row& row, const Cost& ours, const Cost& baseline) {
  std::vector<double> our_costs, baseline_costs, ratios;
  for (int pair = -warm_up_pairs; pair < row.pairs; ++pair) {
    // The second run finds warmer caches, so the order alternates.
    const double first = pair % 2 == 0 ? ours() : baseline();
    const double second = pair % 2 == 0 ? baseline() : ours();
    if (pair < 0) continue;
    our_costs.push_back(pair % 2 == 0 ? first : second);
    baseline_costs.push_back(pair % 2 == 0 ? second : first);
    ratios.push_back(our_costs.back() / baseline_costs.back());
  }
  const double ratio = Median(ratios);
  std::printf("%-54s %9.3f %9.3f %6.2f", row.what.c_str(), Median(our_costs),
              Median(baseline_costs), ratio);
  if (row.goal > 0) std::printf(" %5.2f %s", row.goal, ratio <= row.goal ? "" : "missed");
  std::printf("\n");
  std::fflush(stdout);
}

void Skip(const std::string& what, const std::string& why) {
  std::printf("%-54s %s\n", what.c_str(), why.c_str());
}

}  // namespace rostermill::bench
