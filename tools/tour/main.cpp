#include <QApplication>
#include <QCommandLineParser>
#include <QTemporaryDir>

#include <cstdio>
#include <exception>

#include "shell/window_icon.h"
#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // What the tour saves has no place among what the user keeps.
  const QTemporaryDir data_home;
  qputenv("XDG_DATA_HOME", data_home.path().toUtf8());
  QApplication app(argc, argv);
  QApplication::setApplicationName("RostermillTour");
  QApplication::setWindowIcon(rostermill::WindowIcon());
  QApplication::setStyle("Fusion");
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);

  QCommandLineParser options;
  options.setApplicationDescription(
      "Walks through the program with a copy of the sample league and takes pictures.");
  options.addHelpOption();
  options.addOption({"dark", "Uses a dark color scheme."});
  options.addOption({"sizes", "Also shows each form at twice its size and maximized."});
  options.addOption({"font", "The size of the interface's font, in points.", "points"});
  const QString own_folder = QApplication::applicationDirPath();
  options.addOption(
      {"program-folder", "The program's folder, if it isn't the tour's.", "folder", own_folder});
  options.addPositionalArgument("folder", "Where to write the pictures.", "[folder]");
  options.process(app);
  if (options.isSet("dark")) QApplication::setPalette(rostermill::driver::DarkPalette());
  if (const double points = options.value("font").toDouble(); points > 0) {
    QFont font = QApplication::font();
    font.setPointSizeF(points);
    QApplication::setFont(font);
  }
  const QString folder = options.positionalArguments().isEmpty()
                             ? own_folder + "/../tour"
                             : options.positionalArguments().constFirst();
  try {
    const QString program_folder = options.value("program-folder");
    // In a build, the user may have edited the sample in the program's folder.
    const QString sample =
        options.isSet("program-folder") ? program_folder + "/sample.nes" : SAMPLE_IMAGE;
    rostermill::Tour tour(program_folder, sample, folder);
    if (options.isSet("sizes")) tour.TakeAllSizes();
    const int pictures = tour.Run();
    std::printf("%d pictures are in %s\n", pictures,
                qPrintable(QDir::cleanPath(QDir(folder).absolutePath())));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tour: %s\n", error.what());
    return 1;
  }
  return 0;
}
