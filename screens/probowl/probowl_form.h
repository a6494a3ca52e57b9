#pragma once

#include <QPointer>

#include "league/league_session.h"
#include "toolkit/form.h"

namespace rostermill {

class frmRoster;

/// "Probowl Data": a button for each all-star side. Owns the roster form, which shows the side
/// whose button was pressed last and closes with this form.
class frmProbowl : public ChildForm {
  Q_OBJECT

 public:
  explicit frmProbowl(LeagueSession& session);

  /// Opens the roster of a side, 1 AFC or 2 NFC.
  void ShowRoster(int conference);
  /// Shows the roster anew if it is open.
  void RefreshRoster();

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Unload() override;
  void btnAFCroster_Click();
  void btnNFCroster_Click();
  void btnOK_Click();

  LeagueSession& session_;
  QPointer<frmRoster> roster_;

  QPushButton* btnAFCroster = nullptr;
  QPushButton* btnNFCroster = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
