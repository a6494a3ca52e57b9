#pragma once

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace rostermill::test {

/// What a writer says about its saves. The text begins with the stamp of the state, if there is one
/// that is known.
struct LogLine {
  std::string Kind;  ///< one of those below
  std::string Text;

  std::string Stamp() const { return Text.substr(0, Text.find(' ')); }
};

// The kinds. Each save that is about to be made ends with one of the next three, unless its writer
// is killed.
inline const std::string About = "about";
inline const std::string Saved = "saved";        ///< and the user was told so
inline const std::string Declined = "declined";  ///< a question of the program was answered No
inline const std::string Refused = "refused";    ///< with this message
inline const std::string NotKept = "not-kept";   ///< saved, but what it replaced couldn't be kept
inline const std::string Done = "done";    ///< a command that doesn't say which state it saved
inline const std::string Fault = "fault";  ///< what a user should never meet

class WriterLog {
 public:
  explicit WriterLog(const std::string& path) {
    file_.exceptions(std::ios::failbit | std::ios::badbit);
    file_.open(path, std::ios::binary);
  }

  void Write(const std::string& kind, std::string text) {
    std::ranges::replace(text, '\n', ' ');
    file_ << kind + " " + text + "\n" << std::flush;
  }

 private:
  std::ofstream file_;
};

/// Follows a log that is being written.
class LogReader {
 public:
  explicit LogReader(std::string path) : path_(std::move(path)) {}

  /// The lines since the last call; not one that is only half there.
  std::vector<LogLine> Next() {
    std::ifstream file(path_, std::ios::binary);
    file.seekg(at_);
    std::vector<LogLine> lines;
    for (std::string text; std::getline(file, text) && !file.eof(); at_ = file.tellg()) {
      const std::size_t space = text.find(' ');
      lines.push_back({text.substr(0, space), text.substr(space + 1)});
    }
    return lines;
  }

 private:
  std::string path_;
  std::streamoff at_ = 0;
};

}  // namespace rostermill::test
