#include "history/version_store.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
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

/// Reads a name into `kept`; false where NameOf doesn't write it.
bool ParseName(const std::string& name, Kept& kept) {
  std::array<char, 17> when{};
  std::array<char, 33> hash{};
  unsigned long long size = 0;
  int what_at = 0;
  if (std::sscanf(name.c_str(), "%9d-%9d_%16[0-9TZ]_%12llu_%32[0-9a-f]_%n", &kept.Facts.Number,
                  &kept.Turn, when.data(), &size, hash.data(), &what_at) != 5 ||
      what_at == 0 || !name.ends_with(".nes")) {
    return false;
  }
  const auto time = ParseUtc(when.data());
  if (!time || kept.Facts.Number < 1 || kept.Turn < 1) return false;
  kept.Facts.When = *time;
  kept.Facts.FileSize = size;
  kept.Facts.Cut = size > VersionStore::LongestKeptWhole;
  kept.Facts.FirstState = kept.Facts.Number == 1;
  kept.Facts.What = name.substr(static_cast<std::size_t>(what_at));
  kept.Facts.What.resize(kept.Facts.What.size() - std::string_view(".nes").size());
  kept.Hash = hash.data();
  kept.Name = name;
  return IsGoodWhat(kept.Facts.What) && kept.Hash.size() == 32 && NameOf(kept) == name;
}

/// What one folder holds.
struct Contents {
  std::vector<Kept> Versions;  ///< in the order of their turns
  int LastNumber = 0;          ///< those of damaged versions count too
  int LastTurn = 0;
  std::vector<std::string> Leftovers;  ///< of programs that were killed while they kept a version
};

Contents ContentsOf(const std::string& folder) {
  Contents contents;
  for (const FoundFile& file : FilesIn(folder)) {
    // A file that is being written has the start of its name with a dot before it.
    int ignored = 0;
    if (std::sscanf(file.Name.c_str(), ".%9d-%9d_", &ignored, &ignored) == 2) {
      contents.Leftovers.push_back(folder + "/" + file.Name);
    }
    Kept kept;
    if (!ParseName(file.Name, kept)) continue;
    contents.LastNumber = std::max(contents.LastNumber, kept.Facts.Number);
    contents.LastTurn = std::max(contents.LastTurn, kept.Turn);
    if (file.Size != kept.Size()) continue;
    kept.Folder = folder;
    contents.Versions.push_back(std::move(kept));
  }
  std::ranges::sort(contents.Versions, {}, &Kept::Turn);
  return contents;
}

/// The contents of all images' folders but one; a folder that can't be read counts as empty.
std::vector<Contents> ContentsOfOthers(const std::string& base, const std::string& own) {
  std::vector<Contents> others;
  for (const std::string& folder : FoldersIn(base)) {
    if (folder == own) continue;
    try {
      others.push_back(ContentsOf(folder));
    } catch (const FileError&) {
      continue;
    }
  }
  return others;
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
void Store(Contents& own, Kept& kept, std::span<const std::uint8_t> bytes) {
  auto& versions = own.Versions;
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
    versions.erase(same);
  }
  versions.push_back(kept);
  own.LastTurn = kept.Turn;
}

/// Drops an image's oldest versions until the limit is met.
void DropOld(Contents& own, int limit) {
  const auto is_first = [](const Kept& kept) { return kept.Facts.FirstState; };
  auto too_many = std::ssize(own.Versions) - std::ranges::count_if(own.Versions, is_first) - limit;
  std::erase_if(own.Versions, [&](const Kept& kept) {
    if (too_many <= 0 || is_first(kept)) return false;
    TryToRemoveFile(kept.Path());
    --too_many;
    return true;
  });
}

/// Drops versions of all images until the limit is met, the longest untouched image's first.
void DropOverTotal(const std::vector<Contents>& all, const Kept& latest, std::uint64_t limit) {
  struct Candidate {
    bool FirstState;
    int Touched;  ///< the image's last turn
    const Kept* Version;
  };
  std::vector<Candidate> candidates;
  std::uint64_t total = 0;
  for (const Contents& image : all) {
    for (const Kept& kept : image.Versions) {
      total += kept.Size();
      candidates.push_back({kept.Facts.FirstState, image.LastTurn, &kept});
    }
  }
  std::ranges::sort(candidates, {}, [](const Candidate& c) {
    return std::tuple(c.FirstState, c.Touched, c.Version->Turn);
  });
  for (const Candidate& candidate : candidates) {
    if (total <= limit) return;
    if (candidate.Version->Turn == latest.Turn) continue;
    TryToRemoveFile(candidate.Version->Path());
    total -= candidate.Version->Size();
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
  Contents own = ContentsOf(folder);
  for (const std::string& leftover : own.Leftovers) TryToRemoveFile(leftover);
  std::vector<Contents> all = ContentsOfOthers(base_, folder);

  Kept kept;
  kept.Facts.Number = own.LastNumber + 1;
  kept.Facts.When = UtcNow();
  kept.Facts.What = what;
  kept.Facts.FileSize = file.FileSize;
  kept.Turn = own.LastTurn + 1;
  for (const Contents& other : all) kept.Turn = std::max(kept.Turn, other.LastTurn + 1);
  kept.Hash = HexText(HashOf(bytes));
  kept.Folder = folder;
  Store(own, kept, bytes);

  DropOld(own, limits_.Versions);
  all.push_back(std::move(own));
  DropOverTotal(all, kept, limits_.TotalBytes);
  return kept.Facts.Number;
}

std::vector<Version> VersionStore::List(const std::string& image) const {
  const auto lock = LockStoreForReading(base_);
  std::vector<Version> versions;
  const Contents contents = ContentsOf(ImageFolder(base_, image));
  for (const Kept& kept : contents.Versions) versions.push_back(kept.Facts);
  std::ranges::reverse(versions);
  std::stable_partition(versions.begin(), versions.end(),
                        [](const Version& version) { return !version.FirstState; });
  return versions;
}

FileStart VersionStore::Read(const std::string& image, int number) const {
  const auto lock = LockStoreForReading(base_);
  const Contents contents = ContentsOf(ImageFolder(base_, image));
  const auto found = std::ranges::find(contents.Versions, number,
                                       [](const Kept& kept) { return kept.Facts.Number; });
  if (found == contents.Versions.end()) {
    throw HistoryError("There is no version " + std::to_string(number) + ".");
  }
  auto bytes = ReadFileStart(found->Path(), found->Size()).Bytes;
  if (HexText(HashOf(bytes)) != found->Hash) {
    throw HistoryError("Version " + std::to_string(number) + " is damaged.");
  }
  return {std::move(bytes), found->Facts.FileSize};
}

}  // namespace rostermill
