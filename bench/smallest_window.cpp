#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>

// A minimal program with the menu bar, the MDI area and the status bar of the editor: the baseline
// for its start time and its memory.

namespace {

constexpr int division_sizes[2][3] = {{5, 4, 5}, {5, 5, 4}};

void AddCommands(QMenu* menu, int count) {
  for (int command = 0; command < count; ++command) menu->addAction("Command");
}

void AddTeams(QMenu* menu) {
  for (const auto& conference : division_sizes) {
    QMenu* divisions = menu->addMenu("Conference");
    for (const int teams : conference) AddCommands(divisions->addMenu("Division"), teams);
  }
}

void AddMenus(QMenuBar* bar) {
  QMenu* file = bar->addMenu("&File");
  AddCommands(file, 4);
  file->addSeparator();
  AddCommands(file->addMenu("&Recent Files"), 4);
  file->addSeparator();
  QMenu* edit = bar->addMenu("&Edit");
  AddCommands(edit, 5);
  edit->addSeparator();
  edit->addSeparator();
  QMenu* view = bar->addMenu("&View");
  AddCommands(view, 1);
  QMenu* schedule = view->addMenu("&Schedule");
  AddCommands(schedule, 1);
  schedule->addSeparator();
  AddTeams(schedule);
  AddCommands(bar->addMenu("&Help"), 1);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QMainWindow window;
  window.setWindowTitle("Smallest");
  window.setCentralWidget(new QMdiArea);
  AddMenus(window.menuBar());
  window.statusBar()->addWidget(new QLabel("No ROM Loaded"), 1);
  window.statusBar()->addPermanentWidget(new QLabel("Smallest 1.3"));
  window.resize(1440, 860);
  window.show();
  return QApplication::exec();
}
