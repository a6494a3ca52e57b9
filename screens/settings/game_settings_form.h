#pragma once

#include "league/league_session.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"
#include "toolkit/text_box.h"

namespace rostermill {

/// "Game Settings": the roster year and the three league texts. OK stores all four, whatever they
/// are, each padded with blanks to its fixed length.
class frmEditGameSettings : public ChildForm {
  Q_OBJECT

 public:
  explicit frmEditGameSettings(LeagueSession& session);

  /// "Game Settings" if a text is not stored yet.
  QStringList NotStored() const;

 private:
  void BuildControls();
  void LayOut();

  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();

  QStringList Texts() const;

  LeagueSession& session_;
  QStringList filled_;  ///< Texts after the form was filled

  TextBox* txtRosterYear = nullptr;
  ControlArray<TextBox> txtLeague{"txtLeague"};
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;
};

}  // namespace rostermill
