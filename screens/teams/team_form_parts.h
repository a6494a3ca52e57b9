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
/// How often it is magnified where one is chosen.
inline constexpr int PlayMagnification = 1;
/// Units of the ground on which a figure is painted, and how often it is magnified.
inline constexpr QSize FigureSize(33, 51);
inline constexpr int FigureMagnification = 3;
/// Logical pixels of a swatch's side.
inline constexpr int SwatchSide = 16;

/// The screen colour of a palette entry; empty for an index without one.
std::optional<QColor> ScreenColor(const LeagueData& league, int index);
/// "Brick Red"; "Unknown 4F" for an index without an entry.
QString ColorName(const LeagueData& league, int index);
/// "Brick Red, 22 ($16)"
QString ColorNameAndNumber(const LeagueData& league, int index);
/// Shows the colour, and its name and number as the tool tip.
void ShowColor(ColorBox& box, const LeagueData& league, int index);

/// Shows the picture of a play; hides the box, false, where it can't be loaded.
bool ShowPlay(PictureBox& box, const std::string& app_dir, int slot, int choice);

/// Paints the figure in the three colours of uniform 1 or 2 of the working copies.
void PaintFigure(PictureBox& box, const LeagueSession& session, int uniform);

}  // namespace rostermill
