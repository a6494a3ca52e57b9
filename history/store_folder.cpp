#include "history/store_folder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <system_error>
#include <thread>

#include "history/bytes_hash.h"
#include "league/file_access.h"
#include "league/file_error.h"
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rostermill {

namespace {

namespace fs = std::filesystem;

/// Makes a folder and those above it, as far as they are missing, for the user alone.
void MakeFolder(const fs::path& folder) {
  std::error_code error;
  if (fs::is_directory(folder, error)) return;
  const fs::path parent = folder.parent_path();
  if (parent != folder) MakeFolder(parent);
  // Another program may make it at the same time.
  const bool made = ::mkdir(folder.c_str(), 0700) == 0;
  if (!made && errno != EEXIST) FailWith(errno);
  if (!fs::is_directory(folder, error)) FailWith(ENOTDIR);
  try {
    SyncFolder(parent.string());
  } catch (const FileError&) {
    // Else the next call would take it for one that is safe on the disk.
    if (made) ::rmdir(folder.c_str());
    throw;
  }
}

/// Calls `use` for every entry; does nothing where the folder isn't there.
template <typename Use>
void ForEachEntry(const std::string& folder, const Use& use) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  if (error == std::errc::no_such_file_or_directory) return;
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) use(*entry);
  if (error) FailWith(error.value());
}

}  // namespace

std::string CanonicalPath(const std::string& image) {
  std::error_code error;
  // Made absolute first: a bare name of a file that isn't there would stay as it is.
  const fs::path path = fs::absolute(image);
  const fs::path canonical = fs::weakly_canonical(path, error);
  return error ? path.lexically_normal().string() : canonical.string();
}

std::string ImageFolder(const std::string& base, const std::string& image) {
  const std::string path = CanonicalPath(image);
  std::string name = fs::path(path).filename().string().substr(0, 40);
  const auto is_plain = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
           c == '-';
  };
  std::ranges::replace_if(name, std::not_fn(is_plain), '_');
  const std::string hash = HexText(HashOf(AsBytes(path))).substr(0, 16);
  return (fs::path(base) / (name + "-" + hash)).string();
}

void MakeImageFolder(const std::string& folder, const std::string& canonical_path) {
  MakeFolder(folder);
  const std::string note = folder + "/image.txt";
  if (KindOf(note) != PathKind::RegularFile) WriteKept(note, AsBytes(canonical_path + "\n"));
}

void SyncFolder(const std::string& folder) {
  try {
    FileHandle(folder, O_RDONLY | O_DIRECTORY).Sync();
  } catch (const FileError& error) {
    // A folder that may not be read can't be opened; then everything is synced. EINVAL is from file
    // systems that can't sync a folder.
    if (error.Number() == EACCES) return ::sync();
    if (error.Number() != EINVAL) throw;
  }
}

void WriteKept(const std::string& path, std::span<const std::uint8_t> bytes) {
  ReplaceFile(path, bytes);
  std::error_code ignored;
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, ignored);
}

std::vector<std::string> FilesIn(const std::string& folder) {
  std::vector<std::string> names;
  ForEachEntry(folder, [&names](const fs::directory_entry& entry) {
    std::error_code error;
    if (entry.is_symlink(error)) return;
    const bool is_file = entry.is_regular_file(error);
    // One whose kind can't be found out isn't passed over: its number would be given again.
    if (error && error != std::errc::no_such_file_or_directory) FailWith(error.value());
    if (is_file) names.push_back(entry.path().filename().string());
  });
  return names;
}

std::vector<std::string> FoldersIn(const std::string& folder) {
  std::vector<std::string> folders;
  ForEachEntry(folder, [&folders](const fs::directory_entry& entry) {
    std::error_code error;
    if (!entry.is_symlink(error) && entry.is_directory(error)) {
      folders.push_back(entry.path().string());
    }
  });
  return folders;
}

void RemoveFile(const std::string& path) {
  if (::unlink(path.c_str()) != 0 && errno != ENOENT) FailWith(errno);
}

void TryToRemoveFile(const std::string& path) {
  try {
    RemoveFile(path);
  } catch (const FileError&) {
    return;
  }
}

FileLock::FileLock(const std::string& path, Kind kind, std::chrono::milliseconds patience)
    : file_(path, kind == Kind::Shared ? O_RDONLY : O_RDWR | O_CREAT, 0600) {
  if (!file_.Lock(kind == Kind::Shared ? LOCK_SH : LOCK_EX, patience)) {
    throw HistoryError("Another program is using " + fs::path(path).parent_path().string() +
                       " and has not finished.");
  }
}

bool FileLock::IsHeld(const std::string& path) {
  try {
    const FileHandle file(path, O_RDONLY);
    return ::flock(file.Number(), LOCK_SH | LOCK_NB) != 0;
  } catch (const FileMissing&) {
    return false;
  } catch (const FileError&) {
    return true;
  }
}

FileLock LockStore(const std::string& base) {
  MakeFolder(base);
  return {base + "/lock", FileLock::Kind::Exclusive, std::chrono::seconds(5)};
}

std::optional<FileLock> LockStoreForReading(const std::string& base) {
  try {
    return FileLock(base + "/lock", FileLock::Kind::Shared, std::chrono::milliseconds(200));
  } catch (const std::runtime_error&) {
    return std::nullopt;
  }
}

std::chrono::sys_seconds UtcNow() {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

std::string UtcText(std::chrono::sys_seconds time) {
  const auto days = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(days);
  const std::chrono::hh_mm_ss clock(time - days);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d%02u%02uT%02d%02d%02dZ", int(date.year()),
                unsigned(date.month()), unsigned(date.day()), int(clock.hours().count()),
                int(clock.minutes().count()), int(clock.seconds().count()));
  return text.data();
}

std::optional<std::chrono::sys_seconds> ParseUtc(std::string_view text) {
  if (text.size() != 16 || text[8] != 'T' || text[15] != 'Z') return std::nullopt;
  bool digits = true;
  const auto number = [&](std::size_t at, std::size_t size) {
    unsigned value = 0;
    const char* const end = text.data() + at + size;
    digits = digits && std::from_chars(text.data() + at, end, value).ptr == end;
    return value;
  };
  const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(number(0, 4))),
                                         std::chrono::month(number(4, 2)),
                                         std::chrono::day(number(6, 2))};
  const unsigned hour = number(9, 2), minute = number(11, 2), second = number(13, 2);
  if (!digits || !date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
         std::chrono::seconds(second);
}

}  // namespace rostermill
