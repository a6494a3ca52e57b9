#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace rostermill::bench {

/// Runs one side once and returns its cost in milliseconds or megabytes.
using Cost = std::function<double()>;

struct Row {
  std::string what;
  double goal = 0;  ///< the largest acceptable ratio; 0 if there is no goal
  int pairs = 0;
};

/// Runs both sides in alternating pairs and prints a row of the table: the medians of both costs,
/// and the median of the pairs' ratios against the goal.
void Compare(const Row& row, const Cost& ours, const Cost& baseline);

/// Prints a row that says why there is no figure.
void Skip(const std::string& what, const std::string& why);

/// How long the work took, in milliseconds.
template <typename Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

}  // namespace rostermill::bench
