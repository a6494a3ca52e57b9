#include "tests/faults/fault_walk.h"

#include <csignal>
#include <cstring>

#include <sys/wait.h>
#include <unistd.h>

namespace rostermill::test {

void ForEachFault(const std::vector<SystemCall>& trace, Effect kind, int number,
                  const std::function<void(const Fault&)>& one_case) {
  for (const auto& [call, count] : CountsOf(trace)) {
    if (kind == Effect::Short && call != "write" && call != "read") continue;
    for (int at = 1; at <= count; ++at) {
      one_case({call, at, false, kind, number});
      if (kind != Effect::Kill) one_case({call, at, true, kind, number});
    }
  }
}

std::string TextOf(const Fault& fault) {
  const char* effect = fault.Kind == Effect::Kill    ? "killed"
                       : fault.Kind == Effect::Short ? "short"
                                                     : std::strerror(fault.Number);
  return fault.Call + " " + std::to_string(fault.At) + (fault.Onward ? " and on: " : ": ") + effect;
}

bool KilledWhile(const std::function<void()>& act) {
  const pid_t child = fork();
  if (child == 0) {
    act();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

}  // namespace rostermill::test
