#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>

#include <cstdio>
#include <exception>

#include "tools/tour/tour.h"

namespace {

/// A dark scheme, as a dark desktop would hand it to the program.
QPalette DarkPalette() {
  QPalette palette(QColor(49, 54, 59));
  palette.setColor(QPalette::Base, QColor(35, 38, 41));
  palette.setColor(QPalette::AlternateBase, QColor(42, 46, 50));
  palette.setColor(QPalette::Text, QColor(239, 240, 241));
  palette.setColor(QPalette::WindowText, QColor(239, 240, 241));
  palette.setColor(QPalette::ButtonText, QColor(239, 240, 241));
  palette.setColor(QPalette::ToolTipBase, QColor(35, 38, 41));
  palette.setColor(QPalette::ToolTipText, QColor(239, 240, 241));
  palette.setColor(QPalette::Highlight, QColor(61, 126, 201));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(140, 143, 146));
  }
  return palette;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setApplicationName("RostermillTour");
  QApplication::setStyle("Fusion");
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);

  QCommandLineParser options;
  options.setApplicationDescription(
      "Walks through the program over a copy of the sample league and takes pictures.");
  options.addHelpOption();
  options.addOption({"dark", "In a dark scheme."});
  options.addPositionalArgument("folder", "Where the pictures go.", "[folder]");
  options.process(app);
  if (options.isSet("dark")) QApplication::setPalette(DarkPalette());
  const QString folder = options.positionalArguments().isEmpty()
                             ? QApplication::applicationDirPath() + "/../tour"
                             : options.positionalArguments().constFirst();
  try {
    rostermill::Tour tour(QApplication::applicationDirPath(), folder);
    const int pictures = tour.Run();
    std::printf("%d pictures are in %s\n", pictures,
                qPrintable(QDir::cleanPath(QDir(folder).absolutePath())));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tour: %s\n", error.what());
    return 1;
  }
  return 0;
}
