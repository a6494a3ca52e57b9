#pragma once

#include <chrono>
#include <map>
#include <set>
#include <string>

#include "tests/sharing/writer_log.h"
#include "tests/sharing/writers.h"
#include <sys/inotify.h>

namespace rostermill::test {

/// Watches the image, its earlier versions and the writers' log. What must never be is a failure
/// of the test.
class Observer {
 public:
  /// The image and the folder of its versions are there.
  Observer(const Place& place, std::string versions);
  ~Observer();
  Observer(const Observer&) = delete;
  Observer& operator=(const Observer&) = delete;

  /// Waits that long for a change; then everything that has appeared since is looked at.
  void Look(std::chrono::milliseconds patience);

  /// Whether somebody has begun to write an image or a version, as the last look found.
  bool SawWriting() const { return saw_writing_; }
  /// How many lines of each kind the log has.
  const std::map<std::string, int>& Counts() const { return counts_; }
  int Count(const std::string& kind) const { return counts_.contains(kind) ? counts_.at(kind) : 0; }

  /// Once all writers have ended: each state that somebody was told to be saved must be the image
  /// or have been a version.
  void ExpectNothingLost();

 private:
  void ReadNotice(bool of_version, unsigned change, const std::string& name);
  void ReadLog();
  void ReadLine(const LogLine& line);
  void ReadImage();
  void ReadVersion(const std::string& name);
  /// Fails unless it is the hash of a state that somebody was about to save.
  void ExpectKnown(const std::string& hash, const std::string& where);

  Place place_;
  std::string versions_;  ///< their folder
  LogReader log_;
  int notices_ = ::inotify_init1(IN_NONBLOCK);
  int versions_watch_ = 0;
  std::map<std::string, int> counts_;
  std::map<std::string, std::string> states_;  ///< the stamps of those about to be saved, by hash
  std::set<std::string> told_;                 ///< the stamps that somebody was told to be saved
  std::set<std::string> kept_;                 ///< the hashes of all versions that have appeared
  std::string image_;                          ///< the hash of the image as last read
  bool saw_writing_ = false;
};

}  // namespace rostermill::test
