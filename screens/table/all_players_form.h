#pragma once

#include <optional>

#include "exchange/table_text.h"
#include "exchange/units.h"
#include "league/league_session.h"
#include "screens/table/players_model.h"
#include "toolkit/form.h"

class QLabel;
class QLineEdit;
class QSettings;
class QTableView;

namespace rostermill {

/// "All Players": the 840 players in one table, to be found by words and conditions, sorted, edited
/// in place, copied and pasted as a spreadsheet does it, and set many at once.
class frmAllPlayers : public ChildForm {
  Q_OBJECT

 public:
  /// `settings` keeps the order and the choice of the columns, and outlives the form.
  frmAllPlayers(LeagueSession& session, QSettings& settings);

  QSize sizeHint() const override;
  /// Puts the focus into the box for words.
  void GoToFind();
  /// Follows a change of the league.
  void FillList();

 signals:
  /// The user wants to see this player in his own screen.
  void Show(const Unit& unit);
  /// A line for the status bar.
  void Told(const QString& text);
  /// An edit has changed the league.
  void Edited();

 protected:
  /// The keys + and - step ratings, and a rating that is being edited is left to its editor.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildControls();
  void BuildGrid();
  void LayOut();
  void Connect();

  void AddColumnActions();
  void Form_Load();
  void Form_Unload() override;
  void txtFind_Change();
  void grdPlayers_HeadClick(int column);
  void grdPlayers_HeadMenu(QPoint place);
  void grdPlayers_DblClick(const QModelIndex& index);
  void btnSet_Click();
  void btnShow_Click();
  void btnOK_Click();

  /// In the order that the heading shows; with `also`, within the columns before.
  void SortBy(int column, bool also);
  void GoToCell(const QModelIndex& cell);
  void StepRatings(int steps);
  QString CopiedText() const;
  void Paste(const QString& text);
  void TellOfRounded(const std::vector<CellEdit>& edits);
  /// The headings of so many columns on view, from a place in the header on.
  QStringList Headings(int visual, std::size_t count) const;
  /// What the rows change from the first selected cell on, or all selected cells for a single one;
  /// nothing where they reach beyond the table.
  std::optional<std::vector<CellEdit>> PastedCells(const std::vector<TableRow>& rows) const;
  /// The selected cells in the order of the rows and the columns on view.
  QModelIndexList SelectedCells() const;
  std::vector<PlayerPlace> SelectedPlayers() const;
  void ShowCount();

  LeagueSession& session_;
  QSettings& settings_;
  PlayersModel* players_;

  QLineEdit* txtFind = nullptr;
  QLabel* lblCount = nullptr;
  QTableView* grdPlayers = nullptr;
  QPushButton* btnSet = nullptr;
  QPushButton* btnShow = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
