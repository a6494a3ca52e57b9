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
inline constexpr int kGridLeft = -27;
inline constexpr int kGridRight = 27;
inline constexpr int kGridBottom = -17;
inline constexpr int kGridTop = 23;

// The y of the men on the line, who are behind the line of scrimmage.
inline constexpr int kOnTheLine = -2;

struct PathPoint {
  GridPoint at;
  bool bends = false;  // The path curves toward this point instead of passing through it.
};

enum class StepKind {
  kBlock,
  kRoute,
  kFake,
  kDrop,   // A man with the ball, usually the quarterback, before he throws or hands it off.
  kCarry,  // The man who ends up with the ball: his run, or the route on which he catches it.
  kThrow,
  kPitch,
  kGive,  // A handoff: only the spot where the ball changes hands.
};

struct Step {
  StepKind kind = StepKind::kBlock;
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
