#include <QApplication>
#include <QDir>

#include "shell/rsm_form.h"
#include "shell/window_icon.h"
#include "toolkit/qt_strings.h"

int main(int argc, char** argv) {
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
  return QApplication::exec();
}
