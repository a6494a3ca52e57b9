#include "tools/portraits/art_file.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>

namespace rostermill {

ArtFile::ArtFile(std::string file_name, std::string_view letters,
                 std::vector<std::string_view> kinds)
    : file_name_(std::move(file_name)),
      letters_("." + std::string(letters)),
      kinds_(std::move(kinds)) {
  std::ifstream file(file_name_);
  if (!file) throw ArtError(file_name_ + ": cannot be opened");
  for (std::string line; std::getline(file, line);) {
    ++line_number_;
    line.resize(line.find_last_not_of(" \t\r") + 1);
    if (line.empty() || line.front() == '#') continue;
    if (line.find(' ') == std::string::npos) {
      AddRow(std::move(line));
    } else {
      BeginDrawing(line);
    }
  }
  if (file.bad()) Fail("cannot be read");
  EndDrawing();
}

void ArtFile::BeginDrawing(const std::string& line) {
  EndDrawing();
  Drawing drawing;
  std::string place;
  std::string more;
  std::istringstream words(line);
  words >> drawing.kind >> drawing.name >> place;
  const std::size_t comma = place.find(',');
  if (comma == std::string::npos || words >> more) {
    Fail("a drawing begins with its kind, its name, and its place as LEFT,TOP");
  }
  if (std::find(kinds_.begin(), kinds_.end(), drawing.kind) == kinds_.end()) {
    Fail("unknown kind '" + drawing.kind + "'");
  }
  for (const Drawing& other : drawings_) {
    if (other.kind == drawing.kind && other.name == drawing.name) {
      Fail(drawing.kind + " " + drawing.name + " appears twice");
    }
  }
  drawing.art.left = ParseNumber(std::string_view(place).substr(0, comma));
  drawing.art.top = ParseNumber(std::string_view(place).substr(comma + 1));
  drawings_.push_back(std::move(drawing));
}

void ArtFile::AddRow(std::string row) {
  if (drawings_.empty()) Fail("no drawing begins above this row");
  if (const std::size_t at = row.find_first_not_of(letters_); at != std::string::npos) {
    Fail(std::string("unknown letter '") + row[at] + "'");
  }
  Art& art = drawings_.back().art;
  if (!art.rows.empty() && row.size() != art.rows.front().size()) {
    Fail("this row is not as long as the one above it");
  }
  if (!Canvas::Holds(art.left + static_cast<int>(row.size()) - 1,
                     art.top + static_cast<int>(art.rows.size()))) {
    Fail("this row reaches outside the picture");
  }
  art.rows.push_back(std::move(row));
}

void ArtFile::EndDrawing() const {
  if (!drawings_.empty() && drawings_.back().art.rows.empty()) {
    Fail(drawings_.back().kind + " " + drawings_.back().name + " has no rows");
  }
}

int ArtFile::ParseNumber(std::string_view text) const {
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number >= PictureSize) {
    Fail("'" + std::string(text) + "' is not a number from 0 to 31");
  }
  return static_cast<int>(number);
}

std::vector<Art> ArtFile::All(std::string_view kind, std::size_t fewest) const {
  std::vector<Art> all;
  for (const Drawing& drawing : drawings_) {
    if (drawing.kind == kind) all.push_back(drawing.art);
  }
  if (all.size() < fewest || all.size() > MostOfAKind) {
    Fail("there are " + std::to_string(all.size()) + " drawings of the kind '" + std::string(kind) +
         "', and " + std::to_string(fewest) + " to " + std::to_string(MostOfAKind) + " are needed");
  }
  return all;
}

Art ArtFile::Named(std::string_view kind, std::string_view name) const {
  if (name.empty()) return {};
  for (const Drawing& drawing : drawings_) {
    if (drawing.kind == kind && drawing.name == name) return drawing.art;
  }
  Fail(std::string(kind) + " " + std::string(name) + " is missing");
}

void ArtFile::Fail(const std::string& message) const {
  throw ArtError(file_name_ + ":" + std::to_string(line_number_) + ": " + message);
}

}  // namespace rostermill
