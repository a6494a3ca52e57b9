#include "tests/sharing/process.h"

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace rostermill::test {

namespace {

[[noreturn]] void Become(std::vector<char*>& arguments, bool own_group, const char* messages,
                         pid_t parent) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != parent) ::_exit(127);
  if (own_group) ::setpgid(0, 0);
  ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
  if (*messages != '\0') {
    ::dup2(::open(messages, O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
  }
  ::execv(arguments[0], arguments.data());
  ::_exit(127);
}

}  // namespace

Process::Process(const std::vector<std::string>& command, Group group, const std::string& messages)
    : group_(group) {
  std::vector<std::string> words = command;
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t parent = ::getpid();
  pid_ = ::fork();
  if (pid_ < 0) throw std::runtime_error("no process for " + command[0]);
  if (pid_ == 0) Become(arguments, group == Group::Own, messages.c_str(), parent);
  if (group == Group::Own) ::setpgid(pid_, pid_);
}

std::optional<int> Process::Ended(std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!status_) {
    int status = 0;
    if (::waitpid(pid_, &status, WNOHANG) == pid_) {
      status_ = status;
    } else if (std::chrono::steady_clock::now() >= end) {
      break;
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
  return status_;
}

int Process::ExitCode(std::chrono::milliseconds patience) {
  const auto status = Ended(patience);
  return status && WIFEXITED(*status) ? WEXITSTATUS(*status) : -1;
}

void Process::Kill() {
  if (status_) return;
  ::kill(group_ == Group::Own ? -pid_ : pid_, SIGKILL);
  int status = 0;
  while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) continue;
  status_ = status;
}

}  // namespace rostermill::test
