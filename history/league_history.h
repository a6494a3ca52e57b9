#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exchange/changes.h"
#include "history/file_state.h"
#include "history/undo_stack.h"
#include "history/unsaved_keeper.h"
#include "history/version_store.h"
#include "league/image_watch.h"
#include "league/league_session.h"

namespace rostermill {

/// The history of the league in use: the steps that can be undone, whether the league differs from
/// its file, the file's earlier versions, and the unsaved changes that are kept beside them. Makes
/// all changes of the session, and watches its loads and saves. Without a loaded image there is
/// nothing to undo, to keep or to list. Texts for the user and descriptions are UTF-8, except those
/// of steps, which are Latin-1.
class LeagueHistory : public ImageWatch {
 public:
  /// `base` is the folder for versions and unsaved changes, an absolute path. The session outlives
  /// the history.
  LeagueHistory(LeagueSession& session, std::string base);
  /// Keeps what is unsaved.
  ~LeagueHistory() override;
  LeagueHistory(const LeagueHistory&) = delete;
  LeagueHistory& operator=(const LeagueHistory&) = delete;

  /// Called after whatever changes an answer of this class: a change of the league, a load, a save.
  void SetListener(std::function<void()> listener) { listener_ = std::move(listener); }

  const LeagueData& League() const { return league_; }

  // Steps.
  /// What the last change has touched.
  const Touched& LastTouched() const { return last_touched_; }
  bool CanUndo() const { return steps_.CanUndo(); }
  bool CanRedo() const { return steps_.CanRedo(); }
  std::string UndoDescription() const { return steps_.UndoDescription(); }
  std::string RedoDescription() const { return steps_.RedoDescription(); }
  Touched Undo();
  Touched Redo();

  /// Whether the league differs from what was loaded or last saved, and in how many values.
  bool Changed() const;
  std::size_t ChangeCount() const;

  // Unsaved changes.
  /// Keeps the present ones in the background, or removes those that have been undone; and drops
  /// the versions that are too old after a save. Returns false, having kept nothing, if the league
  /// is as it was at the last call.
  bool KeepUnsaved();
  /// The image is unloaded: keeps what is unsaved and ends the history. Call it while the league is
  /// still in place.
  void Leave();
  /// Why the last try to keep them failed; empty if it didn't.
  const std::string& KeepingFailure();
  /// Those that earlier editors have left, the latest first.
  const std::vector<UnsavedState>& LeftStates() const { return left_; }
  /// The latest of them, from the load to the first change, for a reminder.
  std::optional<UnsavedState> WaitingState() const;

  /// Earlier versions, the latest first. Throws std::runtime_error with a text for the user, as
  /// everything below does.
  std::vector<Version> Versions() const;
  /// The bytes of one.
  FileStart BytesOfVersion(const Version& version) const { return versions_.Read(image_, version); }
  /// Their leagues, with the palette in use.
  LeagueData LeagueOfVersion(const Version& version) const;
  LeagueData LeagueOfLeftState(int number);
  /// Puts them into memory as one step.
  Touched BringBackVersion(const Version& version);
  Touched BringBackLeftState(const UnsavedState& state);

  // What happens to the file of the image.
  void BeforeLoad(const std::string& path) override;
  void Loaded(std::span<const std::uint8_t> bytes) override;
  std::string SaveWarning(const std::string& path) override;
  FileStart ReadForSave(const std::string& path) override;
  std::string ReplaceWarning(const FileStart& file) override;
  void BeforeReplace(const std::string& path, const FileStart& file) override;
  void Replaced(const std::string& path, std::span<const std::uint8_t> bytes,
                bool confirmed) override;
  std::string TakeTrouble() override;

 private:
  /// Not while a load has emptied the league of the image before.
  bool HasImage() const { return saved_ && session_.ImageLoaded != 0; }
  void Tell();
  Touched Record(const std::string& description, const LeagueChange& change, int mark = 0);
  void KeepNow();
  void Forget();
  void LookForLeftStates();

  LeagueSession& session_;
  LeagueData& league_;
  std::string image_;  ///< the path of the image in use, which a load that fails leaves in use
  const std::string base_;
  const VersionStore versions_;
  std::function<void()> listener_ = [] {};

  UndoStack steps_;
  Touched last_touched_;
  std::optional<LeagueData> saved_;  ///< as loaded or last saved; empty without an image
  std::optional<FileStamp> stamp_;   ///< of the file that is being loaded
  FileState known_;                  ///< of the image's file
  bool old_versions_due_ = false;    ///< to be dropped, which no save should wait for
  bool told_of_change_ = false;      ///< a question of this save says that the file has changed

  std::optional<LeagueData> kept_;  ///< as last given to the keeper; empty if nothing is kept
  std::unique_ptr<UnsavedKeeper> keeper_;
  std::string keeping_failure_;
  std::vector<UnsavedState> left_;
  bool waiting_ = false;

  std::string trouble_;
  std::string told_trouble_;
};

/// "21:40" for a time of today, else "2026-07-30 21:40"; local time.
std::string LocalTimeText(std::chrono::sys_seconds time, std::chrono::sys_seconds now);

}  // namespace rostermill
