#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace rostermill::test {

/// A child process, which ends with the object and with the process that started it.
class Process {
 public:
  /// With a group of its own, Kill ends its own children as well.
  enum class Group { Own, Parents };

  /// Standard output is dropped; what it prints to standard error goes to the file `messages`, or
  /// where this process prints.
  Process(const std::vector<std::string>& command, Group group, const std::string& messages = {});
  ~Process() { Kill(); }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// Waits that long. What waitpid gives, once the process has ended.
  std::optional<int> Ended(std::chrono::milliseconds patience = {});
  /// The same; the exit code, or -1 if a signal has ended it or it is still running.
  int ExitCode(std::chrono::milliseconds patience);

  void Kill();

 private:
  pid_t pid_;
  Group group_;
  std::optional<int> status_;
};

}  // namespace rostermill::test
