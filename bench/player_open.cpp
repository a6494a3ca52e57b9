#include <QAction>
#include <QApplication>
#include <QSettings>
#include <QTimer>

#include <cstdlib>

#include "shell/rsm_form.h"
#include "toolkit/qt_strings.h"

// player_open BIN-FOLDER [STEPS]
// The editor with the sample loaded and one form open; it exits once everything is painted. Before,
// it takes so many steps that can be undone, each for another player, and keeps them as unsaved
// changes. bench_process measures its peak memory.
int main(int argc, char** argv) {
  QApplication app(argc, argv);
  rostermill::LeagueSession session;
  session.AppDir = rostermill::ToUtf8(QString::fromLocal8Bit(argv[1]) + "/");
  QSettings settings;
  rostermill::FRSMform window(session, &settings);
  window.show();
  if (!window.OpenImageFile(session.AppDir + "sample.nes")) return 1;
  window.findChild<QAction*>("mViePlayerData")->trigger();
  const int steps = argc > 2 ? std::atoi(argv[2]) : 0;
  for (int step = 0; step < steps; ++step) {
    session.Change("Save Player", [step](rostermill::LeagueData& league) {
      league.NameData[1 + step % rostermill::TeamCount][1 + step / rostermill::TeamCount]
          .FirstName = "changed";
    });
  }
  if (steps > 0) {
    // Unsaved changes are kept a second after a change.
    QTimer::singleShot(1500, &app, &QCoreApplication::quit);
    QApplication::exec();
  }
  QCoreApplication::processEvents();
  std::_Exit(0);
}
