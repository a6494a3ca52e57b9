#include "exchange/table.h"

#include <algorithm>
#include <tuple>

#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "league/text.h"

namespace rostermill {

namespace {

/// "first_name", "firstName" and "First Name" are the same heading.
std::string Plain(std::string_view heading) {
  std::string text = LowerText(heading);
  std::erase_if(text, [](char c) { return c == ' ' || c == '_' || c == '\t'; });
  return text;
}

}  // namespace

std::string QuotedCell(std::string_view utf8) {
  return "\"" + Shown(Latin1Of(utf8).value_or(std::string(utf8))) + "\"";
}

std::string TableErrorLine(const TableError& error) {
  std::string line = "line " + std::to_string(error.Line);
  if (error.Column > 0) line += ", column " + std::to_string(error.Column);
  if (!error.Heading.empty()) line += " (" + error.Heading + ")";
  if (!error.Subject.empty()) line += ", " + error.Subject;
  return line + ": " + error.Text;
}

Table::Table(std::string_view bytes, std::vector<std::string> headings, const TableOptions& options)
    : headings_(std::move(headings)), at_(headings_.size()) {
  try {
    Read(bytes, options.IgnoreUnknown);
  } catch (const TableSyntaxError& error) {
    rows_.clear();
    errors_.push_back({error.Line, error.Column, {}, {}, error.what()});
  }
}

void Table::Read(std::string_view bytes, bool ignore_unknown) {
  rows_ = ParseTable(TableText(bytes));
  if (rows_.empty()) {
    errors_.push_back({1, 0, {}, {}, "the file is empty"});
    return;
  }
  ReadHeadings(rows_.front(), ignore_unknown);
  rows_.erase(rows_.begin());
  for (const TableRow& row : rows_) CheckLooseCells(row);
}

void Table::ReadHeadings(const TableRow& row, bool ignore_unknown) {
  width_ = row.size();
  for (std::size_t at = 0; at < row.size(); ++at) {
    const int column = static_cast<int>(at) + 1;
    const std::string heading(TrimmedText(row[at].Text));
    const auto known = std::ranges::find_if(
        headings_, [&](const std::string& other) { return Plain(other) == Plain(heading); });
    if (heading.empty()) {
      free_.insert(at);
    } else if (known == headings_.end()) {
      if (!ignore_unknown) {
        errors_.push_back(
            {row[at].Line, column, {}, {}, QuotedCell(heading) + " is not a known column"});
      }
    } else if (auto& place = at_[static_cast<std::size_t>(known - headings_.begin())]; place) {
      errors_.push_back({row[at].Line,
                         column,
                         *known,
                         {},
                         "the column " + QuotedCell(heading) + " appears twice"});
    } else {
      place = at;
    }
  }
}

void Table::CheckLooseCells(const TableRow& row) {
  for (std::size_t at = 0; at < row.size(); ++at) {
    const bool loose = at >= width_ || free_.contains(at);
    if (!loose || TrimmedText(row[at].Text).empty()) continue;
    // A row that has slipped is an error by itself; a column without a heading is one.
    if (at < width_) free_.erase(at);
    errors_.push_back({row[at].Line,
                       static_cast<int>(at) + 1,
                       {},
                       {},
                       "there is a value, and no heading above it"});
  }
}

void Table::Require(std::initializer_list<std::size_t> columns) {
  if (std::ranges::any_of(columns, [this](std::size_t column) { return Has(column); })) return;
  if (width_ == 0) return;  // an error already
  std::string names;
  for (const std::size_t column : columns) {
    names += (names.empty() ? "\"" : " or \"") + headings_[column] + "\"";
  }
  errors_.push_back({1, 0, {}, {}, "the column " + names + " is missing"});
  rows_.clear();
}

std::string_view Table::RawText(const TableRow& row, std::size_t column) const {
  return Reaches(row, column) ? std::string_view(row[*at_[column]].Text) : std::string_view();
}

std::optional<std::string> Table::Text(const TableRow& row, std::size_t column) {
  auto text = Latin1Of(TrimmedText(RawText(row, column)));
  if (!text) Fail(row, column, "it holds a character outside Latin-1");
  return text;
}

void Table::Fail(const TableRow& row, std::optional<std::size_t> column, std::string text) {
  TableError error{row.front().Line, 0, {}, subject_, std::move(text)};
  if (column && at_[*column]) {
    const std::size_t at = *at_[*column];
    if (at < row.size()) error.Line = row[at].Line;
    error.Column = static_cast<int>(at) + 1;
    error.Heading = headings_[*column];
  }
  errors_.push_back(std::move(error));
}

std::vector<TableError> Table::TakeErrors() {
  std::ranges::stable_sort(errors_, [](const TableError& a, const TableError& b) {
    return std::tie(a.Line, a.Column) < std::tie(b.Line, b.Column);
  });
  return std::move(errors_);
}

}  // namespace rostermill
