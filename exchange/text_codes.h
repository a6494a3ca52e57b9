#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rostermill {

/// Latin-1 as UTF-8.
std::string Utf8Of(std::string_view latin1);

/// UTF-8 as Latin-1; empty where the text is not UTF-8 or has a character outside Latin-1.
std::optional<std::string> Latin1Of(std::string_view utf8);

/// True for a Latin-1 character that would steer a terminal instead of showing.
bool IsControl(char c);

}  // namespace rostermill
