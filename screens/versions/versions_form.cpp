#include "screens/versions/versions_form.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "toolkit/form_parts.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

enum Column { When, What, Changes };

QString WhatText(const Version& version) {
  const QString what = FromUtf8(version.What);
  return version.FirstState ? "first state, " + what : what;
}
QString WhatText(const UnsavedState&) {
  return "unsaved changes";
}

}  // namespace

frmVersions::frmVersions(LeagueHistory& history)
    : ChildForm("frmVersions", "Earlier Versions"), history_(history) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void frmVersions::BuildControls() {
  lstVersions = new QTreeWidget;
  lstVersions->setObjectName("lstVersions");
  lstVersions->setAccessibleName("Earlier versions");
  lstVersions->setHeaderLabels({"When", "What", "Changes"});
  lstVersions->setRootIsDecorated(false);
  lstVersions->setAllColumnsShowFocus(true);
  lstVersions->header()->setStretchLastSection(false);
  lstVersions->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  lstVersions->header()->setSectionResizeMode(What, QHeaderView::Stretch);
  btnCompare = NewButton("btnCompare", "Compare");
  btnBring = NewButton("btnBring", "Bring Back");
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnOK);
  SetCancelButton(btnOK);
  setFocusProxy(lstVersions);
}

void frmVersions::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->addWidget(lstVersions, 1);
  column->addWidget(ButtonRow(btnOK, nullptr, {btnCompare, btnBring}));
  lstVersions->setMinimumWidth(fontMetrics().averageCharWidth() * 80);
}

void frmVersions::Connect() {
  connect(lstVersions, &QTreeWidget::itemSelectionChanged, this, &frmVersions::lstVersions_Click);
  connect(btnCompare, &QPushButton::clicked, this, &frmVersions::btnCompare_Click);
  connect(btnBring, &QPushButton::clicked, this, &frmVersions::btnBring_Click);
  connect(btnOK, &QPushButton::clicked, this, &frmVersions::btnOK_Click);
}

void frmVersions::Form_Load() {
  FillList();
}

void frmVersions::FillList() {
  const int row = lstVersions->indexOfTopLevelItem(lstVersions->currentItem());
  lstVersions->clear();
  states_.clear();
  try {
    for (const UnsavedState& state : history_.LeftStates()) AddState(state);
    for (const Version& version : history_.Versions()) AddState(version);
  } catch (const std::runtime_error& error) {
    ShowFailure(error);
  }
  lstVersions->setCurrentItem(lstVersions->topLevelItem(row < 0 ? 0 : row));
  lstVersions_Click();
}

void frmVersions::AddState(const State& state) {
  auto* item = new QTreeWidgetItem(lstVersions);
  std::visit(
      [item](const auto& kept) {
        item->setText(When, FromUtf8(LocalTimeText(kept.When, UtcNow())));
        item->setText(What, WhatText(kept));
      },
      state);
  item->setTextAlignment(Changes, Qt::AlignRight | Qt::AlignVCenter);
  try {
    const std::size_t changes = ChangesOf(state).size();
    item->setText(Changes, changes == 0 ? "none" : QString::number(changes));
  } catch (const std::runtime_error& error) {
    item->setText(Changes, "unknown");
    item->setToolTip(Changes, FromUtf8(error.what()));
  }
  states_.push_back(state);
}

LeagueData frmVersions::LeagueOf(const State& state) {
  if (const auto* version = std::get_if<Version>(&state)) {
    return history_.LeagueOfVersion(version->Number);
  }
  return history_.LeagueOfLeftState(std::get<UnsavedState>(state).Number);
}

std::vector<Change> frmVersions::ChangesOf(const State& state) {
  return FindChanges(history_.League(), LeagueOf(state));
}

const frmVersions::State* frmVersions::Selected() const {
  const int row = lstVersions->indexOfTopLevelItem(lstVersions->currentItem());
  return row < 0 ? nullptr : &states_[static_cast<std::size_t>(row)];
}

void frmVersions::lstVersions_Click() {
  btnCompare->setEnabled(Selected() != nullptr);
  btnBring->setEnabled(Selected() != nullptr);
}

void frmVersions::btnCompare_Click() {
  const State* state = Selected();
  if (state == nullptr) return;
  try {
    const auto* version = std::get_if<Version>(state);
    emit Compare(version ? QString("version %1").arg(version->Number) : QString("unsaved changes"),
                 LeagueOf(*state));
  } catch (const std::runtime_error& error) {
    ShowFailure(error);
  }
}

void frmVersions::btnBring_Click() {
  const State* selected = Selected();
  if (selected == nullptr) return;
  const State state = *selected;  // the list is filled anew meanwhile
  try {
    const auto* version = std::get_if<Version>(&state);
    emit BroughtBack(version ? history_.BringBackVersion(*version)
                             : history_.BringBackLeftState(std::get<UnsavedState>(state)));
  } catch (const std::runtime_error& error) {
    ShowFailure(error);
  }
}

void frmVersions::btnOK_Click() {
  CloseForm();
}

void frmVersions::ShowFailure(const std::exception& error) {
  ShowMessageBox(this, QMessageBox::Warning, FromUtf8(error.what()), "Error");
}

}  // namespace rostermill
