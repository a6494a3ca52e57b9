#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace rostermill {

/// A program with its arguments, ready to start.
struct EmulatorCall {
  QString Program;
  QStringList Arguments;
  bool operator==(const EmulatorCall&) const = default;
};

/// The call that a command line means for a file: "%f" stands for it, and without one it comes
/// last. Quotes hold blanks together. Empty for a blank line.
std::optional<EmulatorCall> CallOf(const QString& command_line, const QString& file);

/// Gives the path of a program in the search path, or nothing.
using FindProgram = std::function<QString(const QString& name)>;

/// The command line of the first of the usual emulators that is installed; empty without one.
/// retroarch counts only with one of its cores for this console.
QString UsualEmulator(const FindProgram& find_program, const QStringList& core_folders);

/// Looks in the search path and where Debian has its games.
QString InstalledProgram(const QString& name);

/// Where retroarch has its cores.
QStringList CoreFolders();

/// Whether the desktop has a program of its own for cartridge images.
bool DesktopPlaysImages();

/// Starts the program on its own; it outlives the editor. Why it can't be started; empty when it
/// is.
QString StartDetached(const EmulatorCall& call);

}  // namespace rostermill
