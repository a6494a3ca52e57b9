#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include "league/file_access.h"
#include "league/save_image.h"
#include "shell/rsm_form.h"
#include "toolkit/keep_setting.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr const char* program_key = "Emulator/Program";
constexpr const char* title = "Play";

}  // namespace

QString FRSMform::WriteCopyToPlay() const {
  const QString folder =
      QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/rostermill/play";
  QString path = folder + "/" + QFileInfo(FromUtf8(session_.ImagePath)).fileName();
  QDir().mkpath(folder);
  OpenImage image(ReadFileStart(session_.ImagePath, OpenImage::WholeSize).Bytes);
  WriteLeague(image, session_.League(), [] {});
  ReplaceFile(ToUtf8(path), image.Bytes());
  return path;
}

void FRSMform::mToolPlay_Click() {
  if (const auto overflow = TextOverflow(session_.League())) {
    return ShowMessageBox(this, QMessageBox::Warning,
                          FromUtf8(*overflow) + "\n\nThe game can't be played like this.", title);
  }
  QString command = settings_.value(program_key).toString();
  if (command.isEmpty()) command = UsualEmulator(FindEmulator, CoreFolders());
  const bool by_desktop = command.isEmpty() && DesktopPlaysImages();
  if (command.isEmpty() && !by_desktop) {
    mToolEmulator_Click();
    command = settings_.value(program_key).toString();
    if (command.isEmpty()) return;
  }
  try {
    const QString file = WriteCopyToPlay();
    if (by_desktop) {
      if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file))) {
        ShowMessageBox(this, QMessageBox::Warning,
                       "The desktop's program could not be started.\n\n"
                       "Tools > Choose Emulator sets another one.",
                       title);
      }
      return;
    }
    const auto call = CallOf(command, file);
    const QString why = call ? StartDetached(*call) : QString("no program is chosen");
    if (why.isEmpty()) return;
    ShowMessageBox(this, QMessageBox::Warning,
                   (call ? call->Program : command) + " could not be started: " + why +
                       ".\n\nTools > Choose Emulator sets another program.",
                   title);
  } catch (const std::exception& error) {
    ShowMessageBox(this, QMessageBox::Warning,
                   "The copy to play could not be written: " + FromUtf8(error.what()) + ".", title);
  }
}

void FRSMform::mToolEmulator_Click() {
  const QString chosen = settings_.value(program_key).toString();
  const QString command = AskForLine(
      this, "The program that plays a league. Arguments may follow, and %f stands for the file:",
      "Choose Emulator", chosen.isEmpty() ? UsualEmulator(FindEmulator, CoreFolders()) : chosen);
  if (!command.trimmed().isEmpty()) KeepSetting(settings_, program_key, command.trimmed());
}

}  // namespace rostermill
