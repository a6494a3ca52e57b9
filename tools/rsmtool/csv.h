#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace rostermill {

struct CsvCell {
  std::string Text;
  int Line = 0;  ///< where the cell begins, counted from 1
};

using CsvRow = std::vector<CsvCell>;

/// Text that is not CSV: what() says why, next to the line and the number of the cell, from 1.
class CsvError : public std::runtime_error {
 public:
  CsvError(int line, int column, const std::string& why)
      : std::runtime_error(why), Line(line), Column(column) {}
  const int Line;
  const int Column;
};

/// The rows of an RFC 4180 text, with the habits of spreadsheets: lines end in CR LF, LF or CR, a
/// byte order mark may come first. Rows without any text in a cell are left out. Throws CsvError.
std::vector<CsvRow> ParseCsv(std::string_view text);

/// The cells as one line, quoted where they need it, ended by CR LF.
std::string CsvLine(const std::vector<std::string>& cells);

}  // namespace rostermill
