#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "history/store_folder.h"

namespace rostermill {

/// Unsaved changes that an editor has left.
struct UnsavedState {
  int Number = 0;                 ///< names it in this store, from 1
  std::chrono::sys_seconds When;  ///< UTC, when they were last kept
};

/// Keeps the state of a league that differs from its file, for one editor that has loaded one
/// image. The state is a string of bytes that only the caller understands. Every editor writes a
/// file of its own, "unsaved-3.state" in the image's folder, and holds a lock on "unsaved-3.lock"
/// while it runs. So editors of one image don't touch each other's, and a state whose editor has
/// left the image or was killed is known by its free lock: it is one of the row that List gives.
/// Locks of editors that have ended are removed by the first Keep of a later one, so the highest
/// number stays taken and none is given again.
///
/// What the editor does, and what happens to the state:
///
/// - Load: make a store; nothing is written. The first of List, if any, is what can be brought
///   back. (Where it equals the league just loaded, its editor was killed between saving and
///   Saved: Remove it.)
/// - First change: Keep, within a second. What other editors have left moves down the row, of
///   which only the five latest stay.
/// - Another change, also by undo and redo: Keep again, which replaces the editor's own state.
/// - Back at the file's state: Drop. The row stays.
/// - Bringing back: Read one of the row, then change the league by it in one step, whose mark in
///   the undo stack is its number; then Keep as after any change. The row stays.
/// - Save: Saved, with the marks in force. The editor's own state goes, and so do those that were
///   brought back, those that these had been made from, and others with the same bytes.
/// - Load of another image, unload, exit, also by an error during a load: Keep before anything
///   else if a change has not been kept yet; then the store ends. Its state is the first of the
///   row of the next editor.
/// - Kill: the state of the last Keep is in the row. During a Keep it is that or the one before,
///   always whole, also after a power cut, since a file is replaced in one step after its bytes
///   are on the disk. A program killed within its very first Keep leaves the old row.
///
/// Keep waits for the disk, 1 ms for a fast and idle one to 40 ms and more for a busy one, so a
/// window keeps through UnsavedKeeper.
/// What can't be done throws FileError or HistoryError (both std::runtime_error); the state kept
/// before is still there. Damaged files are passed over and never removed. Paths are UTF-8.
class UnsavedStore {
 public:
  static constexpr std::size_t RowLength = 5;

  /// `base` as for VersionStore.
  UnsavedStore(std::string base, const std::string& image);
  UnsavedStore(const UnsavedStore&) = delete;
  UnsavedStore& operator=(const UnsavedStore&) = delete;

  /// What editors have left, the latest five, the latest first, every one whole; of equal ones the
  /// latest only. Not the states of editors that still run, this one included.
  std::vector<UnsavedState> List() const;

  /// Throws HistoryError when there is no such state or it is damaged.
  std::string Read(int number) const;

  /// Puts this state, of less than 16 MiB, in place of the editor's own. `brought_back` holds the
  /// numbers that have been brought back into it, UndoStack::MarksInForce.
  void Keep(std::string_view state, std::span<const int> brought_back = {});

  /// Removes the editor's own state, if there is one. What is removed may be there again after a
  /// power cut, which does no harm.
  void Drop();

  /// Drop, and Remove for each state that is now saved. The numbers of states that are gone, can't
  /// be read or belong to a running editor are passed over.
  void Saved(std::span<const int> brought_back = {});

  /// Removes a left state, those that it had been made from, and those with the same bytes.
  void Remove(int number);

 private:
  bool HasOwn() const;
  void KeepFirst(std::string_view file);
  std::set<int> Origins(std::span<const int> brought_back);

  std::string base_;
  std::string image_;  ///< its canonical path, as it was at the load
  std::string folder_;
  std::map<int, std::set<int>> made_from_;  ///< what was found in the states brought back
  int own_ = 0;                             ///< the number of the editor's own state
  std::optional<FileLock> own_lock_;
};

}  // namespace rostermill
