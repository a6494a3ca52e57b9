#include "league/file_access.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace rostermill {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void FailWith(int number) {
  throw FileError(number, std::generic_category().message(number));
}

/// Fails with the reason that the last system call left; with `fallback` where it left none.
[[noreturn]] void FailWithLastError(int fallback) {
  FailWith(errno != 0 ? errno : fallback);
}

QString ToQString(const std::string& path) {
  return QString::fromStdString(path);
}

fs::path ToPath(const QString& path) {
  return fs::path(path.toStdU16String());
}

/// What stands at the path, behind all links or not; not_found where nothing does. A system that
/// can't tell is no reason to take the path for free.
fs::file_type TypeOf(const QString& path, bool behind_links) {
  std::error_code error;
  const fs::path native = ToPath(path);
  const fs::file_type type =
      (behind_links ? fs::status(native, error) : fs::symlink_status(native, error)).type();
  if (type == fs::file_type::none) FailWith(error.value());
  return type;
}

/// The file that a path means in the end: behind all links, existing or not.
QString FinalPath(const QString& path) {
  std::error_code error;
  if (TypeOf(path, true) != fs::file_type::not_found) {
    const fs::path canonical = fs::canonical(ToPath(path), error);
    if (error) FailWith(error.value());
    return QString::fromStdU16String(canonical.u16string());
  }
  const QFileInfo info(path);
  if (TypeOf(path, false) != fs::file_type::symlink) return info.absoluteFilePath();
  const fs::path target = fs::read_symlink(ToPath(path), error);
  if (error) FailWith(error.value());
  return info.dir().absoluteFilePath(QString::fromStdU16String(target.u16string()));
}

void SyncFile(const QFile& file) {
#ifdef Q_OS_WIN
  const int result = _commit(file.handle());
#else
  const int result = ::fsync(file.handle());
#endif
  if (result != 0) FailWithLastError(EIO);
}

/// Makes a rename in this folder survive a power cut, where the system has a way to ask for it.
void SyncFolder([[maybe_unused]] const QString& folder) {
#ifndef Q_OS_WIN
  const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
  const bool synced = handle >= 0 && ::fsync(handle) == 0;
  const int number = errno;
  if (handle >= 0) ::close(handle);
  // Some file systems can't sync a folder and say so with EINVAL.
  if (!synced && number != EINVAL) {
    throw FileNotSynced(number, std::generic_category().message(number));
  }
#endif
}

/// Gives the temporary file owner and permissions of the file that it will replace; of a new file
/// those that the user's mask leaves.
void TakeOverPermissions([[maybe_unused]] const QFile& temporary,
                         [[maybe_unused]] const QString& target) {
#ifndef Q_OS_WIN
  struct stat old {};
  mode_t mode = 0;
  if (::stat(QFile::encodeName(target).constData(), &old) == 0) {
    mode = old.st_mode & 07777;
    // Only root may give a file away; for everybody else the new file is their own.
    if (::fchown(temporary.handle(), old.st_uid, old.st_gid) != 0) mode &= 01777;
  } else if (errno != ENOENT) {
    FailWithLastError(EIO);
  } else {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    mode = 0666 & ~mask;
  }
  if (::fchmod(temporary.handle(), mode) != 0) FailWithLastError(EIO);
#endif
}

/// Written beside the target and renamed over it. Not QSaveFile: that commits a file after a short
/// write, ignores a failed sync, and leaves files of a name that can't be told from the user's own
/// when the program is killed.
class Replacement {
 public:
  explicit Replacement(const std::string& path) : target_(FinalPath(ToQString(path))) {
    const QFileInfo info(target_);
    if (const fs::file_type type = TypeOf(target_, true); type != fs::file_type::not_found) {
      if (type != fs::file_type::regular) FailWith(EINVAL);
      errno = 0;
      if (!info.isWritable()) FailWithLastError(EACCES);
    }
    const QString prefix = "." + info.fileName().left(60) + ".rostermill-";
    RemoveLeftovers(info.dir(), prefix);
    file_.setFileTemplate(info.dir().filePath(prefix + "XXXXXX"));
    errno = 0;
    if (!file_.open()) FailWithLastError(EIO);
    TakeOverPermissions(file_, target_);
  }

  void Write(const char* bytes, qint64 count) {
    errno = 0;
    if (file_.write(bytes, count) != count || !file_.flush()) FailWithLastError(ENOSPC);
  }

  /// Carries over what lies behind the first `skipped` bytes. Reads those too: a seek that fails
  /// leaves no reason behind.
  void CopyRestOf(QFile& source, qint64 skipped) {
    std::vector<char> piece(1 << 20);
    for (;;) {
      errno = 0;
      const qint64 count = source.read(piece.data(), static_cast<qint64>(piece.size()));
      if (count < 0) FailWithLastError(EIO);
      if (count == 0) return;
      const qint64 dropped = std::min(skipped, count);
      skipped -= dropped;
      if (count > dropped) Write(piece.data() + dropped, count - dropped);
    }
  }

  void Commit() {
    errno = 0;
    SyncFile(file_);
    const QString name = file_.fileName();
    if (name.isEmpty()) FailWithLastError(EIO);
    file_.close();
    std::error_code error;
    fs::rename(ToPath(name), ToPath(target_), error);
    if (error) FailWith(error.value());
    file_.setAutoRemove(false);
    SyncFolder(QFileInfo(target_).path());
  }

 private:
  /// What a killed save left behind.
  static void RemoveLeftovers(QDir folder, const QString& prefix) {
    // Sorting the names of 10,000 images takes longer than the whole save.
    const QStringList names = folder.entryList(
        QDir::Files | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString& name : names) {
      if (name.startsWith(prefix) && name.size() == prefix.size() + 6) folder.remove(name);
    }
  }

  QString target_;
  QTemporaryFile file_;
};

/// Opens a regular file, or fails with the system's reason.
void OpenForReading(QFile& file) {
  // Devices and pipes could block or never end.
  const fs::file_type type = TypeOf(file.fileName(), true);
  if (type == fs::file_type::directory) FailWith(EISDIR);
  if (type != fs::file_type::regular && type != fs::file_type::not_found) FailWith(EINVAL);
  errno = 0;
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) FailWithLastError(ENOENT);
}

void WriteBytes(Replacement& replacement, std::span<const std::uint8_t> bytes) {
  replacement.Write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
}

}  // namespace

bool IsRegularFile(const std::string& path) {
  return QFileInfo(ToQString(path)).isFile();
}

FileStart ReadFileStart(const std::string& path, std::size_t limit) {
  QFile file(ToQString(path));
  OpenForReading(file);
  FileStart start;
  std::error_code error;
  start.FileSize = fs::file_size(ToPath(file.fileName()), error);
  if (error) FailWith(error.value());
  start.Bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(start.FileSize, limit)));
  std::size_t done = 0;
  while (done < start.Bytes.size()) {
    errno = 0;
    const qint64 count = file.read(reinterpret_cast<char*>(start.Bytes.data() + done),
                                   static_cast<qint64>(start.Bytes.size() - done));
    if (count < 0) FailWithLastError(EIO);
    if (count == 0) break;  // cut short by another program meanwhile
    done += static_cast<std::size_t>(count);
  }
  start.Bytes.resize(done);
  return start;
}

void ReplaceFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  Replacement replacement(path);
  WriteBytes(replacement, bytes);
  replacement.Commit();
}

void ReplaceFileStart(const std::string& path, std::span<const std::uint8_t> bytes) {
  QFile old(ToQString(path));
  OpenForReading(old);
  Replacement replacement(path);
  WriteBytes(replacement, bytes);
  replacement.CopyRestOf(old, static_cast<qint64>(bytes.size()));
  replacement.Commit();
}

}  // namespace rostermill
