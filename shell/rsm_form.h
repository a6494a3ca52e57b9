#pragma once

#include <QMainWindow>
#include <QPointer>

#include <vector>

#include "league/league_session.h"
#include "league/pipeline_host.h"
#include "shell/menu_tree.h"
#include "shell/recent_files.h"
#include "toolkit/form.h"

namespace rostermill {

class ElidedLabel;
class Loading;
class ViewLeaders;
class ViewPlayer;
class ViewSchedule;
class ViewTeams;
class ViewTeamSchedule;
class frmEditGameSettings;
class frmEditSchedule;
class frmProbowl;

/// The main window: menu, status bar, and the child forms inside it. Loads, saves and unloads the
/// image, opens every other screen, and enables the commands that need an image while one is
/// loaded.
class FRSMform : public QMainWindow, private PipelineHost {
  Q_OBJECT

 public:
  /// `settings` holds the recent files and outlives the window; null means the user's own settings.
  explicit FRSMform(LeagueSession& session, QSettings* settings = nullptr);

  /// Loads the image at the path, UTF-8. A file that is rejected leaves the path and the league in
  /// use unchanged. False if nothing was loaded.
  bool OpenImageFile(const std::string& path);

  /// Enables the commands that need an image, and gives the team commands their captions.
  void UpdateCommandState() override;

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
  /// The 28 team commands.
  void ShowTeamSchedule(int team);

  void ShowStatus(const std::string& text);
  /// Ends the program, whatever is open.
  void EndProgram();

  // Reports and questions of a load and a save.
  void SetBusy(bool busy) override;
  void SetLoadingCaption(LoadStep step, std::string_view caption) override;
  void CloseLoading() override;
  void YieldToWindow() override;
  void Beep() override;
  void ShowMessage(MessageKind kind, const std::string& text, const std::string& title) override;
  bool Confirm(const std::string& text, const std::string& title) override;
  std::string AskForText(const std::string& prompt, const std::string& title,
                         const std::string& preset) override;

  LeagueSession& session_;
  RecentFiles recent_files_;
  MenuTree menu_;
  ChildArea* area_ = nullptr;
  ElidedLabel* status_ = nullptr;
  QPointer<QWidget> focus_before_;

  QPointer<Loading> loading_;
  QPointer<ViewPlayer> view_player_;
  QPointer<ViewTeams> view_teams_;
  QPointer<ViewLeaders> view_leaders_;
  QPointer<ViewSchedule> view_schedule_;
  QPointer<ViewTeamSchedule> view_team_schedule_;
  QPointer<frmEditGameSettings> game_settings_;
  QPointer<frmEditSchedule> edit_schedule_;
  QPointer<frmProbowl> probowl_;
};

}  // namespace rostermill
