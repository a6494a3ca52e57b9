#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace rostermill {

/// Builds a JSON text in the order of its calls, indented by 2 blanks, one value a line. Qt's own
/// writer sorts the keys. Every Begin needs its End; inside an object every value has a key.
class JsonWriter {
 public:
  void BeginObject(std::string_view key = {}) { Begin(key, '{'); }
  void EndObject() { End('}'); }
  void BeginArray(std::string_view key = {}) { Begin(key, '['); }
  void EndArray() { End(']'); }

  void Number(std::string_view key, std::int64_t value) { Plain(key, std::to_string(value)); }
  void Bool(std::string_view key, bool value) { Plain(key, value ? "true" : "false"); }
  /// Text of the image, Latin-1.
  void Latin1(std::string_view key, std::string_view text);
  void Utf8(std::string_view key, std::string_view text);

  /// The text so far, ended by a line end.
  std::string Text() const { return text_ + "\n"; }

 private:
  void Begin(std::string_view key, char bracket);
  void End(char bracket);
  void Plain(std::string_view key, std::string_view value);
  void StartLine(std::string_view key);

  std::string text_;
  std::size_t depth_ = 0;
  bool first_ = true;  ///< nothing is in the current object or array yet
};

}  // namespace rostermill
