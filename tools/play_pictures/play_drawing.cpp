#include "tools/play_pictures/play_drawing.h"

#include <cmath>

#include "tools/play_pictures/play_canvas.h"

namespace rostermill {
namespace {

using Stamp = std::vector<std::string_view>;

constexpr int pixels_per_unit = 2;
constexpr int scrimmage_row = 48;
constexpr int center_column = PictureWidth / 2;

QPoint ToPixel(GridPoint at) {
  return {center_column + at.x * pixels_per_unit, scrimmage_row - at.y * pixels_per_unit};
}

QPoint Middle(QPoint a, QPoint b) {
  return (a + b) / 2;
}

// Appends a quadratic curve from the last point to `end`, with the bend as its control point.
void AppendCurve(std::vector<QPoint>& points, QPoint bend, QPoint end) {
  constexpr int pieces = 10;
  const QPoint start = points.back();
  for (int i = 1; i <= pieces; ++i) {
    const double t = static_cast<double>(i) / pieces;
    const double u = 1 - t;
    const auto blend = [&](int a, int b, int c) {
      return static_cast<int>(std::lround(u * u * a + 2 * u * t * b + t * t * c));
    };
    points.emplace_back(blend(start.x(), bend.x(), end.x()), blend(start.y(), bend.y(), end.y()));
  }
}

std::vector<QPoint> PathPixels(const Play& play, const Step& step) {
  std::vector<PathPoint> path = step.path;
  if (!step.man.empty()) path.insert(path.begin(), {play.formation.at(step.man)});
  std::vector<QPoint> points{ToPixel(path.front().at)};
  for (std::size_t i = 1; i < path.size(); ++i) {
    const QPoint at = ToPixel(path[i].at);
    if (!path[i].bends) {
      points.push_back(at);
      continue;
    }
    // A curve ends halfway to another bend, but at the next point if the path passes through it.
    const PathPoint& next = path[i + 1];
    const QPoint next_at = ToPixel(next.at);
    AppendCurve(points, at, next.bends ? Middle(at, next_at) : next_at);
  }
  return points;
}

void DrawField(PlayCanvas& canvas) {
  constexpr int rows_between_yard_lines = 12;
  constexpr int hash_distance = 18;
  for (int y = 0; y < PictureHeight; ++y) {
    const bool is_yard_line = y % rows_between_yard_lines == 0;
    if (is_yard_line) canvas.FillRect({0, y, PictureWidth, 1}, Ink::YardLine);
    if (is_yard_line || y % 3 != 0) continue;
    for (int side : {-1, 1})
      canvas.FillRect({center_column + side * hash_distance - 1, y, 3, 1}, Ink::YardLine);
  }
  canvas.FillRect({0, scrimmage_row, PictureWidth, 1}, Ink::ScrimmageLine);
}

Stroke StrokeOf(StepKind kind) {
  switch (kind) {
    case StepKind::Block:
      return {Ink::Block};
    case StepKind::Fake:
      return {Ink::Fake, 1, 3, 2};
    case StepKind::Route:
      return {Ink::Route};
    case StepKind::Drop:
      return {Ink::Quarterback};
    case StepKind::Carry:
      return {Ink::Carry, 2};
    case StepKind::Throw:
      return {Ink::Ball, 1, 4, 2};
    case StepKind::Pitch:
      return {Ink::Ball, 1, 2, 1};
    case StepKind::Give:
      break;
  }
  return {};
}

void DrawPathEnd(PlayCanvas& canvas, StepKind kind, const std::vector<QPoint>& points) {
  constexpr int small_head = 5;
  constexpr int large_head = 7;
  const Stroke stroke = StrokeOf(kind);
  if (kind == StepKind::Block) canvas.DrawBar(points, stroke);
  if (kind == StepKind::Route || kind == StepKind::Fake)
    canvas.DrawArrowHead(points, small_head, stroke);
  if (kind == StepKind::Carry) canvas.DrawArrowHead(points, large_head, stroke);
}

void DrawSteps(PlayCanvas& canvas, const Play& play, StepKind kind) {
  for (const Step& step : play.steps) {
    if (step.kind != kind) continue;
    const std::vector<QPoint> points = PathPixels(play, step);
    canvas.DrawLine(points, StrokeOf(kind));
    DrawPathEnd(canvas, kind, points);
  }
}

void DrawBall(PlayCanvas& canvas, QPoint at) {
  const Stamp ball = {"  ..  ", " .##. ", ".####.", ".####.", " .##. ", "  ..  "};
  // Centers its four pixels on the two of a carrier's line.
  canvas.DrawStamp(at + QPoint(1, 1), ball, Ink::Ball, Ink::Shade);
}

// Draws the ball where it changes hands or is caught.
void DrawBalls(PlayCanvas& canvas, const Play& play) {
  for (const Step& step : play.steps)
    if (step.kind == StepKind::Give || step.kind == StepKind::Throw || step.kind == StepKind::Pitch)
      DrawBall(canvas, ToPixel(step.path.back().at));
}

Stamp LetterStamp(char letter) {
  switch (letter) {
    case 'A':
      return {".#.", "#.#", "###", "#.#", "#.#"};
    case 'B':
      return {"##.", "#.#", "##.", "#.#", "##."};
    case 'C':
      return {".##", "#..", "#..", "#..", ".##"};
    case 'D':
      return {"##.", "#.#", "#.#", "#.#", "##."};
    case 'E':
      return {"###", "#..", "##.", "#..", "###"};
    case 'X':
      return {"#.#", "#.#", ".#.", "#.#", "#.#"};
    case 'Y':
      return {"#.#", "#.#", ".#.", ".#.", ".#."};
    default:
      return {"###", "..#", ".#.", "#..", "###"};
  }
}

const Stamp disc = {"  .....  ", " ..###.. ", "..#####..", ".#######.", ".#######.",
                    ".#######.", "..#####..", " ..###.. ", "  .....  "};
const Stamp ring = {" ### ", "#...#", "#...#", "#...#", " ### "};
const Stamp square = {"#####", "#...#", "#...#", "#...#", "#####"};

bool EndsUpWithTheBall(const Play& play, const std::string& man) {
  for (const Step& step : play.steps)
    if (step.kind == StepKind::Carry && step.man == man) return true;
  return false;
}

void DrawMan(PlayCanvas& canvas, const Play& play, const std::string& man) {
  const QPoint at = ToPixel(play.formation.at(man));
  const bool has_letter = man.size() == 1;
  if (!has_letter && man != "QB") {
    canvas.DrawStamp(at, man == "CE" ? square : ring, Ink::Lineman, Ink::Shade);
    return;
  }
  const Ink own_ink = man == "QB" ? Ink::Quarterback : Ink::Player;
  const Ink ink = EndsUpWithTheBall(play, man) ? Ink::Carry : own_ink;
  canvas.DrawStamp(at, disc, ink, Ink::Shade);
  if (has_letter) canvas.DrawStamp(at, LetterStamp(man.front()), Ink::Letter, ink);
}

}  // namespace

QImage DrawPlay(const Play& play) {
  PlayCanvas canvas;
  DrawField(canvas);
  for (StepKind kind : {StepKind::Block, StepKind::Fake, StepKind::Route, StepKind::Drop,
                        StepKind::Carry, StepKind::Throw, StepKind::Pitch})
    DrawSteps(canvas, play, kind);
  for (const auto& place : play.formation) DrawMan(canvas, play, place.first);
  DrawBalls(canvas, play);
  return canvas.image();
}

}  // namespace rostermill
