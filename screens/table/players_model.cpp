#include "screens/table/players_model.h"

#include <QPixmap>
#include <QPixmapCache>

#include <algorithm>
#include <variant>

#include "league/league_tables.h"
#include "rules/display_text.h"
#include "rules/face_paths.h"
#include "toolkit/form_parts.h"
#include "toolkit/picture_cache.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int photo_size = 24;

std::vector<const Column*> ListColumns() {
  using enum ColumnKind;
  std::vector<const Column*> columns;
  const auto add = [&columns](const auto& accepts) {
    for (const Column& column : PlayerColumns) {
      if (accepts(column)) columns.push_back(&column);
    }
  };
  for (const ColumnKind kind : {TeamName, Position, FirstName, LastName, Number, Face}) {
    add([kind](const Column& column) { return column.Kind == kind; });
  }
  // The player screens show the running speed first.
  constexpr int running_speed = 1;
  add([](const Column& c) { return c.Kind == Rating && !c.Group && c.Place == running_speed; });
  add([](const Column& c) { return c.Kind == Rating && (c.Group || c.Place != running_speed); });
  add([](const Column& c) { return c.Kind == KickReturner || c.Kind == PuntReturner; });
  return columns;
}

QPixmap Photo(const LeagueSession& session, PlayerPlace player) {
  const QString path =
      FromUtf8(FacePath(session.AppDir, FaceOf(session.League(), player.Team, player.Slot)));
  QPixmap pixmap;
  if (QPixmapCache::find("small " + path, &pixmap)) return pixmap;
  const QImage picture = LoadPicture(path);
  if (picture.isNull()) return pixmap;
  pixmap = QPixmap::fromImage(picture.scaled(photo_size, photo_size, Qt::KeepAspectRatio));
  QPixmapCache::insert("small " + path, pixmap);
  return pixmap;
}

bool IsNumeric(const Column& column) {
  return column.Kind == ColumnKind::Rating || column.Kind == ColumnKind::Number ||
         column.Kind == ColumnKind::Face;
}

}  // namespace

PlayersModel::PlayersModel(LeagueSession& session) : session_(session) {
  FillRows();
}

const std::vector<const Column*>& PlayersModel::Columns() {
  static const std::vector<const Column*> columns = ListColumns();
  return columns;
}

int PlayersModel::RowOf(PlayerPlace player) const {
  const auto found = std::ranges::find(rows_, player);
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

void PlayersModel::FillRows() {
  rows_.clear();
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      if (filter_.Accepts(session_.League(), {team, slot})) rows_.push_back({team, slot});
    }
  }
}

void PlayersModel::Sort() {
  // Numbers before texts, and what a player doesn't have last.
  using Value = std::variant<int, std::string, std::monostate>;
  const auto value_of = [this](PlayerPlace player, const Column& column) -> Value {
    if (!HasColumn(column, player.Slot)) return std::monostate();
    const std::string text = PlayerCell(session_.League(), player.Team, player.Slot, column);
    if (!IsNumeric(column)) return LowerText(text);
    return NumberIn(text, 999).value_or(-1);
  };
  for (auto key = keys_.rbegin(); key != keys_.rend(); ++key) {
    const Column& column = *Columns()[at(key->Column)];
    std::vector<std::pair<Value, PlayerPlace>> sorted;
    sorted.reserve(rows_.size());
    for (const PlayerPlace player : rows_) sorted.emplace_back(value_of(player, column), player);
    std::ranges::stable_sort(sorted, [&](const auto& a, const auto& b) {
      const bool up = key->Order == Qt::AscendingOrder || a.first.index() != b.first.index();
      return up ? a.first < b.first : b.first < a.first;
    });
    std::ranges::transform(sorted, rows_.begin(), [](const auto& entry) { return entry.second; });
  }
}

void PlayersModel::SetFilter(PlayerFilter filter) {
  beginResetModel();
  filter_ = std::move(filter);
  FillRows();
  Sort();
  endResetModel();
}

void PlayersModel::SortBy(int column, Qt::SortOrder order, bool also) {
  if (!also) keys_.clear();
  std::erase_if(keys_, [column](const SortKey& key) { return key.Column == column; });
  keys_.push_back({column, order});
  beginResetModel();
  FillRows();
  Sort();
  endResetModel();
}

void PlayersModel::Refresh() {
  const std::vector<PlayerPlace> before = rows_;
  FillRows();
  if (std::ranges::is_permutation(before, rows_)) {
    rows_ = before;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    return;
  }
  beginResetModel();
  Sort();
  endResetModel();
}

QStringList PlayersModel::Store(const std::vector<CellEdit>& cells, const QString& description) {
  LeagueData changed = session_.League();
  QStringList problems;
  for (const std::string& problem : StoreCells(cells, true, changed)) problems << FromUtf8(problem);
  if (!problems.isEmpty()) return problems;
  session_.Change(ToLatin1(description), [&](LeagueData& league) { league = std::move(changed); });
  emit Edited();
  return {};
}

int PlayersModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PlayersModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(Columns().size());
}

QString PlayersModel::CellText(PlayerPlace player, const Column& column) const {
  const QString text = FromUtf8(PlayerCell(session_.League(), player.Team, player.Slot, column));
  // Few have a duty, and a column of "no" hides them.
  const bool duty =
      column.Kind == ColumnKind::KickReturner || column.Kind == ColumnKind::PuntReturner;
  return duty && text == "no" ? QString() : text;
}

QVariant PlayersModel::data(const QModelIndex& index, int role) const {
  const PlayerPlace player = PlayerAt(index.row());
  const Column& column = *Columns()[at(index.column())];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return CellText(player, column);
    case Qt::DecorationRole:
      return column.Kind == ColumnKind::Face ? QVariant(Photo(session_, player)) : QVariant();
    case Qt::TextAlignmentRole:
      return QVariant((IsNumeric(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case ShareRole:
      if (!IsRating(index.column()) || !HasColumn(column, player.Slot)) return {};
      return RatingValues[PlaceCode(session_.League(), player.Team, player.Slot, column.Place)] /
             static_cast<double>(RatingValues[RatingValues.last]);
    default:
      return {};
  }
}

QVariant PlayersModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return {};
  const Column& column = *Columns()[at(section)];
  if (role == Qt::DisplayRole) return FromUtf8(ShortHeading(column));
  if (role == Qt::ToolTipRole) return FromUtf8(column.Heading);
  return {};
}

Qt::ItemFlags PlayersModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!index.isValid()) return flags;
  const Column& column = *Columns()[at(index.column())];
  const bool fixed = column.Kind == ColumnKind::TeamName || column.Kind == ColumnKind::Position;
  if (!fixed && HasColumn(column, PlayerAt(index.row()).Slot)) flags |= Qt::ItemIsEditable;
  return flags;
}

bool PlayersModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid()) return false;
  const PlayerPlace player = PlayerAt(index.row());
  const Column& column = *Columns()[at(index.column())];
  const QString text = value.toString();
  // An empty cell would change nothing.
  if (text == CellText(player, column)) return false;
  const QString title =
      FromLatin1(PlayerEditText(session_.League(), player.Team, player.Slot)).trimmed();
  const QStringList problems = Store({{player, &column, ToUtf8(text)}},
                                     QString("Edit %1: %2").arg(FromUtf8(column.Heading), title));
  if (!problems.isEmpty()) {
    emit Told(problems.join("; "));
    return false;
  }
  const QString stored = CellText(player, column);
  if (IsRating(index.column()) && stored != text.trimmed()) {
    emit Told(QString("There is no rating of %1; the nearest is %2").arg(text.trimmed(), stored));
  }
  return true;
}

}  // namespace rostermill
