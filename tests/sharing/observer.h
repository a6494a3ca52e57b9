#pragma once

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/sharing/writer_log.h"
#include "tests/sharing/writers.h"

namespace rostermill::test {

/// Watches the image, its earlier versions and the writers' logs. What must never be is a failure
/// of the test.
class Observer {
 public:
  /// The image and the folder of its versions are there.
  Observer(const Place& place, std::string versions);
  ~Observer();
  Observer(const Observer&) = delete;
  Observer& operator=(const Observer&) = delete;

  void Follow(const Writer& writer);

  /// Waits that long for a change; then everything that has appeared since is looked at.
  void Look(std::chrono::milliseconds patience);

  /// Whether somebody has begun to write an image or a version, as the last look found.
  bool SawWriting() const { return saw_writing_; }
  /// How many states the writer's log has named so far.
  int Saves(const Writer& writer) const;
  /// How many lines of this kind all logs have.
  int Count(const std::string& kind) const;
  std::string Summary() const;

  /// Once all writers have ended: each state that somebody was told to be saved must be the image
  /// or have been a version.
  void ExpectNothingLost() const;

 private:
  void ReadLogs();
  void ReadLine(const std::string& writer, const LogLine& line);
  void ReadImage();
  void ReadVersion(const std::string& name);
  void ReadNotice(bool of_version, unsigned change, const std::string& name);
  /// Fails unless it is the hash of a state that somebody was about to save.
  void ExpectKnown(const std::string& hash, const std::string& where);

  struct Followed {
    std::string Writer;
    LogReader Log;
    int States = 0;
  };

  Place place_;
  std::string versions_;  ///< their folder
  int notices_;
  int versions_watch_;
  std::vector<Followed> followed_;
  std::map<std::string, int> counts_;
  std::map<std::string, std::string> hashes_;  ///< of all states about to be saved, by stamp
  std::set<std::string> known_;                ///< all those hashes
  std::set<std::string> told_;                 ///< the stamps that somebody was told to be saved
  std::set<std::string> kept_;                 ///< the hashes of all versions that have appeared
  std::string image_;                          ///< the hash of the image as last read
  int images_ = 0;
  int versions_read_ = 0;
  bool saw_writing_ = false;
};

}  // namespace rostermill::test
