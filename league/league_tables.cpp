#include "league/league_tables.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace rostermill {

const IndexedArray<int, 0, 15> RatingValues{
    {6, 13, 19, 25, 31, 38, 44, 50, 56, 63, 69, 75, 81, 88, 94, 100}};

const BySlot<std::string_view> SlotLabels{
    {"QB 1", "QB 2", "RB 1", "RB 2", "RB 3", "RB 4", "WR 1", "WR 2", "WR 3", "WR 4",
     "TE 1", "TE 2", "C",    "LG",   "RG",   "LT",   "RT",   "RE",   "NT",   "LE",
     "ROLB", "RILB", "LILB", "LOLB", "RCB",  "LCB",  "FS",   "SS",   "K",    "P"}};

const IndexedArray<std::string_view, 0, 2> FormationNames{
    {"2RB 2WR 1TE", "1RB 4WR", "1RB 3WR 1TE"}};

const IndexedArray<IndexedArray<std::string_view, 0, 7>, 1, 8> PlayNames{{{
    {{"T Fake Sweep Right", "T Power Sweep Right", "WTE Offtackle Right", "One Setback Left",
      "Run and Shoot Sweep Left", "FB Offtackle Right", "FB Open Left", "Toss Sweep Right"}},
    {{"T Power Dive", "FB Offtackle Left", "Run and Shoot Draw", "Pitch Left Fake",
      "One Back Sweep Right", "Weakside Open", "T Offtackle Right", "T Sweep Strong"}},
    {{"Shotgun Draw", "Run and Shoot Sweep Right", "T Cross Run Left", "Slot Offtackle",
      "Cross Offtackle", "Pitch Left Open", "WR Reverse Right", "WR Reverse Left"}},
    {{"Run and Shoot QB Run", "Shotgun Sweep Left", "Run and Shoot QB Sneak", "One Setback Dive",
      "Pro T Dive", "FB Power Dive", "Shotgun C Draw", "Reverse Pitch Right"}},
    {{"Pro T Waggle Left", "Run and Shoot Flare C", "Pro T Waggle Right", "Roll Out Right",
      "Roll Out Left", "T Play Action D", "Pro T Screen Left", "Play Action"}},
    {{"Power Fake Z Post", "WTE Flea-Flicker", "Shotgun X Curl", "Run and Shoot Z Fly",
      "Pro T Flare D", "Offset Flare E", "Oneback Z Cross", "Oneback Flare A"}},
    {{"T Flea-Flicker", "Power Fake X Fly", "Shotgun X Drive", "Rund and Shoot 3-Wing",
      "Play Action Z In", "Flea Flicker", "Pro T Flare C", "Shotgun 3-Wing"}},
    {{"Shotgun XY Bomb", "Run and Shoot Y Up", "X Out and Fly", "Reverse-Fake Z Post",
      "Slot L Z Drive", "No Back X Deep", "Shotgun Z Slant In", "Redgun Z Slant"}},
}}};

namespace {

constexpr std::array<std::string_view, 14> figure_rows{
    "000001100", "000011110", "000011200", "033332110", "032332330", "112230210", "012110122",
    "011120022", "131222100", "031121100", "011003300", "030001300", "031001111", "111100000"};

JerseyFigure BuildJerseyPattern() {
  JerseyFigure figure;
  for (int row = 1; row <= static_cast<int>(figure_rows.size()); ++row) {
    const std::string_view cells = figure_rows[static_cast<std::size_t>(row - 1)];
    for (int column = 1; column <= 9; ++column) {
      figure[row][column] =
          static_cast<std::int16_t>(cells[static_cast<std::size_t>(column - 1)] - '0');
    }
  }
  return figure;
}

}  // namespace

const JerseyFigure JerseyPattern = BuildJerseyPattern();

std::optional<int> RatingToCode(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  int value = 0;
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || rest != text.data() + text.size()) return std::nullopt;
  for (int code = RatingValues.first; code <= RatingValues.last; ++code) {
    if (RatingValues[code] == value) return code;
  }
  return std::nullopt;
}

}  // namespace rostermill
