#pragma once

#include <QAction>
#include <QMap>
#include <QMenu>
#include <QString>

#include <functional>

class QMenuBar;

namespace rostermill {

/// The menu of the main window, built from a table. An item is found by its name, and carries it
/// as its object name; a submenu's QMenu and its QAction both do.
class MenuTree {
 public:
  /// Fills the menu bar. `run` is called with the name of the item that the user picks.
  void Build(QMenuBar& bar, const std::function<void(const QString&)>& run);

  /// The item of this name, a submenu's action included. The name is one of the table.
  QAction* Item(const QString& name) const { return items_.value(name); }

  /// The command that shows the schedule of team 1 to 28.
  QAction* TeamItem(int team) const;
  /// The team whose command has this name; 0 for any other name.
  static int TeamOfItem(const QString& name);

 private:
  QMap<QString, QAction*> items_;
  QMap<QString, QMenu*> menus_;
};

}  // namespace rostermill
