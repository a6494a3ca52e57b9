#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace rostermill {

// Tables as spreadsheets write them, a row a line.

/// The text of a file in UTF-8: UTF-8 with or without a byte order mark, UTF-16 with one; anything
/// else is taken for Latin-1. A broken UTF-16 character becomes U+FFFD.
std::string TableText(std::string_view bytes);

struct TableCell {
  std::string Text;  ///< UTF-8
  int Line = 0;      ///< where the cell begins, counted from 1
};
using TableRow = std::vector<TableCell>;

/// Text that is not a table: what() says why, next to the line and the number of the cell, from 1.
class TableSyntaxError : public std::runtime_error {
 public:
  TableSyntaxError(int line, int column, const std::string& why)
      : std::runtime_error(why), Line(line), Column(column) {}
  const int Line;
  const int Column;
};

/// The rows of an RFC 4180 text, with the habits of spreadsheets: cells are separated by commas,
/// semicolons or tabs, whichever the first line has most of; lines end in CR LF, LF or CR. Rows
/// without any text in a cell are left out. Throws TableSyntaxError.
std::vector<TableRow> ParseTable(std::string_view text);

/// The rows of a block of cells as a spreadsheet puts it on the clipboard: separated by tabs, blank
/// rows kept but for those at the end. A cell that begins with a quote and isn't quoted as a whole
/// is text as it stands.
std::vector<TableRow> ParseCells(std::string_view text);

/// The cells as one line, quoted where they need it, ended by CR LF.
std::string TableLine(const std::vector<std::string>& cells);

}  // namespace rostermill
