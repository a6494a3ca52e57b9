#include "shell/emulator.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace rostermill {

std::optional<EmulatorCall> CallOf(const QString& command_line, const QString& file) {
  QStringList words = QProcess::splitCommand(command_line);
  if (words.isEmpty()) return std::nullopt;
  EmulatorCall call{words.takeFirst(), words};
  bool named = false;
  for (QString& word : call.Arguments) {
    named = named || word.contains("%f");
    word.replace("%f", file);
  }
  if (!named) call.Arguments << file;
  return call;
}

QString UsualEmulator(const FindProgram& find_program, const QStringList& core_folders) {
  for (const char* name : {"fceux", "mednafen", "nestopia", "mesen", "Mesen"}) {
    if (const QString path = find_program(name); !path.isEmpty()) return '"' + path + '"';
  }
  const QString retroarch = find_program("retroarch");
  if (retroarch.isEmpty()) return {};
  for (const QString& folder : core_folders) {
    for (const char* core : {"nestopia", "fceumm", "mesen"}) {
      const QString path = folder + "/" + core + "_libretro.so";
      if (QFileInfo(path).isFile()) return '"' + retroarch + "\" -L \"" + path + "\" %f";
    }
  }
  return {};
}

QString InstalledProgram(const QString& name) {
  const QString path = QStandardPaths::findExecutable(name);
  return path.isEmpty() ? QStandardPaths::findExecutable(name, {"/usr/games", "/usr/local/games"})
                        : path;
}

QStringList CoreFolders() {
  QStringList folders{QDir::homePath() + "/.config/retroarch/cores", "/usr/lib/libretro"};
  for (const QFileInfo& folder :
       QDir("/usr/lib").entryInfoList({"*-linux-gnu*"}, QDir::Dirs | QDir::NoDotAndDotDot)) {
    folders << folder.filePath() + "/libretro";
  }
  return folders;
}

bool DesktopPlaysImages() {
  QProcess query;
  query.start("xdg-mime", {"query", "default", "application/x-nes-rom"});
  constexpr int patience = 2000;  // milliseconds
  if (!query.waitForFinished(patience)) return false;
  return !query.readAllStandardOutput().trimmed().isEmpty();
}

QString StartDetached(const EmulatorCall& call) {
  QProcess process;
  process.setProgram(call.Program);
  process.setArguments(call.Arguments);
  // What it prints has no place among the editor's messages.
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached() ? QString() : process.errorString();
}

}  // namespace rostermill
