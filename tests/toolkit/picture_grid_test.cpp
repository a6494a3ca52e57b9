#include <QTest>
#include <gtest/gtest.h>

#include "tests/support/sample.h"
#include "toolkit/grid_walk.h"
#include "toolkit/picture_box.h"
#include "toolkit/picture_cache.h"

namespace rostermill::test {
namespace {

TEST(PictureCache, DecodesAFileOnceAndAgainOnlyWhenItHasChanged) {
  const TempFolder folder;
  const QString path = QString::fromStdString(folder.Path("face.bmp"));
  EXPECT_TRUE(LoadPicture(path).isNull());
  const auto expect_color = [&path](Qt::GlobalColor color, int width) {
    QImage picture(width, 4, QImage::Format_RGB32);
    picture.fill(color);
    ASSERT_TRUE(picture.save(path));
    EXPECT_EQ(LoadPicture(path).pixelColor(3, 3), QColor(color));
    EXPECT_EQ(LoadPicture(path).cacheKey(), LoadPicture(path).cacheKey());
  };
  expect_color(Qt::red, 4);
  expect_color(Qt::blue, 5);
  WriteFile(path.toStdString(), std::string("no picture any more"));
  EXPECT_TRUE(LoadPicture(path).isNull());
  std::filesystem::remove(path.toStdString());
  EXPECT_TRUE(LoadPicture(path).isNull());
}

/// Five cells in rows of three and a field on either side.
class Grid : public testing::Test {
 protected:
  Grid() {
    auto* row = new QHBoxLayout(&window_);
    row->addWidget(&before_);
    std::vector<QWidget*> cells;
    for (int index = 0; index < 5; ++index) {
      auto* cell = new PictureBox(QString::number(index), QSize(4, 4));
      cell->SetClickable("Cell");
      row->addWidget(cell);
      cells.push_back(cell);
    }
    row->addWidget(&after_);
    walk_ = new GridWalk(cells, 3, &window_);
    before_.setObjectName("before");
    after_.setObjectName("after");
    window_.show();
    QApplication::setActiveWindow(&window_);
    before_.setFocus();
  }
  /// The name of the control that has the focus after these keys.
  QString After(std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) QTest::keyClick(QApplication::focusWidget(), key);
    return QApplication::focusWidget()->objectName();
  }

  QWidget window_;
  GridWalk* walk_ = nullptr;
  QLineEdit before_;
  QLineEdit after_;
};

TEST_F(Grid, ArrowsWalkItAndTabStopsOnceAtTheCellLastVisited) {
  EXPECT_EQ(After({Qt::Key_Tab}), "0");
  EXPECT_EQ(After({Qt::Key_Left, Qt::Key_Up}), "0");
  EXPECT_EQ(After({Qt::Key_Right}), "1");
  EXPECT_EQ(After({Qt::Key_Down}), "4");
  EXPECT_EQ(After({Qt::Key_Right, Qt::Key_Down}), "4") << "the last row is short";
  EXPECT_EQ(After({Qt::Key_Home}), "3");
  EXPECT_EQ(After({Qt::Key_Up, Qt::Key_End}), "2");
  EXPECT_EQ(After({Qt::Key_Right, Qt::Key_Down}), "2") << "nothing is below";
  EXPECT_EQ(After({Qt::Key_Tab}), "after");
  EXPECT_EQ(After({Qt::Key_Backtab}), "2");
  EXPECT_EQ(After({Qt::Key_Backtab}), "before");
}

TEST_F(Grid, EnterAndADoubleClickOnThePickedCellPressTheButton) {
  QPushButton ok;
  int picked = 0;
  int presses = 0;
  QObject::connect(&ok, &QPushButton::clicked, [&presses] { ++presses; });
  for (PictureBox* cell : window_.findChildren<PictureBox*>()) {
    QObject::connect(cell, &PictureBox::Click,
                     [&picked, cell] { picked = cell->objectName().toInt(); });
  }
  walk_->TakeBy(&ok, [&picked](int cell) { return cell == picked; });
  After({Qt::Key_Tab, Qt::Key_Right, Qt::Key_Return});
  EXPECT_EQ(picked, 1);
  After({Qt::Key_Right, Qt::Key_Space, Qt::Key_Space});
  EXPECT_EQ(picked, 2);
  EXPECT_EQ(presses, 0);
  After({Qt::Key_Enter});
  EXPECT_EQ(presses, 1);
  auto* last = window_.findChild<PictureBox*>("4");
  QTest::mouseClick(last, Qt::LeftButton);
  QTest::mouseDClick(last, Qt::RightButton);
  EXPECT_EQ(presses, 1);
  QTest::mouseDClick(last, Qt::LeftButton);
  EXPECT_EQ(picked, 4);
  EXPECT_EQ(presses, 2);
}

}  // namespace
}  // namespace rostermill::test
