#include "screens/compare/compare_form.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTreeWidget>

#include <algorithm>

#include "exchange/wording.h"
#include "league/quantity_text.h"
#include "league/save_image.h"
#include "toolkit/form_parts.h"
#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

enum Column { What, Here, There };

/// Where a line has the index of its unit; a group has none.
constexpr int unit_role = Qt::UserRole;

QString CountText(std::size_t count, const char* noun) {
  return FromUtf8(QuantityText(count, noun));
}

std::vector<QTreeWidgetItem*> LinesOf(QTreeWidget& list) {
  std::vector<QTreeWidgetItem*> lines;
  for (int group = 0; group < list.topLevelItemCount(); ++group) {
    QTreeWidgetItem* item = list.topLevelItem(group);
    for (int line = 0; line < item->childCount(); ++line) lines.push_back(item->child(line));
  }
  return lines;
}

}  // namespace

frmCompare::frmCompare(LeagueSession& session, OtherLeague other)
    : ChildForm("frmCompare", other.Base ? "Merge" : "Compare"),
      session_(session),
      other_(std::move(other)) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void frmCompare::BuildControls() {
  lblOther = NewLabel("lblOther");
  lblOther->setWordWrap(true);
  txtFilter = new QLineEdit;
  txtFilter->setObjectName("txtFilter");
  txtFilter->setClearButtonEnabled(true);
  lstChanges = new QTreeWidget;
  lstChanges->setObjectName("lstChanges");
  lstChanges->setAccessibleName("Differences");
  lstChanges->setHeaderLabels({"What", "Here", "There"});
  lstChanges->setUniformRowHeights(true);
  lstChanges->setAllColumnsShowFocus(true);
  OutlineTicks(*lstChanges);
  lblCount = NewLabel("lblCount");
  btnTake = NewButton("btnTake", "Take");
  btnShow = NewButton("btnShow", "Show");
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnShow);  // for Enter in the list
  SetCancelButton(btnOK);
  setFocusProxy(lstChanges);
}

void frmCompare::LayOut() {
  auto* grid = new QGridLayout(this);
  grid->addWidget(lblOther, 0, 0, 1, 2);
  grid->addWidget(NewCaption("lblFilterCaption", "Filter:", txtFilter), 1, 0);
  grid->addWidget(txtFilter, 1, 1);
  grid->addWidget(lstChanges, 2, 0, 1, 2);
  grid->addWidget(lblCount, 3, 0, 1, 2);
  grid->addWidget(ButtonRow(btnOK, nullptr, {btnTake, btnShow}), 4, 0, 1, 2);
  grid->setRowStretch(2, 1);
  const int letter = fontMetrics().averageCharWidth();
  lstChanges->setMinimumSize(letter * 96, fontMetrics().lineSpacing() * 18);
  lstChanges->setColumnWidth(What, letter * 46);
  lstChanges->setColumnWidth(Here, letter * 24);
}

void frmCompare::Connect() {
  connect(txtFilter, &QLineEdit::textChanged, this, &frmCompare::txtFilter_Change);
  connect(lstChanges, &QTreeWidget::itemSelectionChanged, this, &frmCompare::lstChanges_Click);
  connect(lstChanges, &QTreeWidget::itemDoubleClicked, this, &frmCompare::btnShow_Click);
  connect(lstChanges, &QTreeWidget::itemChanged, this, &frmCompare::lstChanges_Tick);
  connect(btnTake, &QPushButton::clicked, this, &frmCompare::btnTake_Click);
  connect(btnShow, &QPushButton::clicked, this, &frmCompare::btnShow_Click);
  connect(btnOK, &QPushButton::clicked, this, &frmCompare::btnOK_Click);
}

void frmCompare::Form_Load() {
  lblOther->setText("The league here, and that of " + other_.Title);
  if (other_.Base) {
    const Merge merge = FindMerge(*other_.Base, session_.League(), other_.League);
    ticked_ = UnitsOf(merge.Theirs);
  }
  FillList();
}

void frmCompare::FillList() {
  const Unit selected = Selected() != nullptr ? *Selected() : Unit();
  const QSignalBlocker silent(lstChanges);
  lstChanges->clear();
  units_.clear();
  std::set<Unit> shown, conflicts;
  if (other_.Base) {
    const Merge merge = FindMerge(*other_.Base, session_.League(), other_.League);
    shown = UnitsOf(merge.Theirs);
    for (const Conflict& conflict : merge.Conflicts) conflicts.insert(conflict.Where);
  }
  QList<QTreeWidgetItem*> groups;  // the list takes all of them at once much faster
  for (const Change& change : FindChanges(session_.League(), other_.League)) {
    const bool conflict = conflicts.contains(change.Where);
    if (!other_.Base || conflict || shown.contains(change.Where)) {
      AddChange(groups, change, conflict);
    }
  }
  lstChanges->addTopLevelItems(groups);
  const std::set<Unit> listed(units_.begin(), units_.end());
  std::erase_if(ticked_, [&listed](const Unit& unit) { return !listed.contains(unit); });
  lstChanges->expandAll();
  txtFilter_Change();
  const auto lines = LinesOf(*lstChanges);
  const auto again = std::ranges::find(units_, selected);
  if (!lines.empty()) {
    lstChanges->setCurrentItem(again == units_.end()
                                   ? lines.front()
                                   : lines[static_cast<std::size_t>(again - units_.begin())]);
  }
  lstChanges_Click();
}

QTreeWidgetItem* frmCompare::GroupOf(QList<QTreeWidgetItem*>& groups, const Change& change) {
  const QString title =
      change.Team != 0 ? FromUtf8(TeamName(session_.League(), change.Team))
                       : FromUtf8(change.Where.Kind == UnitKind::Week ? "Season" : change.Subject);
  if (groups.empty() || groups.back()->text(What) != title) {
    groups.push_back(new QTreeWidgetItem(QStringList{title}));
    groups.back()->setFlags(groups.back()->flags() | Qt::ItemIsUserCheckable |
                            Qt::ItemIsAutoTristate);
  }
  return groups.back();
}

void frmCompare::AddChange(QList<QTreeWidgetItem*>& groups, const Change& change, bool conflict) {
  QTreeWidgetItem* group = GroupOf(groups, change);
  QString subject = FromUtf8(change.Subject);
  QString what = FromUtf8(change.What);
  if (subject != group->text(What)) {
    if (subject.startsWith(group->text(What) + " ")) {
      subject.remove(0, group->text(What).size() + 1);
    }
    what.prepend(subject + ": ");
  }
  auto* line = new QTreeWidgetItem(QStringList{what, FromUtf8(change.From), FromUtf8(change.To)});
  line->setToolTip(What, PlainToolTip(what));
  if (conflict) {
    line->setText(There, line->text(There) + "   (both changed it)");
    QFont bold = line->font(There);
    bold.setBold(true);
    line->setFont(There, bold);
  }
  line->setData(What, unit_role, static_cast<int>(units_.size()));
  line->setCheckState(What, ticked_.contains(change.Where) ? Qt::Checked : Qt::Unchecked);
  group->addChild(line);
  units_.push_back(change.Where);
}

void frmCompare::txtFilter_Change() {
  const QStringList words = txtFilter->text().split(' ', Qt::SkipEmptyParts);
  for (int at = 0; at < lstChanges->topLevelItemCount(); ++at) {
    QTreeWidgetItem* group = lstChanges->topLevelItem(at);
    bool any = false;
    for (int line = 0; line < group->childCount(); ++line) {
      QTreeWidgetItem* item = group->child(line);
      const bool fits = std::ranges::all_of(words, [&](const QString& word) {
        const auto has = [&word](const QTreeWidgetItem* cells, int column) {
          return cells->text(column).contains(word, Qt::CaseInsensitive);
        };
        return has(group, What) || has(item, What) || has(item, Here) || has(item, There);
      });
      item->setHidden(!fits);
      any = any || fits;
    }
    group->setHidden(!any);
  }
  ShowCount();
}

const Unit* frmCompare::Selected() const {
  const QTreeWidgetItem* item = lstChanges->currentItem();
  const QVariant at = item != nullptr ? item->data(What, unit_role) : QVariant();
  return at.isValid() ? &units_[static_cast<std::size_t>(at.toInt())] : nullptr;
}

void frmCompare::lstChanges_Click() {
  btnShow->setEnabled(Selected() != nullptr);
}

void frmCompare::lstChanges_Tick(QTreeWidgetItem* item, int column) {
  const QVariant at = item->data(What, unit_role);
  if (column != What || !at.isValid()) return;
  if (item->isHidden() && item->checkState(What) == Qt::Checked) {
    // Ticked with its group, though the filter hides it.
    const QSignalBlocker silent(lstChanges);
    return item->setCheckState(What, Qt::Unchecked);
  }
  TickUnit(units_[static_cast<std::size_t>(at.toInt())], item->checkState(What) == Qt::Checked);
}

void frmCompare::TickUnit(const Unit& unit, bool ticked) {
  if (ticked) {
    ticked_.insert(unit);
  } else {
    ticked_.erase(unit);
  }
  if (unit.Kind == UnitKind::Week) {
    const QSignalBlocker silent(lstChanges);
    const auto lines = LinesOf(*lstChanges);
    for (std::size_t at = 0; at < units_.size(); ++at) {
      if (units_[at] == unit) lines[at]->setCheckState(What, ticked ? Qt::Checked : Qt::Unchecked);
    }
  }
  ShowCount();
}

void frmCompare::ShowCount() {
  const auto lines = LinesOf(*lstChanges);
  const auto shown = static_cast<std::size_t>(
      std::ranges::count_if(lines, [](const QTreeWidgetItem* line) { return !line->isHidden(); }));
  QString text = lines.empty() ? "No difference" : CountText(lines.size(), "difference");
  if (shown < lines.size()) text += QString(", %1 shown").arg(shown);
  if (!ticked_.empty()) text += QString(", %1 ticked").arg(ticked_.size());
  lblCount->setText(text);
  btnTake->setEnabled(!ticked_.empty());
}

void frmCompare::btnTake_Click() {
  const std::set<Unit> units = ticked_;
  const std::string description =
      "Take " + QuantityText(units.size(), "Change") + " from " + ToLatin1(other_.Title);
  session_.Change(description,
                  [&](LeagueData& league) { TakeUnits(units, other_.League, league); });
  emit Taken();
  if (const auto overflow = TextOverflow(session_.League())) {
    ShowMessageBox(
        this, QMessageBox::Information,
        "The changes are taken, but now a save will be refused:\n\n" + FromUtf8(*overflow),
        "Compare");
  }
}

void frmCompare::btnShow_Click() {
  if (const Unit* unit = Selected()) emit Show(Unit(*unit));
}

void frmCompare::btnOK_Click() {
  CloseForm();
}

}  // namespace rostermill
