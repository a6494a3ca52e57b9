#include <QMenuBar>

#include "shell/rsm_form.h"
#include "toolkit/control_array.h"

namespace rostermill {

/// The menu of the main window, in menu order.
std::vector<MenuRow> FRSMform::MenuRows() {
  using Handler = void (FRSMform::*)();
  // While a load or a save runs, a key that was pressed meanwhile does nothing.
  const auto guarded = [this](std::function<void(int)> run) {
    return [this, run = std::move(run)](int team) {
      if (isEnabled()) run(team);
    };
  };
  const auto menu = [](const char* name, const char* caption, const char* under = "",
                       bool needs_image = false) {
    return MenuRow{name, caption, under, MenuRow::Kind::Menu, {}, {}, needs_image};
  };
  const auto line = [](const char* name, const char* under) {
    return MenuRow{name, {}, under, MenuRow::Kind::Separator};
  };
  const auto command = [&](const char* under, const char* name, const char* caption,
                           Handler handler, const char* shortcut = "") {
    return MenuRow{name,
                   caption,
                   under,
                   MenuRow::Kind::Command,
                   guarded([this, handler](int) { (this->*handler)(); }),
                   shortcut};
  };
  const auto image_command = [&](const char* under, const char* name, const char* caption,
                                 Handler handler, const char* shortcut = "") {
    MenuRow row = command(under, name, caption, handler, shortcut);
    row.NeedsImage = true;
    return row;
  };
  const auto recent = [&](int index) {
    return MenuRow{MemberName("mnuFileRecent", index), QString("Recent %1").arg(index + 1),
                   "mnuFileRecentFiles", MenuRow::Kind::Command,
                   guarded([this, index](int) { mnuFileRecent_Click(index); })};
  };
  const auto teams = [&](const char* division, const char* under) {
    return MenuRow{division, " ", under, MenuRow::Kind::TeamCommands,
                   guarded([this](int team) { ShowTeamSchedule(team); })};
  };
  return {
      menu("mFilE", "&File"),
      image_command("mFilE", "mFilUnloadROM", "&Unload ROM", &FRSMform::mFilUnloadROM_Click,
                    "Ctrl+W"),
      command("mFilE", "mFilLoadROM", "&Load ROM...", &FRSMform::mFilLoadROM_Click, "Ctrl+O"),
      image_command("mFilE", "mFilSaveROM", "&Save ROM", &FRSMform::mFilSaveROM_Click, "Ctrl+S"),
      line("mFilB1", "mFilE"),
      menu("mnuFileRecentFiles", "&Recent Files", "mFilE"),
      recent(0),
      recent(1),
      recent(2),
      recent(3),
      line("mnuFileB2", "mFilE"),
      command("mFilE", "mFilExit", "&Exit", &FRSMform::mFilExit_Click, "Ctrl+Q"),

      menu("mView", "&Edit"),
      image_command("mView", "mnuEditGameSettings", "&Game Settings",
                    &FRSMform::mnuEditGameSettings_Click, "Ctrl+6"),
      line("mDatB1", "mView"),
      image_command("mView", "mViePlayerData", "&Players", &FRSMform::mViePlayerData_Click,
                    "Ctrl+1"),
      image_command("mView", "mVieTeamData", "&Teams", &FRSMform::mVieTeamData_Click, "Ctrl+2"),
      line("mnuEditB2", "mView"),
      image_command("mView", "mSchEdit", "&Schedule", &FRSMform::mSchEdit_Click, "Ctrl+3"),
      image_command("mView", "mDatProbowl", "Pro&bowl Roster", &FRSMform::mDatProbowl_Click,
                    "Ctrl+5"),
      line("mnuEditB3", "mView"),
      command("mView", "mnuEditUndo", "&Undo", &FRSMform::mnuEditUndo_Click, "Ctrl+Z"),
      command("mView", "mnuEditRedo", "&Redo", &FRSMform::mnuEditRedo_Click, "Ctrl+Shift+Z"),

      menu("mView1", "&View"),
      image_command("mView1", "mVieLeaders", "&Leaders", &FRSMform::mVieLeaders_Click, "Ctrl+4"),
      menu("mSchView", "&Schedule", "mView1", true),
      command("mSchView", "mSchVieAll", "&League", &FRSMform::mSchVieAll_Click),
      line("mSchVieB1", "mSchView"),
      menu("mSchVieAFC", "&AFC", "mSchView"),
      menu("mSchVieAFCEast", "&East", "mSchVieAFC"),
      teams("mAFCe", "mSchVieAFCEast"),
      menu("mSchVieAFCCentral", "&Central", "mSchVieAFC"),
      teams("mAFCc", "mSchVieAFCCentral"),
      menu("mSchVieAFCWest", "&West", "mSchVieAFC"),
      teams("mAFCw", "mSchVieAFCWest"),
      menu("mSchVieNFC", "&NFC", "mSchView"),
      menu("mVieNFCEast", "&East", "mSchVieNFC"),
      teams("mNFCe", "mVieNFCEast"),
      menu("mVieNFCCentral", "&Central", "mSchVieNFC"),
      teams("mNFCc", "mVieNFCCentral"),
      menu("mViewNFCWest", "&West", "mSchVieNFC"),
      teams("mNFCw", "mViewNFCWest"),

      menu("mTools", "&Tools"),
      image_command("mTools", "mToolPlayers", "All &Players", &FRSMform::mToolPlayers_Click,
                    "Ctrl+F"),
      image_command("mTools", "mToolCheck", "&Check League", &FRSMform::mToolCheck_Click),
      image_command("mTools", "mToolCompare", "Co&mpare With...", &FRSMform::mToolCompare_Click),
      image_command("mTools", "mToolMerge", "Mer&ge With...", &FRSMform::mToolMerge_Click),
      image_command("mTools", "mToolPatch", "Make Patc&h...", &FRSMform::mToolPatch_Click),
      line("mnuToolB1", "mTools"),
      image_command("mTools", "mToolPlay", "Pla&y", &FRSMform::mToolPlay_Click, "F5"),
      command("mTools", "mToolEmulator", "Choose &Emulator...", &FRSMform::mToolEmulator_Click),
      line("mnuToolB2", "mTools"),
      image_command("mTools", "mToolVersions", "Earlier &Versions", &FRSMform::mToolVersions_Click),
      command("mTools", "mToolUnsaved", "Bring Back &Unsaved Changes",
              &FRSMform::mToolUnsaved_Click),

      menu("mWindow", "&Window"),
      command("mWindow", "mWinTile", "&Tile", &FRSMform::mWinTile_Click),
      command("mWindow", "mWinCascade", "&Cascade", &FRSMform::mWinCascade_Click),
      command("mWindow", "mWinCloseAll", "Close &All", &FRSMform::mWinCloseAll_Click),
      line("mWinB1", "mWindow"),

      menu("mHelp", "&Help"),
      command("mHelp", "mHelAbout", "&About", &FRSMform::mHelAbout_Click),
  };
}

}  // namespace rostermill
