#pragma once

#include <QLabel>

#include <functional>
#include <memory>
#include <vector>

#include "league/league_session.h"
#include "rules/leader_rows.h"
#include "toolkit/click_label.h"
#include "toolkit/control_array.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/elided_label.h"
#include "toolkit/form.h"

class QPrinter;
class QScrollBar;

namespace rostermill {

/// "View Leaders": all players of a position group, five at a time, sorted by the headings that
/// are on. The rows are a snapshot taken when the group is chosen; the league is never changed.
class ViewLeaders : public ChildForm {
  Q_OBJECT

 public:
  /// Returns the printer to use, or null and the reason why there is none. Called only to print.
  using PrinterMaker = std::function<std::unique_ptr<QPrinter>(QString& failure)>;

  explicit ViewLeaders(LeagueSession& session);

  /// Prints on this printer instead of the computer's.
  void SetPrinterMaker(PrinterMaker make) { make_printer_ = std::move(make); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildControls();
  void BuildTable();
  void LayOut();
  QWidget* LayOutTable();
  void Connect();

  void Form_Load();
  void cmbPosition_Click();
  void scrBar_Change();
  void lblHead_Click(int Index);
  void btnPrint_Click();
  void btnOK_Click();

  /// Draws the rows from `top` on; rows past the last one are blank.
  void ShowLeaderRows(int top);
  /// Name, team and position of the row's player.
  QString WhoseText(const LeaderRow& row) const;
  void ShowHeadings();
  void ShowSortFlags();
  void PrintToPrinter();
  void ShowPrintFailure(const QString& reason);
  void WriteExportFile();
  void ShowFailure(const QString& text);

  LeagueSession& session_;
  PrinterMaker make_printer_;
  SortFlagTable SortFlags;
  int ColumnCount = 0;
  int RowCount = 0;
  int wheel_turn_ = 0;  ///< wheel movement that has not yet made up a row, in eighths of a degree

  DropDownList* cmbPosition = nullptr;
  ControlArray<ClickLabel> lblHead{"lblHead"};
  std::vector<ControlArray<QLabel>> lblD;  ///< lblD0, the rank, to lblD8
  ControlArray<ElidedLabel> lblName{"lblName"};
  QScrollBar* scrBar = nullptr;
  QPushButton* btnPrint = nullptr;
  QPushButton* btnOK = nullptr;
};

}  // namespace rostermill
