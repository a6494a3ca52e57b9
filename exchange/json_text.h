#pragma once

#include <optional>

#include "exchange/league_json.h"
#include <nlohmann/json.hpp>

namespace rostermill {

/// Keeps the order of its keys.
using Json = nlohmann::ordered_json;

/// The value as text, indented where `indent` is above 0, and a line end. DEL, which would steer a
/// terminal, is escaped, as the library does with the other control characters of ASCII.
std::string JsonText(const Json& json, int indent = 2);

/// The path of a member or an element of what is at `parent`. A key that isn't plain letters and
/// digits is quoted, and cut where it is long.
std::string JsonPath(const std::string& parent, std::string_view key);
std::string JsonPath(const std::string& parent, std::size_t index);

/// A JSON string of the text, UTF-8, as messages show it: ASCII, a long one cut.
std::string JsonQuoted(std::string_view text);

/// The value of a text; empty where it isn't JSON or exceeds any league's in size, depth or number
/// of values. Keys that are in an object twice are added to the errors too.
std::optional<Json> ParseJson(std::string_view text, std::vector<JsonError>& errors);

}  // namespace rostermill
