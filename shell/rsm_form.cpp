#include "shell/rsm_form.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include "history/data_folder.h"
#include "league/load_image.h"
#include "league/save_image.h"
#include "rules/display_text.h"
#include "screens/check/check_league_form.h"
#include "screens/leaders/view_leaders.h"
#include "screens/players/view_player.h"
#include "screens/probowl/probowl_form.h"
#include "screens/schedule/edit_schedule.h"
#include "screens/schedule/view_schedule.h"
#include "screens/schedule/view_team_schedule.h"
#include "screens/settings/game_settings_form.h"
#include "screens/table/all_players_form.h"
#include "screens/teams/view_teams.h"
#include "screens/versions/versions_form.h"
#include "shell/open_save.h"
#include "shell/readable_selection.h"
#include "shell/start_page.h"
#include "toolkit/caret_rest.h"
#include "toolkit/elided_label.h"
#include "toolkit/file_drops.h"
#include "toolkit/form_parts.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr const char* no_rom = "No ROM Loaded";

/// A caption that shows "&" literally, not as an access key, and a tab not as a column.
QString PlainCaption(const std::string& text) {
  return FromLatin1(text).replace('\t', ' ').replace("&", "&&");
}

/// The path as one line of the menu, cut in the middle if it is wider than half of the screen.
QString RecentText(const QMenu& menu, const QString& path) {
  const int room = menu.screen()->availableGeometry().width() / 2;
  return menu.fontMetrics().elidedText(path, Qt::ElideMiddle, room);
}

/// The path of the one image file that is being dragged; empty for anything else.
QString DraggedImage(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  const QString path = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
  return path.endsWith(".nes", Qt::CaseInsensitive) ? path : QString();
}

}  // namespace

FRSMform::FRSMform(LeagueSession& session, QSettings* settings)
    : session_(session),
      history_(session, DataFolder()),
      settings_(settings != nullptr ? *settings : *new QSettings(this)),
      recent_files_(settings_),
      area_(new ChildArea),
      host_(*this, *area_, [this] { UpdateCommandState(); }) {
  BuildWindow();
  MDIForm_Load();
}

FRSMform::~FRSMform() {
  // The area reports once more when it is hidden.
  disconnect(area_, nullptr, this, nullptr);
}

void FRSMform::BuildWindow() {
  QApplication::setPalette(ReadableSelection(QApplication::palette()));
  setObjectName("FRSMform");
  setWindowTitle("Rostermill");
  setCentralWidget(area_);
  new FileDrops(this);
  LetCaretRest();
  menu_.Build(*menuBar(), MenuRows());
  menu_.Item("mnuFileRecentFiles")->menu()->setToolTipsVisible(true);
  start_page_ = new StartPage(*area_);
  connect(area_, &QMdiArea::subWindowActivated, this, &FRSMform::FollowForms);
  connect(menu_.Item("mWindow")->menu(), &QMenu::aboutToShow, this, &FRSMform::ListForms);
  FollowForms();
  statusBar()->setObjectName("StatusBar1");
  status_ = new ElidedLabel("StatusBar1.Panels(1)");
  statusBar()->addWidget(status_, 1);
  auto* program = new QLabel("Rostermill " ROSTERMILL_VERSION);
  program->setObjectName("StatusBar1.Panels(2)");
  lblChanged = new QLabel;
  lblChanged->setObjectName("lblChanged");
  statusBar()->addPermanentWidget(lblChanged);
  statusBar()->addPermanentWidget(program);
  FollowHistory();
}

void FRSMform::MDIForm_Load() {
  PlaceWindow();
  UpdateCommandState();
  ShowStatus(no_rom);
}

void FRSMform::UpdateCommandState() {
  menu_.SetImageLoaded(session_.ImageLoaded != 0);
  UpdateRecentList();
  UpdateHistoryState();
  for (int team = 1; team <= TeamCount; ++team) {
    menu_.TeamItem(team)->setText(PlainCaption(TeamListText(session_.League(), team)));
  }
}

void FRSMform::mFilLoadROM_Click() {
  constexpr std::int32_t hide_read_only = 4;
  clsOpenSave dialog;
  dialog.SetCancelError(true);
  dialog.SetFlags(hide_read_only);
  dialog.SetFilter("NES (*.nes)|*.nes|All Files|*.*");
  dialog.SetHWnd(this);
  dialog.SetInitDir(FromUtf8(session_.AppDir));
  dialog.ShowOpen();
  const QString path = dialog.fileName();
  if (path != clsOpenSave::Cancelled && OpenImageFile(ToUtf8(path))) AddRecentFile(path);
}

bool FRSMform::OpenImageFile(const std::string& path) {
  const std::string path_in_use = session_.ImagePath;
  session_.ImagePath = path;
  host_.ShowLoading();
  const LoadOutcome outcome = LoadImage(session_, host_, history_);
  if (outcome == LoadOutcome::Loaded) {
    ShowStatus(path);
  } else {
    session_.ImagePath = path_in_use;
    ShowStartPage();
  }
  if (outcome == LoadOutcome::EndProgram) EndProgram();
  return outcome == LoadOutcome::Loaded;
}

void FRSMform::dragEnterEvent(QDragEnterEvent* event) {
  const bool free = isEnabled() && QApplication::activeModalWidget() == nullptr;
  if (free && !DraggedImage(*event).isEmpty()) event->acceptProposedAction();
}

void FRSMform::dropEvent(QDropEvent* event) {
  const QString path = DraggedImage(*event);
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  // The program that the file comes from waits for the end of this event; a message box must not
  // keep it waiting.
  QTimer::singleShot(0, this, [this, path] { OpenFromOutside(path); });
}

void FRSMform::OpenFromOutside(const QString& path) {
  if (isEnabled() && OpenImageFile(ToUtf8(path))) AddRecentFile(path);
}

void FRSMform::AddRecentFile(const QString& path) {
  if (recent_files_.AddRecentFile(path)) UpdateRecentList();
}

void FRSMform::UpdateRecentList() {
  const RecentFiles::List files = GetRecentFiles();
  QAction* submenu = menu_.Item("mnuFileRecentFiles");
  int empties = 0;
  for (int index = 0; index < RecentFiles::Count; ++index) {
    QString file = files[static_cast<std::size_t>(index)];
    file.remove(QChar::Null);
    QAction* item = menu_.Item(MemberName("mnuFileRecent", index));
    QString shown = RecentText(*submenu->menu(), file);
    item->setToolTip(shown == file ? QString() : PlainToolTip(file));
    item->setText(QStringLiteral("&%1 ").arg(index + 1) + shown.replace("&", "&&"));
    const bool filled = !file.isEmpty() && file != "None";
    if (!filled && ++empties == RecentFiles::Count) {
      submenu->setEnabled(false);
      continue;
    }
    item->setVisible(filled);
    item->setEnabled(filled);
    if (filled) submenu->setEnabled(true);
  }
  ShowStartPage();
}

void FRSMform::mnuFileRecent_Click(int Index) {
  const QString path = recent_files_.Entry(Index).remove(QChar::Null);
  if (QFileInfo(path).isFile()) {
    OpenImageFile(ToUtf8(path));
    return;
  }
  recent_files_.SetEntry(Index, {});
  ShowMessageBox(this, QMessageBox::Information, "The file no longer exists", "Error");
  UpdateRecentList();
}

void FRSMform::mFilSaveROM_Click() {
  SaveImage(session_, host_, history_, NotStoredText());
}

void FRSMform::mFilUnloadROM_Click() {
  // One Enter too many must not discard what is not saved.
  if (!AskYesNo(this, "Are you sure you want to unload the ROM?", "Unload ROM Confirmation",
                QMessageBox::No)) {
    return;
  }
  history_.Leave();
  ClearLeague(session_, host_);
  CloseIfOpen(view_teams_);
  CloseIfOpen(view_player_);
  CloseIfOpen(versions_);
  CloseIfOpen(all_players_);
  CloseIfOpen(check_);
  CloseIfOpen(compare_);
  ShowStatus(no_rom);
}

void FRSMform::mFilExit_Click() {
  EndProgram();
}

void FRSMform::mHelAbout_Click() {
  const QString text = QStringLiteral("Rostermill, " ROSTERMILL_VERSION
                                      "\n\n"
                                      "Made for people who keep leagues alive\n\n"
                                      "Qt %1\n"
                                      "Image layout 1: iNES, mapper 4, 393,232 bytes")
                           .arg(qVersion());
  ShowMessageBox(this, QMessageBox::Information, text, "About");
}

void FRSMform::mViePlayerData_Click() {
  area_->OpenOrRaise(view_player_, [this] { return new ViewPlayer(session_); });
}

void FRSMform::mVieTeamData_Click() {
  area_->OpenOrRaise(view_teams_, [this] { return new ViewTeams(session_); });
}

void FRSMform::mVieLeaders_Click() {
  area_->OpenOrRaise(view_leaders_, [this] { return new ViewLeaders(session_); });
}

void FRSMform::mnuEditGameSettings_Click() {
  area_->OpenOrRaise(game_settings_, [this] { return new frmEditGameSettings(session_); });
}

void FRSMform::mSchEdit_Click() {
  area_->OpenOrRaise(edit_schedule_, [this] { return new frmEditSchedule(session_); });
}

void FRSMform::mDatProbowl_Click() {
  area_->OpenOrRaise(probowl_, [this] { return new frmProbowl(session_); });
}

void FRSMform::mToolVersions_Click() {
  area_->OpenOrRaise(versions_, [this] {
    auto* form = new frmVersions(history_);
    connect(form, &frmVersions::BroughtBack, this, &FRSMform::ShowTouched);
    connect(form, &frmVersions::Compare, this, [this](const QString& title, LeagueData league) {
      OpenCompare({title, std::move(league), std::nullopt});
    });
    return form;
  });
}

void FRSMform::mSchVieAll_Click() {
  area_->OpenOrRaise(view_schedule_, [this] { return new ViewSchedule(session_); });
}

void FRSMform::ShowTeamSchedule(int team) {
  session_.SchedTeam = static_cast<std::int16_t>(team);
  area_->OpenOrRaise(view_team_schedule_, [this] { return new ViewTeamSchedule(session_); })
      ->ShowTeam();
}

void FRSMform::ShowStatus(const std::string& text) {
  status_->SetText(FromUtf8(text));
}

void FRSMform::EndProgram() {
  close();
  QCoreApplication::quit();
}

}  // namespace rostermill
