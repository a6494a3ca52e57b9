#include "tools/rsmtool/csv.h"

#include <algorithm>

#include "league/text.h"

namespace rostermill {

namespace {

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(WithoutByteOrderMark(text)) {}

  bool AtEnd() const { return at_ == text_.size(); }

  CsvRow ReadRow() {
    CsvRow row;
    for (;;) {
      row.push_back(ReadCell(static_cast<int>(row.size()) + 1));
      if (AtEnd() || !Take(',')) break;
    }
    TakeLineEnd();
    return row;
  }

 private:
  bool Take(char c) {
    if (AtEnd() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  bool TakeLineEnd() {
    const bool cr = Take('\r');
    if (!Take('\n') && !cr) return false;
    ++line_;
    return true;
  }

  CsvCell ReadCell(int column) {
    CsvCell cell{{}, line_};
    if (!Take('"')) {
      const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
      cell.Text = text_.substr(at_, end - at_);
      at_ = end;
      return cell;
    }
    ReadQuoted(cell, column);
    if (!AtEnd() && text_.substr(at_, 1).find_first_of(",\r\n") == std::string_view::npos) {
      throw CsvError(line_, column, "there is text after a closing quote");
    }
    return cell;
  }

  void ReadQuoted(CsvCell& cell, int column) {
    for (;;) {
      const std::size_t start = at_;
      if (AtEnd()) throw CsvError(cell.Line, column, "a quote is opened and never closed");
      if (TakeLineEnd()) {
        cell.Text += text_.substr(start, at_ - start);
      } else if (Take('"')) {
        if (!Take('"')) return;
        cell.Text += '"';
      } else {
        cell.Text += text_[at_++];
      }
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int line_ = 1;
};

bool IsBlank(const CsvRow& row) {
  return std::all_of(row.begin(), row.end(),
                     [](const CsvCell& cell) { return TrimmedText(cell.Text).empty(); });
}

}  // namespace

std::vector<CsvRow> ParseCsv(std::string_view text) {
  std::vector<CsvRow> rows;
  Parser parser(text);
  while (!parser.AtEnd()) {
    CsvRow row = parser.ReadRow();
    if (!IsBlank(row)) rows.push_back(std::move(row));
  }
  return rows;
}

std::string CsvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (const std::string& cell : cells) {
    if (&cell != &cells.front()) line += ',';
    // A blank at either end is quoted too, for readers that would trim it.
    const bool quoted = cell.find_first_of(",\"\r\n") != std::string::npos ||
                        cell.starts_with(' ') || cell.ends_with(' ');
    if (!quoted) {
      line += cell;
      continue;
    }
    line += '"';
    for (const char c : cell) line += c == '"' ? std::string("\"\"") : std::string(1, c);
    line += '"';
  }
  return line + "\r\n";
}

}  // namespace rostermill
