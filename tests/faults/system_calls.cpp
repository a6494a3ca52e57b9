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

/// The next definition of the function behind this program's own.
template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <typename Result>
long AsNumber(Result result) {
  if constexpr (std::is_pointer_v<Result>) {
    return result == nullptr ? -1 : 0;
  } else {
    return static_cast<long>(result);
  }
}

/// Makes the call unless the fault says otherwise, and records it.
template <typename Make>
auto Through(SystemCall call, decltype(std::declval<Make>()(nullptr)) failure, Make make) {
  if (!recording) return make(nullptr);
  const Fault* fault = FaultOfNext(call.Name);
  if (fault != nullptr && fault->Kind == Effect::Kill) kill(getpid(), SIGKILL);
  if (fault != nullptr && fault->Kind == Effect::Hold) raise(SIGSTOP);
  auto result = failure;
  if (fault != nullptr && fault->Kind == Effect::Error) {
    // A handle that can't be closed properly is gone all the same.
    if (call.Name == "close") make(nullptr);
    errno = fault->Number;
  } else {
    result = make(fault);
  }
  const int number = errno;
  call.Result = AsNumber(result);
  if (call.Name == "open") call.Handle = static_cast<int>(call.Result);
  calls.push_back(std::move(call));
  errno = number;
  return result;
}

std::size_t Cut(std::size_t count, const Fault* fault) {
  const bool cut = fault != nullptr && (fault->Kind == Effect::Short || fault->Kind == Effect::Lie);
  return cut && count > 1 ? count / 2 : count;
}

std::string TextOf(const char* text) {
  return text == nullptr ? "" : text;
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
using rostermill::test::Next;
using rostermill::test::TextOf;
using rostermill::test::Through;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Through({"open", -1, TextOf(path), {}, 0}, -1,
                 [&](auto) { return Next<int(const char*, int, ...)>("open")(path, flags, mode); });
}

int openat(int folder, const char* path, int flags, ...) {
  return Through({"openat", -1, TextOf(path), {}, 0}, -1, [&](auto) {
    return Next<int(int, const char*, int, ...)>("openat")(folder, path, flags);
  });
}

ssize_t pread(int handle, void* bytes, size_t count, off_t offset) {
  return Through({"pread", handle, {}, {}, 0}, ssize_t{-1}, [&](const Fault* fault) {
    return Next<ssize_t(int, void*, size_t, off_t)>("pread")(handle, bytes, Cut(count, fault),
                                                             offset);
  });
}

ssize_t write(int handle, const void* bytes, size_t count) {
  return Through({"write", handle, {}, {}, 0}, ssize_t{-1}, [&](const Fault* fault) {
    const ssize_t done =
        Next<ssize_t(int, const void*, size_t)>("write")(handle, bytes, Cut(count, fault));
    const bool lie = fault != nullptr && fault->Kind == Effect::Lie && done >= 0;
    return lie ? static_cast<ssize_t>(count) : done;
  });
}

int close(int handle) {
  return Through({"close", handle, {}, {}, 0}, -1,
                 [&](auto) { return Next<int(int)>("close")(handle); });
}

int fsync(int handle) {
  return Through({"fsync", handle, {}, {}, 0}, -1,
                 [&](auto) { return Next<int(int)>("fsync")(handle); });
}

int syncfs(int handle) noexcept {
  return Through({"syncfs", handle, {}, {}, 0}, -1,
                 [&](auto) { return Next<int(int)>("syncfs")(handle); });
}

int flock(int handle, int operation) noexcept {
  return Through({"flock", handle, {}, {}, 0}, -1,
                 [&](auto) { return Next<int(int, int)>("flock")(handle, operation); });
}

int fchmod(int handle, mode_t mode) noexcept {
  return Through({"fchmod", handle, {}, {}, 0}, -1,
                 [&](auto) { return Next<int(int, mode_t)>("fchmod")(handle, mode); });
}

int fchown(int handle, uid_t user, gid_t group) noexcept {
  return Through({"fchown", handle, {}, {}, 0}, -1,
                 [&](auto) { return Next<int(int, uid_t, gid_t)>("fchown")(handle, user, group); });
}

ssize_t listxattr(const char* path, char* names, size_t size) noexcept {
  return Through({"listxattr", -1, TextOf(path), {}, 0}, ssize_t{-1}, [&](auto) {
    return Next<ssize_t(const char*, char*, size_t)>("listxattr")(path, names, size);
  });
}

ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept {
  return Through({"getxattr", -1, TextOf(path), TextOf(name), 0}, ssize_t{-1}, [&](auto) {
    return Next<ssize_t(const char*, const char*, void*, size_t)>("getxattr")(path, name, value,
                                                                              size);
  });
}

ssize_t fgetxattr(int handle, const char* name, void* value, size_t size) noexcept {
  return Through({"fgetxattr", handle, {}, TextOf(name), 0}, ssize_t{-1}, [&](auto) {
    return Next<ssize_t(int, const char*, void*, size_t)>("fgetxattr")(handle, name, value, size);
  });
}

int fsetxattr(int handle, const char* name, const void* value, size_t size, int flags) noexcept {
  return Through({"fsetxattr", handle, {}, TextOf(name), 0}, -1, [&](auto) {
    return Next<int(int, const char*, const void*, size_t, int)>("fsetxattr")(handle, name, value,
                                                                              size, flags);
  });
}

int fremovexattr(int handle, const char* name) noexcept {
  return Through({"fremovexattr", handle, {}, TextOf(name), 0}, -1,
                 [&](auto) { return Next<int(int, const char*)>("fremovexattr")(handle, name); });
}

int rename(const char* from, const char* to) noexcept {
  return Through({"rename", -1, TextOf(from), TextOf(to), 0}, -1,
                 [&](auto) { return Next<int(const char*, const char*)>("rename")(from, to); });
}

int unlink(const char* path) noexcept {
  return Through({"unlink", -1, TextOf(path), {}, 0}, -1,
                 [&](auto) { return Next<int(const char*)>("unlink")(path); });
}

int stat(const char* path, struct stat* facts) noexcept {
  return Through({"stat", -1, TextOf(path), {}, 0}, -1,
                 [&](auto) { return Next<int(const char*, struct stat*)>("stat")(path, facts); });
}

int lstat(const char* path, struct stat* facts) noexcept {
  return Through({"lstat", -1, TextOf(path), {}, 0}, -1,
                 [&](auto) { return Next<int(const char*, struct stat*)>("lstat")(path, facts); });
}

int fstat(int handle, struct stat* facts) noexcept {
  return Through({"fstat", handle, {}, {}, 0}, -1,
                 [&](auto) { return Next<int(int, struct stat*)>("fstat")(handle, facts); });
}

int access(const char* path, int mode) noexcept {
  return Through({"access", -1, TextOf(path), {}, 0}, -1,
                 [&](auto) { return Next<int(const char*, int)>("access")(path, mode); });
}

char* realpath(const char* path, char* resolved) noexcept {
  return Through({"realpath", -1, TextOf(path), {}, 0}, static_cast<char*>(nullptr),
                 [&](auto) { return Next<char*(const char*, char*)>("realpath")(path, resolved); });
}

ssize_t readlink(const char* path, char* bytes, size_t count) noexcept {
  return Through({"readlink", -1, TextOf(path), {}, 0}, ssize_t{-1}, [&](auto) {
    return Next<ssize_t(const char*, char*, size_t)>("readlink")(path, bytes, count);
  });
}
}
