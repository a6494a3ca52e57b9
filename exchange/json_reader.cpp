#include "exchange/json_reader.h"

#include <algorithm>

#include "exchange/text_codes.h"

namespace rostermill {

const Json* JsonReaderNode::Given() const {
  if (value_ != nullptr && !value_->is_null()) return value_;
  if (needed_) AddError("must be given");
  return nullptr;
}

const Json* JsonReaderNode::GivenObject() const {
  const Json* value = Given();
  if (value == nullptr || value->is_object()) return value;
  AddError("must be an object");
  return nullptr;
}

const Json* JsonReaderNode::GivenArray(int most) const {
  const Json* value = Given();
  if (value == nullptr) return nullptr;
  if (value->is_array() && value->size() <= static_cast<std::size_t>(most)) return value;
  AddError("must be an array of at most " + std::to_string(most));
  return nullptr;
}

std::optional<int> JsonReaderNode::GivenNumber(int smallest, int largest) const {
  const Json* value = Given();
  if (value == nullptr) return std::nullopt;
  const std::string range = std::to_string(smallest) + " to " + std::to_string(largest);
  if (!value->is_number_integer()) {
    AddError("must be a whole number, " + range);
    return std::nullopt;
  }
  // One above the range of the type is read as negative, so that it is refused as well.
  const auto number = value->get<std::int64_t>();
  if (number >= smallest && number <= largest) return static_cast<int>(number);
  AddError("must be " + range);
  return std::nullopt;
}

std::optional<bool> JsonReaderNode::GivenBool() const {
  const Json* value = Given();
  if (value == nullptr) return std::nullopt;
  if (value->is_boolean()) return value->get<bool>();
  AddError("must be true or false");
  return std::nullopt;
}

std::optional<std::string> JsonReaderNode::GivenText(std::size_t longest) const {
  const Json* value = Given();
  if (value == nullptr) return std::nullopt;
  if (!value->is_string()) {
    AddError("must be a string");
    return std::nullopt;
  }
  auto text = Latin1Of(value->get_ref<const std::string&>());
  if (!text) {
    AddError("has a character outside Latin-1");
  } else if (text->size() > longest) {
    AddError("must have at most " + std::to_string(longest) + " characters");
    text.reset();
  }
  return text;
}

void JsonReaderNode::Text(std::string& text, std::size_t longest) const {
  if (auto given = GivenText(longest)) text = std::move(*given);
}

void JsonReaderNode::Jersey(std::string& number) const {
  constexpr std::size_t longest = 0xFFFF;
  const auto given = GivenText(longest);
  if (!given) return;
  const bool hexadecimal = std::all_of(given->begin(), given->end(), [](char c) {
    return (c >= '0' && c <= '9') || (UpperChar(c) >= 'A' && UpperChar(c) <= 'F');
  });
  if (hexadecimal && given->size() <= 2) {
    number = UpperText(*given);
  } else {
    AddError("must be one or two digits");
  }
}

void JsonReaderNode::Constant(std::string_view text) const {
  const Json* value = Given();
  if (value != nullptr && *value != text) AddError("can't be changed; it is " + JsonQuoted(text));
}

JsonReaderNode JsonReaderFields::Member(const std::string& key, bool needed) {
  asked_.push_back(key);
  const auto member = object_.find(key);
  return {member == object_.end() ? nullptr : &*member, JsonPath(path_, key), needed, reading_};
}

void JsonReaderFields::RefuseOthers() const {
  for (const auto& [key, value] : object_.items()) {
    if (std::find(asked_.begin(), asked_.end(), key) != asked_.end()) continue;
    std::string known;
    for (const std::string& name : asked_) known += (known.empty() ? "" : ", ") + name;
    reading_.Errors.push_back({JsonPath(path_, key), "unknown key; the keys here are " + known});
  }
}

}  // namespace rostermill
