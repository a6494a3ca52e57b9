#include "tools/play_pictures/play_drawing.h"

#include <cmath>
#include <utility>

#include "tools/play_pictures/play_canvas.h"

namespace rostermill {
namespace {

using Stamp = std::vector<std::string_view>;

constexpr int kPixelsPerUnit = 2;
constexpr int kScrimmageRow = 48;
constexpr int kCenterColumn = kPictureWidth / 2;

QPoint ToPixel(GridPoint at) {
  return {kCenterColumn + at.x * kPixelsPerUnit, kScrimmageRow - at.y * kPixelsPerUnit};
}

QPoint Middle(QPoint a, QPoint b) {
  return (a + b) / 2;
}

// Appends a quadratic curve from the last point to `end`, with the bend as its control point.
void AppendCurve(std::vector<QPoint>& points, QPoint bend, QPoint end) {
  constexpr int kPieces = 10;
  const QPoint start = points.back();
  for (int i = 1; i <= kPieces; ++i) {
    const double t = static_cast<double>(i) / kPieces;
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
  constexpr int kRowsBetweenYardLines = 12;
  constexpr int kHashDistance = 18;
  for (int y = 0; y < kPictureHeight; ++y) {
    const bool is_yard_line = y % kRowsBetweenYardLines == 0;
    if (is_yard_line) canvas.FillRect({0, y, kPictureWidth, 1}, Ink::kYardLine);
    if (is_yard_line || y % 3 != 0) continue;
    for (int side : {-1, 1})
      canvas.FillRect({kCenterColumn + side * kHashDistance - 1, y, 3, 1}, Ink::kYardLine);
  }
  canvas.FillRect({0, kScrimmageRow, kPictureWidth, 1}, Ink::kScrimmageLine);
}

Stroke StrokeOf(StepKind kind) {
  switch (kind) {
    case StepKind::kBlock:
      return {Ink::kBlock};
    case StepKind::kFake:
      return {Ink::kFake, 1, 3, 2};
    case StepKind::kRoute:
      return {Ink::kRoute};
    case StepKind::kDrop:
      return {Ink::kQuarterback};
    case StepKind::kCarry:
      return {Ink::kCarry, 2};
    case StepKind::kThrow:
      return {Ink::kBall, 1, 4, 2};
    case StepKind::kPitch:
      return {Ink::kBall, 1, 2, 1};
    case StepKind::kGive:
      break;
  }
  return {};
}

void DrawPathEnd(PlayCanvas& canvas, StepKind kind, const std::vector<QPoint>& points) {
  constexpr int kSmallHead = 5;
  constexpr int kLargeHead = 7;
  const Stroke stroke = StrokeOf(kind);
  if (kind == StepKind::kBlock) canvas.DrawBar(points, stroke);
  if (kind == StepKind::kRoute || kind == StepKind::kFake)
    canvas.DrawArrowHead(points, kSmallHead, stroke);
  if (kind == StepKind::kCarry) canvas.DrawArrowHead(points, kLargeHead, stroke);
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
  canvas.DrawStamp(at + QPoint(1, 1), ball, Ink::kBall, Ink::kShade);
}

// Draws the ball where it changes hands or is caught.
void DrawBalls(PlayCanvas& canvas, const Play& play) {
  for (const Step& step : play.steps)
    if (step.kind == StepKind::kGive || step.kind == StepKind::kThrow ||
        step.kind == StepKind::kPitch)
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

const Stamp kDisc = {"  .....  ", " ..###.. ", "..#####..", ".#######.", ".#######.",
                     ".#######.", "..#####..", " ..###.. ", "  .....  "};
const Stamp kRing = {" ### ", "#...#", "#...#", "#...#", " ### "};
const Stamp kSquare = {"#####", "#...#", "#...#", "#...#", "#####"};

bool EndsUpWithTheBall(const Play& play, const std::string& man) {
  for (const Step& step : play.steps)
    if (step.kind == StepKind::kCarry && step.man == man) return true;
  return false;
}

void DrawMan(PlayCanvas& canvas, const Play& play, const std::string& man) {
  const QPoint at = ToPixel(play.formation.at(man));
  const bool has_letter = man.size() == 1;
  if (!has_letter && man != "QB") {
    canvas.DrawStamp(at, man == "CE" ? kSquare : kRing, Ink::kLineman, Ink::kShade);
    return;
  }
  const Ink own_ink = man == "QB" ? Ink::kQuarterback : Ink::kPlayer;
  const Ink ink = EndsUpWithTheBall(play, man) ? Ink::kCarry : own_ink;
  canvas.DrawStamp(at, kDisc, ink, Ink::kShade);
  if (has_letter) canvas.DrawStamp(at, LetterStamp(man.front()), Ink::kLetter, ink);
}

}  // namespace

QImage DrawPlay(const Play& play) {
  PlayCanvas canvas;
  DrawField(canvas);
  for (StepKind kind : {StepKind::kBlock, StepKind::kFake, StepKind::kRoute, StepKind::kDrop,
                        StepKind::kCarry, StepKind::kThrow, StepKind::kPitch})
    DrawSteps(canvas, play, kind);
  for (const auto& place : play.formation) DrawMan(canvas, play, place.first);
  DrawBalls(canvas, play);
  return canvas.image();
}

}  // namespace rostermill
