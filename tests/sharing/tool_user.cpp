#include <QProcess>

#include "exchange/league_json.h"
#include "history/data_folder.h"
#include "history/version_store.h"
#include "tests/sharing/stamp.h"
#include "tests/sharing/writer_log.h"
#include "tests/sharing/writers.h"
#include "tests/support/sample.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {

namespace {

class ToolUser {
 public:
  ToolUser(const Place& place, std::string name, unsigned seed)
      : place_(place), name_(std::move(name)), chances_(seed, name_), log_(place.Log(), name_) {
    WriteFile(Own("first.nes"), StampedImage(FirstStamp));
  }

  void Run() {
    while (!place_.Stopped()) Step();
  }

 private:
  std::string Own(const std::string& name) const { return place_.File(name_ + name); }

  void Step() {
    const std::string image = place_.Image();
    const int kind = chances_.Below(100);
    if (kind < 15) return Call({"resave", image, image});
    if (kind < 30) return Restore();
    const std::string stamp = Stamp(name_, ++serial_);
    const std::string theirs = Own("theirs.nes");
    WriteFile(theirs, StampedImage(stamp));
    if (kind < 55) {
      WriteFile(Own("players.csv"), StampTable(stamp));
      Call({"import-players", image, Own("players.csv")}, stamp);
    } else if (kind < 75) {
      WriteFile(Own("league.json"), WriteLeagueJson(StampedLeague(stamp), JsonLayout::Compact));
      Call({"apply", image, Own("league.json")}, stamp);
    } else if (kind < 90) {
      // Without --theirs there are conflicts, except when the image is the first state.
      std::vector<std::string> merge{"merge"};
      if (!chances_.OneIn(4)) merge.push_back("--theirs");
      merge.insert(merge.end(), {Own("first.nes"), image, theirs});
      Call(merge, stamp);
    } else {
      // The patch doesn't fit any more where somebody else has saved after it was made.
      Call({"make-patch", image, theirs, Own("patch.bps")});
      Call({"apply-patch", image, Own("patch.bps")}, stamp);
    }
  }

  /// What is listed may have been dropped when it is to be restored.
  void Restore() {
    const auto versions = VersionStore(DataFolder()).List(place_.Image());
    if (versions.empty()) return;
    const int which = chances_.Below(static_cast<int>(versions.size()));
    const int number = versions[static_cast<std::size_t>(which)].Number;
    Call({"restore", place_.Image(), std::to_string(number)});
  }

  /// The stamp is what the command is about to save, where that is known.
  void Call(const std::vector<std::string>& words, const std::string& stamp = "-") {
    const std::string& command = words[0];
    log_.Write(About, stamp + " by " + command);
    QStringList arguments;
    for (const std::string& word : words) arguments << FromUtf8(word);
    QProcess tool;
    tool.start(FromUtf8(BinFolder() + "rsmtool"), arguments);
    const bool ended = tool.waitForFinished(120'000) && tool.exitStatus() == QProcess::NormalExit;
    const int code = ended ? tool.exitCode() : -1;
    const std::string message = tool.readAllStandardError().toStdString();
    const bool has_conflicts = code == 1 && command == "merge";
    const bool trouble = code == 2 || code == 3;
    if (message.find("could not be kept") != std::string::npos) log_.Write(NotKept, message);
    if (message.find("Sanitizer") != std::string::npos) {
      log_.Write(Fault, command + ": " + message);
    } else if (code == 0) {
      log_.Write(stamp == "-" ? Done : Saved, stamp + " by " + command);
    } else if (has_conflicts || trouble) {
      if (message.empty()) log_.Write(Fault, command + " says nothing about its trouble");
      log_.Write(Refused, stamp + " " + message);
    } else {
      log_.Write(Fault, command + " ends with " + std::to_string(code) + ": " + message);
    }
  }

  Place place_;
  std::string name_;
  Chances chances_;
  WriterLog log_;
  int serial_ = 0;
};

}  // namespace

void RunToolUser(const Place& place, const std::string& name, unsigned seed) {
  ToolUser(place, name, seed).Run();
}

}  // namespace rostermill::test
