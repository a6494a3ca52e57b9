#include "tests/faults/fault_walk.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "history/store_folder.h"
#include "league/file_error.h"
#include <sys/wait.h>
#include <unistd.h>

namespace rostermill::test {

void ForEachFault(const std::vector<SystemCall>& trace, Effect kind, int number,
                  const std::function<void(const Fault&)>& one_case) {
  for (const auto& [call, count] : CountsOf(trace)) {
    if (kind == Effect::Short && call != "write" && call != "pread") continue;
    if (kind == Effect::Lie && call != "write") continue;
    for (int at = 1; at <= count; ++at) {
      one_case({call, at, false, kind, number});
      if (kind != Effect::Kill && kind != Effect::Hold) one_case({call, at, true, kind, number});
    }
  }
}

std::string TextOf(const Fault& fault) {
  static const char* const effects[] = {"", "short", "a lie", "held", "killed"};
  return fault.Call + " " + std::to_string(fault.At) + (fault.Onward ? " and on: " : ": ") +
         (fault.Kind == Effect::Error ? std::strerror(fault.Number) : effects[int(fault.Kind)]);
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

bool HeldWhile(const std::function<bool()>& act, const std::function<void()>& meanwhile) {
  const pid_t child = fork();
  if (child == 0) _exit(act() ? 0 : 1);
  int status = 0;
  waitpid(child, &status, WUNTRACED);
  if (!WIFSTOPPED(status)) return false;
  meanwhile();
  kill(child, SIGCONT);
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::set<std::string> WalkFaults(const std::function<void()>& prepare,
                                 const std::function<void()>& act,
                                 const std::function<void(bool)>& check, Killing killing) {
  prepare();
  StartFaults({});
  act();
  const auto trace = StopFaults();
  check(true);
  std::set<std::string> refused;
  const auto failing = [&](const Fault& fault) {
    // Syncs take their time, and a disk that fails for good fails at the first call as well.
    if (fault.Onward && fault.At > 1) return;
    SCOPED_TRACE(TextOf(fault));
    prepare();
    bool done = true;
    StartFaults({fault});
    try {
      act();
    } catch (const FileError& error) {
      done = false;
      EXPECT_NE(error.Number(), 0);
    } catch (const HistoryError&) {
      done = false;
    }
    StopFaults();
    EXPECT_TRUE(FaultStruck());
    if (!done) refused.insert(fault.Call);
    check(done);
  };
  ForEachFault(trace, Effect::Error, EIO, failing);
  ForEachFault(trace, Effect::Short, 0, failing);
  if (killing == Killing::Never) return refused;
  ForEachFault(trace, Effect::Kill, 0, [&](const Fault& fault) {
    SCOPED_TRACE(TextOf(fault));
    prepare();
    EXPECT_TRUE(KilledWhile([&] {
      StartFaults({fault});
      act();
    }));
    check(false);
  });
  return refused;
}

}  // namespace rostermill::test
