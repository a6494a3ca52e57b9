#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <optional>
#include <vector>

#include "history/league_history.h"
#include "league/league_session.h"
#include "screens/compare/compare_form.h"
#include "shell/emulator.h"
#include "shell/menu_tree.h"
#include "shell/recent_files.h"
#include "shell/window_host.h"
#include "toolkit/form.h"

namespace rostermill {

class ElidedLabel;
class StartPage;
class ViewLeaders;
class ViewPlayer;
class ViewSchedule;
class ViewTeams;
class ViewTeamSchedule;
class frmAllPlayers;
class frmCheckLeague;
class frmEditGameSettings;
class frmEditSchedule;
class frmProbowl;
class frmVersions;

/// The main window: menu, status bar, and the child forms inside it. Loads, saves and unloads the
/// image, opens every other screen, and enables the commands that need an image while one is
/// loaded.
class FRSMform : public QMainWindow {
  Q_OBJECT

 public:
  /// `settings` holds the recent files and outlives the window; null means the user's own settings.
  explicit FRSMform(LeagueSession& session, QSettings* settings = nullptr);
  ~FRSMform() override;

  /// Loads the image at the path, UTF-8. A file that is rejected leaves the path and the league in
  /// use unchanged. False if nothing was loaded.
  bool OpenImageFile(const std::string& path);

  /// How Play and its chooser look for the usual emulators.
  FindProgram FindEmulator = InstalledProgram;

  /// Loads the image at the path like one that is dropped on the window, unless the window is busy.
  void OpenFromOutside(const QString& path);

  /// Enables the commands that need an image, and gives the team commands their captions.
  void UpdateCommandState();

  /// The recent paths, the latest first, followed by empty texts.
  RecentFiles::List GetRecentFiles() { return recent_files_.GetRecentFiles(); }
  /// Puts the path at the top of the recent files, in the settings and in the menu.
  void AddRecentFile(const QString& path);
  /// Makes the menu show the stored paths; none of them is looked up.
  void UpdateRecentList();

 protected:
  // A dropped image is loaded like one chosen by the command.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  // The size of the window is kept for the next start.
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildWindow();
  void MDIForm_Load();
  std::vector<MenuRow> MenuRows();

  void mFilLoadROM_Click();
  void mFilSaveROM_Click();
  void mFilUnloadROM_Click();
  void mnuFileRecent_Click(int Index);
  void mFilExit_Click();
  void mHelAbout_Click();
  void mnuEditGameSettings_Click();
  void mViePlayerData_Click();
  void mVieTeamData_Click();
  void mSchEdit_Click();
  void mDatProbowl_Click();
  void mVieLeaders_Click();
  void mSchVieAll_Click();
  void mnuEditUndo_Click();
  void mnuEditRedo_Click();
  void mToolVersions_Click();
  void mToolUnsaved_Click();
  void mWinTile_Click();
  void mWinCascade_Click();
  void mWinCloseAll_Click();
  void mToolPlayers_Click();
  void mToolCheck_Click();
  void mToolCompare_Click();
  void mToolMerge_Click();
  void mToolPatch_Click();
  void mToolPlay_Click();
  void mToolEmulator_Click();
  /// The 28 team commands.
  void ShowTeamSchedule(int team);

  /// Has the menu, the status bar and the keeping of unsaved changes follow the history.
  void FollowHistory();
  void UpdateHistoryState();
  void ShowChanged();
  void KeepUnsaved();
  /// Shows in the open forms what an undo, a redo or a state brought back has changed.
  void ShowTouched(const Touched& touched);
  /// Writes the league as it is in memory to a copy of the image in the user's cache, and gives its
  /// path. Throws std::exception.
  QString WriteCopyToPlay() const;
  /// Opens the screen in which this part of the league can be seen and edited.
  void ShowUnit(const Unit& unit);
  void OpenCompare(OtherLeague other);
  /// Asks for a file and gives the league in it; nothing where that fails or the user doesn't want.
  std::optional<OtherLeague> AskForLeague(const QString& title);
  /// Asks for a version or a file that something was made from, and gives its bytes.
  std::optional<std::vector<std::uint8_t>> AskForBase(const QString& title);
  /// The open editors with values that a save leaves out, for its question; empty without one.
  std::string NotStoredText() const;

  /// Gives the window the size that it had last, in the middle of the screen.
  void PlaceWindow();
  void ShowStartPage();
  /// Enables what the Window menu can do with the open forms.
  void FollowForms();
  /// Lists the open forms in the Window menu, in the order of Ctrl+Tab.
  void ListForms();

  void ShowStatus(const std::string& text);
  /// Ends the program, whatever is open.
  void EndProgram();

  LeagueSession& session_;
  LeagueHistory history_;
  QSettings& settings_;
  RecentFiles recent_files_;
  MenuTree menu_;
  ChildArea* area_;
  StartPage* start_page_ = nullptr;
  QList<QAction*> form_items_;
  WindowHost host_;
  ElidedLabel* status_ = nullptr;
  QLabel* lblChanged = nullptr;
  QTimer keeping_;

  QPointer<ViewPlayer> view_player_;
  QPointer<ViewTeams> view_teams_;
  QPointer<ViewLeaders> view_leaders_;
  QPointer<ViewSchedule> view_schedule_;
  QPointer<ViewTeamSchedule> view_team_schedule_;
  QPointer<frmEditGameSettings> game_settings_;
  QPointer<frmEditSchedule> edit_schedule_;
  QPointer<frmProbowl> probowl_;
  QPointer<frmVersions> versions_;
  QPointer<frmAllPlayers> all_players_;
  QPointer<frmCheckLeague> check_;
  QPointer<frmCompare> compare_;
};

}  // namespace rostermill
