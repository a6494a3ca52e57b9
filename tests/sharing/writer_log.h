#pragma once

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace rostermill::test {

/// What a writer says about its saves. The text begins with the stamp of the state, if there is one
/// that is known.
struct LogLine {
  long long Time = 0;  ///< microseconds of the steady clock, which all processes share
  std::string Kind;    ///< one of those below
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

/// A log is written line by line, each with one call, so that a kill leaves whole lines.
class WriterLog {
 public:
  explicit WriterLog(const std::string& path)
      : file_(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)) {
    if (file_ < 0) throw std::runtime_error("no log " + path);
  }
  ~WriterLog() { ::close(file_); }
  WriterLog(const WriterLog&) = delete;
  WriterLog& operator=(const WriterLog&) = delete;

  void Write(const std::string& kind, std::string text) const {
    std::ranges::replace(text, '\n', ' ');
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const auto time = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    const std::string line = std::to_string(time) + " " + kind + " " + text + "\n";
    if (::write(file_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
      throw std::runtime_error("the log can't be written");
    }
  }

 private:
  int file_;
};

/// Follows a log that is being written.
class LogReader {
 public:
  explicit LogReader(std::string path) : path_(std::move(path)) {}

  /// The lines since the last call.
  std::vector<LogLine> Next() {
    std::ifstream file(path_, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(at_));
    std::vector<LogLine> lines;
    for (std::string text; std::getline(file, text) && !file.eof(); at_ += text.size() + 1) {
      std::istringstream words(text);
      LogLine line;
      words >> line.Time >> line.Kind;
      std::getline(words >> std::ws, line.Text);
      lines.push_back(std::move(line));
    }
    return lines;
  }

 private:
  std::string path_;
  std::size_t at_ = 0;
};

}  // namespace rostermill::test
