#pragma once

#include <string>

namespace rostermill::test {

/// Owner, group, mode and every extended attribute of a file, the access list among them.
std::string RightsOf(const std::string& path);

/// What a command prints, with its errors; `status` gets its exit code.
std::string OutputOf(const std::string& command, int& status);

}  // namespace rostermill::test
