#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <memory>

#include "bench/form_costs.h"
#include "screens/table/all_players_form.h"
#include "screens/table/players_model.h"
#include "tools/driver/driver.h"

namespace rostermill::bench {

namespace {

/// A table of this size with nothing in it.
class EmptyModel : public QAbstractTableModel {
 public:
  int rowCount(const QModelIndex&) const override { return TeamCount * SlotCount; }
  int columnCount(const QModelIndex&) const override {
    return static_cast<int>(PlayersModel::Columns().size());
  }
  QVariant data(const QModelIndex&, int) const override { return {}; }
};

/// The table of all players against one of an empty model, and a letter typed against a repaint.
void CompareAllPlayers(ChildArea& area, LeagueSession& session, QSettings& settings) {
  const auto make = [&] { return new frmAllPlayers(session, settings); };
  EmptyModel model;
  const QSize size = std::unique_ptr<frmAllPlayers>(make())->sizeHint();
  const auto make_empty = [&] {
    auto* form = new ChildForm("Twin", "All Players");
    auto* column = new QVBoxLayout(form);
    auto* grid = new QTableView;
    grid->setModel(&model);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(26);
    column->addWidget(new QLineEdit);
    column->addWidget(grid, 1);
    column->addWidget(new QLabel("840 of 840 players"));
    auto* buttons = new QHBoxLayout;
    for (const char* text : {"OK", "Set Ratings...", "Show"}) {
      buttons->addWidget(new QPushButton(text));
    }
    column->addLayout(buttons);
    grid->setMinimumSize(size - QSize(40, 120));
    return form;
  };
  Compare(
      {"form frmAllPlayers, against an empty model", 1.3, form_pairs},
      [&] { return CostOfOpening(area, make); }, [&] { return CostOfOpening(area, make_empty); });
  frmAllPlayers* players = make();
  Open(area, players);
  auto& find = driver::Find<QLineEdit>(*players, "txtFind");
  CompareStep("a letter typed to find players", *players,
              [&] { find.setText(find.text().size() < 3 ? find.text() + "a" : QString()); });
  Close(players);
}

/// What the table costs with all players, against those of the first team.
void CompareRows(LeagueSession& session) {
  PlayersModel all(session), few(session);
  const TeamRec& first = session.League().TeamData[1];
  few.SetFilter(PlayerFilter(first.City + " " + first.Nickname));
  const std::string what = " of 840 rows, against " + std::to_string(few.rowCount());
  constexpr int last_name = 3;
  const auto sort = [](PlayersModel& model) {
    return Milliseconds([&] { model.SortBy(last_name, Qt::AscendingOrder, false); });
  };
  const auto refresh = [](PlayersModel& model) { return Milliseconds([&] { model.Refresh(); }); };
  Compare(
      {"sort" + what, 0, form_pairs}, [&] { return sort(all); }, [&] { return sort(few); });
  Compare(
      {"refresh" + what, 0, form_pairs}, [&] { return refresh(all); },
      [&] { return refresh(few); });
}

}  // namespace

void CompareTable(ChildArea& area, LeagueSession& session, QSettings& settings) {
  CompareAllPlayers(area, session, settings);
  CompareRows(session);
}

}  // namespace rostermill::bench
