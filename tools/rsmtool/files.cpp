#include "tools/rsmtool/files.h"

#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <optional>

#include "history/data_folder.h"
#include "history/version_store.h"
#include "league/load_image.h"
#include "league/quantity_text.h"
#include "league/save_image.h"
#include "league/save_lock.h"

namespace rostermill {

namespace {

/// More than any image with something after it; a larger file is a mistake.
constexpr std::size_t largest_file = 64 << 20;

const QString standard_stream = "-";

void CheckStream(const std::istream& stream) {
  if (stream.bad()) throw ToolError(InputName(standard_stream) + ": could not be read");
}

FileStart ReadStream(std::istream& stream, std::size_t limit) {
  FileStart start;
  std::vector<char> piece(1 << 16);
  while (start.FileSize <= limit &&
         (stream.read(piece.data(), static_cast<std::streamsize>(piece.size())),
          stream.gcount() > 0)) {
    const auto count = static_cast<std::size_t>(stream.gcount());
    const std::size_t kept = std::min(count, limit - start.Bytes.size());
    start.Bytes.insert(start.Bytes.end(), piece.begin(),
                       piece.begin() + static_cast<std::ptrdiff_t>(kept));
    start.FileSize += count;
  }
  CheckStream(stream);
  return start;
}

/// Keeps `command *.nes` from writing over the second image. `source` is the one to be changed.
void KeepOtherImage(const QString& path, const QString& source, Console& console) {
  constexpr std::string_view cartridge_mark = "NES\x1A";
  if (path == standard_stream || QFileInfo(path) == QFileInfo(source)) return;
  if (KindOf(path.toStdString()) != PathKind::RegularFile) return;
  const FileStart file = ReadInput(path, cartridge_mark.size(), console);
  if (!std::equal(file.Bytes.begin(), file.Bytes.end(), cartridge_mark.begin(),
                  cartridge_mark.end())) {
    return;
  }
  throw ToolError(path.toStdString() +
                  " is a cartridge image, and this would write over it; choose another name, or "
                  "remove it first");
}

int WriteOutput(const QString& path, std::span<const std::uint8_t> bytes, Extent extent,
                Console& console) {
  if (path == standard_stream) {
    console.Out.write(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<std::streamsize>(bytes.size()));
    return ExitOk;
  }
  try {
    if (extent == Extent::Whole) {
      ReplaceFile(path.toStdString(), bytes);
    } else {
      ReplaceFileStart(path.toStdString(), bytes, [] {});
    }
  } catch (const FileNotSynced& error) {
    console.Err << "rsmtool: " << NotSyncedText(path.toStdString(), error) << "\n";
    return ExitUnconfirmed;
  } catch (const FileError& error) {
    throw ToolError(path.toStdString() + " could not be written: " + error.what());
  }
  return ExitOk;
}

/// What a new file will replace; empty where nothing is there.
std::optional<FileStart> ReadReplaced(const std::string& path) {
  try {
    return VersionStore::ReadForKeeping(path);
  } catch (const FileMissing&) {
    return std::nullopt;
  }
}

/// Why the file that is about to be replaced could not be kept; empty where it was, and where
/// nothing is to be kept.
std::optional<std::string> KeepReplaced(const QString& path, const Arguments& arguments) {
  if (arguments.NoVersion || path == standard_stream) return std::nullopt;
  const std::string file = path.toStdString();
  try {
    if (const auto replaced = ReadReplaced(file)) {
      const VersionStore versions(DataFolder());
      versions.Keep(file, *replaced, "before " + arguments.Command);
      versions.DropOld(file);
    }
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return std::nullopt;
}

/// Locks the file that is about to be replaced, if one is.
std::optional<SaveLock> LockOutput(const QString& path) {
  if (path == standard_stream) return std::nullopt;
  try {
    return std::optional<SaveLock>(std::in_place, path.toStdString());
  } catch (const FileError& error) {
    throw ToolError(path.toStdString() + " could not be written: " + error.what());
  }
}

bool IsPipe(const QString& path) {
  std::error_code error;
  return path != standard_stream &&
         std::filesystem::is_fifo(std::filesystem::status(path.toStdString(), error));
}

void CheckSize(const QString& path, const FileStart& file) {
  if (file.FileSize > largest_file) throw ToolError(InputName(path) + ": the file is too large");
}

}  // namespace

std::string InputName(const QString& path) {
  return path == standard_stream ? "standard input" : path.toStdString();
}

FileStart ReadInput(const QString& path, std::size_t limit, Console& console) {
  if (path == standard_stream) return ReadStream(console.In, limit);
  try {
    return ReadFileStart(path.toStdString(), limit);
  } catch (const FileError& error) {
    throw ToolError(path.toStdString() + ": " + error.what());
  }
}

FileStart ReadImageStart(const QString& path, Console& console) {
  FileStart start = ReadInput(path, OpenImage::WholeSize, console);
  if (path == standard_stream && IsImageHeader(start.Bytes)) {
    console.In.ignore(std::numeric_limits<std::streamsize>::max());
    CheckStream(console.In);
    start.FileSize += static_cast<std::uint64_t>(console.In.gcount());
  }
  return start;
}

int WriteOtherFile(const QString& path, std::span<const std::uint8_t> bytes, Console& console) {
  KeepOtherImage(path, {}, console);
  return WriteOutput(path, bytes, Extent::Whole, console);
}

int WriteTextFile(const QString& path, std::string_view text, Console& console) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  return WriteOtherFile(path, std::span(bytes, text.size()), console);
}

int WriteImageFile(const QString& source, const QString& path, std::span<const std::uint8_t> bytes,
                   Extent extent, const Arguments& arguments, Console& console) {
  KeepOtherImage(path, source, console);
  const auto lock = LockOutput(path);
  const std::optional<std::string> why_not_kept = KeepReplaced(path, arguments);
  const int code = WriteOutput(path, bytes, extent, console);
  if (why_not_kept) {
    console.Err << "rsmtool: " << path.toStdString()
                << " was written, but its earlier version could not be kept: " << *why_not_kept
                << "\n";
  }
  return code;
}

int WriteLeagueFile(const QString& source, const QString& path, OpenImage& image,
                    const LeagueData& league, const Arguments& arguments, Console& console) {
  if (const auto overflow = TextOverflow(league)) throw ToolError(OneLine(*overflow));
  WriteLeague(image, league, [] {});
  return WriteImageFile(source, path, image.Bytes(), Extent::Whole, arguments, console);
}

std::vector<std::uint8_t> ReadWholeFile(const QString& path, Console& console) {
  FileStart file = ReadInput(path, largest_file, console);
  CheckSize(path, file);
  return std::move(file.Bytes);
}

std::string ReadTextFile(const QString& path, std::size_t limit, Console& console) {
  FileStart file;
  if (IsPipe(path)) {
    std::ifstream pipe(path.toStdString(), std::ios::binary);
    if (!pipe) throw ToolError(path.toStdString() + ": could not be opened");
    file = ReadStream(pipe, limit);
  } else {
    file = ReadInput(path, limit, console);
  }
  if (file.FileSize > limit) throw ToolError(InputName(path) + ": the file is too large");
  return {file.Bytes.begin(), file.Bytes.end()};
}

std::string ImageFault(const FileStart& file) {
  if (!IsImageHeader(file.Bytes)) return "not an image of this game";
  if (file.Bytes.size() >= OpenImage::WholeSize) return {};
  return "cut short: it is " + QuantityText(file.FileSize, "byte") +
         " long, and a whole image has " + QuantityText(OpenImage::WholeSize, "byte");
}

std::vector<std::uint8_t> ReadImageFile(const QString& path, Console& console) {
  FileStart file = ReadInput(path, largest_file, console);
  if (const std::string why = ImageFault(file); !why.empty()) {
    throw ToolError(InputName(path) + ": " + why);
  }
  CheckSize(path, file);
  return std::move(file.Bytes);
}

LeagueData ReadLeagueFile(const QString& path, Console& console) {
  OpenImage image(ReadImageFile(path, console));
  return ReadLeague(image);
}

}  // namespace rostermill
