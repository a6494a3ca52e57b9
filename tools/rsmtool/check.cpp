#include <algorithm>

#include "exchange/json_text.h"
#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "league/load_image.h"
#include "league/oddities.h"
#include "league/player_names.h"
#include "league/quantity_text.h"
#include "league/team_data.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

namespace {

struct OddLine {
  Oddity Found;
  std::string Subject;  ///< empty where it isn't about a team or player
};

struct Report {
  std::string Name;
  std::string Unusable;  ///< why the file is not a usable image; empty for one that is
  std::uint64_t FileSize = 0;
  std::string State;  ///< "stock", "saved" or "unknown"
  int NameBytes = 0;
  int TeamTextBytes = 0;
  std::vector<OddLine> Odd;

  int Code() const {
    if (!Unusable.empty()) return ExitTrouble;
    return Odd.empty() ? ExitOk : ExitFound;
  }
};

std::string StateOf(OpenImage& image) {
  const int mark = FormationMark(image);
  if (mark == StockFormationMark) return "stock";
  return mark == PatchedFormationMark ? "saved" : "unknown";
}

void Examine(FileStart file, Report& report) {
  report.FileSize = file.FileSize;
  report.Unusable = ImageFault(file);
  if (!report.Unusable.empty()) return;
  OpenImage image(std::move(file.Bytes));
  const LeagueData league = ReadLeague(image);
  report.State = StateOf(image);
  report.NameBytes = NameBytesNeeded(league);
  report.TeamTextBytes = TeamTextBytesNeeded(league);
  if (report.FileSize > OpenImage::WholeSize) {
    const std::uint64_t rest = report.FileSize - OpenImage::WholeSize;
    report.Odd.push_back({{"file", 0, 0, QuantityText(rest, "byte") + " after the image"}, {}});
  }
  for (Oddity& oddity : FindOddities(image, league)) {
    std::string subject = SubjectTitle(league, oddity.Team, oddity.Slot);
    report.Odd.push_back({std::move(oddity), std::move(subject)});
  }
}

Report ReportOn(const QString& path, Console& console) {
  Report report;
  report.Name = InputName(path);
  try {
    Examine(ReadImageStart(path, console), report);
  } catch (const ToolError& error) {
    report.Unusable = error.what();
    const std::string prefix = report.Name + ": ";
    if (report.Unusable.starts_with(prefix)) report.Unusable.erase(0, prefix.size());
  }
  return report;
}

void PrintRoom(std::string_view what, int used, int capacity, std::ostream& out) {
  const auto bytes = [](int count) {
    return QuantityText(static_cast<std::uint64_t>(count), "byte");
  };
  out << "  " << what << ": " << bytes(used) << " used, ";
  if (used <= capacity) {
    out << bytes(capacity - used) << " left\n";
  } else {
    out << bytes(used - capacity) << " too many\n";
  }
}

std::string StateText(const std::string& state) {
  if (state == "stock") return "stock, never saved";
  return state == "saved" ? "saved" : "of an unknown state";
}

void Print(const Report& report, std::ostream& out) {
  out << report.Name << ": ";
  if (!report.Unusable.empty()) {
    out << report.Unusable << "\n";
    return;
  }
  out << "a whole image, " << StateText(report.State) << ", ";
  if (report.Odd.empty()) {
    out << "nothing odd\n";
  } else {
    out << report.Odd.size() << (report.Odd.size() == 1 ? " oddity" : " oddities") << "\n";
  }
  PrintRoom("names", report.NameBytes, NameDataCapacity, out);
  PrintRoom("team texts", report.TeamTextBytes, TeamTextCapacity, out);
  for (const auto& [found, subject] : report.Odd) {
    out << "  odd, " << OddityText(found, subject) << "\n";
  }
}

Json RoomAsJson(int used, int capacity) {
  return {{"used", used}, {"capacity", capacity}, {"left", capacity - used}};
}

Json ReportAsJson(const Report& report) {
  Json json{{"file", report.Name}, {"usable", report.Unusable.empty()}};
  if (!report.Unusable.empty()) {
    json["reason"] = report.Unusable;
    return json;
  }
  json["state"] = report.State;
  json["names"] = RoomAsJson(report.NameBytes, NameDataCapacity);
  json["teamTexts"] = RoomAsJson(report.TeamTextBytes, TeamTextCapacity);
  Json& oddities = json["oddities"] = Json::array();
  for (const auto& [found, subject] : report.Odd) {
    Json& oddity = oddities.emplace_back(Json::object());
    oddity["section"] = found.Section;
    if (found.Team != 0) oddity["team"] = found.Team;
    if (found.Slot != 0) oddity["slot"] = found.Slot;
    if (!subject.empty()) oddity["subject"] = subject;
    oddity["text"] = Utf8Of(found.Text);
  }
  return json;
}

/// One line on a terminal that shows how far a long run is; nothing elsewhere.
class Progress {
 public:
  Progress(const Arguments& arguments, Console& console)
      : err_(console.Err),
        count_(arguments.Paths.size()),
        on_(console.ErrIsTerminal && count_ > 1 && (arguments.Json || !console.OutIsTerminal)) {}
  ~Progress() {
    if (on_) err_ << "\r\x1B[K" << std::flush;
  }

  void Step() {
    ++done_;
    constexpr qsizetype steps_a_line = 10;
    if (on_ && done_ % steps_a_line == 0) {
      err_ << "\r" << done_ << " of " << count_ << std::flush;
    }
  }

 private:
  std::ostream& err_;
  qsizetype count_;
  qsizetype done_ = 0;
  bool on_;
};

}  // namespace

int RunCheck(const Arguments& arguments, Console& console) {
  Progress progress(arguments, console);
  Json json = Json::array();
  int code = ExitOk;
  for (const QString& path : arguments.Paths) {
    const Report report = ReportOn(path, console);
    code = std::max(code, report.Code());
    if (arguments.Json) {
      json.push_back(ReportAsJson(report));
    } else {
      Print(report, console.Out);
    }
    progress.Step();
  }
  if (arguments.Json) console.Out << JsonText(json);
  return code;
}

}  // namespace rostermill
