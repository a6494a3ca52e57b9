#include "exchange/merge.h"

#include "exchange/other_bytes.h"
#include "league/load_image.h"
#include "league/quantity_text.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/store_league.h"

namespace rostermill {

namespace {

struct Side {
  std::vector<std::uint8_t> Bytes;
  LeagueData League;
};

Side ReadSide(const QString& path, Console& console) {
  Side side{ReadImageFile(path, console), {}};
  OpenImage image(side.Bytes);
  side.League = ReadLeague(image);
  return side;
}

void PrintConflicts(const std::vector<Conflict>& conflicts, Console& console) {
  for (const Conflict& conflict : conflicts) {
    for (const Change& change : conflict.Ours) console.Out << "ours:   " << ChangeLine(change);
    for (const Change& change : conflict.Theirs) console.Out << "theirs: " << ChangeLine(change);
  }
}

}  // namespace

int RunMerge(const Arguments& arguments, Console& console) {
  const QString& source = arguments.Paths[1];
  if (arguments.PreferOurs && arguments.PreferTheirs) {
    throw ToolError("merge takes --ours or --theirs, not both");
  }
  const Side base = ReadSide(arguments.Paths[0], console);
  const Side ours = ReadSide(source, console);
  const Side theirs = ReadSide(arguments.Paths[2], console);
  const Merge merge = FindMerge(base.League, ours.League, theirs.League);
  if (!merge.Conflicts.empty() && !arguments.PreferOurs && !arguments.PreferTheirs) {
    PrintConflicts(merge.Conflicts, console);
    console.Err << "rsmtool: " << QuantityText(merge.Conflicts.size(), "conflict")
                << "; nothing was written\n";
    return ExitFound;
  }
  LeagueData merged = ours.League;
  TakeUnits(UnitsOf(merge.Theirs), theirs.League, merged);
  if (arguments.PreferTheirs) {
    for (const Conflict& conflict : merge.Conflicts) {
      CopyUnit(theirs.League, merged, conflict.Where);
    }
  }
  if (const std::size_t count = CountOtherBytes(base.Bytes, theirs.Bytes); count > 0) {
    console.Err << "rsmtool: " << arguments.Paths[2].toStdString() << " changes "
                << QuantityText(count, "byte") << " outside the league, which are not merged\n";
  }
  OpenImage image(ours.Bytes);
  return StoreLeague(source, arguments.Paths.value(3, source), image, ours.League, merged,
                     arguments, console);
}

}  // namespace rostermill
