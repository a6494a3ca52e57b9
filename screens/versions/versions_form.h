#pragma once

#include <string>
#include <variant>
#include <vector>

#include "history/league_history.h"
#include "toolkit/form.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace rostermill {

/// "Earlier Versions": the states of the image's file before its saves, and the unsaved changes
/// that were left. Each can be compared with the league in memory, and brought back into it.
class frmVersions : public ChildForm {
  Q_OBJECT

 public:
  explicit frmVersions(LeagueHistory& history);

  /// Refills the list and keeps the selected row. A state's changes from the league in memory are
  /// counted when its row is first seen.
  void FillList();

 signals:
  /// A state has been brought back into memory.
  void BroughtBack(const Touched& touched);
  /// The user wants to compare this state with the league in memory.
  void Compare(const QString& title, const LeagueData& league);

 private:
  using State = std::variant<UnsavedState, Version>;

  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void lstVersions_Click();
  void btnCompare_Click();
  void btnBring_Click();
  void btnOK_Click();

  /// Adds the state and returns its row.
  QTreeWidgetItem* AddState(const State& state);
  LeagueData LeagueOf(const State& state);
  /// The selected state; null without one.
  const State* Selected() const;
  void ShowFailure(const std::string& reason);

  LeagueHistory& history_;
  std::vector<State> states_;  ///< in the order of the list
  std::string failure_;        ///< why the list couldn't be filled the last time; empty if it could

  QTreeWidget* lstVersions = nullptr;
  QPushButton* btnCompare = nullptr;
  QPushButton* btnBring = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
