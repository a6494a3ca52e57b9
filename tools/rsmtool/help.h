#pragma once

#include <string>
#include <string_view>

namespace rostermill {

/// What `rsmtool --help` prints.
std::string ProgramHelp();

/// What `rsmtool COMMAND --help` prints.
std::string CommandHelp(std::string_view command);

}  // namespace rostermill
