#include "league/temporary_file.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <optional>
#include <utility>

#include "league/file_error.h"
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace rostermill {

namespace {

namespace fs = std::filesystem;

/// Enough for any 32-bit number to the base of 62.
constexpr std::size_t random_letters = 6;

/// How the names of the temporary files of `target` begin; no other file has the same. A long name
/// is cut so that its temporary file isn't too long for the file system.
std::string PrefixOf(const fs::path& target) {
  constexpr std::size_t longest = 100;
  std::string name = target.filename().string();
  if (name.size() > longest) {
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(name), QCryptographicHash::Sha1).toHex();
    std::size_t end = longest - 16;
    while (end > 0 && (name[end] & 0xC0) == 0x80) --end;  // not within a character
    name.replace(end, std::string::npos, hash.first(16).toStdString());
  }
  return "." + name + ".rostermill-";
}

std::string RandomLetters() {
  constexpr std::string_view letters =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  // Not std::random_device, which is slow on some virtual machines.
  std::size_t number = QRandomGenerator::global()->generate();
  std::string text(random_letters, ' ');
  for (char& letter : text) {
    letter = letters[number % letters.size()];
    number /= letters.size();
  }
  return text;
}

bool IsTemporaryName(std::string_view name, const std::string& prefix) {
  return name.size() == prefix.size() + random_letters && name.starts_with(prefix) &&
         std::all_of(name.end() - random_letters, name.end(),
                     [](unsigned char c) { return std::isalnum(c) != 0; });
}

/// Removes a file that nobody has locked. Where the file system knows no locks it stays.
void RemoveUnlocked(const fs::path& path) {
  try {
    const FileHandle file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    if (!S_ISREG(file.Facts().st_mode)) return;
    // For a shared lock a handle for reading is enough, on network file systems as well.
    if (::flock(file.Number(), LOCK_SH | LOCK_NB) == 0) ::unlink(path.c_str());
  } catch (const FileError&) {
    return;  // another user's, or gone already
  }
}

void RemoveLeftovers(const fs::path& folder, const std::string& prefix) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  while (!error && entry != fs::directory_iterator()) {
    const std::string& path = entry->path().native();
    const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
    if (IsTemporaryName(name, prefix)) RemoveUnlocked(path);
    entry.increment(error);
  }
}

/// Creates a file; nothing where there is one of this name.
std::optional<FileHandle> Create(const fs::path& path, mode_t mode) {
  try {
    return FileHandle(path, O_RDWR | O_CREAT | O_EXCL, mode);
  } catch (const FileError& error) {
    if (error.Number() != EEXIST) throw;
    return std::nullopt;
  }
}

}  // namespace

TemporaryFile::Name::~Name() {
  if (!Path.empty()) ::unlink(Path.c_str());
}

TemporaryFile::TemporaryFile(const fs::path& target, mode_t mode)
    : target_(target), file_(OpenLocked(mode)) {}

FileHandle TemporaryFile::OpenLocked(mode_t mode) {
  const std::string prefix = PrefixOf(target_);
  RemoveLeftovers(target_.parent_path(), prefix);
  for (int attempts = 100; attempts > 0; --attempts) {
    const fs::path path = target_.parent_path() / (prefix + RandomLetters());
    auto file = Create(path, mode);
    if (!file) continue;
    name_.Path = path;
    // Before it was locked, another save may have taken it for a leftover.
    const bool taken = ::flock(file->Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!taken && file->Facts().st_nlink > 0) return std::move(*file);
    ::unlink(path.c_str());
  }
  FailWith(EEXIST);
}

void TemporaryFile::ReplaceTarget() {
  if (::rename(name_.Path.c_str(), target_.c_str()) != 0) {
    if (errno == ENOENT) throw FileError(ENOENT, "another program removed its temporary file");
    FailWith(errno);
  }
  name_.Path.clear();
}

}  // namespace rostermill
