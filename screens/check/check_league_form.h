#pragma once

#include <vector>

#include "exchange/checks.h"
#include "league/league_session.h"
#include "toolkit/form.h"

class QLabel;
class QTreeWidget;

namespace rostermill {

/// "League Check": what is odd about the league in memory, grouped by kind.
class frmCheckLeague : public ChildForm {
  Q_OBJECT

 public:
  explicit frmCheckLeague(const LeagueSession& session);

  /// Checks the league again, and stays at the finding that is selected if it is still there.
  void FillList();

 signals:
  /// The user wants to see this part of the league in its own screen.
  void Show(const Unit& unit);

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void lstFindings_Click();
  void btnShow_Click();
  void btnOK_Click();

  /// The selected finding; null for none and for a group's title.
  const Finding* Selected() const;

  const LeagueSession& session_;
  std::vector<Finding> findings_;

  QLabel* lblSummary = nullptr;
  QTreeWidget* lstFindings = nullptr;
  QPushButton* btnShow = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
