#include "tests/sharing/observer.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "history/bytes_hash.h"
#include "league/file_access.h"
#include "league/file_error.h"
#include "league/open_image.h"
#include "tests/sharing/stamp.h"
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace rostermill::test {

namespace {

/// What must never happen to an image, which is replaced in one step.
constexpr unsigned not_replaced = IN_MODIFY | IN_DELETE | IN_MOVED_FROM;
constexpr unsigned written = IN_CREATE | IN_MOVED_TO;

/// The hash in a version's name: "000012-000015_20260730T214012Z_393232_HASH_before a save.nes".
/// Empty for any other file.
std::string HashInName(const std::string& name) {
  std::size_t at = 0;
  for (int parts = 0; parts < 3; ++parts) {
    at = name.find('_', at);
    if (name[0] == '.' || at == std::string::npos) return {};
    ++at;
  }
  return name.substr(at, name.find('_', at) - at);
}

}  // namespace

Observer::Observer(const Place& place, std::string versions)
    : place_(place), versions_(std::move(versions)), notices_(::inotify_init1(IN_NONBLOCK)) {
  // Nothing that appears is missed, however late it is looked at: the notices wait in a row.
  versions_watch_ = ::inotify_add_watch(notices_, versions_.c_str(), written);
  EXPECT_GE(versions_watch_, 0);
  EXPECT_GE(::inotify_add_watch(notices_, place_.ImageFolder().c_str(), written | not_replaced), 0);
  ReadLine({}, {About, FirstStamp});
}

Observer::~Observer() {
  ::close(notices_);
}

void Observer::Follow(const Writer& writer) {
  followed_.push_back({writer.Name(), LogReader(place_.Log(writer.Name()))});
}

void Observer::Look(std::chrono::milliseconds patience) {
  pollfd ready{notices_, POLLIN, 0};
  ::poll(&ready, 1, static_cast<int>(patience.count()));
  ReadImage();
  saw_writing_ = false;
  alignas(inotify_event) std::array<char, 16384> buffer;
  for (;;) {
    const ssize_t size = ::read(notices_, buffer.data(), buffer.size());
    if (size <= 0) break;
    inotify_event notice{};
    for (ssize_t at = 0; at < size; at += static_cast<ssize_t>(sizeof notice + notice.len)) {
      std::memcpy(&notice, buffer.data() + at, sizeof notice);
      const char* name = notice.len > 0 ? buffer.data() + at + sizeof notice : "";
      ReadNotice(notice.wd == versions_watch_, notice.mask, name);
    }
  }
  ReadLogs();
}

void Observer::ReadNotice(bool of_version, unsigned change, const std::string& name) {
  if ((change & IN_Q_OVERFLOW) != 0) ADD_FAILURE() << "too many notices";
  if ((change & IN_CREATE) != 0) {
    saw_writing_ = true;
  } else if (of_version) {
    ReadVersion(name);
  }
  if (!of_version && (change & not_replaced) != 0 && name == "league.nes") {
    ADD_FAILURE() << "the image was written in place or taken away";
  }
}

void Observer::ReadLogs() {
  for (Followed& followed : followed_) {
    for (const LogLine& line : followed.Log.Next()) {
      if (line.Kind == About) ++followed.States;
      ReadLine(followed.Writer, line);
    }
  }
}

void Observer::ReadLine(const std::string& writer, const LogLine& line) {
  static const bool print = std::getenv("ROSTERMILL_SHARING_LOG") != nullptr;
  if (print) printf("%s %s %s\n", writer.c_str(), line.Kind.c_str(), line.Text.c_str());
  ++counts_[line.Kind];
  const std::string stamp = line.Stamp();
  if (line.Kind == Fault) ADD_FAILURE() << writer << ": " << line.Text;
  if (line.Kind == Refused && stamp == line.Text) {
    ADD_FAILURE() << writer << ": " << stamp << " was refused without a word";
  }
  if (line.Kind == Saved) told_.insert(stamp);
  if (line.Kind == About && stamp != "-" && !hashes_.contains(stamp)) {
    hashes_[stamp] = HexText(HashOf(StampedImage(stamp)));
    known_.insert(hashes_[stamp]);
  }
}

void Observer::ExpectKnown(const std::string& hash, const std::string& where) {
  if (!known_.contains(hash)) ReadLogs();
  EXPECT_TRUE(known_.contains(hash)) << where << " isn't a state that a writer was about to save";
}

void Observer::ReadImage() {
  try {
    const auto bytes = ReadFileStart(place_.Image(), OpenImage::WholeSize + 1).Bytes;
    const std::string hash = HexText(HashOf(bytes));
    if (hash == image_) return;
    image_ = hash;
    ++images_;
    ExpectKnown(hash, "the image");
  } catch (const FileError& error) {
    ADD_FAILURE() << "the image: " << error.what();
  }
}

void Observer::ReadVersion(const std::string& name) {
  const std::string hash = HashInName(name);
  if (hash.empty() || !kept_.insert(hash).second) return;
  ExpectKnown(hash, "version " + name);
  try {
    const auto bytes = ReadFileStart(versions_ + "/" + name, OpenImage::WholeSize + 1).Bytes;
    EXPECT_EQ(HexText(HashOf(bytes)), hash) << "version " << name;
    ++versions_read_;
  } catch (const FileMissing&) {
    // It was dropped, or its bytes have been kept again under another name.
  }
}

int Observer::Saves(const Writer& writer) const {
  for (const Followed& followed : followed_) {
    if (followed.Writer == writer.Name()) return followed.States;
  }
  return 0;
}

int Observer::Count(const std::string& kind) const {
  const auto found = counts_.find(kind);
  return found == counts_.end() ? 0 : found->second;
}

std::string Observer::Summary() const {
  std::string text = std::to_string(images_) + " images read, " + std::to_string(kept_.size()) +
                     " versions, " + std::to_string(versions_read_) + " of them read";
  for (const auto& [kind, count] : counts_) text += ", " + kind + " " + std::to_string(count);
  return text;
}

void Observer::ExpectNothingLost() const {
  std::vector<std::string> lost;
  for (const std::string& stamp : told_) {
    const std::string& hash = hashes_.at(stamp);
    if (hash != image_ && !kept_.contains(hash)) lost.push_back(stamp);
  }
  // Whoever couldn't keep what he replaced has said so.
  EXPECT_LE(std::ssize(lost), Count(NotKept)) << testing::PrintToString(lost);
}

}  // namespace rostermill::test
