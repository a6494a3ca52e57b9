#pragma once

#include <optional>
#include <string_view>

#include "league/indexed_array.h"
#include "league/league_data.h"

namespace rostermill {

/// The displayed value of each rating code 0 to 15.
extern const IndexedArray<int, 0, 15> RatingValues;

/// The label of each roster slot, "QB 1" to "P".
extern const BySlot<std::string_view> SlotLabels;

/// The name of each formation, 0 to 2.
extern const IndexedArray<std::string_view, 0, 2> FormationNames;

/// The name of choice 0 to 7 of playbook slot 1 to 8.
extern const IndexedArray<IndexedArray<std::string_view, 0, 7>, 1, 8> PlayNames;

/// The figure of the team preview: 16 rows of 9 cells; 0 is background, 1 to 3 a color of the
/// uniform.
using JerseyFigure = IndexedArray<IndexedArray<std::int16_t, 1, 9>, 1, 16>;
extern const JerseyFigure JerseyPattern;

/// The code whose displayed value is the number in the text, ignoring leading blanks and zeros;
/// empty if it is none of the 16.
std::optional<int> RatingToCode(std::string_view text);

}  // namespace rostermill
