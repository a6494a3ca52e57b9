#include "history/unsaved_store.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <tuple>
#include <utility>

#include "history/bytes_hash.h"
#include "league/file_access.h"

namespace rostermill {

namespace {

constexpr std::string_view first_line = "Rostermill unsaved changes 1";
/// A league is kept in less than 400 KB.
constexpr std::size_t longest = 16 * 1024 * 1024;

std::string StatePath(const std::string& folder, int number) {
  return folder + "/unsaved-" + std::to_string(number) + ".state";
}

std::string LockPath(const std::string& folder, int number) {
  return folder + "/unsaved-" + std::to_string(number) + ".lock";
}

/// The number in the name of a state's or a lock's file, with a dot before it or not; 0 for others.
int NumberIn(const std::string& name) {
  const char* text = name.c_str() + (name.starts_with('.') ? 1 : 0);
  int number = 0;
  return std::sscanf(text, "unsaved-%9d.", &number) == 1 && number > 0 ? number : 0;
}

/// A state as its file has it: a few lines, one of them with the hash of the rest, an empty line,
/// the state.
struct Entry {
  UnsavedState Facts;
  std::set<int> BroughtBack;
  std::string State;
};

std::string HashLine(const std::string& head, std::string_view state) {
  std::string rest = head;
  rest += state;
  return "hash " + HexText(HashOf(AsBytes(rest)));
}

std::string FileOf(std::string_view state, const std::set<int>& brought_back) {
  std::string head = std::string(first_line) + "\nwhen " + UtcText(UtcNow()) + "\nbrought-back";
  for (const int number : brought_back) head += " " + std::to_string(number);
  head += "\n";
  std::string file = head + HashLine(head, state) + "\n\n";
  file += state;
  return file;
}

/// Empty where FileOf doesn't write it.
std::optional<Entry> Parse(const std::string& file) {
  std::istringstream lines(file);
  std::string first, when, brought_back, hash, empty;
  std::getline(lines, first), std::getline(lines, when), std::getline(lines, brought_back);
  std::getline(lines, hash), std::getline(lines, empty);
  const auto time = when.starts_with("when ") ? ParseUtc(when.substr(5)) : std::nullopt;
  if (first != first_line || !time || !brought_back.starts_with("brought-back") || !empty.empty() ||
      !lines) {
    return std::nullopt;
  }
  Entry entry{{0, *time}, {}, file.substr(static_cast<std::size_t>(lines.tellg()))};
  if (hash != HashLine(first + "\n" + when + "\n" + brought_back + "\n", entry.State)) {
    return std::nullopt;
  }
  std::istringstream numbers(brought_back.substr(std::string_view("brought-back").size()));
  for (int number = 0; numbers >> number;) entry.BroughtBack.insert(number);
  return entry;
}

/// Empty where the file isn't there, can't be read or is damaged.
std::optional<Entry> ReadEntry(const std::string& folder, int number) {
  try {
    const auto bytes = ReadFileStart(StatePath(folder, number), longest).Bytes;
    auto entry = Parse(std::string(bytes.begin(), bytes.end()));
    if (entry) entry->Facts.Number = number;
    return entry;
  } catch (const FileError&) {
    return std::nullopt;
  }
}

std::set<int> NumbersIn(const std::vector<std::string>& files) {
  std::set<int> numbers;
  for (const std::string& file : files) {
    if (const int number = NumberIn(file)) numbers.insert(number);
  }
  return numbers;
}

/// The whole states that no running editor holds, the latest first.
std::vector<Entry> LeftEntries(const std::string& folder) {
  std::vector<Entry> row;
  for (const int number : NumbersIn(FilesIn(folder))) {
    if (FileLock::IsHeld(LockPath(folder, number))) continue;
    if (auto entry = ReadEntry(folder, number)) row.push_back(std::move(*entry));
  }
  std::ranges::sort(row, std::greater(), [](const Entry& entry) {
    return std::tuple(entry.Facts.When, entry.Facts.Number);
  });
  return row;
}

/// Takes out what an entry before it has as well, and gives that.
std::vector<Entry> TakeEqual(std::vector<Entry>& row) {
  std::vector<Entry> single, equal;
  for (Entry& entry : row) {
    const bool known = std::ranges::find(single, entry.State, &Entry::State) != single.end();
    (known ? equal : single).push_back(std::move(entry));
  }
  row = std::move(single);
  return equal;
}

/// Locks of editors that have ended, and unfinished files of those that were killed.
void RemoveLeftovers(const std::string& folder) {
  for (const std::string& file : FilesIn(folder)) {
    const int number = NumberIn(file);
    if (number == 0 || FileLock::IsHeld(LockPath(folder, number))) continue;
    if (file.starts_with('.') || file.ends_with(".lock")) {
      RemoveFile(std::filesystem::path(folder) / file);
    }
  }
}

/// Leaves the latest of the row. What can't be removed now is removed the next time.
void TrimRow(const std::string& folder) {
  try {
    auto row = LeftEntries(folder);
    auto gone = TakeEqual(row);
    for (std::size_t i = UnsavedStore::RowLength; i < row.size(); ++i) gone.push_back(row[i]);
    for (const Entry& entry : gone) RemoveFile(StatePath(folder, entry.Facts.Number));
    RemoveLeftovers(folder);
  } catch (const FileError&) {
    return;
  }
}

}  // namespace

UnsavedStore::UnsavedStore(std::string base, const std::string& image)
    : base_(std::move(base)), image_(CanonicalPath(image)), folder_(ImageFolder(base_, image_)) {}

std::vector<UnsavedState> UnsavedStore::List() const {
  auto row = LeftEntries(folder_);
  TakeEqual(row);
  std::vector<UnsavedState> states;
  states.reserve(row.size());
  for (const Entry& entry : row) states.push_back(entry.Facts);
  if (states.size() > RowLength) states.resize(RowLength);
  return states;
}

std::string UnsavedStore::Read(int number) const {
  auto entry = ReadEntry(folder_, number);
  if (!entry) throw HistoryError("These unsaved changes are gone or damaged.");
  return std::move(entry->State);
}

void UnsavedStore::Keep(std::string_view state, std::span<const int> brought_back) {
  const std::string file = FileOf(state, Origins(brought_back));
  if (file.size() > longest) throw HistoryError("These unsaved changes are too long to be kept.");
  if (HasOwn()) {
    WriteKept(StatePath(folder_, own_), AsBytes(file));
  } else {
    KeepFirst(file);
  }
}

/// Whether the editor holds a number. It loses it when somebody removes the folder, since another
/// editor may make the folder again and take the same number.
bool UnsavedStore::HasOwn() const {
  return own_lock_ && own_lock_->IsAt(LockPath(folder_, own_));
}

/// What was brought back, and what that had been made from: it may leave the row before the save.
std::set<int> UnsavedStore::Origins(std::span<const int> brought_back) {
  std::set<int> origins;
  for (const int number : brought_back) {
    auto known = made_from_.find(number);
    if (known == made_from_.end()) {
      const auto entry = ReadEntry(folder_, number);
      known = made_from_.emplace(number, entry ? entry->BroughtBack : std::set<int>()).first;
    }
    origins.insert(number);
    origins.insert(known->second.begin(), known->second.end());
  }
  return origins;
}

void UnsavedStore::KeepFirst(std::string_view file) {
  own_lock_.reset();
  const FileLock lock = LockStore(base_);
  MakeImageFolder(folder_, image_);
  const auto numbers = NumbersIn(FilesIn(folder_));
  own_ = numbers.empty() ? 1 : *numbers.rbegin() + 1;
  own_lock_.emplace(LockPath(folder_, own_), FileLock::Kind::Exclusive, std::chrono::seconds(1));
  WriteKept(StatePath(folder_, own_), AsBytes(file));
  TrimRow(folder_);
}

void UnsavedStore::Drop() {
  if (HasOwn()) RemoveFile(StatePath(folder_, own_));
}

void UnsavedStore::Saved(std::span<const int> brought_back) {
  Drop();
  for (const int number : Origins(brought_back)) Remove(number);
}

void UnsavedStore::Remove(int number) {
  const auto row = LeftEntries(folder_);
  std::vector<int> wanted{number};
  std::set<int> seen;
  while (!wanted.empty()) {
    const int next = wanted.back();
    wanted.pop_back();
    const auto found = std::ranges::find(row, next, [](const Entry& e) { return e.Facts.Number; });
    if (found == row.end() || !seen.insert(next).second) continue;
    wanted.insert(wanted.end(), found->BroughtBack.begin(), found->BroughtBack.end());
    for (const Entry& entry : row) {
      if (entry.State == found->State) wanted.push_back(entry.Facts.Number);
    }
    RemoveFile(StatePath(folder_, next));
  }
}

}  // namespace rostermill
