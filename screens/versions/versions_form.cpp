#include "screens/versions/versions_form.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "toolkit/form_parts.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

enum Column { When, What, Changes };

/// What the "Changes" column shows for a state.
struct ChangesText {
  QString Text;
  QString Tip;
};

/// A state's row. The state is read and its changes counted only when the row is first seen.
class StateItem : public QTreeWidgetItem {
 public:
  explicit StateItem(std::function<ChangesText()> count) : count_(std::move(count)) {
    setTextAlignment(Changes, Qt::AlignRight | Qt::AlignVCenter);
  }

  QVariant data(int column, int role) const override {
    if (column != Changes || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
      return QTreeWidgetItem::data(column, role);
    }
    if (!changes_) changes_ = count_();
    return role == Qt::DisplayRole ? changes_->Text : changes_->Tip;
  }

 private:
  std::function<ChangesText()> count_;
  mutable std::optional<ChangesText> changes_;
};

/// Wide enough for any text, so that no version has to be read to measure the column.
int WidthOfChanges(const QTreeWidget& list) {
  const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
  const int widest = list.fontMetrics().horizontalAdvance("unknown") + 2 * margin;
  return std::max(widest, list.header()->sectionSizeHint(Changes));
}

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
  lstVersions->setUniformRowHeights(true);
  lstVersions->header()->setStretchLastSection(false);
  lstVersions->header()->setSectionResizeMode(What, QHeaderView::Stretch);
  lstVersions->header()->setSectionResizeMode(Changes, QHeaderView::Fixed);
  lstVersions->header()->resizeSection(Changes, WidthOfChanges(*lstVersions));
  btnCompare = NewButton("btnCompare", "Compare");
  btnBring = NewButton("btnBring", "Bring Back");
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnOK);
  SetCancelButton(btnOK);
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
  QList<QTreeWidgetItem*> rows;
  std::string failure;
  try {
    for (const UnsavedState& state : history_.LeftStates()) rows << AddState(state);
    for (const Version& version : history_.Versions()) rows << AddState(version);
  } catch (const std::runtime_error& error) {
    failure = error.what();
  }
  lstVersions->addTopLevelItems(rows);
  lstVersions->resizeColumnToContents(When);
  lstVersions->setCurrentItem(lstVersions->topLevelItem(row < 0 ? 0 : row));
  lstVersions_Click();
  // Shown once, not after every step, and at the end: the list may be refilled while it is open.
  const bool told = std::exchange(failure_, failure) == failure;
  if (!failure.empty() && !told) ShowFailure(failure);
}

QTreeWidgetItem* frmVersions::AddState(const State& state) {
  const auto count = [this, state]() -> ChangesText {
    try {
      const std::size_t changes = FindChanges(history_.League(), LeagueOf(state)).size();
      return {changes == 0 ? "none" : QString::number(changes), {}};
    } catch (const std::runtime_error& error) {
      return {"unknown", FromUtf8(error.what())};
    }
  };
  auto* item = new StateItem(count);
  std::visit(
      [item](const auto& kept) {
        item->setText(When, FromUtf8(LocalTimeText(kept.When, UtcNow())));
        item->setText(What, WhatText(kept));
      },
      state);
  states_.push_back(state);
  return item;
}

LeagueData frmVersions::LeagueOf(const State& state) {
  if (const auto* version = std::get_if<Version>(&state)) {
    return history_.LeagueOfVersion(*version);
  }
  return history_.LeagueOfLeftState(std::get<UnsavedState>(state).Number);
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
    ShowFailure(error.what());
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
    ShowFailure(error.what());
  }
}

void frmVersions::btnOK_Click() {
  CloseForm();
}

void frmVersions::ShowFailure(const std::string& reason) {
  ShowMessageBox(this, QMessageBox::Warning, FromUtf8(reason), "Error");
}

}  // namespace rostermill
