#pragma once

#include <functional>
#include <set>

#include "tests/faults/system_calls.h"

namespace rostermill::test {

/// Calls `one_case` with every fault of this kind: each call that `trace` shows, in turn, failing
/// once and failing from then on.
void ForEachFault(const std::vector<SystemCall>& trace, Effect kind, int number,
                  const std::function<void(const Fault&)>& one_case);

/// "write 2 and on: Input/output error"
std::string TextOf(const Fault& fault);

/// Runs `act` in a child process and waits; true when SIGKILL ended it.
bool KilledWhile(const std::function<void()>& act);

/// Runs `act` in a child process up to Effect::Hold, then `meanwhile` in this one, then the rest of
/// `act`; true when it was held and has given true.
bool HeldWhile(const std::function<bool()>& act, const std::function<void()>& meanwhile);

enum class Killing { BeforeEachCall, Never };

/// Calls `act` without a fault, then under each fault of its own calls: a failing, a short, and one
/// that it is killed before. `prepare` is called before each, `check` after each with whether `act`
/// returned without an exception. Gives the names of the calls that `act` threw for.
std::set<std::string> WalkFaults(const std::function<void()>& prepare,
                                 const std::function<void()>& act,
                                 const std::function<void(bool done)>& check,
                                 Killing killing = Killing::BeforeEachCall);

}  // namespace rostermill::test
