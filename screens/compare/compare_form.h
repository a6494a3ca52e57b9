#pragma once

#include <optional>
#include <set>

#include "exchange/merge.h"
#include "league/league_session.h"
#include "toolkit/form.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace rostermill {

/// A league to compare the one in memory with.
struct OtherLeague {
  QString Title;  ///< "last-year.nes", "version 3"
  LeagueData League;
  std::optional<LeagueData> Base;  ///< what both were made from; makes the comparison a merge
};

/// "Compare": what differs between the league in memory and another, in groups that can be ticked,
/// whole or line by line, and taken. With a base only what the other side changed is listed, ticked
/// but for conflicts.
class frmCompare : public ChildForm {
  Q_OBJECT

 public:
  frmCompare(LeagueSession& session, OtherLeague other);

  /// Compares anew. What is ticked and still differs stays ticked.
  void FillList();

 signals:
  /// Ticked changes have been taken into the league.
  void Taken();
  /// The user wants to see this part of the league in its own screen.
  void Show(const Unit& unit);

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void txtFilter_Change();
  void lstChanges_Click();
  void lstChanges_Tick(QTreeWidgetItem* item, int column);
  void btnTake_Click();
  void btnShow_Click();
  void btnOK_Click();

  void AddChange(QList<QTreeWidgetItem*>& groups, const Change& change, bool conflict);
  /// The last group, or a new one at the end where the change belongs to none before it.
  QTreeWidgetItem* GroupOf(QList<QTreeWidgetItem*>& groups, const Change& change);
  /// Ticks all lines of a unit alike; a week's games are taken together.
  void TickUnit(const Unit& unit, bool ticked);
  void ShowCount();
  const Unit* Selected() const;

  LeagueSession& session_;
  const OtherLeague other_;
  std::vector<Unit> units_;  ///< of the lines, by the index that a line has
  std::set<Unit> ticked_;

  QLabel* lblOther = nullptr;
  QLineEdit* txtFilter = nullptr;
  QTreeWidget* lstChanges = nullptr;
  QLabel* lblCount = nullptr;
  QPushButton* btnTake = nullptr;
  QPushButton* btnShow = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
