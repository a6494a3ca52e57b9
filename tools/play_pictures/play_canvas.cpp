#include "tools/play_pictures/play_canvas.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace rostermill {
namespace {

constexpr std::array<QRgb, static_cast<std::size_t>(Ink::Count)> inks = {
    qRgb(0x1B, 0x4D, 0x2B),  // Grass.
    qRgb(0x27, 0x5F, 0x38),  // Yard line.
    qRgb(0x7F, 0xB4, 0x8C),  // Scrimmage line.
    qRgb(0x12, 0x38, 0x1E),  // Shade.
    qRgb(0xA3, 0xB3, 0xA8),  // Block.
    qRgb(0x8F, 0xC7, 0xE8),  // Fake.
    qRgb(0xFF, 0xFF, 0xFF),  // Route.
    qRgb(0xFF, 0xD9, 0x2E),  // Carry.
    qRgb(0xFF, 0x8C, 0x28),  // Ball.
    qRgb(0xC9, 0xD3, 0xCB),  // Lineman.
    qRgb(0xF4, 0xF4, 0xEC),  // Player.
    qRgb(0x4F, 0xB6, 0xFF),  // Quarterback.
    qRgb(0x0E, 0x24, 0x16),  // Letter.
};

// The pixels of a polyline in order, each once.
std::vector<QPoint> TracePixels(const std::vector<QPoint>& points) {
  std::vector<QPoint> pixels;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const QPoint from = points[i - 1];
    const QPoint way = points[i] - from;
    const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
    for (int step = 0; step <= steps; ++step) {
      const double share = steps == 0 ? 0.0 : static_cast<double>(step) / steps;
      const QPoint pixel = from + QPoint(static_cast<int>(std::lround(way.x() * share)),
                                         static_cast<int>(std::lround(way.y() * share)));
      if (pixels.empty() || pixels.back() != pixel) pixels.push_back(pixel);
    }
  }
  return pixels;
}

// The direction of a line at its end, as one of the eight that whole pixels draw cleanly. It is
// taken from the last few pixels, since the very last ones say little about a curve.
QPoint EndDirection(const std::vector<QPoint>& points) {
  constexpr std::size_t pixels_looked_at = 5;
  constexpr double half_octant = 0.3827;  // The sine of 22.5 degrees.
  const std::vector<QPoint> pixels = TracePixels(points);
  if (pixels.size() < 2) return {0, -1};
  const std::size_t back = std::min(pixels_looked_at, pixels.size() - 1);
  const QPoint way = pixels.back() - pixels[pixels.size() - 1 - back];
  const double length = std::hypot(way.x(), way.y());
  const auto sign = [&](int part) {
    return std::abs(part) < length * half_octant ? 0 : (part < 0 ? -1 : 1);
  };
  return {sign(way.x()), sign(way.y())};
}

}  // namespace

PlayCanvas::PlayCanvas() : image_(PictureWidth, PictureHeight, QImage::Format_Indexed8) {
  // A full table, since with a short one the file would have four bits per pixel.
  QList<QRgb> table(inks.begin(), inks.end());
  table.resize(256, qRgb(0, 0, 0));
  image_.setColorTable(table);
  image_.fill(static_cast<uint>(Ink::Grass));
}

void PlayCanvas::Plot(QPoint at, Ink ink) {
  if (image_.valid(at)) image_.setPixel(at, static_cast<uint>(ink));
}

void PlayCanvas::FillRect(const QRect& rect, Ink ink) {
  for (int y = rect.top(); y <= rect.bottom(); ++y)
    for (int x = rect.left(); x <= rect.right(); ++x) Plot({x, y}, ink);
}

void PlayCanvas::DrawLine(const std::vector<QPoint>& points, const Stroke& stroke) {
  int count = 0;
  for (const QPoint pixel : TracePixels(points)) {
    const bool in_gap = stroke.dash > 0 && count++ % (stroke.dash + stroke.gap) >= stroke.dash;
    if (!in_gap) FillRect(QRect(pixel, QSize(stroke.thickness, stroke.thickness)), stroke.ink);
  }
}

void PlayCanvas::DrawArrowHead(const std::vector<QPoint>& points, int length,
                               const Stroke& stroke) {
  const QPoint direction = EndDirection(points);
  const bool is_diagonal = direction.x() != 0 && direction.y() != 0;
  // Counted in half pixels, so that the middle of a line of even thickness is a whole number too.
  const int middle = stroke.thickness - 1;
  for (int y = -length; y <= length; ++y)
    for (int x = -length; x <= length; ++x) {
      const QPoint from_tip(2 * x - middle, 2 * y - middle);
      const int behind = -QPoint::dotProduct(from_tip, direction);
      const int aside = std::abs(from_tip.x() * direction.y() - from_tip.y() * direction.x());
      const bool is_narrow = is_diagonal ? aside <= behind : 4 * aside <= 3 * behind;
      if (behind >= 0 && behind < 2 * length && is_narrow)
        Plot(points.back() + QPoint(x, y), stroke.ink);
    }
}

void PlayCanvas::DrawBar(const std::vector<QPoint>& points, const Stroke& stroke) {
  const QPoint direction = EndDirection(points);
  const bool is_diagonal = direction.x() != 0 && direction.y() != 0;
  const QPoint half = QPoint(direction.y(), -direction.x()) * (is_diagonal ? 2 : 3);
  DrawLine({points.back() - half, points.back() + half}, stroke);
}

void PlayCanvas::DrawStamp(QPoint center, const std::vector<std::string_view>& rows, Ink ink,
                           Ink filling) {
  const QPoint corner =
      center - QPoint(static_cast<int>(rows.front().size()), static_cast<int>(rows.size())) / 2;
  for (std::size_t y = 0; y < rows.size(); ++y)
    for (std::size_t x = 0; x < rows[y].size(); ++x) {
      const QPoint at = corner + QPoint(static_cast<int>(x), static_cast<int>(y));
      if (rows[y][x] == '#') Plot(at, ink);
      if (rows[y][x] == '.') Plot(at, filling);
    }
}

}  // namespace rostermill
