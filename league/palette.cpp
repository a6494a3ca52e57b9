#include "league/palette.h"

#include <algorithm>
#include <charconv>
#include <locale>
#include <system_error>

#include "league/file_access.h"

namespace rostermill {

namespace {

constexpr std::size_t longest_palette_file = 1 << 20;
constexpr std::size_t longest_name = 64;  // characters

[[noreturn]] void Fail(std::errc error, int record, const std::string& what) {
  throw std::system_error(std::make_error_code(error),
                          "record " + std::to_string(record + 1) + ": " + what);
}

/// How many bytes the first `count` characters of the text take in UTF-8; fewer where a byte comes
/// first that isn't UTF-8.
std::size_t Utf8Length(std::string_view text, std::size_t count) {
  using Utf8 = std::codecvt<char32_t, char8_t, std::mbstate_t>;
  const auto* start = reinterpret_cast<const char8_t*>(text.data());
  std::mbstate_t state{};
  const int length =
      std::use_facet<Utf8>(std::locale::classic()).length(state, start, start + text.size(), count);
  return static_cast<std::size_t>(length);
}

/// The name in UTF-8. Older editors and systems leave one in Latin-1.
std::string InUtf8(std::string_view name) {
  if (IsAscii(name) || Utf8Length(name, name.size()) == name.size()) return std::string(name);
  std::string text;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) text += static_cast<char>(0xC0 | byte >> 6);
    text += static_cast<char>(byte < 0x80 ? byte : 0x80 | (byte & 0x3F));
  }
  return text;
}

/// A name that is too long is cut, and no blank stays at the cut.
std::string ShortName(const std::string& name) {
  if (name.size() <= longest_name) return name;  // a character takes a byte or more
  const std::size_t length = Utf8Length(name, longest_name);
  return length < name.size() ? std::string(TrimmedText({name.data(), length})) : name;
}

/// Takes fields off the front of the file's text.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : rest_(WithoutByteOrderMark(text)) {}

  /// Passes over blank lines; false at the end of the text.
  bool SkipToRecord() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size()));
    return !rest_.empty();
  }

  std::string_view Next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    return rest_.starts_with('"') ? NextQuoted() : NextPlain();
  }

 private:
  std::string_view NextPlain() {
    const std::size_t end = std::min(rest_.find_first_of(",\r\n"), rest_.size());
    const std::string_view field = TrimmedText(rest_.substr(0, end));
    Drop(end);
    return field;
  }

  std::string_view NextQuoted() {
    const std::size_t close = std::min(rest_.find('"', 1), rest_.size());
    const std::string_view field = rest_.substr(1, close - 1);
    Drop(std::min(rest_.find_first_of(",\r\n", close), rest_.size()));
    return field;
  }

  /// Drops the field and the one separator after it; CR LF is one.
  void Drop(std::size_t end) {
    rest_.remove_prefix(end);
    if (rest_.starts_with("\r\n")) {
      rest_.remove_prefix(2);
    } else if (!rest_.empty()) {
      rest_.remove_prefix(1);
    }
  }

  std::string_view rest_;
};

std::int16_t ColorValue(std::string_view field, int record) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value, 16);
  if (error == std::errc::invalid_argument || end != field.data() + field.size()) {
    Fail(std::errc::invalid_argument, record,
         "\"" + std::string(field.substr(0, 40)) + "\" is not a hexadecimal number");
  }
  if (error != std::errc{} || value > 0xFF) {
    Fail(std::errc::result_out_of_range, record,
         "\"" + std::string(field.substr(0, 40)) + "\" is above FF");
  }
  return static_cast<std::int16_t>(value);
}

}  // namespace

std::optional<RgbColor> PaletteColor(const Palette& palette, int index) {
  if (index < palette.first || index > palette.last) return std::nullopt;
  const PaletteRec& rec = palette[index];
  return RgbColor{static_cast<std::uint8_t>(rec.Red), static_cast<std::uint8_t>(rec.Green),
                  static_cast<std::uint8_t>(rec.Blue)};
}

std::string PaletteName(const Palette& palette, int index) {
  if (index >= palette.first && index <= palette.last) return palette[index].Name;
  return "Unknown " + HexByteText(index);
}

std::string PalettePath(const std::string& app_dir) {
  return app_dir + "colors.txt";
}

Palette ParsePalette(std::string_view text) {
  Palette palette;
  FieldReader fields(text);
  for (int record = palette.first; record <= palette.last; ++record) {
    if (!fields.SkipToRecord()) {
      Fail(std::errc::no_message_available, record, "the file ends before its 64 records");
    }
    PaletteRec& rec = palette[record];
    rec.Name = ShortName(InUtf8(fields.Next()));
    rec.Red = ColorValue(fields.Next(), record);
    rec.Green = ColorValue(fields.Next(), record);
    rec.Blue = ColorValue(fields.Next(), record);
  }
  return palette;
}

Palette ReadPalette(const std::string& app_dir) {
  try {
    const FileStart file = ReadFileStart(PalettePath(app_dir), longest_palette_file);
    return ParsePalette({reinterpret_cast<const char*>(file.Bytes.data()), file.Bytes.size()});
  } catch (const FileError& error) {
    throw std::system_error(error.Number(), std::generic_category());
  }
}

}  // namespace rostermill
