#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>

#include "shell/command_line.h"
#include "shell/rsm_form.h"
#include "shell/window_icon.h"
#include "toolkit/qt_strings.h"

int main(int argc, char** argv) {
  // Before there is an application, so that it works without a display.
  const rostermill::CommandLine asked = rostermill::ReadCommandLine({argv + 1, argv + argc});
  if (!asked.Print.empty()) {
    std::fputs(asked.Print.c_str(), asked.ExitCode == 0 ? stdout : stderr);
    return asked.ExitCode;
  }
  QApplication app(argc, argv);
  QApplication::setApplicationName("Rostermill");
  QApplication::setOrganizationName("Rostermill");
  QApplication::setApplicationVersion(ROSTERMILL_VERSION);
  QApplication::setDesktopFileName("org.rostermill.rostermill");
  QApplication::setWindowIcon(rostermill::WindowIcon());

  rostermill::LeagueSession session;
  session.AppDir =
      rostermill::ToUtf8(QDir::toNativeSeparators(QApplication::applicationDirPath() + "/"));
  rostermill::FRSMform window(session);
  window.show();
  if (!asked.Image.empty()) {
    const QString path = QFileInfo(QFile::decodeName(asked.Image.c_str())).absoluteFilePath();
    QTimer::singleShot(0, &window, [&window, path] { window.OpenFromOutside(path); });
  }
  return QApplication::exec();
}
