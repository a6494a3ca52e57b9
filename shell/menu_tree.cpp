#include "shell/menu_tree.h"

#include <QMenuBar>

#include <array>

namespace rostermill {

namespace {

enum class Kind { Menu, Command, Separator, TeamCommands };

struct MenuRow {
  const char* name;
  const char* caption;
  const char* under;  // null: the menu bar
  Kind kind = Kind::Command;
  const char* shortcut = "";
};

/// In menu order. A team row stands for the commands of its division.
constexpr std::array rows{
    MenuRow{"mFilE", "&File", nullptr, Kind::Menu},
    MenuRow{"mFilUnloadROM", "&Unload ROM", "mFilE", Kind::Command, "Ctrl+W"},
    MenuRow{"mFilLoadROM", "&Load ROM...", "mFilE", Kind::Command, "Ctrl+O"},
    MenuRow{"mFilSaveROM", "&Save ROM", "mFilE", Kind::Command, "Ctrl+S"},
    MenuRow{"mFilB1", "-", "mFilE", Kind::Separator},
    MenuRow{"mnuFileRecentFiles", "&Recent Files", "mFilE", Kind::Menu},
    MenuRow{"mnuFileRecent(0)", "Recent 1", "mnuFileRecentFiles"},
    MenuRow{"mnuFileRecent(1)", "Recent 2", "mnuFileRecentFiles"},
    MenuRow{"mnuFileRecent(2)", "Recent 3", "mnuFileRecentFiles"},
    MenuRow{"mnuFileRecent(3)", "Recent 4", "mnuFileRecentFiles"},
    MenuRow{"mnuFileB2", "-", "mFilE", Kind::Separator},
    MenuRow{"mFilExit", "&Exit", "mFilE", Kind::Command, "Ctrl+Q"},
    MenuRow{"mView", "&Edit", nullptr, Kind::Menu},
    MenuRow{"mnuEditGameSettings", "&Game Settings", "mView"},
    MenuRow{"mDatB1", "-", "mView", Kind::Separator},
    MenuRow{"mViePlayerData", "&Players", "mView"},
    MenuRow{"mVieTeamData", "&Teams", "mView"},
    MenuRow{"mnuEditB2", "-", "mView", Kind::Separator},
    MenuRow{"mSchEdit", "&Schedule", "mView"},
    MenuRow{"mDatProbowl", "Pro&bowl Roster", "mView"},
    MenuRow{"mView1", "&View", nullptr, Kind::Menu},
    MenuRow{"mVieLeaders", "&Leaders", "mView1"},
    MenuRow{"mSchView", "&Schedule", "mView1", Kind::Menu},
    MenuRow{"mSchVieAll", "&League", "mSchView"},
    MenuRow{"mSchVieB1", "-", "mSchView", Kind::Separator},
    MenuRow{"mSchVieAFC", "&AFC", "mSchView", Kind::Menu},
    MenuRow{"mSchVieAFCEast", "&East", "mSchVieAFC", Kind::Menu},
    MenuRow{"mAFCe", "", "mSchVieAFCEast", Kind::TeamCommands},
    MenuRow{"mSchVieAFCCentral", "&Central", "mSchVieAFC", Kind::Menu},
    MenuRow{"mAFCc", "", "mSchVieAFCCentral", Kind::TeamCommands},
    MenuRow{"mSchVieAFCWest", "&West", "mSchVieAFC", Kind::Menu},
    MenuRow{"mAFCw", "", "mSchVieAFCWest", Kind::TeamCommands},
    MenuRow{"mSchVieNFC", "&NFC", "mSchView", Kind::Menu},
    MenuRow{"mVieNFCEast", "&East", "mSchVieNFC", Kind::Menu},
    MenuRow{"mNFCe", "", "mVieNFCEast", Kind::TeamCommands},
    MenuRow{"mVieNFCCentral", "&Central", "mSchVieNFC", Kind::Menu},
    MenuRow{"mNFCc", "", "mVieNFCCentral", Kind::TeamCommands},
    MenuRow{"mViewNFCWest", "&West", "mSchVieNFC", Kind::Menu},
    MenuRow{"mNFCw", "", "mViewNFCWest", Kind::TeamCommands},
    MenuRow{"mHelp", "&Help", nullptr, Kind::Menu},
    MenuRow{"mHelAbout", "&About", "mHelp"},
};

/// The divisions in the order of the teams.
struct Division {
  const char* name;
  int teams;
};
constexpr std::array<Division, 6> divisions{
    {{"mAFCe", 5}, {"mAFCc", 4}, {"mAFCw", 5}, {"mNFCe", 5}, {"mNFCc", 5}, {"mNFCw", 4}}};

QStringList TeamItemNames(const QString& division = {}) {
  QStringList names;
  for (const auto& [name, teams] : divisions) {
    if (!division.isEmpty() && division != name) continue;
    for (int place = 1; place <= teams; ++place) names << name + QString::number(place);
  }
  return names;
}

}  // namespace

void MenuTree::Build(QMenuBar& bar, const std::function<void(const QString&)>& run) {
  const auto add_command = [&](QMenu* menu, const QString& name, const QString& caption) {
    QAction* item = menu->addAction(caption);
    item->setObjectName(name);
    QObject::connect(item, &QAction::triggered, &bar, [run, name] { run(name); });
    items_.insert(name, item);
    return item;
  };
  for (const MenuRow& row : rows) {
    const QString name = row.name;
    QMenu* under = row.under == nullptr ? nullptr : menus_.value(row.under);
    if (under == nullptr && row.kind != Kind::Menu) continue;  // only menus stand on the bar
    switch (row.kind) {
      case Kind::Menu: {
        QMenu* menu = under == nullptr ? bar.addMenu(row.caption) : under->addMenu(row.caption);
        menu->setObjectName(name);
        menu->menuAction()->setObjectName(name);
        menus_.insert(name, menu);
        items_.insert(name, menu->menuAction());
        break;
      }
      case Kind::Separator: {
        QAction* line = under->addSeparator();
        line->setObjectName(name);
        items_.insert(name, line);
        break;
      }
      case Kind::TeamCommands:
        for (const QString& team : TeamItemNames(name)) add_command(under, team, " ");
        break;
      case Kind::Command:
        add_command(under, name, row.caption)->setShortcut(QKeySequence(row.shortcut));
        break;
    }
  }
}

QAction* MenuTree::TeamItem(int team) const {
  return Item(TeamItemNames().at(team - 1));
}

int MenuTree::TeamOfItem(const QString& name) {
  return static_cast<int>(TeamItemNames().indexOf(name)) + 1;
}

}  // namespace rostermill
