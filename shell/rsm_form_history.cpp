#include <QLabel>
#include <QStringList>

#include "rules/display_text.h"
#include "screens/check/check_league_form.h"
#include "screens/compare/compare_form.h"
#include "screens/players/view_player.h"
#include "screens/probowl/probowl_form.h"
#include "screens/schedule/edit_schedule.h"
#include "screens/settings/game_settings_form.h"
#include "screens/table/all_players_form.h"
#include "screens/teams/view_teams.h"
#include "screens/versions/versions_form.h"
#include "shell/rsm_form.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int keeping_delay = 1000;  // milliseconds

QString StepCaption(const QString& verb, const std::string& description) {
  QString step = FromLatin1(description);
  return step.isEmpty() ? verb : verb + " " + step.replace('\t', ' ').replace("&", "&&");
}

}  // namespace

void FRSMform::FollowHistory() {
  keeping_.setSingleShot(true);
  keeping_.setInterval(keeping_delay);
  connect(&keeping_, &QTimer::timeout, this, &FRSMform::KeepUnsaved);
  history_.SetListener([this] {
    UpdateHistoryState();
    if (!keeping_.isActive()) keeping_.start();
  });
}

void FRSMform::UpdateHistoryState() {
  const bool loaded = session_.ImageLoaded != 0;
  QAction* undo = menu_.Item("mnuEditUndo");
  undo->setText(StepCaption("&Undo", history_.UndoDescription()));
  undo->setEnabled(loaded && history_.CanUndo());
  QAction* redo = menu_.Item("mnuEditRedo");
  redo->setText(StepCaption("&Redo", history_.RedoDescription()));
  redo->setEnabled(loaded && history_.CanRedo());
  menu_.Item("mToolUnsaved")->setEnabled(loaded && !history_.LeftStates().empty());
  const auto fill = [loaded](const auto& form) {
    if (loaded && form && form->IsOpen()) form->FillList();
  };
  fill(versions_);
  fill(all_players_);
  fill(check_);
  fill(compare_);
  ShowChanged();
}

void FRSMform::ShowChanged() {
  QString text;
  QString tip;
  if (history_.Changed()) {
    text = "Changed";
    const std::size_t count = history_.ChangeCount();
    tip = QString("%1 %2 since the last save").arg(count).arg(count == 1 ? "change" : "changes");
    if (const std::string& failure = history_.KeepingFailure(); !failure.empty()) {
      text = "Changed, not kept";
      tip += "\nThe unsaved changes could not be kept: " + FromUtf8(failure);
    }
  } else if (const auto waiting = history_.WaitingState()) {
    text = FromUtf8("Unsaved changes of " + LocalTimeText(waiting->When, UtcNow()) + " are kept");
    tip = "Tools > Bring Back Unsaved Changes";
  }
  lblChanged->setText(text);
  lblChanged->setToolTip(tip);
}

void FRSMform::KeepUnsaved() {
  const bool asked = history_.KeepUnsaved();
  ShowChanged();
  if (asked) keeping_.start();  // to learn whether they could be kept
}

void FRSMform::mnuEditUndo_Click() {
  ShowTouched(history_.Undo());
}

void FRSMform::mnuEditRedo_Click() {
  ShowTouched(history_.Redo());
}

void FRSMform::mToolUnsaved_Click() {
  if (history_.LeftStates().empty()) return;
  try {
    ShowTouched(history_.BringBackLeftState(history_.LeftStates().front()));
  } catch (const std::runtime_error& error) {
    ShowMessageBox(this, QMessageBox::Warning, FromUtf8(error.what()), "Error");
  }
}

void FRSMform::ShowTouched(const Touched& touched) {
  if (touched.Nothing()) return;
  UpdateCommandState();
  if (view_player_ && view_player_->IsOpen()) view_player_->ShowTouched(touched);
  if (view_teams_ && view_teams_->IsOpen()) view_teams_->ShowTouched(touched);
  if (probowl_ && probowl_->IsOpen()) probowl_->RefreshRoster();
}

std::string FRSMform::NotStoredText() const {
  QStringList editors;
  const auto add = [&editors](const auto& form) {
    if (form && form->IsOpen()) editors += form->NotStored();
  };
  add(view_player_);
  add(view_teams_);
  add(edit_schedule_);
  add(game_settings_);
  if (editors.isEmpty()) return {};
  return ToUtf8("Not stored yet, and not part of this save: " + editors.join(", "));
}

}  // namespace rostermill
