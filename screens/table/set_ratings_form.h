#pragma once

#include <vector>

#include "exchange/player_cells.h"
#include "league/league_session.h"
#include "toolkit/form.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;
class QSpinBox;

namespace rostermill {

/// "Set Ratings": shifts ratings of many players at once, to a value, by steps or by percent, and
/// says beforehand how many change.
class frmSetRatings : public DialogForm {
  Q_OBJECT

 public:
  frmSetRatings(QWidget* parent, LeagueSession& session, std::vector<PlayerPlace> players);

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void Changed();
  void btnOK_Click();

  RatingShift Shift() const;
  std::vector<const Column*> PickedColumns() const;

  LeagueSession& session_;
  const std::vector<PlayerPlace> players_;
  std::vector<const Column*> columns_;  ///< the ratings in the order of the boxes

  std::vector<QCheckBox*> chkRating;
  QRadioButton* radValue = nullptr;
  QRadioButton* radSteps = nullptr;
  QRadioButton* radPercent = nullptr;
  QComboBox* cmbValue = nullptr;
  QSpinBox* spnSteps = nullptr;
  QSpinBox* spnPercent = nullptr;
  QLabel* lblEffect = nullptr;
  QPushButton* btnOK = nullptr;
  QPushButton* btnCancel = nullptr;
};

}  // namespace rostermill
