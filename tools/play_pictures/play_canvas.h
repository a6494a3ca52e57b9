#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

#include <string_view>
#include <vector>

namespace rostermill {

inline constexpr int PictureWidth = 112;
inline constexpr int PictureHeight = 84;

enum class Ink : unsigned char {
  Grass,
  YardLine,
  ScrimmageLine,
  Shade,  // Around the men, so that the lines don't touch them.
  Block,
  Fake,
  Route,
  Carry,
  Ball,
  Lineman,
  Player,
  Quarterback,
  Letter,
  Count
};

struct Stroke {
  Ink ink = Ink::Route;
  int thickness = 1;
  int dash = 0;  // Pixels of a dash; 0 for a solid line.
  int gap = 0;   // Pixels between two dashes.
};

// A picture drawn pixel by pixel, without antialiasing, so that it looks the same with any version
// of the graphics library.
class PlayCanvas {
 public:
  PlayCanvas();

  void Plot(QPoint at, Ink ink);
  void FillRect(const QRect& rect, Ink ink);
  void DrawLine(const std::vector<QPoint>& points, const Stroke& stroke);
  void DrawArrowHead(const std::vector<QPoint>& points, int length, const Stroke& stroke);
  void DrawBar(const std::vector<QPoint>& points, const Stroke& stroke);
  // In the rows of a stamp, '#' is drawn in the ink and '.' in the filling; a space draws nothing.
  // The stamp is centered on the point.
  void DrawStamp(QPoint center, const std::vector<std::string_view>& rows, Ink ink, Ink filling);

  const QImage& image() const { return image_; }

 private:
  QImage image_;
};

}  // namespace rostermill
