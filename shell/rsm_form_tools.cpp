#include <QFileInfo>
#include <QInputDialog>
#include <QStatusBar>

#include <algorithm>

#include "exchange/other_league.h"
#include "exchange/patch.h"
#include "league/file_access.h"
#include "league/save_image.h"
#include "screens/check/check_league_form.h"
#include "screens/compare/compare_form.h"
#include "screens/players/view_player.h"
#include "screens/probowl/probowl_form.h"
#include "screens/schedule/edit_schedule.h"
#include "screens/settings/game_settings_form.h"
#include "screens/table/all_players_form.h"
#include "screens/teams/view_teams.h"
#include "shell/open_save.h"
#include "shell/rsm_form.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr const char* league_files =
    "Leagues (*.nes *.bps *.ips *.json *.csv *.txt)|*.nes;*.bps;*.ips;*.json;*.csv;*.txt|All "
    "Files|*.*";
constexpr std::size_t largest_file = std::size_t{64} << 20;

/// The path that the user picks; empty when he cancels.
QString AskForFile(QWidget* owner, const QString& title, const QString& filter,
                   const QString& folder) {
  clsOpenSave dialog;
  dialog.SetHWnd(owner);
  dialog.SetDialogTitle(title);
  dialog.SetFilter(filter);
  dialog.SetInitDir(folder);
  dialog.ShowOpen();
  return dialog.fileName();
}

std::vector<std::uint8_t> ReadAll(const std::string& path) {
  FileStart file = ReadFileStart(path, largest_file);
  if (file.FileSize > largest_file) throw NoLeague("The file is too large.");
  return std::move(file.Bytes);
}

QString VersionTitle(const Version& version) {
  const QString what = FromUtf8(version.What);
  return QString("Version %1, %2, %3")
      .arg(version.Number)
      .arg(FromUtf8(LocalTimeText(version.When, std::chrono::sys_seconds())),
           version.FirstState ? "first state" : what);
}

}  // namespace

void FRSMform::ShowUnit(const Unit& unit) {
  if (unit.Team != 0 && unit.Slot != 0) {
    mViePlayerData_Click();
    view_player_->GoToPlayer(unit.Team, unit.Slot);
  } else if (unit.Team != 0) {
    mVieTeamData_Click();
    view_teams_->GoToTeam(unit.Team);
  } else if (unit.Kind == UnitKind::Week) {
    mSchEdit_Click();
    edit_schedule_->GoToWeek(unit.Part);
  } else if (unit.Kind == UnitKind::AllStar) {
    mDatProbowl_Click();
    probowl_->ShowRoster(unit.Part);
  } else {
    mnuEditGameSettings_Click();
  }
}

void FRSMform::mToolPlayers_Click() {
  area_->OpenOrRaise(all_players_, [this] {
    auto* form = new frmAllPlayers(session_, settings_);
    connect(form, &frmAllPlayers::Show, this, &FRSMform::ShowUnit);
    connect(form, &frmAllPlayers::Edited, this, [this] { ShowTouched(history_.LastTouched()); });
    connect(form, &frmAllPlayers::Told, this, [this](const QString& text) {
      constexpr int shown_for = 8000;  // milliseconds
      statusBar()->showMessage(text, shown_for);
    });
    return form;
  });
  all_players_->GoToFind();
}

void FRSMform::mToolCheck_Click() {
  area_->OpenOrRaise(check_, [this] {
    auto* form = new frmCheckLeague(session_);
    connect(form, &frmCheckLeague::Show, this, &FRSMform::ShowUnit);
    return form;
  });
}

void FRSMform::OpenCompare(OtherLeague other) {
  // One at a time: the league here is what it is about.
  CloseIfOpen(compare_);
  compare_ = new frmCompare(session_, std::move(other));
  connect(compare_, &frmCompare::Show, this, &FRSMform::ShowUnit);
  connect(compare_, &frmCompare::Taken, this, [this] { ShowTouched(history_.LastTouched()); });
  area_->ShowForm(compare_);
}

std::optional<OtherLeague> FRSMform::AskForLeague(const QString& title) {
  const QString folder = QFileInfo(FromUtf8(session_.ImagePath)).path();
  const QString path = AskForFile(this, title, league_files, folder);
  if (path.isEmpty()) return std::nullopt;
  try {
    return OtherLeague{
        QFileInfo(path).fileName(),
        ReadOtherLeague(ReadAll(ToUtf8(path)), ReadAll(session_.ImagePath), session_.League()),
        std::nullopt};
  } catch (const std::runtime_error& error) {
    ShowMessageBox(this, QMessageBox::Warning,
                   path + " gives no league:\n\n" + FromUtf8(error.what()), title);
    return std::nullopt;
  }
}

std::optional<std::vector<std::uint8_t>> FRSMform::AskForBase(const QString& title) {
  QStringList choices;
  std::vector<Version> versions;
  try {
    versions = history_.Versions();
  } catch (const std::runtime_error&) {
    versions.clear();  // the files can still be chosen
  }
  // The first state comes first: it is what others are likely to have.
  if (!versions.empty()) std::rotate(versions.begin(), versions.end() - 1, versions.end());
  for (const Version& version : versions) choices << VersionTitle(version);
  choices << "The file as it is on the disk"
          << "Another file...";
  QInputDialog dialog(this);
  dialog.setObjectName("InputBox");
  dialog.setWindowTitle(title);
  dialog.setLabelText("Compared with:");
  dialog.setComboBoxItems(choices);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const auto at = static_cast<std::size_t>(choices.indexOf(dialog.textValue()));
  try {
    if (at < versions.size()) return history_.BytesOfVersion(versions[at]).Bytes;
    if (at == versions.size()) return ReadAll(session_.ImagePath);
    const QString path = AskForFile(this, title, "NES (*.nes)|*.nes|All Files|*.*",
                                    QFileInfo(FromUtf8(session_.ImagePath)).path());
    if (path.isEmpty()) return std::nullopt;
    return ReadAll(ToUtf8(path));
  } catch (const std::runtime_error& error) {
    ShowMessageBox(this, QMessageBox::Warning, FromUtf8(error.what()), title);
    return std::nullopt;
  }
}

void FRSMform::mToolCompare_Click() {
  if (auto other = AskForLeague("Compare With")) OpenCompare(std::move(*other));
}

void FRSMform::mToolMerge_Click() {
  auto other = AskForLeague("Merge With");
  if (!other) return;
  const auto base = AskForBase("Both Were Made From");
  if (!base) return;
  try {
    other->Base = LeagueOfImage(*base, session_.League());
    OpenCompare(std::move(*other));
  } catch (const NoLeague& error) {
    ShowMessageBox(this, QMessageBox::Warning, FromUtf8(error.what()), "Merge");
  }
}

void FRSMform::mToolPatch_Click() {
  constexpr const char* title = "Make Patch";
  if (const auto overflow = TextOverflow(session_.League())) {
    return ShowMessageBox(this, QMessageBox::Warning,
                          FromUtf8(*overflow) + "\n\nNothing was written.", title);
  }
  const auto base = AskForBase(title);
  if (!base) return;
  clsOpenSave dialog;
  dialog.SetHWnd(this);
  dialog.SetDialogTitle(title);
  dialog.SetFilter("BPS (*.bps)|*.bps|IPS (*.ips)|*.ips");
  dialog.SetDefaultExt("bps");
  dialog.SetInitDir(QFileInfo(FromUtf8(session_.ImagePath)).path());
  dialog.ShowSave();
  const QString path = dialog.fileName();
  if (path.isEmpty()) return;
  try {
    const auto format = PatchFormatOfName(ToUtf8(path));
    if (!format) throw PatchError("The name of a patch ends with .bps or .ips.");
    OpenImage image(ReadAll(session_.ImagePath));
    WriteLeague(image, session_.League(), [] {});
    ReplaceFile(ToUtf8(path), MakePatch(*format, *base, image.Bytes()));
  } catch (const std::exception& error) {
    ShowMessageBox(this, QMessageBox::Warning,
                   path + " was not written:\n\n" + FromUtf8(error.what()), title);
  }
}

}  // namespace rostermill
