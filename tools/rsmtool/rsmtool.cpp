#include "tools/rsmtool/rsmtool.h"

#include <QCommandLineParser>

#include <algorithm>
#include <limits>
#include <new>

#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/help.h"

namespace rostermill {

namespace {

constexpr qsizetype no_limit = std::numeric_limits<qsizetype>::max();
constexpr qsizetype nothing = -1;

/// Where a command writes.
struct Output {
  qsizetype Path = nothing;    ///< the index of the path it writes to
  qsizetype Source = nothing;  ///< of the image that is changed in place where that isn't given
};

struct Command {
  const char* Name;
  int (*Run)(const Arguments&, Console&);
  qsizetype FewestPaths;
  qsizetype MostPaths;
  const char* Needs;  ///< what the fewest paths are
  Output Out = {};
  std::vector<const char*> Options = {};
};

constexpr const char* json = "json";
constexpr const char* dry_run = "dry-run";
constexpr const char* no_version = "no-version";
constexpr const char* prefer_ours = "ours";
constexpr const char* prefer_theirs = "theirs";
constexpr const char* ignore_unknown = "ignore-unknown";
constexpr const char* round = "round";
constexpr const char* returners = "returners";  // with a value
constexpr const char* a_file = "a file";
constexpr const char* two_files = "two files";

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands{
      {"check", RunCheck, 1, no_limit, a_file, {}, {json}},
      {"dump", RunDump, 1, 1, a_file},
      {"apply", RunApply, 2, 3, two_files, {2, 0}, {dry_run, no_version}},
      {"find", RunFind, 2, no_limit, "a file and words", {}, {json}},
      {"diff", RunDiff, 2, 2, two_files, {}, {json}},
      {"merge",
       RunMerge,
       3,
       4,
       "three images",
       {3, 1},
       {prefer_ours, prefer_theirs, dry_run, no_version}},
      {"resave", RunResave, 2, 2, two_files, {1, nothing}, {no_version}},
      {"export-players", RunExportPlayers, 1, 2, a_file, {1, nothing}},
      {"import-players",
       RunImportPlayers,
       2,
       3,
       two_files,
       {2, 0},
       {dry_run, no_version, ignore_unknown, round, returners}},
      {"export-teams", RunExportTeams, 1, 2, a_file, {1, nothing}},
      {"import-teams",
       RunImportTeams,
       2,
       3,
       two_files,
       {2, 0},
       {dry_run, no_version, ignore_unknown}},
      {"export-schedule", RunExportSchedule, 1, 2, a_file, {1, nothing}},
      {"import-schedule",
       RunImportSchedule,
       2,
       3,
       two_files,
       {2, 0},
       {dry_run, no_version, ignore_unknown}},
      {"make-patch", RunMakePatch, 3, 3, "two images and the patch's name", {2, nothing}},
      {"apply-patch", RunApplyPatch, 2, 3, two_files, {2, 0}, {dry_run, no_version}},
      {"versions", RunVersions, 1, 1, a_file, {}, {json}},
      {"restore", RunRestore, 2, 3, "a file and a version's number", {}, {no_version}},
  };
  return commands;
}

[[noreturn]] void FailWithUsage(const QString& problem, const QString& command = {}) {
  const QString help = "rsmtool " + (command.isEmpty() ? QString() : command + " ") + "--help";
  throw ToolError((problem + "; see " + help).toStdString());
}

const Command& FindCommand(const QString& name) {
  const auto it = std::ranges::find_if(
      Commands(), [&](const Command& command) { return name == command.Name; });
  if (it == Commands().end()) FailWithUsage("there is no command \"" + name + "\"");
  return *it;
}

void CheckPaths(const Command& command, const QStringList& paths) {
  if (paths.size() < command.FewestPaths) {
    FailWithUsage(command.Name + QString(" needs ") + command.Needs, command.Name);
  }
  if (paths.size() > command.MostPaths) {
    FailWithUsage(QString(command.Name) + " takes no file " + paths[command.MostPaths],
                  command.Name);
  }
  const bool out_given = command.Out.Path != nothing && command.Out.Path < paths.size();
  if (paths.first(out_given ? command.Out.Path : paths.size()).count("-") > 1) {
    throw ToolError("standard input can't be read twice");
  }
  if (!out_given && command.Out.Source != nothing && paths[command.Out.Source] == "-") {
    throw ToolError(std::string(command.Name) + " needs the image as a file that it can change");
  }
}

int RunCommand(const Command& command, const QStringList& rest, Console& console) {
  QCommandLineParser parser;
  parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
  const QCommandLineOption help(QStringList{"h", "help"});
  parser.addOption(help);
  for (const char* option : command.Options) {
    QCommandLineOption known(option);
    if (option == returners) known.setValueName("keep");
    parser.addOption(known);
  }
  if (!parser.parse(QStringList(command.Name) + rest)) {
    FailWithUsage(parser.errorText().chopped(parser.errorText().endsWith('.') ? 1 : 0),
                  command.Name);
  }
  if (parser.isSet(help)) {
    console.Out << CommandHelp(command.Name);
    return ExitOk;
  }
  Arguments arguments;
  arguments.Command = command.Name;
  arguments.Paths = parser.positionalArguments();
  const QStringList options = parser.optionNames();
  arguments.Json = options.contains(json);
  arguments.DryRun = options.contains(dry_run);
  arguments.NoVersion = options.contains(no_version);
  arguments.PreferOurs = options.contains(prefer_ours);
  arguments.PreferTheirs = options.contains(prefer_theirs);
  arguments.Table = {options.contains(ignore_unknown), options.contains(round),
                     options.contains(returners)};
  if (arguments.Table.KeepReturners && parser.value(returners) != "keep") {
    FailWithUsage("the only value of --returners is \"keep\"", command.Name);
  }
  CheckPaths(command, arguments.Paths);
  return command.Run(arguments, console);
}

int Dispatch(const QStringList& arguments, Console& console) {
  if (arguments.isEmpty()) FailWithUsage("no command is given");
  const QString& first = arguments.front();
  if (first == "--help" || first == "-h" || first == "help") {
    if (arguments.size() > 2) FailWithUsage("help takes one command");
    const bool one = arguments.size() == 2;
    console.Out << (one ? CommandHelp(FindCommand(arguments[1]).Name) : ProgramHelp());
    return ExitOk;
  }
  if (first == "--version" || first == "-v") {
    console.Out << "rsmtool " ROSTERMILL_VERSION "\n";
    return ExitOk;
  }
  return RunCommand(FindCommand(first), arguments.mid(1), console);
}

}  // namespace

int RunRsmtool(const QStringList& arguments, Console& console) {
  std::string problem;
  try {
    const int code = Dispatch(arguments, console);
    if (console.Out.flush()) return code;
    problem = "standard output could not be written";
  } catch (const std::bad_alloc&) {
    problem = "there is not enough memory";
  } catch (const std::exception& error) {
    problem = error.what();
  }
  console.Err << "rsmtool: " << problem << "\n";
  return ExitTrouble;
}

}  // namespace rostermill
