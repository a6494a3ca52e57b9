#include "exchange/league_json.h"

#include <memory>

#include "exchange/json_reader.h"
#include "exchange/league_json_layout.h"
#include "exchange/utf8.h"

namespace rostermill {

namespace {

/// The place of a value in a JSON that is written; see league_json_layout.h. Ranges and lengths are
/// for reading.
class JsonWriterNode {
 public:
  explicit JsonWriterNode(Json& value) : value_(value) {}

  void Number(int number, int /*smallest*/, int /*largest*/) const { value_ = number; }
  void Text(const std::string& text, std::size_t /*longest*/) const { value_ = Utf8Of(text); }
  void PaddedText(const std::string& text, std::size_t /*length*/) const { value_ = Utf8Of(text); }
  template <std::size_t Length>
  void PaddedText(const FixedText<Length>& text, std::size_t /*length*/) const {
    value_ = Utf8Of(text.str());
  }
  void Jersey(const std::string& number) const { value_ = Utf8Of(number); }
  void Constant(std::string_view text) const { value_ = text; }

  template <typename Table>
  void Duty(const Table& table, int index, std::int16_t SkillRec::*flag) const {
    value_ = table[index].*flag != 0;
  }

  template <typename Table, typename Describe>
  void Array(const Table& table, Describe describe) const {
    WholeArray(table, table.count, describe);
  }

  template <typename Table, typename Describe>
  void WholeArray(const Table& table, int count, Describe describe) const {
    value_ = Json::array();
    for (int at = 0; at < count; ++at) describe(Element(), table[table.first + at]);
  }

  template <typename Describe>
  void Object(Describe describe) const {
    value_ = Json::object();
    Fields fields{value_};
    describe(fields);
  }

  template <typename Describe>
  void ArrayById(const char* id, int count, Describe describe) const {
    value_ = Json::array();
    for (int number = 1; number <= count; ++number) {
      Element().Object([&](auto& fields) {
        fields[id].Number(number, 1, count);
        describe(fields, number);
      });
    }
  }

 private:
  struct Fields {
    Json& Object;
    JsonWriterNode operator[](const std::string& key) { return JsonWriterNode(Object[key]); }
  };

  JsonWriterNode Element() const { return JsonWriterNode(value_.emplace_back(nullptr)); }

  Json& value_;
};

}  // namespace

std::string WriteLeagueJson(const LeagueData& league, JsonLayout layout) {
  Json json;
  DescribeLeague(JsonWriterNode(json), league);
  return JsonText(json, layout == JsonLayout::Indented ? 2 : -1);
}

std::vector<JsonError> ApplyLeagueJson(std::string_view text, LeagueData& league) {
  JsonReading reading;
  const auto json = ParseJson(text, reading.Errors);
  if (!json) return reading.Errors;
  if (!json->is_object()) return {{{}, "the text must be a JSON object"}};
  auto changed = std::make_unique<LeagueData>(league);
  DescribeLeague(JsonReaderNode(&*json, {}, false, reading), *changed);
  if (reading.Errors.empty()) league = std::move(*changed);
  return reading.Errors;
}

}  // namespace rostermill
