#include "tests/sharing/observer.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <regex>
#include <utility>

#include "history/bytes_hash.h"
#include "league/file_access.h"
#include "league/open_image.h"
#include "tests/sharing/stamp.h"
#include <poll.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

/// What must never happen to an image, which is replaced in one step.
constexpr unsigned not_replaced = IN_MODIFY | IN_DELETE | IN_MOVED_FROM;

std::string HashOfFile(const std::string& path) {
  return HexText(HashOf(ReadFileStart(path, OpenImage::WholeSize + 1).Bytes));
}

}  // namespace

Observer::Observer(const Place& place, std::string versions)
    : place_(place), versions_(std::move(versions)), log_(place.Log()) {
  // Nothing that appears is missed, however late it is looked at: the notices wait in a row.
  constexpr unsigned appeared = IN_CREATE | IN_MOVED_TO;
  versions_watch_ = ::inotify_add_watch(notices_, versions_.c_str(), appeared);
  EXPECT_GE(versions_watch_, 0);
  EXPECT_GE(::inotify_add_watch(notices_, place_.ImageFolder().c_str(), appeared | not_replaced),
            0);
  ReadLine({"", About, FirstStamp});
}

Observer::~Observer() {
  ::close(notices_);
}

void Observer::Look(std::chrono::milliseconds patience) {
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

void Observer::ExpectNothingLost() {
  std::set<std::string> lost = told_;
  lost.erase(states_[image_]);
  for (const std::string& hash : kept_) lost.erase(states_[hash]);
  // A writer that couldn't keep what it replaced has said so.
  EXPECT_LE(std::ssize(lost), Count(NotKept)) << testing::PrintToString(lost);
}

void Observer::ReadNotice(bool of_version, unsigned change, const std::string& name) {
  EXPECT_EQ(change & IN_Q_OVERFLOW, 0U) << "too many notices";
  if ((change & IN_CREATE) != 0) {
    saw_writing_ = true;
  } else if (of_version) {
    ReadVersion(name);
  } else if (name == "league.nes") {
    EXPECT_EQ(change & not_replaced, 0U) << "the image was written in place or taken away";
  }
}

void Observer::ReadLog() {
  for (const LogLine& line : log_.Next()) ReadLine(line);
}

void Observer::ReadLine(const LogLine& line) {
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

void Observer::ExpectKnown(const std::string& hash, const std::string& where) {
  if (!states_.contains(hash)) ReadLog();
  EXPECT_TRUE(states_.contains(hash)) << where << " isn't a state that a writer was about to save";
}

void Observer::ReadImage() {
  try {
    const std::string hash = HashOfFile(place_.Image());
    if (hash != image_) ExpectKnown(hash, "the image");
    image_ = hash;
  } catch (const FileError& error) {
    ADD_FAILURE() << "the image: " << error.what();
  }
}

void Observer::ReadVersion(const std::string& name) {
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

}  // namespace rostermill::test
