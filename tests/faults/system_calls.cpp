#include "tests/faults/system_calls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace rostermill::test {

namespace {

bool recording = false;
bool struck = false;
std::vector<Fault> current;
std::vector<SystemCall> calls;
std::map<std::string, int> counts;
std::string written;  ///< by the call that is being made

bool Strikes(const Fault& fault, const std::string& name, int count) {
  return name == fault.Call && (count == fault.At || (fault.Onward && count > fault.At));
}

/// The fault that the next call of this name meets; null for none.
const Fault* FaultOfNext(const std::string& name) {
  const int count = ++counts[name];
  for (const Fault& fault : current) {
    if (!Strikes(fault, name, count)) continue;
    struck = true;
    return &fault;
  }
  return nullptr;
}

/// The next definition of the function after this program's own.
template <typename Function>
Function* Next(const std::string& name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name.c_str()));
}

template <typename Result>
constexpr Result failure = Result(-1);
template <>
constexpr char* failure<char*> = nullptr;

/// Makes the call unless the fault says otherwise, and records it.
template <typename Make>
auto Through(SystemCall call, Make make) {
  if (!recording) return make(nullptr);
  const Fault* fault = FaultOfNext(call.Name);
  if (fault != nullptr && fault->Kind == Effect::Kill) kill(getpid(), SIGKILL);
  if (fault != nullptr && fault->Kind == Effect::Hold) raise(SIGSTOP);
  auto result = failure<decltype(make(nullptr))>;
  if (fault != nullptr && fault->Kind == Effect::Error) {
    // A handle that can't be closed properly is gone all the same.
    if (call.Name == "close") make(nullptr);
    errno = fault->Number;
  } else {
    result = make(fault);
  }
  const int number = errno;
  call.Bytes = std::exchange(written, {});
  if constexpr (std::is_integral_v<decltype(result)>) call.Result = static_cast<long>(result);
  if (call.Name == "open") call.Handle = static_cast<int>(call.Result);
  calls.push_back(std::move(call));
  errno = number;
  return result;
}

template <typename Result, typename... Given>
Result Forward(SystemCall call, Given... given) {
  auto* next = Next<Result(Given...)>(call.Name);
  return Through(std::move(call), [&](const Fault*) { return next(given...); });
}

int Sync(const char* name, int handle) {
  return Through({name, handle}, [&](const Fault* fault) {
    if (fault != nullptr && fault->Kind == Effect::Lie) return 0;
    return Next<int(int)>(name)(handle);
  });
}

void NoteWritten(const void* bytes, ssize_t count) {
  if (!recording || count < 0) return;
  written.assign(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
}

std::size_t Cut(std::size_t count, const Fault* fault) {
  const bool cut = fault != nullptr && (fault->Kind == Effect::Short || fault->Kind == Effect::Lie);
  return cut && count > 1 ? count / 2 : count;
}

}  // namespace

void StartFaults(std::vector<Fault> faults) {
  current = std::move(faults);
  struck = false;
  calls.clear();
  counts.clear();
  recording = true;
}

std::vector<SystemCall> StopFaults() {
  recording = false;
  return std::exchange(calls, {});
}

bool FaultStruck() {
  return struck;
}

std::map<std::string, int> CountsOf(const std::vector<SystemCall>& made) {
  std::map<std::string, int> result;
  for (const SystemCall& call : made) ++result[call.Name];
  return result;
}

}  // namespace rostermill::test

using rostermill::test::Cut;
using rostermill::test::Effect;
using rostermill::test::Fault;
using rostermill::test::Forward;
using rostermill::test::Next;
using rostermill::test::NoteWritten;
using rostermill::test::Sync;
using rostermill::test::Through;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Through({.Name = "open", .Path = path, .Flags = flags},
                 [&](auto) { return Next<int(const char*, int, ...)>("open")(path, flags, mode); });
}

// As Qt calls it. The same function where a file's offset has 64 bits anyway.
int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Through({.Name = "open64", .Path = path, .Flags = flags}, [&](auto) {
    return Next<int(const char*, int, ...)>("open64")(path, flags, mode);
  });
}

int openat(int folder, const char* path, int flags, ...) {
  return Through({"openat"}, [&](auto) {
    return Next<int(int, const char*, int, ...)>("openat")(folder, path, flags);
  });
}

ssize_t pread(int handle, void* bytes, size_t count, off_t offset) {
  return Through({"pread", handle}, [&](const Fault* fault) {
    return Next<ssize_t(int, void*, size_t, off_t)>("pread")(handle, bytes, Cut(count, fault),
                                                             offset);
  });
}

ssize_t write(int handle, const void* bytes, size_t count) {
  return Through({"write", handle}, [&](const Fault* fault) {
    const ssize_t done =
        Next<ssize_t(int, const void*, size_t)>("write")(handle, bytes, Cut(count, fault));
    NoteWritten(bytes, done);
    const bool lie = fault != nullptr && fault->Kind == Effect::Lie && done >= 0;
    return lie ? static_cast<ssize_t>(count) : done;
  });
}

int close(int handle) {
  return Forward<int>({"close", handle}, handle);
}
int fsync(int handle) {
  return Sync("fsync", handle);
}
int fdatasync(int handle) {
  return Sync("fdatasync", handle);
}
int syncfs(int handle) noexcept {
  return Sync("syncfs", handle);
}
int flock(int handle, int operation) noexcept {
  return Forward<int>({"flock", handle}, handle, operation);
}
int fchmod(int handle, mode_t mode) noexcept {
  return Forward<int>({"fchmod", handle}, handle, mode);
}
int fchown(int handle, uid_t user, gid_t group) noexcept {
  return Forward<int>({"fchown", handle}, handle, user, group);
}
ssize_t listxattr(const char* path, char* names, size_t size) noexcept {
  return Forward<ssize_t>({"listxattr", -1, path}, path, names, size);
}
ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept {
  return Forward<ssize_t>({"getxattr", -1, path}, path, name, value, size);
}
ssize_t fgetxattr(int handle, const char* name, void* value, size_t size) noexcept {
  return Forward<ssize_t>({"fgetxattr", handle}, handle, name, value, size);
}
int fsetxattr(int handle, const char* name, const void* value, size_t size, int flags) noexcept {
  return Forward<int>({"fsetxattr", handle}, handle, name, value, size, flags);
}
int fremovexattr(int handle, const char* name) noexcept {
  return Forward<int>({"fremovexattr", handle}, handle, name);
}
int rename(const char* from, const char* to) noexcept {
  return Forward<int>({"rename", -1, from, to}, from, to);
}
int linkat(int folder, const char* path, int to_folder, const char* to, int flags) noexcept {
  return Forward<int>({"linkat", -1, path, to}, folder, path, to_folder, to, flags);
}
int unlink(const char* path) noexcept {
  return Forward<int>({"unlink", -1, path}, path);
}
int mkdir(const char* path, mode_t mode) noexcept {
  return Forward<int>({"mkdir", -1, path}, path, mode);
}
int rmdir(const char* path) noexcept {
  return Forward<int>({"rmdir", -1, path}, path);
}
int stat(const char* path, struct stat* facts) noexcept {
  return Forward<int>({"stat", -1, path}, path, facts);
}
int lstat(const char* path, struct stat* facts) noexcept {
  return Forward<int>({"lstat", -1, path}, path, facts);
}
int fstat(int handle, struct stat* facts) noexcept {
  return Forward<int>({"fstat", handle}, handle, facts);
}
int access(const char* path, int mode) noexcept {
  return Forward<int>({"access", -1, path}, path, mode);
}
char* realpath(const char* path, char* resolved) noexcept {
  return Forward<char*>({"realpath", -1, path}, path, resolved);
}

}  // extern "C"
