#pragma once

#include <QAbstractTableModel>

#include <vector>

#include "exchange/player_cells.h"
#include "exchange/player_filter.h"
#include "league/league_session.h"

namespace rostermill {

/// The players that a filter accepts, a row each, in an order that headings decide. The league
/// itself is the data; Refresh follows its changes. An edit is one step of the session.
class PlayersModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit PlayersModel(LeagueSession& session);

  /// A rating as a part of the largest, 0 to 1; invalid in other columns.
  static constexpr int ShareRole = Qt::UserRole;

  /// The columns from left to right.
  static const std::vector<const Column*>& Columns();
  static bool IsRating(int column) { return Columns()[at(column)]->Kind == ColumnKind::Rating; }

  PlayerPlace PlayerAt(int row) const { return rows_[at(row)]; }
  /// -1 for a player whom the filter hides.
  int RowOf(PlayerPlace player) const;

  void SetFilter(PlayerFilter filter);
  /// Sorts by a column; with `also`, within equal values of the columns before.
  void SortBy(int column, Qt::SortOrder order, bool also);
  /// Shows the league as it is now: the rows keep their order, and those that the filter no longer
  /// accepts go.
  void Refresh();

  /// Stores cells as one step. Returns why not, in which case nothing is changed.
  QStringList Store(const std::vector<CellEdit>& cells, const QString& description);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  /// Something about an edit that the user should know.
  void Told(const QString& text);
  /// An edit has changed the league.
  void Edited();

 private:
  struct SortKey {
    int Column = 0;
    Qt::SortOrder Order = Qt::AscendingOrder;
  };

  static std::size_t at(int index) { return static_cast<std::size_t>(index); }
  QString CellText(PlayerPlace player, const Column& column) const;
  void FillRows();
  void Sort();

  LeagueSession& session_;
  PlayerFilter filter_;
  std::vector<PlayerPlace> rows_;
  std::vector<SortKey> keys_;
};

}  // namespace rostermill
