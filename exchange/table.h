#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/table_text.h"

namespace rostermill {

/// Something wrong in a table.
struct TableError {
  int Line = 0;         ///< counted from 1
  int Column = 0;       ///< from 1; 0 for the whole line
  std::string Heading;  ///< of the column; empty where it has none
  std::string Subject;  ///< the team it is about; empty for none
  std::string Text;     ///< UTF-8
};

/// "line 3, column 6 (Number), SPARROWS: "x" is not a number from 0 to 99"
std::string TableErrorLine(const TableError& error);

/// How an import takes what isn't quite right.
struct TableOptions {
  bool IgnoreUnknown = false;  ///< columns of one's own are passed over
  bool Round = false;          ///< a rating between two values becomes the nearest
  bool KeepReturners =
      false;  ///< a duty that nobody has any more goes to the first who may have it
};

/// A table whose headings are known ones, each at most once, in any order. Collects the errors.
class Table {
 public:
  /// Headings are compared without their case, blanks and underscores. A column of a known heading
  /// is named by its index below.
  Table(std::string_view bytes, std::vector<std::string> headings, const TableOptions& options);

  bool Has(std::size_t column) const { return at_[column].has_value(); }
  /// Whether the row has a cell in the column.
  bool Reaches(const TableRow& row, std::size_t column) const {
    return Has(column) && *at_[column] < row.size();
  }
  /// An error unless one of these columns is there.
  void Require(std::initializer_list<std::size_t> columns);

  const std::vector<TableRow>& Rows() const { return rows_; }
  /// The cell as it is in the table, UTF-8; empty where the row doesn't reach it.
  std::string_view RawText(const TableRow& row, std::size_t column) const;
  /// The same, trimmed and in Latin-1; empty, and an error, where it can't be.
  std::optional<std::string> Text(const TableRow& row, std::size_t column);

  void Fail(const TableRow& row, std::optional<std::size_t> column, std::string text);
  /// What the errors of the next rows are about.
  void SetSubject(std::string subject) { subject_ = std::move(subject); }

  /// All errors in the order of the table.
  std::vector<TableError> TakeErrors();

 private:
  void Read(std::string_view bytes, bool ignore_unknown);
  void ReadHeadings(const TableRow& row, bool ignore_unknown);
  void CheckLooseCells(const TableRow& row);

  const std::vector<std::string> headings_;
  std::vector<std::optional<std::size_t>> at_;  ///< of each heading, the cell in a row
  std::set<std::size_t> free_;                  ///< cells without a heading, which have to be empty
  std::size_t width_ = 0;
  std::vector<TableRow> rows_;
  std::string subject_;
  std::vector<TableError> errors_;
};

/// A cell's text fit for a message, in quotes.
std::string QuotedCell(std::string_view utf8);

}  // namespace rostermill
