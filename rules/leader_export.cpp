#include "rules/leader_export.h"

#include <algorithm>

#include "rules/display_text.h"

namespace rostermill {

namespace {

constexpr std::size_t zone_width = 14;
constexpr std::size_t name_places = 21;
constexpr std::size_t rank_places = 3;
constexpr std::size_t rating_places = 2;

/// Pads the line to the next print zone, even from the start of one.
void AdvanceZone(std::string& line) {
  line.resize((line.size() / zone_width + 1) * zone_width, ' ');
}

/// Right-justified; a text longer than `places` is kept whole.
std::string RightJustified(const std::string& text, std::size_t places) {
  return std::string(places - std::min(places, text.size()), ' ') + text;
}

std::string HeadingLine(int group) {
  std::string line(5, ' ');
  for (int column = 0; column <= LeaderColumnCount(group); ++column) {
    line.append(HeadingOf(group, column).Caption).append("  ");
    if (column == 0) {
      AdvanceZone(line);
      AdvanceZone(line);
    }
  }
  return line;
}

/// A name from a damaged image must not break its line.
std::string Unbroken(std::string name) {
  for (char& c : name) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return name;
}

std::string RowLine(const LeaderRow& row, int rank, int columns) {
  std::string line = RightJustified(std::to_string(rank), rank_places) + ". " +
                     PaddedText(Unbroken(row.Name), name_places);
  AdvanceZone(line);
  for (int column = 1; column <= columns; ++column) {
    line += RightJustified(RatingText(row.Attr[column]), rating_places) + "  ";
  }
  return line;
}

}  // namespace

std::vector<std::string> LeaderLines(const LeaderTable& rows, int row_count, int group) {
  std::vector<std::string> lines{HeadingLine(group)};
  for (int rank = 1; rank <= row_count; ++rank) {
    lines.push_back(RowLine(rows[rank], rank, LeaderColumnCount(group)));
  }
  return lines;
}

std::vector<std::uint8_t> ExportBytes(const std::vector<std::string>& lines) {
  std::vector<std::uint8_t> bytes;
  for (const std::string& line : lines) {
    bytes.insert(bytes.end(), line.begin(), line.end());
    bytes.insert(bytes.end(), {'\r', '\n'});
  }
  return bytes;
}

}  // namespace rostermill
