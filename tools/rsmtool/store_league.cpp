#include "tools/rsmtool/store_league.h"

#include "exchange/changes.h"
#include "league/quantity_text.h"
#include "league/save_image.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/save_effects.h"

namespace rostermill {

namespace {

void PrintEffects(const std::vector<std::string>& effects, std::ostream& out) {
  for (const std::string& effect : effects) out << "Also: " << effect;
}

}  // namespace

void StopAtErrors(std::size_t errors) {
  if (errors > 0) throw ToolError(QuantityText(errors, "error") + "; nothing was written");
}

int StoreLeague(const QString& source, const QString& out, OpenImage& image,
                const LeagueData& before, const LeagueData& league, const Arguments& arguments,
                Console& console) {
  const std::vector<Change> changes = FindChanges(before, league);
  if (changes.empty() && (out == source || arguments.DryRun)) {
    console.Err << "rsmtool: nothing to change; " << out.toStdString() << " stays as it is\n";
    return ExitOk;
  }
  if (changes.empty()) {
    return WriteImageFile(source, out, image.Bytes(), Extent::Whole, arguments, console);
  }
  if (const auto overflow = TextOverflow(league)) throw ToolError(OneLine(*overflow));
  const std::vector<std::string> effects = FindSaveEffects(image, before, league);
  if (arguments.DryRun) {
    for (const Change& change : changes) console.Out << ChangeLine(change);
    PrintEffects(effects, console.Out);
    return ExitOk;
  }
  const int code = WriteLeagueFile(source, out, image, league, arguments, console);
  console.Err << "rsmtool: " << QuantityText(changes.size(), "change") << " written to "
              << InputName(out) << "\n";
  PrintEffects(effects, console.Err);
  return code;
}

}  // namespace rostermill
