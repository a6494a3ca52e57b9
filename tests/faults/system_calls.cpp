#include "tests/faults/system_calls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <utility>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
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
auto Through(SystemCall call, decltype(std::declval<Make>()(false)) failure, Make make) {
  if (!recording) return make(false);
  const Fault* fault = FaultOfNext(call.Name);
  if (fault != nullptr && fault->Kind == Effect::Kill) kill(getpid(), SIGKILL);
  auto result = failure;
  if (fault != nullptr && fault->Kind == Effect::Error) {
    // A handle that can't be closed properly is gone all the same.
    if (call.Name == "close") make(false);
    errno = fault->Number;
  } else {
    result = make(fault != nullptr);
  }
  const int number = errno;
  call.Result = AsNumber(result);
  if (call.Name == "open" || call.Name == "open64") call.Handle = static_cast<int>(call.Result);
  calls.push_back(std::move(call));
  errno = number;
  return result;
}

std::size_t Cut(std::size_t count, bool half) {
  return half && count > 1 ? count / 2 : count;
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
using rostermill::test::Next;
using rostermill::test::TextOf;
using rostermill::test::Through;

namespace {

int OpenThrough(const char* name, const char* path, int flags, mode_t mode) {
  return Through({name, -1, TextOf(path), {}, 0}, -1,
                 [&](bool) { return Next<int(const char*, int, ...)>(name)(path, flags, mode); });
}

mode_t ModeOf(int flags, va_list rest) {
  // The callers start the list.
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return OpenThrough("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return OpenThrough("open64", path, flags, mode);
}

ssize_t read(int handle, void* bytes, size_t count) {
  return Through({"read", handle, {}, {}, 0}, ssize_t{-1}, [&](bool half) {
    return Next<ssize_t(int, void*, size_t)>("read")(handle, bytes, Cut(count, half));
  });
}

ssize_t write(int handle, const void* bytes, size_t count) {
  return Through({"write", handle, {}, {}, 0}, ssize_t{-1}, [&](bool half) {
    return Next<ssize_t(int, const void*, size_t)>("write")(handle, bytes, Cut(count, half));
  });
}

int close(int handle) {
  return Through({"close", handle, {}, {}, 0}, -1,
                 [&](bool) { return Next<int(int)>("close")(handle); });
}

int fsync(int handle) {
  return Through({"fsync", handle, {}, {}, 0}, -1,
                 [&](bool) { return Next<int(int)>("fsync")(handle); });
}

int fdatasync(int handle) {
  return Through({"fdatasync", handle, {}, {}, 0}, -1,
                 [&](bool) { return Next<int(int)>("fdatasync")(handle); });
}

off64_t lseek64(int handle, off64_t offset, int whence) noexcept {
  return Through({"lseek64", handle, {}, {}, 0}, off64_t{-1}, [&](bool) {
    return Next<off64_t(int, off64_t, int)>("lseek64")(handle, offset, whence);
  });
}

int fchmod(int handle, mode_t mode) noexcept {
  return Through({"fchmod", handle, {}, {}, 0}, -1,
                 [&](bool) { return Next<int(int, mode_t)>("fchmod")(handle, mode); });
}

int fchown(int handle, uid_t user, gid_t group) noexcept {
  return Through({"fchown", handle, {}, {}, 0}, -1,
                 [&](bool) { return Next<int(int, uid_t, gid_t)>("fchown")(handle, user, group); });
}

int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) noexcept {
  return Through({"linkat", -1, TextOf(from), TextOf(to), 0}, -1, [&](bool) {
    return Next<int(int, const char*, int, const char*, int)>("linkat")(from_folder, from,
                                                                        to_folder, to, flags);
  });
}

int rename(const char* from, const char* to) noexcept {
  return Through({"rename", -1, TextOf(from), TextOf(to), 0}, -1,
                 [&](bool) { return Next<int(const char*, const char*)>("rename")(from, to); });
}

int unlink(const char* path) noexcept {
  return Through({"unlink", -1, TextOf(path), {}, 0}, -1,
                 [&](bool) { return Next<int(const char*)>("unlink")(path); });
}

int stat(const char* path, struct stat* facts) noexcept {
  return Through({"stat", -1, TextOf(path), {}, 0}, -1,
                 [&](bool) { return Next<int(const char*, struct stat*)>("stat")(path, facts); });
}

int stat64(const char* path, struct stat64* facts) noexcept {
  return Through({"stat64", -1, TextOf(path), {}, 0}, -1, [&](bool) {
    return Next<int(const char*, struct stat64*)>("stat64")(path, facts);
  });
}

int lstat64(const char* path, struct stat64* facts) noexcept {
  return Through({"lstat64", -1, TextOf(path), {}, 0}, -1, [&](bool) {
    return Next<int(const char*, struct stat64*)>("lstat64")(path, facts);
  });
}

int fstat64(int handle, struct stat64* facts) noexcept {
  return Through({"fstat64", handle, {}, {}, 0}, -1,
                 [&](bool) { return Next<int(int, struct stat64*)>("fstat64")(handle, facts); });
}

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* facts) noexcept {
  return Through({"statx", -1, TextOf(path), {}, 0}, -1, [&](bool) {
    return Next<int(int, const char*, int, unsigned, struct statx*)>("statx")(folder, path, flags,
                                                                              mask, facts);
  });
}

int access(const char* path, int mode) noexcept {
  return Through({"access", -1, TextOf(path), {}, 0}, -1,
                 [&](bool) { return Next<int(const char*, int)>("access")(path, mode); });
}

char* realpath(const char* path, char* resolved) noexcept {
  return Through({"realpath", -1, TextOf(path), {}, 0}, static_cast<char*>(nullptr),
                 [&](bool) { return Next<char*(const char*, char*)>("realpath")(path, resolved); });
}

ssize_t readlink(const char* path, char* bytes, size_t count) noexcept {
  return Through({"readlink", -1, TextOf(path), {}, 0}, ssize_t{-1}, [&](bool) {
    return Next<ssize_t(const char*, char*, size_t)>("readlink")(path, bytes, count);
  });
}

DIR* opendir(const char* path) {
  return Through({"opendir", -1, TextOf(path), {}, 0}, static_cast<DIR*>(nullptr),
                 [&](bool) { return Next<DIR*(const char*)>("opendir")(path); });
}
}
