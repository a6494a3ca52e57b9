#pragma once

#include <QStringList>

#include <istream>
#include <ostream>
#include <stdexcept>
#include <string>

#include "exchange/table.h"

namespace rostermill {

/// The streams that a command reads and writes; those of the process, or a test's.
struct Console {
  std::istream& In;
  std::ostream& Out;
  std::ostream& Err;
  bool OutIsTerminal = false;
  bool ErrIsTerminal = false;
  std::string AppDir = {};  ///< the program's folder with colors.txt, a separator at its end
};

/// What a command was called with.
struct Arguments {
  std::string Command;
  QStringList Paths;
  bool Json = false;
  bool DryRun = false;
  bool NoVersion = false;   ///< what is replaced isn't kept
  bool PreferOurs = false;  ///< in a conflict
  bool PreferTheirs = false;
  TableOptions Table;
};

enum ExitCode {
  ExitOk = 0,
  ExitFound = 1,
  ExitTrouble = 2,
  ExitUnconfirmed = 3,  ///< the file was written, but the system could not confirm that it is safe
};

/// A failure that ends the command with ExitTrouble; what() is the one line for the user, UTF-8.
class ToolError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace rostermill
