#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "history/unsaved_store.h"

namespace rostermill {

/// An UnsavedStore that keeps in a thread of its own, so that no key waits for the disk. A thread
/// runs only while there is something to do. All functions are for one thread, the window's.
class UnsavedKeeper {
 public:
  UnsavedKeeper(std::string base, const std::string& image);
  /// Finishes what has been asked for.
  ~UnsavedKeeper();
  UnsavedKeeper(const UnsavedKeeper&) = delete;
  UnsavedKeeper& operator=(const UnsavedKeeper&) = delete;

  /// UnsavedStore::Keep, soon. `state` makes the bytes and is called in the other thread, so it
  /// has to own what it works on, such as a copy of the league. Takes the place of a Keep or Drop
  /// that hasn't begun yet.
  void Keep(std::function<std::string()> state, std::vector<int> brought_back = {});

  /// UnsavedStore::Drop, soon; the same otherwise.
  void Drop();

  /// The store, once all that was asked for is done: for everything else, and to be certain before
  /// the image is left. Good until the next Keep or Drop.
  UnsavedStore& Store();

  /// Why the last Keep or Drop failed, if it did; each failure is given once.
  std::optional<std::string> TakeFailure();

 private:
  using Job = std::function<void(UnsavedStore&)>;
  void Ask(Job job);
  void Work();

  UnsavedStore store_;
  std::thread worker_;
  std::mutex mutex_;  ///< guards the members below
  Job next_;
  bool working_ = false;
  std::optional<std::string> failure_;
};

}  // namespace rostermill
