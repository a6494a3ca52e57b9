#pragma once

#include <QAction>
#include <QMap>
#include <QMenu>
#include <QString>

#include <functional>
#include <vector>

class QMenuBar;

namespace rostermill {

/// One row of the menu's table. An item is found by its name and carries it as its object name; a
/// submenu's QMenu and its QAction both do.
struct MenuRow {
  enum class Kind { Menu, Command, Separator, TeamCommands };

  QString Name;
  QString Caption;  ///< empty for a separator and for team commands
  QString Under;    ///< the menu that holds the item; empty for the menu bar
  Kind What = Kind::Command;
  /// For team commands: called with the team, 1 to 28.
  std::function<void(int team)> Run = {};
  QString Shortcut = {};
  bool NeedsImage = false;  ///< enabled only while an image is loaded
};

/// The menu of the main window, built from a table.
class MenuTree {
 public:
  /// Fills the menu bar with the rows in their order. A row of team commands stands for one command
  /// for each team of its division. Throws std::logic_error, naming the row, for a name that is
  /// used twice, a menu that no earlier row defines, and a command without a handler.
  void Build(QMenuBar& bar, const std::vector<MenuRow>& rows);

  /// The item of this name, a submenu's action included. Throws std::logic_error for another name.
  QAction* Item(const QString& name) const;

  /// Enables the items that need an image, or disables them.
  void SetImageLoaded(bool loaded);

  /// The command that shows the schedule of team 1 to 28.
  QAction* TeamItem(int team) const;
  /// The team whose command has this name; 0 for any other name.
  static int TeamOfItem(const QString& name);

 private:
  void AddRow(QMenuBar& bar, const MenuRow& row);
  QAction* Add(QAction* item, const QString& name);
  void AddCommand(QMenu& menu, const QString& name, const MenuRow& row, int team);
  QMenu* MenuOf(const MenuRow& row) const;

  QMap<QString, QAction*> items_;
  QList<QAction*> needing_image_;
};

}  // namespace rostermill
