#pragma once

#include <string>
#include <vector>

namespace rostermill {

/// What the words after the program's name ask for.
struct CommandLine {
  std::string Image;  ///< the file to load; empty for none
  std::string Print;  ///< what to print instead of opening a window; empty to open it
  int ExitCode = 0;   ///< after printing: 0 to standard output, 2 to standard error
};

/// `words` are without the program's name. Anything but one file name, `--help` and `--version`
/// gives a line that says what is wrong, and the exit code 2. After `--` every word is a file name.
CommandLine ReadCommandLine(const std::vector<std::string>& words);

}  // namespace rostermill
