#pragma once

#include <map>
#include <string>
#include <vector>

namespace rostermill::test {

/// The test program defines the C library's file functions itself, counts their calls, and can make
/// one of them fail. Linux only; one thread.

enum class Effect {
  Error,  ///< the call isn't made and fails with Fault::Number
  Short,  ///< a read or a write does half of what it is asked; other calls aren't touched
  Lie,    ///< a write does the same, and says that it has done all; a sync says so as well
  Hold,   ///< the process stops (SIGSTOP) before the call, and then makes it
  Kill,   ///< the process ends by SIGKILL before the call
};

struct Fault {
  std::string Call;  ///< "write"
  int At = 1;        ///< which of these calls, counted from 1
  bool Onward = false;
  Effect Kind = Effect::Error;
  int Number = 0;  ///< the errno of Effect::Error
};

struct SystemCall {
  std::string Name;
  int Handle = -1;         ///< the one it works on or gave
  std::string Path = {};   ///< empty for a call on a handle
  std::string To = {};     ///< of a rename
  long Result = 0;         ///< as the caller saw it
  int Flags = 0;           ///< of an open
  std::string Bytes = {};  ///< that a write has put into the file
};

/// Counts and records from here on, with these faults; the first that fits a call strikes.
void StartFaults(std::vector<Fault> faults);
/// Lifts the faults and gives all calls since StartFaults.
std::vector<SystemCall> StopFaults();
/// Whether a fault has struck since StartFaults.
bool FaultStruck();

/// How often each call was made.
std::map<std::string, int> CountsOf(const std::vector<SystemCall>& calls);

}  // namespace rostermill::test
