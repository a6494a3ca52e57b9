#include "shell/menu_tree.h"

#include <QMenuBar>

#include <array>
#include <stdexcept>

namespace rostermill {

namespace {

/// The divisions in the order of the teams.
struct Division {
  const char* name;
  int teams;
};
constexpr std::array<Division, 6> divisions{
    {{"mAFCe", 5}, {"mAFCc", 4}, {"mAFCw", 5}, {"mNFCe", 5}, {"mNFCc", 5}, {"mNFCw", 4}}};

QStringList NamesOfAllTeamItems() {
  QStringList names;
  for (const auto& [division, teams] : divisions) {
    for (int place = 1; place <= teams; ++place) names << division + QString::number(place);
  }
  return names;
}

/// In the order of the teams.
const QStringList& TeamItemNames() {
  static const QStringList names = NamesOfAllTeamItems();
  return names;
}

[[noreturn]] void Fail(const QString& name, const char* fault) {
  throw std::logic_error("menu item " + name.toStdString() + ": " + fault);
}

}  // namespace

QAction* MenuTree::Item(const QString& name) const {
  QAction* item = items_.value(name);
  if (item == nullptr) Fail(name, "there is no such item");
  return item;
}

QMenu* MenuTree::MenuOf(const MenuRow& row) const {
  QAction* item = items_.value(row.Under);
  if (item == nullptr || item->menu() == nullptr) Fail(row.Name, "it names an unknown menu");
  return item->menu();
}

QAction* MenuTree::Add(QAction* item, const QString& name) {
  if (items_.contains(name)) Fail(name, "the name is used twice");
  item->setObjectName(name);
  items_.insert(name, item);
  return item;
}

void MenuTree::AddCommand(QMenu& menu, const QString& name, const MenuRow& row, int team) {
  if (!row.Run) Fail(name, "it has no handler");
  QAction* item = Add(menu.addAction(row.Caption), name);
  item->setShortcut(QKeySequence(row.Shortcut));
  QObject::connect(item, &QAction::triggered, &menu, [run = row.Run, team] { run(team); });
}

void MenuTree::AddRow(QMenuBar& bar, const MenuRow& row) {
  switch (row.What) {
    case MenuRow::Kind::Menu: {
      QMenu* menu =
          row.Under.isEmpty() ? bar.addMenu(row.Caption) : MenuOf(row)->addMenu(row.Caption);
      menu->setObjectName(row.Name);
      Add(menu->menuAction(), row.Name);
      break;
    }
    case MenuRow::Kind::Separator:
      Add(MenuOf(row)->addSeparator(), row.Name);
      break;
    case MenuRow::Kind::TeamCommands:
      for (const QString& name : TeamItemNames()) {
        if (name.startsWith(row.Name)) AddCommand(*MenuOf(row), name, row, TeamOfItem(name));
      }
      break;
    case MenuRow::Kind::Command:
      AddCommand(*MenuOf(row), row.Name, row, 0);
      break;
  }
  if (row.NeedsImage) needing_image_ << Item(row.Name);
}

void MenuTree::Build(QMenuBar& bar, const std::vector<MenuRow>& rows) {
  for (const MenuRow& row : rows) AddRow(bar, row);
}

void MenuTree::SetImageLoaded(bool loaded) {
  for (QAction* item : needing_image_) item->setEnabled(loaded);
}

QAction* MenuTree::TeamItem(int team) const {
  return Item(TeamItemNames().at(team - 1));
}

int MenuTree::TeamOfItem(const QString& name) {
  return static_cast<int>(TeamItemNames().indexOf(name)) + 1;
}

}  // namespace rostermill
