#include "screens/teams/team_form_parts.h"

#include <QImage>
#include <QPainter>

#include "league/league_tables.h"
#include "league/palette.h"
#include "rules/play_names.h"
#include "toolkit/color_box.h"
#include "toolkit/form_parts.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int block_side = 3;
/// Makes black and white uniforms visible against the background in every color scheme.
constexpr QRgb figure_ground = qRgb(0x90, 0x90, 0x90);

}  // namespace

std::optional<QColor> ScreenColor(const LeagueData& league, int index) {
  const auto color = PaletteColor(league.PaletteData, index);
  if (!color) return std::nullopt;
  return QColor(color->Red, color->Green, color->Blue);
}

QString ColorName(const LeagueData& league, int index) {
  return FromUtf8(PaletteName(league.PaletteData, index));
}

QString ColorNameAndNumber(const LeagueData& league, int index) {
  return ColorName(league, index) +
         QStringLiteral(", %1 ($%2)").arg(index).arg(FromLatin1(HexByteText(index)));
}

void ShowColor(ColorBox& box, const LeagueData& league, int index) {
  box.SetBackColor(ScreenColor(league, index));
  box.setToolTip(PlainToolTip(ColorNameAndNumber(league, index)));
}

bool ShowPlay(PictureBox& box, const std::string& app_dir, int slot, int choice) {
  const bool loaded = box.Load(FromUtf8(PlayPath(app_dir, slot, choice)));
  box.setVisible(loaded);
  return loaded;
}

void PaintFigure(PictureBox& box, const LeagueSession& session, int uniform) {
  QImage figure(FigureSize, QImage::Format_RGB32);
  figure.fill(figure_ground);
  QPainter painter(&figure);
  for (int row = JerseyPattern.first; row <= JerseyPattern.last; ++row) {
    const auto& cells = JerseyPattern[row];
    for (int column = cells.first; column <= cells.last; ++column) {
      if (cells[column] == 0) continue;
      const int color = session.PreviewColors[uniform][cells[column]];
      painter.fillRect(block_side * column, block_side * row, block_side, block_side,
                       ColorBrush(ScreenColor(session.League(), color)));
    }
  }
  painter.end();
  box.SetPicture(figure);
}

}  // namespace rostermill
