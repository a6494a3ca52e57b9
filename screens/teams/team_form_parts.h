#pragma once

#include <QColor>
#include <QSize>
#include <QString>

#include <optional>

#include "league/league_session.h"

namespace rostermill {

class ColorBox;
class PictureBox;

/// Pixels of a play's picture.
inline constexpr QSize PlayPictureSize(112, 84);
/// Its magnification in the play chooser.
inline constexpr int PlayMagnification = 1;
/// The size of a figure in its own units, and its magnification.
inline constexpr QSize FigureSize(33, 51);
inline constexpr int FigureMagnification = 3;
/// The side of a swatch in logical pixels.
inline constexpr int SwatchSide = 16;

/// The screen color of a palette entry; empty for an index that has none.
std::optional<QColor> ScreenColor(const LeagueData& league, int index);
/// "Brick Red"; "Unknown 4F" for an index that has no entry.
QString ColorName(const LeagueData& league, int index);
/// "Brick Red, 22 ($16)"
QString ColorNameAndNumber(const LeagueData& league, int index);
/// Shows the color, and its name and number as the tool tip.
void ShowColor(ColorBox& box, const LeagueData& league, int index);

/// Shows the picture of a play; hides the box and returns false if it cannot be loaded.
bool ShowPlay(PictureBox& box, const std::string& app_dir, int slot, int choice);

/// Paints the figure in the three colors of uniform 1 or 2 of the working copies.
void PaintFigure(PictureBox& box, const LeagueSession& session, int uniform);

}  // namespace rostermill
