#include <QAction>
#include <QApplication>
#include <QSettings>

#include <cstdlib>

#include "shell/rsm_form.h"
#include "toolkit/qt_strings.h"

// The editor with the sample loaded and one form open; it exits once everything is painted.
// bench_process measures its peak memory.
int main(int argc, char** argv) {
  QApplication app(argc, argv);
  rostermill::LeagueSession session;
  session.AppDir = rostermill::ToUtf8(QString::fromLocal8Bit(argv[1]) + "/");
  QSettings settings;
  rostermill::FRSMform window(session, &settings);
  window.show();
  if (!window.OpenImageFile(session.AppDir + "sample.nes")) return 1;
  window.findChild<QAction*>("mViePlayerData")->trigger();
  QCoreApplication::processEvents();
  std::_Exit(0);
}
