#pragma once

#include <map>
#include <string>
#include <vector>

namespace rostermill {

// A place on the field in grid units: x to the right of the center, y beyond the line of scrimmage.
struct GridPoint {
  int x = 0;
  int y = 0;
};

// The part of the field that a picture shows.
inline constexpr int GridLeft = -27;
inline constexpr int GridRight = 27;
inline constexpr int GridBottom = -17;
inline constexpr int GridTop = 23;

// The y of the men on the line, who are behind the line of scrimmage.
inline constexpr int OnTheLine = -2;

struct PathPoint {
  GridPoint at;
  bool bends = false;  // The path curves toward this point instead of passing through it.
};

enum class StepKind {
  Block,
  Route,
  Fake,
  Drop,   // A man with the ball, usually the quarterback, before he throws or hands it off.
  Carry,  // The man who ends up with the ball: his run, or the route on which he catches it.
  Throw,
  Pitch,
  Give,  // A handoff: only the spot where the ball changes hands.
};

struct Step {
  StepKind kind = StepKind::Block;
  std::string man;  // Empty for steps of the ball alone.
  std::vector<PathPoint> path;
};

using Formation = std::map<std::string, GridPoint>;

struct Play {
  std::string key;
  std::string name;
  Formation formation;
  std::vector<Step> steps;
};

}  // namespace rostermill
