#include "history/version_store.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "history/bytes_hash.h"
#include "history/store_folder.h"
#include "league/open_image.h"

namespace rostermill {

namespace {

/// How much is kept of a file of this length.
std::uint64_t KeptSize(std::uint64_t file_size) {
  return file_size > VersionStore::LongestKeptWhole ? OpenImage::WholeSize : file_size;
}

/// A version as its file says.
struct Kept {
  Version Facts;
  int Turn = 0;
  std::string Hash;
  std::string Folder;
  std::string Name;

  std::string Path() const { return Folder + "/" + Name; }
  std::uint64_t Size() const { return KeptSize(Facts.FileSize); }
};

bool IsGoodWhat(std::string_view what) {
  return !what.empty() && what.size() <= 60 && std::ranges::all_of(what, [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view(" -,.'()").find(c) != std::string_view::npos;
  });
}

std::string NameOf(const Kept& kept) {
  std::array<char, 32> numbers{};
  std::snprintf(numbers.data(), numbers.size(), "%06d-%06d", kept.Facts.Number, kept.Turn);
  return std::string(numbers.data()) + "_" + UtcText(kept.Facts.When) + "_" +
         std::to_string(kept.Facts.FileSize) + "_" + kept.Hash + "_" + kept.Facts.What + ".nes";
}

/// Takes what comes before the next mark off the text.
std::string_view Next(std::string_view& text, char mark) {
  const std::size_t end = std::min(text.find(mark), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

/// A number as NameOf writes it, with zeros up to this many digits; empty for anything else.
template <typename Number>
std::optional<Number> ParseNumber(std::string_view text, std::size_t digits) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  const bool as_written = text.size() == digits || (text.size() > digits && text[0] != '0');
  return whole && as_written ? std::optional(number) : std::nullopt;
}

/// The version of this name; nothing where NameOf doesn't write it.
std::optional<Kept> ParseName(const std::string& name) {
  std::string_view text = name;
  if (!text.ends_with(".nes")) return std::nullopt;
  text.remove_suffix(4);
  const auto number = ParseNumber<int>(Next(text, '-'), 6);
  const auto turn = ParseNumber<int>(Next(text, '_'), 6);
  const auto when = ParseUtc(Next(text, '_'));
  const auto size = ParseNumber<std::uint64_t>(Next(text, '_'), 1);
  const std::string_view hash = Next(text, '_');
  const bool is_hash = hash.size() == 32 && std::ranges::all_of(hash, [](char c) {
                         return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
                       });
  if (!number || !turn || !when || !size || !is_hash || !IsGoodWhat(text)) return std::nullopt;
  if (*number < 1 || *turn < 1) return std::nullopt;
  const bool cut = *size > VersionStore::LongestKeptWhole;
  return Kept{{*number, *when, std::string(text), *number == 1, *size, cut, {}},
              *turn,
              std::string(hash),
              {},
              name};
}

/// What one folder holds.
struct Contents {
  std::vector<Kept> Versions;  ///< in the order of their turns
  int LastNumber = 0;
  int LastTurn = 0;
  std::chrono::sys_seconds Touched{};  ///< when the last one was kept
  std::vector<std::string> Leftovers;  ///< of programs that were killed while they kept a version
};

Contents ContentsOf(const std::string& folder) {
  Contents contents;
  for (const std::string& file : FilesIn(folder)) {
    // A file that is being written has the start of its name with a dot before it.
    int ignored = 0;
    if (file[0] == '.' && std::sscanf(file.c_str(), ".%9d-%9d_", &ignored, &ignored) == 2) {
      contents.Leftovers.push_back(std::filesystem::path(folder) / file);
    }
    auto kept = ParseName(file);
    if (!kept) continue;
    contents.LastNumber = std::max(contents.LastNumber, kept->Facts.Number);
    contents.LastTurn = std::max(contents.LastTurn, kept->Turn);
    contents.Touched = std::max(contents.Touched, kept->Facts.When);
    kept->Folder = folder;
    contents.Versions.push_back(std::move(*kept));
  }
  std::ranges::sort(contents.Versions, {}, &Kept::Turn);
  return contents;
}

/// Whether the version's file has its length; another program may have cut it short.
bool IsWhole(const Kept& kept) {
  std::error_code error;
  const auto size = std::filesystem::file_size(kept.Path(), error);
  if (error && error != std::errc::no_such_file_or_directory) FailWith(error.value());
  return !error && size == kept.Size();
}

/// The version's bytes, checked by their hash. Throws FileMissing if its file has been removed or
/// renamed, HistoryError if it is damaged.
FileStart ReadKept(const Kept& kept) {
  auto bytes = ReadFileStart(kept.Path(), kept.Size()).Bytes;
  if (HexText(HashOf(bytes)) != kept.Hash) {
    throw HistoryError("Version " + std::to_string(kept.Facts.Number) + " is damaged.");
  }
  return {std::move(bytes), kept.Facts.FileSize};
}

/// Whether the version is whole and has just these bytes.
bool HasBytes(const Kept& kept, std::span<const std::uint8_t> bytes) {
  try {
    return std::ranges::equal(ReadFileStart(kept.Path(), kept.Size()).Bytes, bytes);
  } catch (const FileError&) {
    return false;
  }
}

std::span<const std::uint8_t> BytesToKeep(const FileStart& file) {
  const std::uint64_t size = KeptSize(file.FileSize);
  if (file.Bytes.size() < size) {
    throw std::invalid_argument("too few of the file's bytes were given");
  }
  return std::span(file.Bytes).first(static_cast<std::size_t>(size));
}

/// Puts the bytes into the folder as the latest version. Where a version has them, `kept` takes
/// over its number, and when it is the first state all but its turn.
void Store(const Contents& own, Kept& kept, std::span<const std::uint8_t> bytes) {
  const auto& versions = own.Versions;
  const auto same = std::ranges::find_if(versions, [&](const Kept& old) {
    return old.Hash == kept.Hash && old.Facts.FileSize == kept.Facts.FileSize &&
           HasBytes(old, bytes);
  });
  if (same == versions.end()) {
    kept.Name = NameOf(kept);
    WriteKept(kept.Path(), bytes);
  } else {
    const Version facts = same->Facts;
    kept.Facts.Number = facts.Number;
    if (facts.FirstState) kept.Facts = facts;
    kept.Name = NameOf(kept);
    std::error_code error;
    std::filesystem::rename(same->Path(), kept.Path(), error);
    if (error) FailWith(error.value());
    // Neither name is on the disk where whoever kept it was stopped before its sync.
    SyncFolder(kept.Folder);
  }
}

/// Drops an image's oldest versions until the limit is met.
void DropOverCount(const Contents& own, int limit) {
  const auto is_first = [](const Kept& kept) { return kept.Facts.FirstState; };
  auto too_many = std::ssize(own.Versions) - std::ranges::count_if(own.Versions, is_first) - limit;
  for (const Kept& kept : own.Versions) {
    if (is_first(kept) || too_many-- <= 0) continue;
    TryToRemoveFile(kept.Path());
  }
}

/// Drops versions of all images until the limit is met, the longest untouched image's first. The
/// latest version in the folder `own` stays.
void DropOverTotal(const std::string& base, const std::string& own, std::uint64_t limit) {
  struct Candidate {
    std::chrono::sys_seconds Touched;
    Kept Version;
  };
  std::vector<Candidate> candidates;
  std::uint64_t total = 0;
  const auto add = [&](const std::string& folder) {
    Contents image = ContentsOf(folder);
    for (Kept& kept : image.Versions) {
      total += kept.Size();
      if (folder == own && kept.Turn == image.LastTurn) continue;
      candidates.push_back({image.Touched, std::move(kept)});
    }
  };
  for (const std::string& folder : FoldersIn(base)) {
    try {
      add(folder);
    } catch (const FileError&) {
      continue;  // what can't be read counts as empty
    }
  }
  std::ranges::sort(candidates, {}, [](const Candidate& c) {
    return std::tuple(c.Version.Facts.FirstState, c.Touched, c.Version.Turn);
  });
  for (const Candidate& candidate : candidates) {
    if (total <= limit) return;
    TryToRemoveFile(candidate.Version.Path());
    total -= candidate.Version.Size();
  }
}

}  // namespace

VersionStore::VersionStore(std::string base) : VersionStore(std::move(base), Limits{}) {}

VersionStore::VersionStore(std::string base, Limits limits)
    : base_(std::move(base)), limits_(limits) {}

FileStart VersionStore::ReadForKeeping(const std::string& image) {
  FileStart file = ReadFileStart(image, LongestKeptWhole);
  // Cut short by another program meanwhile.
  if (file.Bytes.size() < LongestKeptWhole) file.FileSize = file.Bytes.size();
  return file;
}

int VersionStore::Keep(const std::string& image, const FileStart& file,
                       std::string_view what) const {
  if (!IsGoodWhat(what))
    throw std::invalid_argument("bad words for a version: " + std::string(what));
  const auto bytes = BytesToKeep(file);
  const FileLock lock = LockStore(base_);
  const std::string path = CanonicalPath(image);
  const std::string folder = ImageFolder(base_, path);
  MakeImageFolder(folder, path);
  const Contents own = ContentsOf(folder);

  Kept kept;
  kept.Facts.Number = own.LastNumber + 1;
  kept.Facts.When = UtcNow();
  kept.Facts.What = what;
  kept.Facts.FileSize = file.FileSize;
  kept.Turn = own.LastTurn + 1;
  kept.Hash = HexText(HashOf(bytes));
  kept.Folder = folder;
  Store(own, kept, bytes);
  return kept.Facts.Number;
}

void VersionStore::DropOld(const std::string& image) const {
  try {
    const FileLock lock = LockStore(base_);
    const std::string folder = ImageFolder(base_, image);
    const Contents own = ContentsOf(folder);
    for (const std::string& leftover : own.Leftovers) TryToRemoveFile(leftover);
    DropOverCount(own, limits_.Versions);
    DropOverTotal(base_, folder, limits_.TotalBytes);
  } catch (const std::runtime_error&) {
    return;  // the next call drops them
  }
}

std::vector<Version> VersionStore::List(const std::string& image) const {
  const auto lock = LockStoreForReading(base_);
  std::vector<Version> versions;
  for (const Kept& kept : ContentsOf(ImageFolder(base_, image)).Versions) {
    if (!IsWhole(kept)) continue;
    versions.push_back(kept.Facts);
    versions.back().Path = kept.Path();
  }
  std::ranges::reverse(versions);
  std::stable_partition(versions.begin(), versions.end(),
                        [](const Version& version) { return !version.FirstState; });
  return versions;
}

FileStart VersionStore::Read(const std::string& image, int number) const {
  const auto lock = LockStoreForReading(base_);
  const auto versions = ContentsOf(ImageFolder(base_, image)).Versions;
  const auto found = std::ranges::find_if(versions, [number](const Kept& kept) {
    return kept.Facts.Number == number && IsWhole(kept);
  });
  if (found == versions.end()) {
    throw HistoryError("There is no version " + std::to_string(number) + ".");
  }
  return ReadKept(*found);
}

FileStart VersionStore::Read(const std::string& image, const Version& version) const {
  const std::filesystem::path path = version.Path;
  auto kept = ParseName(path.filename());
  if (!kept) return Read(image, version.Number);
  kept->Folder = path.parent_path();
  try {
    return ReadKept(*kept);
  } catch (const FileMissing&) {
    return Read(image, version.Number);
  }
}

}  // namespace rostermill
