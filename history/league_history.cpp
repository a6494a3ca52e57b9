#include "history/league_history.h"

#include <array>
#include <ctime>
#include <stdexcept>
#include <utility>

#include "exchange/league_json.h"
#include "league/load_image.h"

namespace rostermill {

namespace {

constexpr const char* changed_by_another =
    "The file seems to have been changed by another program. Its present state will be kept under "
    "Earlier Versions.";

LeagueData LeagueOfJson(const std::string& json, LeagueData league) {
  if (!ApplyLeagueJson(json, league).empty()) {
    throw HistoryError(
        "These changes were kept in a form that this version of the program "
        "doesn't understand.");
  }
  return league;
}

}  // namespace

LeagueHistory::LeagueHistory(LeagueSession& session, std::string base)
    : session_(session),
      league_(
          session.SetRecorder([this](const std::string& description, const LeagueChange& change) {
            Record(description, change);
          })),
      base_(std::move(base)),
      versions_(base_) {}

LeagueHistory::~LeagueHistory() {
  KeepNow();
  session_.SetRecorder(nullptr);
}

void LeagueHistory::Tell() {
  listener_();
}

Touched LeagueHistory::Record(const std::string& description, const LeagueChange& change,
                              int mark) {
  const Touched touched = steps_.Change(league_, description, change, mark);
  if (!touched.Nothing()) waiting_ = false;
  last_touched_ = touched;
  Tell();
  return touched;
}

Touched LeagueHistory::Undo() {
  const Touched touched = steps_.Undo(league_);
  Tell();
  return touched;
}

Touched LeagueHistory::Redo() {
  const Touched touched = steps_.Redo(league_);
  Tell();
  return touched;
}

bool LeagueHistory::Changed() const {
  return HasImage() && !SameLeague(*saved_, league_);
}

std::size_t LeagueHistory::ChangeCount() const {
  return HasImage() ? FindChanges(*saved_, league_).size() : 0;
}

bool LeagueHistory::KeepUnsaved() {
  if (std::exchange(old_versions_due_, false)) versions_.DropOld(image_);
  if (!keeper_ || !HasImage()) return false;
  if (!Changed()) {
    if (!kept_) return false;
    keeper_->Drop();
    kept_.reset();
    return true;
  }
  if (kept_ && SameLeague(*kept_, league_)) return false;
  kept_ = league_;
  keeper_->Keep([league = league_] { return WriteLeagueJson(league, JsonLayout::Compact); },
                steps_.MarksInForce());
  return true;
}

void LeagueHistory::KeepNow() {
  KeepUnsaved();
  if (keeper_) keeper_->Store();
}

const std::string& LeagueHistory::KeepingFailure() {
  if (!keeper_) return keeping_failure_;
  if (auto failure = keeper_->TakeFailure()) {
    keeping_failure_ = std::move(*failure);
    kept_.reset();  // so that the next call tries again
  } else if (kept_) {
    keeping_failure_.clear();
  }
  return keeping_failure_;
}

std::optional<UnsavedState> LeagueHistory::WaitingState() const {
  if (!waiting_ || left_.empty()) return std::nullopt;
  return left_.front();
}

void LeagueHistory::LookForLeftStates() {
  left_ = keeper_->Store().List();
}

std::vector<Version> LeagueHistory::Versions() const {
  return saved_ ? versions_.List(image_) : std::vector<Version>();
}

LeagueData LeagueHistory::LeagueOfVersion(const Version& version) const {
  FileStart file = BytesOfVersion(version);
  if (!IsImageHeader(file.Bytes) || file.Bytes.size() < OpenImage::WholeSize) {
    throw HistoryError(
        "This version is not a whole image, so it holds no league. It can be "
        "written back with \"rsmtool restore\".");
  }
  OpenImage image(std::move(file.Bytes));
  LeagueData league = ReadLeague(image);
  league.PaletteData = league_.PaletteData;
  return league;
}

LeagueData LeagueHistory::LeagueOfLeftState(int number) {
  return LeagueOfJson(keeper_->Store().Read(number), league_);
}

Touched LeagueHistory::BringBackVersion(const Version& version) {
  LeagueData league = LeagueOfVersion(version);
  const std::string description =
      "Bring Back Version " + std::to_string(version.Number) + " (" + version.What + ")";
  return Record(description, [&](LeagueData& now) { now = std::move(league); });
}

Touched LeagueHistory::BringBackLeftState(const UnsavedState& state) {
  LeagueData league = LeagueOfLeftState(state.Number);
  waiting_ = false;
  return Record(
      "Bring Back Unsaved Changes", [&](LeagueData& now) { now = std::move(league); },
      state.Number);
}

void LeagueHistory::BeforeLoad(const std::string& path) {
  KeepNow();
  stamp_ = StampOf(path);
}

void LeagueHistory::Forget() {
  keeper_.reset();
  steps_.Clear();
  kept_.reset();
  saved_.reset();
  left_.clear();
  waiting_ = false;
  keeping_failure_.clear();
}

void LeagueHistory::Leave() {
  KeepNow();
  Forget();
  Tell();
}

void LeagueHistory::Loaded(std::span<const std::uint8_t> bytes) {
  Forget();
  image_ = session_.ImagePath;
  saved_ = league_;
  known_ = FileStateOf(stamp_, bytes);
  try {
    keeper_ = std::make_unique<UnsavedKeeper>(base_, image_);
    LookForLeftStates();
    // Equal to the file: the editor was killed after its save, before it removed the state.
    while (!left_.empty() && SameLeague(LeagueOfLeftState(left_.front().Number), league_)) {
      keeper_->Store().Remove(left_.front().Number);
      LookForLeftStates();
    }
  } catch (const std::runtime_error& error) {
    keeping_failure_ = error.what();
  }
  waiting_ = !left_.empty();
  Tell();
}

std::string LeagueHistory::SaveWarning(const std::string& path) {
  told_of_change_ = saved_ && StatSaysChanged(known_, path);
  return told_of_change_ ? changed_by_another : "";
}

FileStart LeagueHistory::ReadForSave(const std::string& path) {
  return VersionStore::ReadForKeeping(path);
}

std::string LeagueHistory::ReplaceWarning(const FileStart& file) {
  if (!saved_ || told_of_change_ || !BytesDiffer(known_, file.Bytes)) return {};
  told_of_change_ = true;
  return changed_by_another;
}

void LeagueHistory::BeforeReplace(const std::string& path, const FileStart& file) {
  trouble_.clear();
  try {
    versions_.Keep(path, file, "before a save");
    old_versions_due_ = true;
    told_trouble_.clear();
  } catch (const std::runtime_error& error) {
    trouble_ = std::string(
                   "The state before this save could not be kept under Earlier "
                   "Versions: ") +
               error.what() + ".";
  }
}

void LeagueHistory::Replaced(const std::string& path, std::span<const std::uint8_t> bytes,
                             bool confirmed) {
  known_ = FileStateOf(StampOf(path), bytes);
  if (!confirmed) return;
  saved_ = league_;
  kept_.reset();
  if (keeper_) {
    try {
      const auto brought_back = steps_.MarksInForce();
      keeper_->Store().Saved(brought_back);
      if (!brought_back.empty()) LookForLeftStates();
    } catch (const std::runtime_error& error) {
      keeping_failure_ = error.what();
    }
    if (left_.empty()) waiting_ = false;
  }
  Tell();
}

std::string LeagueHistory::TakeTrouble() {
  std::string trouble = std::exchange(trouble_, {});
  if (trouble == told_trouble_) return {};
  told_trouble_ = trouble;
  return trouble;
}

std::string LocalTimeText(std::chrono::sys_seconds time, std::chrono::sys_seconds now) {
  const auto parts_of = [](std::chrono::sys_seconds point) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(point);
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    return parts;
  };
  const std::tm then = parts_of(time);
  const std::tm today = parts_of(now);
  const bool same_day = then.tm_year == today.tm_year && then.tm_yday == today.tm_yday;
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), same_day ? "%H:%M" : "%Y-%m-%d %H:%M", &then);
  return text.data();
}

}  // namespace rostermill
