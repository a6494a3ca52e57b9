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
  bool only_reads;     ///< every path is an input
  const char* option;  ///< the one option that it takes, or nothing
};

constexpr qsizetype no_limit = std::numeric_limits<qsizetype>::max();
constexpr const char* json_option = "json";
constexpr const char* dry_run_option = "dry-run";

constexpr std::array<Command, 6> commands{
    {{"check", RunCheck, 1, no_limit, true, json_option},
     {"dump", RunDump, 1, 1, true, nullptr},
     {"diff", RunDiff, 2, 2, true, json_option},
     {"resave", RunResave, 2, 2, false, nullptr},
     {"export-players", RunExportPlayers, 1, 2, false, nullptr},
     {"import-players", RunImportPlayers, 2, 2, true, dry_run_option}}};

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
  if (command.option != nullptr) parser.addOption(QCommandLineOption(command.option));
  if (!parser.parse(QStringList(command.name) + rest)) {
    FailWithUsage(parser.errorText().chopped(parser.errorText().endsWith('.') ? 1 : 0),
                  command.name);
  }
  if (parser.isSet(help)) {
    console.Out << CommandHelp(command.name);
    return ExitOk;
  }
  Arguments arguments;
  arguments.Paths = parser.positionalArguments();
  const auto is_set = [&](const char* option) {
    return command.option == option && parser.isSet(option);
  };
  arguments.Json = is_set(json_option);
  arguments.DryRun = is_set(dry_run_option);
  if (arguments.Paths.size() < command.fewest_paths) {
    const char* files = command.fewest_paths == 1 ? " needs a file" : " needs two files";
    FailWithUsage(command.name + QString(files), command.name);
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
