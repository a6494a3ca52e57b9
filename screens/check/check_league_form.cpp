#include "screens/check/check_league_form.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "league/quantity_text.h"
#include "toolkit/form_parts.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

/// Where an item of the list has the index of its finding; a title has none.
constexpr int finding_role = Qt::UserRole;

}  // namespace

frmCheckLeague::frmCheckLeague(const LeagueSession& session)
    : ChildForm("frmCheckLeague", "League Check"), session_(session) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void frmCheckLeague::BuildControls() {
  lblSummary = NewLabel("lblSummary");
  lstFindings = new QTreeWidget;
  lstFindings->setObjectName("lstFindings");
  lstFindings->setAccessibleName("Findings");
  lstFindings->setHeaderHidden(true);
  lstFindings->setWordWrap(true);
  btnShow = NewButton("btnShow", "Show");
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnShow);  // for Enter in the list
  SetCancelButton(btnOK);
}

void frmCheckLeague::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->addWidget(lblSummary);
  column->addWidget(lstFindings, 1);
  column->addWidget(ButtonRow(btnOK, nullptr, {btnShow}));
  lstFindings->setMinimumSize(fontMetrics().averageCharWidth() * 80,
                              fontMetrics().lineSpacing() * 18);
}

void frmCheckLeague::Connect() {
  connect(lstFindings, &QTreeWidget::itemSelectionChanged, this,
          &frmCheckLeague::lstFindings_Click);
  connect(lstFindings, &QTreeWidget::itemDoubleClicked, this, &frmCheckLeague::btnShow_Click);
  connect(btnShow, &QPushButton::clicked, this, &frmCheckLeague::btnShow_Click);
  connect(btnOK, &QPushButton::clicked, this, &frmCheckLeague::btnOK_Click);
}

void frmCheckLeague::Form_Load() {
  FillList();
}

void frmCheckLeague::FillList() {
  const Finding* selected = Selected();
  const Finding before = selected != nullptr ? *selected : Finding();
  findings_ = CheckLeague(session_.League());
  lstFindings->clear();
  QTreeWidgetItem* group = nullptr;
  QTreeWidgetItem* current = nullptr;
  for (std::size_t at = 0; at < findings_.size(); ++at) {
    const Finding& finding = findings_[at];
    if (at == 0 || findings_[at - 1].Kind != finding.Kind) {
      group = new QTreeWidgetItem(lstFindings);
      const auto count = std::ranges::count(findings_, finding.Kind, &Finding::Kind);
      group->setText(0, FromUtf8(TitleOf(finding.Kind)) + QString(": %1").arg(count));
    }
    auto* item = new QTreeWidgetItem(group);
    item->setText(0, FromUtf8(finding.Text));
    item->setToolTip(0, PlainToolTip(item->text(0)));
    item->setData(0, finding_role, static_cast<int>(at));
    if (current == nullptr || finding == before) current = item;
  }
  lstFindings->expandAll();
  lstFindings->setCurrentItem(current);
  lblSummary->setText(findings_.empty() ? "Nothing odd"
                                        : FromUtf8(QuantityText(findings_.size(), "finding")));
  lstFindings_Click();
}

const Finding* frmCheckLeague::Selected() const {
  const QTreeWidgetItem* item = lstFindings->currentItem();
  const QVariant at = item != nullptr ? item->data(0, finding_role) : QVariant();
  return at.isValid() ? &findings_[static_cast<std::size_t>(at.toInt())] : nullptr;
}

void frmCheckLeague::lstFindings_Click() {
  btnShow->setEnabled(Selected() != nullptr);
}

void frmCheckLeague::btnShow_Click() {
  if (const Finding* finding = Selected()) emit Show(Unit(finding->Where));
}

void frmCheckLeague::btnOK_Click() {
  CloseForm();
}

}  // namespace rostermill
