#include <QGridLayout>
#include <QMap>

#include <algorithm>

#include "tests/desktop/all_forms.h"

namespace rostermill::test {
namespace {

// The table of leaders has no heading over the ranks, and its rows end before the scroll bar.
TEST_F(AllForms, RowsOfAGridReachBothEdgesAndNoTwoItemsShareACell) {
  VisitAll([](QWidget& form) {
    for (const QGridLayout* grid : form.findChildren<QGridLayout*>()) {
      QMap<int, QList<int>> rows;
      int last = 0;
      for (int item = 0; item < grid->count(); ++item) {
        int row = 0, column = 0, height = 0, width = 0;
        grid->getItemPosition(item, &row, &column, &height, &width);
        last = std::max(last, column + width - 1);
        for (int cell = 0; cell < height * width; ++cell) {
          QList<int>& columns = rows[row + cell / width];
          EXPECT_FALSE(columns.contains(column + cell % width)) << "row " << row;
          columns << column + cell % width;
        }
      }
      if (form.objectName() == "ViewLeaders") continue;
      for (const auto& [row, columns] : rows.asKeyValueRange()) {
        EXPECT_TRUE(columns.contains(0) && columns.contains(last)) << "row " << row;
      }
    }
  });
}

}  // namespace
}  // namespace rostermill::test
