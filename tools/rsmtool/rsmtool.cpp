#include "tools/rsmtool/rsmtool.h"

#include <QCommandLineParser>

#include <algorithm>
#include <limits>
#include <new>

#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/help.h"

namespace rostermill {

namespace {

struct Command {
  const char* name;
  int (*run)(const Arguments&, Console&);
  qsizetype fewest_paths;
  qsizetype most_paths;
  const char* needs;  ///< what the fewest paths are
  bool only_reads;    ///< every path is an input
  std::array<const char*, 2> options{};
};

constexpr qsizetype no_limit = std::numeric_limits<qsizetype>::max();
constexpr const char* json = "json";
constexpr const char* dry_run = "dry-run";
constexpr const char* no_version = "no-version";
constexpr const char* a_file = "a file";
constexpr const char* two_files = "two files";

constexpr std::array<Command, 8> commands{
    {{"check", RunCheck, 1, no_limit, a_file, true, {json}},
     {"dump", RunDump, 1, 1, a_file, true},
     {"diff", RunDiff, 2, 2, two_files, true, {json}},
     {"resave", RunResave, 2, 2, two_files, false, {no_version}},
     {"export-players", RunExportPlayers, 1, 2, a_file, false},
     {"import-players", RunImportPlayers, 2, 2, two_files, true, {dry_run, no_version}},
     {"versions", RunVersions, 1, 1, a_file, true, {json}},
     {"restore", RunRestore, 2, 3, "a file and a version's number", false, {no_version}}}};

[[noreturn]] void FailWithUsage(const QString& problem, const QString& command = {}) {
  const QString help = "rsmtool " + (command.isEmpty() ? QString() : command + " ") + "--help";
  throw ToolError((problem + "; see " + help).toStdString());
}

const Command& FindCommand(const QString& name) {
  const auto it = std::find_if(commands.begin(), commands.end(),
                               [&](const Command& command) { return name == command.name; });
  if (it == commands.end()) FailWithUsage("there is no command \"" + name + "\"");
  return *it;
}

int RunCommand(const Command& command, const QStringList& rest, Console& console) {
  QCommandLineParser parser;
  parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
  const QCommandLineOption help(QStringList{"h", "help"});
  parser.addOption(help);
  for (const char* option : command.options) {
    if (option != nullptr) parser.addOption(QCommandLineOption(option));
  }
  if (!parser.parse(QStringList(command.name) + rest)) {
    FailWithUsage(parser.errorText().chopped(parser.errorText().endsWith('.') ? 1 : 0),
                  command.name);
  }
  if (parser.isSet(help)) {
    console.Out << CommandHelp(command.name);
    return ExitOk;
  }
  Arguments arguments;
  arguments.Command = command.name;
  arguments.Paths = parser.positionalArguments();
  const QStringList options = parser.optionNames();
  arguments.Json = options.contains(json);
  arguments.DryRun = options.contains(dry_run);
  arguments.NoVersion = options.contains(no_version);
  if (arguments.Paths.size() < command.fewest_paths) {
    FailWithUsage(command.name + QString(" needs ") + command.needs, command.name);
  }
  if (arguments.Paths.size() > command.most_paths) {
    FailWithUsage(QString(command.name) + " takes no file " + arguments.Paths[command.most_paths],
                  command.name);
  }
  if (command.only_reads && arguments.Paths.count("-") > 1)
    throw ToolError("standard input can't be read twice");
  return command.run(arguments, console);
}

int Dispatch(const QStringList& arguments, Console& console) {
  if (arguments.isEmpty()) FailWithUsage("no command is given");
  const QString& first = arguments.front();
  if (first == "--help" || first == "-h" || first == "help") {
    if (arguments.size() > 2) FailWithUsage("help takes one command");
    const bool one = arguments.size() == 2;
    console.Out << (one ? CommandHelp(FindCommand(arguments[1]).name) : ProgramHelp());
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
