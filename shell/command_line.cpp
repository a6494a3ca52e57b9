#include "shell/command_line.h"

namespace rostermill {

namespace {

constexpr const char* help =
    "Usage: rostermill [FILE]\n"
    "Opens the league editor, and loads the cartridge image FILE.\n"
    "\n"
    "  --help     shows this text\n"
    "  --version  shows the version\n";

CommandLine Refuse(const std::string& reason) {
  return {{}, "rostermill: " + reason + "; see rostermill --help\n", 2};
}

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& words) {
  CommandLine asked;
  bool options = true;
  bool named = false;
  for (const std::string& word : words) {
    if (options && word == "--") {
      options = false;
    } else if (options && word == "--help") {
      return {{}, help, 0};
    } else if (options && word == "--version") {
      return {{}, "rostermill " ROSTERMILL_VERSION "\n", 0};
    } else if (options && word.starts_with('-')) {
      return Refuse("unknown option " + word);
    } else if (named) {
      return Refuse("only one file can be opened");
    } else if (word.empty()) {
      return Refuse("the file's name is empty");
    } else {
      asked.Image = word;
      named = true;
    }
  }
  return asked;
}

}  // namespace rostermill
