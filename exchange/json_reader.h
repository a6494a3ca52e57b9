#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "exchange/json_text.h"
#include "league/league_data.h"

namespace rostermill {

/// What the nodes of one reading share.
struct JsonReading {
  std::vector<JsonError> Errors;
  /// The duties given so far, each by the flag of its team's first player.
  std::set<const std::int16_t*> GivenDuties;
};

/// The place of a value in a JSON that is read; see league_json_layout.h. Every call stores the
/// value or adds an error. A value that is missing or null changes nothing, but is an error where
/// it is needed.
class JsonReaderNode {
 public:
  JsonReaderNode(const Json* value, std::string path, bool needed, JsonReading& reading)
      : value_(value), path_(std::move(path)), needed_(needed), reading_(reading) {}

  template <typename Integer>
  void Number(Integer& number, int smallest, int largest) const {
    if (const auto given = GivenNumber(smallest, largest)) number = static_cast<Integer>(*given);
  }

  /// A text of the image, Latin-1, of any length up to `longest`.
  void Text(std::string& text, std::size_t longest) const;

  /// A text of the image that always has `length` characters, padded where fewer are given.
  template <typename FixedLength>
  void PaddedText(FixedLength& text, std::size_t length) const {
    if (const auto given = GivenText(length)) text = rostermill::PaddedText(*given, length);
  }

  /// Up to two hexadecimal digits.
  void Jersey(std::string& number) const;

  /// A value that can't be changed, given for the human reader.
  void Constant(std::string_view text) const;

  /// True gives the player a duty that at most one of the table has.
  template <typename Table>
  void Duty(Table& table, int index, std::int16_t SkillRec::*flag) const {
    const auto given = GivenBool();
    if (!given) return;
    if (*given) {
      for (auto& mate : table) mate.*flag = 0;
      if (!reading_.GivenDuties.insert(&(table[table.first].*flag)).second) {
        AddError("only one player of a team can have it");
      }
    }
    table[index].*flag = *given ? 1 : 0;
  }

  /// Elements by position, from the first on.
  template <typename Table, typename Describe>
  void Array(Table& table, Describe describe) const {
    const Json* array = GivenArray(table.count);
    if (array == nullptr) return;
    for (std::size_t at = 0; at < array->size(); ++at) {
      describe(Element(*array, at, needed_), table[table.first + static_cast<int>(at)]);
    }
  }

  /// Elements that replace all those there, whole themselves.
  template <typename Table, typename Count, typename Describe>
  void WholeArray(Table& table, Count& count, Describe describe) const {
    const Json* array = GivenArray(table.count);
    if (array == nullptr) return;
    for (std::size_t at = 0; at < array->size(); ++at) {
      describe(Element(*array, at, true), table[table.first + static_cast<int>(at)]);
    }
    count = static_cast<Count>(array->size());
  }

  /// Calls `describe` with the members.
  template <typename Describe>
  void Object(Describe describe) const;

  /// Objects that carry their number, 1 to `count`, under the key `id`.
  template <typename Describe>
  void ArrayById(const char* id, int count, Describe describe) const;

 private:
  void AddError(std::string text) const { reading_.Errors.push_back({path_, std::move(text)}); }
  JsonReaderNode Element(const Json& array, std::size_t at, bool needed) const {
    return {&array[at], JsonPath(path_, at), needed, reading_};
  }

  /// The value; null where none is given.
  const Json* Given() const;
  const Json* GivenArray(int most) const;
  const Json* GivenObject() const;
  std::optional<int> GivenNumber(int smallest, int largest) const;
  std::optional<bool> GivenBool() const;
  std::optional<std::string> GivenText(std::size_t longest) const;

  const Json* value_;
  std::string path_;
  bool needed_;
  JsonReading& reading_;
};

/// The members of an object that is read.
class JsonReaderFields {
 public:
  JsonReaderFields(const Json& object, const std::string& path, bool needed, JsonReading& reading)
      : object_(object), path_(path), needed_(needed), reading_(reading) {}

  JsonReaderNode operator[](const std::string& key) { return Member(key, needed_); }

  JsonReaderNode Member(const std::string& key, bool needed);

  /// Adds an error for each member that wasn't asked for.
  void RefuseOthers() const;

 private:
  const Json& object_;
  const std::string& path_;
  bool needed_;
  JsonReading& reading_;
  std::vector<std::string> asked_;
};

template <typename Describe>
void JsonReaderNode::Object(Describe describe) const {
  const Json* object = GivenObject();
  if (object == nullptr) return;
  JsonReaderFields fields(*object, path_, needed_, reading_);
  describe(fields);
  fields.RefuseOthers();
}

template <typename Describe>
void JsonReaderNode::ArrayById(const char* id, int count, Describe describe) const {
  const Json* array = GivenArray(count);
  if (array == nullptr) return;
  std::set<int> seen;
  for (std::size_t at = 0; at < array->size(); ++at) {
    const JsonReaderNode element = Element(*array, at, false);
    const Json* object = element.GivenObject();
    if (object == nullptr) continue;
    JsonReaderFields fields(*object, element.path_, false, reading_);
    const JsonReaderNode id_node = fields.Member(id, true);
    int number = 0;
    id_node.Number(number, 1, count);
    if (number == 0) continue;
    if (!seen.insert(number).second) id_node.AddError("appears twice");
    describe(fields, number);
    fields.RefuseOthers();
  }
}

}  // namespace rostermill
