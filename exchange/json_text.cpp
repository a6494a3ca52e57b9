#include "exchange/json_text.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include "league/quantity_text.h"

namespace rostermill {

namespace {

/// A league's text is nested 6 deep and has 28,000 values and keys, at most 10 keys in an object.
/// The library's time for an object grows with the square of its keys.
constexpr std::size_t deepest = 16;
constexpr std::size_t most_values = 100'000;
constexpr std::size_t most_keys = 100;

class TooMuch : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Follows the parser through the text, since a finished object no longer shows what it was given
/// twice.
class Watcher {
 public:
  explicit Watcher(std::vector<JsonError>& errors) : errors_(errors) {}

  void See(Json::parse_event_t event, const Json& parsed) {
    using Event = Json::parse_event_t;
    if (event == Event::object_end || event == Event::array_end) {
      levels_.pop_back();
      FinishElement();
      return;
    }
    if (++values_ > most_values) throw TooMuch("holds more values than any league");
    if (event == Event::key) {
      SeeKey(parsed.get_ref<const std::string&>());
    } else if (event == Event::value) {
      FinishElement();
    } else {
      if (levels_.size() == deepest) throw TooMuch("is nested deeper than any league");
      levels_.push_back({event == Event::array_start, 0, {}, {}});
    }
  }

 private:
  /// An array or object that has begun and not ended.
  struct Level {
    bool IsArray = false;
    std::size_t Index = 0;  ///< of the element that is being read; in an object, the keys so far
    std::string Key;        ///< of the member that is being read
    std::set<std::string> Keys;
  };

  void SeeKey(const std::string& key) {
    Level& level = levels_.back();
    if (++level.Index > most_keys) throw TooMuch("has an object with more keys than any league's");
    level.Key = key;
    if (!level.Keys.insert(key).second) errors_.push_back({PathHere(), "appears twice"});
  }

  void FinishElement() {
    if (!levels_.empty() && levels_.back().IsArray) ++levels_.back().Index;
  }

  std::string PathHere() const {
    std::string path;
    for (const Level& level : levels_) {
      path = level.IsArray ? JsonPath(path, level.Index) : JsonPath(path, level.Key);
    }
    return path;
  }

  std::vector<JsonError>& errors_;
  std::vector<Level> levels_;
  std::size_t values_ = 0;
};

/// "line 3, column 5" of the parser's count of bytes.
std::string PlaceText(std::string_view text, std::size_t bytes) {
  const std::string_view before = text.substr(0, bytes == 0 ? 0 : bytes - 1);
  const auto lines = std::count(before.begin(), before.end(), '\n');
  const std::size_t line_start = before.rfind('\n') + 1;  // 0 where there is none
  return "line " + std::to_string(lines + 1) + ", column " +
         std::to_string(before.size() - line_start + 1);
}

/// The reason at the end of the parser's message, without the bytes of the text that it quotes.
std::string ReasonIn(std::string_view message) {
  constexpr std::string_view before = " - ";
  const std::size_t dash = message.find(before);
  if (dash != std::string_view::npos) message.remove_prefix(dash + before.size());
  return std::string(message.substr(0, message.find("; last read")));
}

}  // namespace

std::string JsonQuoted(std::string_view text) {
  constexpr std::size_t longest = 60;
  const std::string quoted =
      Json(text.substr(0, longest)).dump(-1, ' ', true, Json::error_handler_t::replace);
  return text.size() > longest ? quoted + "..." : quoted;
}

std::string JsonText(const Json& json, int indent) {
  std::string text = json.dump(indent, ' ', false, Json::error_handler_t::replace);
  constexpr std::string_view escaped = "\\u007f";
  for (std::size_t at = 0; (at = text.find('\x7F', at)) != std::string::npos;) {
    text.replace(at, 1, escaped);
    at += escaped.size();
  }
  text += "\n";
  return text;
}

std::string JsonPath(const std::string& parent, std::string_view key) {
  const bool plain =
      !key.empty() && key.size() < 40 && std::all_of(key.begin(), key.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_';
      });
  if (!plain) return parent + "[" + JsonQuoted(key) + "]";
  return parent.empty() ? std::string(key) : parent + "." + std::string(key);
}

std::string JsonPath(const std::string& parent, std::size_t index) {
  return parent + "[" + std::to_string(index) + "]";
}

std::string JsonErrorLine(const JsonError& error) {
  return error.Path.empty() ? error.Text : error.Path + ": " + error.Text;
}

std::optional<Json> ParseJson(std::string_view text, std::vector<JsonError>& errors) {
  if (text.size() > LargestLeagueJson) {
    errors.push_back({{},
                      "the text is too large: it has " + QuantityText(text.size(), "byte") +
                          ", and the limit is " + QuantityText(LargestLeagueJson, "byte")});
    return std::nullopt;
  }
  // The library would stop reading at a null byte and ignore the rest.
  if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos) {
    errors.push_back(
        {{}, "this is not JSON: " + PlaceText(text, zero + 1) + ": unexpected null byte"});
    return std::nullopt;
  }
  Watcher watcher(errors);
  try {
    return Json::parse(text, [&watcher](int, Json::parse_event_t event, const Json& parsed) {
      watcher.See(event, parsed);
      return true;
    });
  } catch (const Json::parse_error& error) {
    errors.push_back(
        {{}, "this is not JSON: " + PlaceText(text, error.byte) + ": " + ReasonIn(error.what())});
  } catch (const Json::out_of_range&) {
    errors.push_back({{}, "a number in the text is too large"});
  } catch (const TooMuch& error) {
    errors.push_back({{}, std::string("the text ") + error.what()});
  }
  return std::nullopt;
}

}  // namespace rostermill
