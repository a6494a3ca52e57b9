#include "screens/table/players_model.h"

#include <QPixmap>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include "league/ratings.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

class PlayersModelTest : public testing::Test {
 protected:
  LeagueData& League() { return LeagueOf(*session_); }
  QModelIndex Cell(int row, const QString& heading) const {
    for (int column = 0; column < model_.columnCount(); ++column) {
      const QString head = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
      if (head == heading) return model_.index(row, column);
    }
    return {};
  }
  QString Text(int row, const QString& heading) const {
    return Cell(row, heading).data(Qt::DisplayRole).toString();
  }
  void SortBy(const QString& heading, Qt::SortOrder order, bool also = false) {
    model_.SortBy(Cell(0, heading).column(), order, also);
  }

  std::unique_ptr<LeagueSession> session_ = SampleSession();
  PlayersModel model_{*session_};
};

TEST_F(PlayersModelTest, SortsNumbersByValueAndMissingOnesLast) {
  League().NameData[28][30].JerseyNumber = "?7";
  League().NameData[1][1].LastName = "aaron";
  SetFace(League(), 2, 1, 3);
  SetFace(League(), 2, 2, 20);
  SortBy("Photo", Qt::AscendingOrder);
  EXPECT_LT(model_.RowOf({2, 1}), model_.RowOf({2, 2}));
  SortBy("Last", Qt::AscendingOrder);
  EXPECT_EQ(model_.RowOf({1, 1}), 0) << "small letters and capitals alike";
  SortBy("No", Qt::AscendingOrder);
  EXPECT_EQ(model_.RowOf({28, 30}), 0) << "no number comes before all numbers";
  EXPECT_EQ(model_.rowCount(), 840);
  for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
    SortBy("KA", order);
    for (int row = 1; row < 56; ++row) {
      const int above = Text(row - 1, "KA").toInt();
      const int below = Text(row, "KA").toInt();
      EXPECT_TRUE(order == Qt::AscendingOrder ? above <= below : above >= below) << row;
    }
    EXPECT_NE(Text(55, "KA"), "");
    EXPECT_EQ(Text(56, "KA"), "");
  }
}

TEST_F(PlayersModelTest, SortsWithinTheColumnsBefore) {
  SortBy("Pos", Qt::DescendingOrder);
  SortBy("RS", Qt::AscendingOrder, true);
  for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
    SortBy("Last", order, true);
    for (int row = 1; row < 840; ++row) {
      ASSERT_GE(Text(row - 1, "Pos"), Text(row, "Pos"));
      if (Text(row - 1, "Pos") != Text(row, "Pos")) continue;
      ASSERT_LE(Text(row - 1, "RS").toInt(), Text(row, "RS").toInt());
      if (Text(row - 1, "RS") != Text(row, "RS")) continue;
      const bool up = Text(row - 1, "Last") <= Text(row, "Last");
      ASSERT_TRUE(Text(row - 1, "Last") == Text(row, "Last") ||
                  up == (order == Qt::AscendingOrder));
    }
  }
  SortBy("RS", Qt::AscendingOrder);
  EXPECT_EQ(Text(0, "RS"), "6") << "alone again";
}

TEST_F(PlayersModelTest, RowsKeepTheirPlacesUntilTheFilterDropsOne) {
  model_.SetFilter(PlayerFilter("qb1"));
  SortBy("RS", Qt::DescendingOrder);
  ASSERT_EQ(model_.rowCount(), 28);
  const PlayerPlace first = model_.PlayerAt(0);
  const PlayerPlace second = model_.PlayerAt(1);
  QSignalSpy painted(&model_, &QAbstractItemModel::dataChanged);
  QSignalSpy anew(&model_, &QAbstractItemModel::modelReset);
  League().QBData[first.Team][1].RunningSpeed = 0;
  model_.Refresh();
  EXPECT_EQ(model_.RowOf(first), 0);
  ASSERT_EQ(painted.count(), 1);
  EXPECT_EQ(painted[0][0].toModelIndex(), model_.index(0, 0));
  EXPECT_EQ(painted[0][1].toModelIndex(), model_.index(27, 21));
  EXPECT_EQ(anew.count(), 0);

  model_.SetFilter(PlayerFilter("qb1 rs>6"));
  EXPECT_EQ(model_.RowOf(first), -1);
  EXPECT_EQ(model_.RowOf(second), 0) << "still sorted";
  EXPECT_EQ(anew.count(), 1);
  League().QBData[second.Team][1].RunningSpeed = 0;
  model_.Refresh();
  EXPECT_EQ(model_.RowOf(second), -1);
  EXPECT_EQ(anew.count(), 2);
  for (int row = 1; row < model_.rowCount(); ++row) {
    EXPECT_GE(Text(row - 1, "RS").toInt(), Text(row, "RS").toInt());
  }
}

TEST_F(PlayersModelTest, CellsSayWhatTheyHoldAndHowTheyAreShown) {
  League().QBData[1][1].RunningSpeed = 15;
  League().QBData[1][1].RushingPower = 0;
  QString at_right, with_picture, with_share, editable;
  for (int column = 0; column < model_.columnCount(); ++column) {
    const QModelIndex cell = model_.index(0, column);
    const QString head = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int alignment = cell.data(Qt::TextAlignmentRole).toInt();
    EXPECT_TRUE(alignment & Qt::AlignVCenter);
    if (alignment & Qt::AlignRight) at_right += head + ' ';
    if (cell.data(Qt::DecorationRole).isValid()) with_picture += head + ' ';
    if (cell.data(PlayersModel::ShareRole).isValid()) with_share += head + ' ';
    if (cell.flags().testFlag(Qt::ItemIsEditable)) editable += head + ' ';
    EXPECT_EQ(cell.data(Qt::EditRole), cell.data(Qt::DisplayRole));
    EXPECT_FALSE(cell.data(Qt::ToolTipRole).isValid());
  }
  EXPECT_EQ(at_right, "No Photo RS RP MS HP PS PC PA APB BC R PI Q KA AKB ");
  EXPECT_EQ(with_picture, "Photo ");
  EXPECT_EQ(with_share, "RS RP MS HP PS PC PA APB ");
  EXPECT_EQ(editable, "First Last No Photo RS RP MS HP PS PC PA APB ");
  EXPECT_EQ(Cell(0, "RS").data(PlayersModel::ShareRole), 1.0);
  EXPECT_EQ(Cell(0, "RP").data(PlayersModel::ShareRole), 0.06);
  const auto photo = [this](int row) {
    return Cell(row, "Photo").data(Qt::DecorationRole).value<QPixmap>();
  };
  EXPECT_EQ(photo(0).size(), QSize(24, 24));
  EXPECT_EQ(photo(0).cacheKey(), photo(0).cacheKey()) << "made once";
  SetFace(League(), 1, 2, FaceOf(League(), 1, 1) + 1);
  EXPECT_NE(photo(0).toImage(), photo(1).toImage());
  EXPECT_FALSE(model_.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
  EXPECT_FALSE(model_.setData(Cell(0, "First"), "jon", Qt::DisplayRole));
}

}  // namespace
}  // namespace rostermill::test
