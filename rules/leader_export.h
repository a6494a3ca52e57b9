#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "rules/leader_rows.h"

namespace rostermill {

/// The lines for printer and file: the heading of the group, then rows 1 to `row_count` in order,
/// Latin-1, without line ends. A name takes 21 characters; a longer one is cut.
std::vector<std::string> LeaderLines(const LeaderTable& rows, int row_count, int group);

/// The bytes of an export file: every line ends with CR LF.
std::vector<std::uint8_t> ExportBytes(const std::vector<std::string>& lines);

}  // namespace rostermill
