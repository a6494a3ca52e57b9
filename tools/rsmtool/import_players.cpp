#include "exchange/changes.h"
#include "league/load_image.h"
#include "league/quantity_text.h"
#include "league/save_image.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/player_import.h"
#include "tools/rsmtool/save_effects.h"

namespace rostermill {

namespace {

std::string ErrorLine(const std::string& file, const ImportError& error) {
  std::string line = file + ": line " + std::to_string(error.Line);
  if (error.Column > 0) line += ", column " + std::to_string(error.Column);
  if (!error.Heading.empty()) line += " (" + error.Heading + ")";
  return line + ": " + error.Text + "\n";
}

void PrintEffects(const std::vector<std::string>& effects, std::ostream& out) {
  for (const std::string& effect : effects) out << "Also: " << effect;
}

}  // namespace

int RunImportPlayers(const Arguments& arguments, Console& console) {
  const QString& path = arguments.Paths[0];
  if (path == "-") throw ToolError("import-players needs the image as a file that it can change");
  OpenImage image(ReadImageFile(path, console));
  const LeagueData before = ReadLeague(image);
  LeagueData league = before;
  const auto errors = ImportPlayers(ReadTextFile(arguments.Paths[1], console), league);
  for (const ImportError& error : errors) {
    console.Err << ErrorLine(InputName(arguments.Paths[1]), error);
  }
  if (!errors.empty()) {
    throw ToolError(QuantityText(errors.size(), "error") + "; nothing was written");
  }
  if (const auto overflow = TextOverflow(league)) throw ToolError(OneLine(*overflow));
  const std::vector<Change> changes = FindChanges(before, league);
  if (changes.empty()) {
    console.Err << "rsmtool: nothing to change; " << path.toStdString() << " stays as it is\n";
    return ExitOk;
  }
  const std::vector<std::string> effects = FindSaveEffects(image, before, league);
  if (arguments.DryRun) {
    for (const Change& change : changes) console.Out << ChangeLine(change);
    PrintEffects(effects, console.Out);
    return ExitOk;
  }
  const int code = WriteLeagueFile(path, path, image, league, arguments, console);
  console.Err << "rsmtool: " << QuantityText(changes.size(), "change") << " written to "
              << path.toStdString() << "\n";
  PrintEffects(effects, console.Err);
  return code;
}

}  // namespace rostermill
