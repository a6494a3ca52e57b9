#include "exchange/table_text.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

#include "exchange/utf8.h"
#include "league/text.h"

namespace rostermill {

namespace {

/// The separator that the first line has most of; a comma where it has none.
char SeparatorOf(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  constexpr std::array separators{',', ';', '\t'};
  return *std::ranges::max_element(
      separators, {}, [line](char separator) { return std::ranges::count(line, separator); });
}

std::string Utf16AsUtf8(std::string_view bytes, QStringDecoder::Encoding encoding) {
  QStringDecoder decoder(encoding);
  const QString text = decoder.decode(QByteArrayView(bytes.data(), std::ssize(bytes)));
  return text.toStdString();
}

class Parser {
 public:
  enum class Quotes { Strict, Lenient };
  Parser(std::string_view text, char separator, Quotes quotes)
      : text_(text), separator_(separator), ends_{separator_, '\r', '\n'}, quotes_(quotes) {}

  bool AtEnd() const { return at_ == text_.size(); }

  TableRow ReadRow() {
    TableRow row;
    for (;;) {
      row.push_back(ReadCell(static_cast<int>(row.size()) + 1));
      if (AtEnd() || !Take(separator_)) break;
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

  TableCell ReadCell(int column) {
    const std::size_t start = at_;
    const int line = line_;
    if (!Take('"')) return PlainCell();
    try {
      TableCell cell{{}, line_};
      ReadQuoted(cell, column);
      if (!AtEnd() && text_.substr(at_, 1).find_first_of(ends_) == std::string_view::npos) {
        throw TableSyntaxError(line_, column, "there is text after a closing quote");
      }
      return cell;
    } catch (const TableSyntaxError&) {
      if (quotes_ == Quotes::Strict) throw;
      at_ = start;
      line_ = line;
      return PlainCell();
    }
  }

  TableCell PlainCell() {
    const std::size_t end = std::min(text_.find_first_of(ends_, at_), text_.size());
    TableCell cell{std::string(text_.substr(at_, end - at_)), line_};
    at_ = end;
    return cell;
  }

  void ReadQuoted(TableCell& cell, int column) {
    for (;;) {
      const std::size_t start = at_;
      if (AtEnd()) throw TableSyntaxError(cell.Line, column, "a quote is opened and never closed");
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
  char separator_;
  std::string ends_;
  Quotes quotes_;
  std::size_t at_ = 0;
  int line_ = 1;
};

bool IsBlank(const TableRow& row) {
  return std::all_of(row.begin(), row.end(),
                     [](const TableCell& cell) { return TrimmedText(cell.Text).empty(); });
}

}  // namespace

std::string TableText(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return Utf16AsUtf8(bytes, QStringDecoder::Utf16LE);
  if (bytes.starts_with("\xFE\xFF")) return Utf16AsUtf8(bytes, QStringDecoder::Utf16BE);
  const std::string_view text = WithoutByteOrderMark(bytes);
  return QUtf8StringView(text.data(), std::ssize(text)).isValidUtf8() ? std::string(text)
                                                                      : Utf8Of(text);
}

std::vector<TableRow> ParseTable(std::string_view text) {
  std::vector<TableRow> rows;
  Parser parser(text, SeparatorOf(text), Parser::Quotes::Strict);
  while (!parser.AtEnd()) {
    TableRow row = parser.ReadRow();
    if (!IsBlank(row)) rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<TableRow> ParseCells(std::string_view text) {
  std::vector<TableRow> rows;
  Parser parser(text, '\t', Parser::Quotes::Lenient);
  while (!parser.AtEnd()) rows.push_back(parser.ReadRow());
  while (rows.size() > 1 && rows.back().size() == 1 && rows.back()[0].Text.empty()) rows.pop_back();
  return rows;
}

std::string TableLine(const std::vector<std::string>& cells) {
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
