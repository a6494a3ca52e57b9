#pragma once

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace rostermill::test {

/// What a writer says about its saves. The text begins with the stamp of the state, if there is one
/// that is known.
struct LogLine {
  std::string Writer;
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

/// All writers have one log, to which each adds lines.
class WriterLog {
 public:
  WriterLog(const std::string& path, std::string writer) : writer_(std::move(writer)) {
    file_.exceptions(std::ios::failbit | std::ios::badbit);
    file_.open(path, std::ios::binary | std::ios::app);
  }

  void Write(const std::string& kind, std::string text) {
    std::ranges::replace(text, '\n', ' ');
    file_ << writer_ + " " + kind + " " + text + "\n" << std::flush;
  }

 private:
  std::string writer_;
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
      LogLine& line = lines.emplace_back();
      std::istringstream words(text);
      words >> line.Writer >> line.Kind >> std::ws;
      std::getline(words, line.Text);
    }
    return lines;
  }

 private:
  std::string path_;
  std::streamoff at_ = 0;
};

}  // namespace rostermill::test
