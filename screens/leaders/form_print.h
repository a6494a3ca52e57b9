#pragma once

#include <QLabel>
#include <QRadioButton>

#include "league/league_session.h"
#include "toolkit/form.h"

namespace rostermill {

/// "Print...": asks whether the leaders go to the printer or to the file of their group. The answer
/// is left in PrintCancelled (1 or 0) and PrintToPrinter (-1 printer, 0 file).
class FormPrint : public DialogForm {
  Q_OBJECT

 public:
  /// `group` is the group of the leaders table, counted from 0.
  FormPrint(QWidget* parent, LeagueSession& session, int group);

  /// Esc and the close box.
  void reject() override { btnCancel_Click(); }

 private:
  void BuildControls();
  void LayOut();
  void Connect();

  void Form_Load();
  void btnOK_Click();
  void btnCancel_Click();

  LeagueSession& session_;
  int group_;

  QRadioButton* radPrinter = nullptr;
  QRadioButton* radFile = nullptr;
  QLabel* lblFile = nullptr;
  QPushButton* btnOK = nullptr;
  QPushButton* btnCancel = nullptr;
};

/// The export file of the group in the current folder; UTF-8.
std::string ExportPath(int group);

}  // namespace rostermill
