#include "tools/rsmtool/json_writer.h"

#include "exchange/text_codes.h"
#include "league/text.h"

namespace rostermill {

namespace {

std::string Quoted(std::string_view utf8) {
  std::string text = "\"";
  for (const char c : utf8) {
    if (c == '"' || c == '\\') {
      text += '\\';
      text += c;
    } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
      text += "\\u00" + HexByteText(c);
    } else {
      text += c;
    }
  }
  return text + "\"";
}

}  // namespace

void JsonWriter::StartLine(std::string_view key) {
  if (depth_ > 0) {
    if (!first_) text_ += ",";
    text_ += "\n";
    text_.append(2 * depth_, ' ');
  }
  first_ = false;
  if (!key.empty()) text_ += Quoted(key) + ": ";
}

void JsonWriter::Begin(std::string_view key, char bracket) {
  StartLine(key);
  text_ += bracket;
  ++depth_;
  first_ = true;
}

void JsonWriter::End(char bracket) {
  --depth_;
  if (!first_) {
    text_ += "\n";
    text_.append(2 * depth_, ' ');
  }
  text_ += bracket;
  first_ = false;
}

void JsonWriter::Plain(std::string_view key, std::string_view value) {
  StartLine(key);
  text_ += value;
}

void JsonWriter::Utf8(std::string_view key, std::string_view text) {
  Plain(key, Quoted(text));
}

void JsonWriter::Latin1(std::string_view key, std::string_view text) {
  Utf8(key, Utf8Of(text));
}

}  // namespace rostermill
