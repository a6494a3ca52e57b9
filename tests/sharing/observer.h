#pragma once

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>

#include "history/bytes_hash.h"
#include "league/file_access.h"
#include "league/open_image.h"
#include "tests/sharing/stamp.h"
#include "tests/sharing/writer_log.h"
#include "tests/sharing/writers.h"
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace rostermill::test {

/// Watches the image, its earlier versions and the writers' log. What must never be is a failure
/// of the test.
class Observer {
 public:
  /// The image and the folder of its versions are there.
  Observer(const Place& place, std::string versions)
      : place_(place), versions_(std::move(versions)), log_(place.Log()) {
    // Nothing that appears is missed, however late it is looked at: the notices wait in a row.
    constexpr unsigned appeared = IN_CREATE | IN_MOVED_TO;
    versions_watch_ = ::inotify_add_watch(notices_, versions_.c_str(), appeared);
    EXPECT_GE(versions_watch_, 0);
    EXPECT_GE(::inotify_add_watch(notices_, place_.ImageFolder().c_str(), appeared | not_replaced),
              0);
    ReadLine({"", About, FirstStamp});
  }
  ~Observer() { ::close(notices_); }
  Observer(const Observer&) = delete;
  Observer& operator=(const Observer&) = delete;

  /// Waits that long for a change; then everything that has appeared since is looked at.
  void Look(std::chrono::milliseconds patience) {
    pollfd ready{notices_, POLLIN, 0};
    ::poll(&ready, 1, static_cast<int>(patience.count()));
    ReadImage();
    saw_writing_ = false;
    alignas(inotify_event) std::array<char, 16384> buffer;
    for (ssize_t size = 0; (size = ::read(notices_, buffer.data(), buffer.size())) > 0;) {
      inotify_event notice{};
      for (ssize_t at = 0; at < size; at += static_cast<ssize_t>(sizeof notice + notice.len)) {
        std::memcpy(&notice, buffer.data() + at, sizeof notice);
        const char* name = notice.len > 0 ? buffer.data() + at + sizeof notice : "";
        ReadNotice(notice.wd == versions_watch_, notice.mask, name);
      }
    }
    ReadLog();
  }

  /// Whether somebody has begun to write an image or a version, as the last look found.
  bool SawWriting() const { return saw_writing_; }
  /// How many lines of each kind the log has.
  const std::map<std::string, int>& Counts() const { return counts_; }
  int Count(const std::string& kind) const { return counts_.contains(kind) ? counts_.at(kind) : 0; }

  /// Once all writers have ended: each state that somebody was told to be saved must be the image
  /// or have been a version.
  void ExpectNothingLost() {
    std::set<std::string> lost = told_;
    lost.erase(states_[image_]);
    for (const std::string& hash : kept_) lost.erase(states_[hash]);
    // Whoever couldn't keep what he replaced has said so.
    EXPECT_LE(std::ssize(lost), Count(NotKept)) << testing::PrintToString(lost);
  }

 private:
  /// What must never happen to an image, which is replaced in one step.
  static constexpr unsigned not_replaced = IN_MODIFY | IN_DELETE | IN_MOVED_FROM;

  void ReadNotice(bool of_version, unsigned change, const std::string& name) {
    EXPECT_EQ(change & IN_Q_OVERFLOW, 0U) << "too many notices";
    if ((change & IN_CREATE) != 0) {
      saw_writing_ = true;
    } else if (of_version) {
      ReadVersion(name);
    } else if (name == "league.nes") {
      EXPECT_EQ(change & not_replaced, 0U) << "the image was written in place or taken away";
    }
  }

  void ReadLog() {
    for (const LogLine& line : log_.Next()) ReadLine(line);
  }

  void ReadLine(const LogLine& line) {
    const std::string text = line.Writer + " " + line.Kind + " " + line.Text;
    static const bool print = std::getenv("ROSTERMILL_SHARING_LOG") != nullptr;
    if (print) puts(text.c_str());
    ++counts_[line.Kind];
    const std::string stamp = line.Stamp();
    if (line.Kind == Fault) ADD_FAILURE() << text;
    if (line.Kind == Refused && stamp == line.Text) ADD_FAILURE() << text << " without a word";
    if (line.Kind == Saved) told_.insert(stamp);
    if (line.Kind == About && stamp != "-") states_[HexText(HashOf(StampedImage(stamp)))] = stamp;
  }

  /// Fails unless it is the hash of a state that somebody was about to save.
  void ExpectKnown(const std::string& hash, const std::string& where) {
    if (!states_.contains(hash)) ReadLog();
    EXPECT_TRUE(states_.contains(hash))
        << where << " isn't a state that a writer was about to save";
  }

  void ReadImage() {
    try {
      const std::string hash = HashOfFile(place_.Image());
      if (hash != image_) ExpectKnown(hash, "the image");
      image_ = hash;
    } catch (const FileError& error) {
      ADD_FAILURE() << "the image: " << error.what();
    }
  }

  void ReadVersion(const std::string& name) {
    // "000012-000015_20260730T214012Z_393232_HASH_before a save.nes"
    static const std::regex form("[0-9-]+_[^_]+_[0-9]+_([0-9a-f]+)_.*");
    std::smatch parts;
    if (!std::regex_match(name, parts, form)) return;
    const std::string hash = parts[1];
    if (!kept_.insert(hash).second) return;
    ExpectKnown(hash, "version " + name);
    try {
      EXPECT_EQ(HashOfFile(versions_ + "/" + name), hash) << "version " << name;
    } catch (const FileMissing&) {
      // It was dropped, or its bytes have been kept again under another name.
    }
  }

  static std::string HashOfFile(const std::string& path) {
    return HexText(HashOf(ReadFileStart(path, OpenImage::WholeSize + 1).Bytes));
  }

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
