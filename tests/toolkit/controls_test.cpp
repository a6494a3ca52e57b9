#include <QApplication>
#include <QImage>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include "tests/support/sample.h"
#include "tests/support/typing.h"
#include "toolkit/click_label.h"
#include "toolkit/color_box.h"
#include "toolkit/copy_text.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/elided_button.h"
#include "toolkit/elided_label.h"
#include "toolkit/flex_grid.h"
#include "toolkit/form.h"
#include "toolkit/form_parts.h"
#include "toolkit/grid_walk.h"
#include "toolkit/picture_box.h"
#include "toolkit/picture_cache.h"

namespace rostermill::test {
namespace {

TEST(DropDownList, ClickFollowsRealChangesOfTheSelectionOnly) {
  DropDownList list("list", ListOrder::Sorted);
  int clicks = 0;
  QObject::connect(&list, &DropDownList::Click, [&clicks] { ++clicks; });
  list.AddItem("b");
  list.AddItem("a");
  EXPECT_EQ(list.ListIndex(), -1) << "adding selects nothing";
  EXPECT_EQ(list.focusPolicy(), Qt::StrongFocus) << "the wheel gives no focus";
  for (int time = 0; time < 2; ++time) list.SetListIndex(1);
  list.AddItem("0");  // moves the selected entry down
  EXPECT_EQ(list.Text(), "b");
  list.SetList(2, "z");
  EXPECT_EQ(list.Text(), "z");
  list.Clear();
  EXPECT_EQ(clicks, 1);
  list.AddItem("b");
  list.SetListIndex(0);
  EXPECT_EQ(clicks, 2) << "after clearing, entry 0 is a change again";
}

TEST(DropDownList, SortsWithoutRegardToAsciiCaseAndKeepsEqualsInOrder) {
  DropDownList list("list", ListOrder::Sorted);
  for (const char* text : {"beta", "Zoo", "Alpha", "ALPHA", "alphabet", "", "yak", "Beta"}) {
    list.AddItem(text);
  }
  QStringList order;
  for (int index = 0; index < list.ListCount(); ++index) order << list.List(index);
  EXPECT_EQ(order, QStringList({"", "Alpha", "ALPHA", "alphabet", "beta", "Beta", "yak", "Zoo"}));
}

TEST(DropDownList, AnEntryThatDoesNotFitKeepsItsEnd) {
  DropDownList list("list");
  std::vector<QImage> shown;
  for (const char end : {'A', 'B'}) {
    list.AddItem(QString(60, 'm') + end);
    list.SetListIndex(list.ListCount() - 1);
    list.resize(120, list.sizeHint().height());
    shown.push_back(list.grab().toImage());
  }
  EXPECT_NE(shown[0], shown[1]);
  list.AskForRoom(31);
  const QFontMetrics metrics = list.fontMetrics();
  EXPECT_GE(list.minimumContentsLength() * metrics.horizontalAdvance('X'),
            metrics.horizontalAdvance(QString(31, 'W')));
}

TEST(PictureBox, PaintsThePixelsOfTheLastFileThatCouldBeLoadedMagnified) {
  const QString file = QString::fromStdString(BinFolder() + "faces/17.bmp");
  const QImage picture = QImage(file).convertToFormat(QImage::Format_RGB32);
  for (const int magnification : {1, 3}) {
    PictureBox box("box", picture.size(), magnification);
    ASSERT_TRUE(box.Load(file));
    box.resize(box.sizeHint());
    const QImage painted = box.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const int frame = box.frameWidth();
    EXPECT_EQ(painted.copy(frame, frame, painted.width() - 2 * frame, painted.height() - 2 * frame),
              picture.scaled(picture.size() * magnification));
    EXPECT_FALSE(box.Load(QString::fromStdString(BinFolder()))) << "a folder";
    EXPECT_EQ(box.grab().toImage().convertToFormat(QImage::Format_RGB32), painted);
    box.ClearPicture();
    EXPECT_NE(box.grab().toImage().pixel(frame + 5, frame + 5),
              painted.pixel(frame + 5, frame + 5));
  }
}

TEST(PictureBox, AnotherSizeIsCenteredOrShrunkIntoItsPlace) {
  for (const auto& [side, ink] : {std::pair(2, QRect(3, 3, 2, 2)), {20, QRect(0, 0, 8, 8)}}) {
    PictureBox box("box", QSize(8, 8));
    QImage picture(side, side, QImage::Format_RGB32);
    picture.fill(Qt::red);
    box.SetPicture(picture);
    box.resize(box.sizeHint());
    const QImage shown = box.grab(box.contentsRect()).toImage();
    QRect red;
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) {
        if (shown.pixelColor(x, y) == QColor(Qt::red)) red |= QRect(x, y, 1, 1);
      }
    }
    EXPECT_EQ(red, ink);
  }
}

TEST(ClickLabel, IsPressedByTheLeftButtonReleasedInside) {
  ClickLabel label("heading");
  label.resize(60, 20);
  QString pressed;
  QObject::connect(&label, &ClickLabel::Click, [&] { pressed += "click "; });
  QObject::connect(&label, &ClickLabel::DblClick, [&] { pressed += "double "; });
  QTest::mouseClick(&label, Qt::RightButton);
  QTest::mouseDClick(&label, Qt::RightButton);
  QTest::mouseRelease(&label, Qt::LeftButton, {}, QPoint(70, 10));
  EXPECT_EQ(pressed, "");
  QTest::mousePress(&label, Qt::LeftButton);
  EXPECT_EQ(pressed, "") << "a press can still be taken back";
  QTest::mouseRelease(&label, Qt::LeftButton, {}, QPoint(59, 19));
  QTest::mouseDClick(&label, Qt::LeftButton);
  QTest::keyClick(&label, Qt::Key_Space);
  EXPECT_EQ(pressed, "click double click ");
  Hold(label, Qt::Key_A);
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&label, &repeated);
  EXPECT_EQ(pressed, "click double click ");
}

TEST(ColorIcon, HasARimAllAround) {
  const QImage icon = ColorIcon(QColor(Qt::red), 9, 1).pixmap(ColorIconSize(9)).toImage();
  for (int place = 0; place < 9; ++place) {
    for (const QPoint at : {QPoint(place, 0), {place, 8}, {0, place}, {8, place}}) {
      EXPECT_EQ(icon.pixelColor(at), QColor(0x80, 0x80, 0x80)) << at.x() << "," << at.y();
    }
  }
  EXPECT_EQ(icon.pixelColor(7, 7), QColor(Qt::red));
}

TEST(PictureBox, IsPressedByMouseAndKeyboardOncePerPressAndOnlyWhenClickable) {
  PictureBox box("box", QSize(8, 8));
  int clicks = 0;
  QList<Qt::MouseButtons> down;
  QObject::connect(&box, &PictureBox::Click, [&] { ++clicks; });
  QObject::connect(&box, &PictureBox::MouseDown,
                   [&](Qt::MouseButtons buttons) { down << buttons; });
  QTest::mouseClick(&box, Qt::LeftButton);
  QTest::keyClick(&box, Qt::Key_Space);
  EXPECT_EQ(clicks + down.size(), 0);
  box.SetClickable("Photo");
  EXPECT_EQ(box.accessibleName(), "Photo");
  QTest::mouseClick(&box, Qt::RightButton);
  EXPECT_EQ(clicks, 0);
  QTest::mouseClick(&box, Qt::LeftButton);
  QTest::keyClick(&box, Qt::Key_Space);
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(clicks, 3);
  EXPECT_EQ(down, QList<Qt::MouseButtons>(
                      {Qt::RightButton, Qt::LeftButton, Qt::LeftButton, Qt::LeftButton}));
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&box, &repeated);
  EXPECT_EQ(clicks, 3);
  EXPECT_TRUE(repeated.isAccepted()) << "it must not press the form's default button either";
}

TEST(FlexGrid, ItsFixedColumnCoversTheFirstOneAndScrollsWithIt) {
  FlexGrid grid("grid", 30, 3);
  grid.show();
  EXPECT_EQ(grid.actions().constLast()->shortcut(), QKeySequence(QKeySequence::SelectAll));
  const auto& fixed = *grid.findChild<QTableView*>();
  for (const int height : {100, 300}) {
    grid.SetColWidth(0, height * 10);
    EXPECT_EQ(fixed.width(), grid.columnWidth(0));
    EXPECT_EQ(fixed.columnWidth(0), grid.columnWidth(0));
    grid.resize(150, height);
    EXPECT_EQ(fixed.geometry(), QRect(0, 0, grid.columnWidth(0), grid.viewport()->height()));
  }
  grid.verticalScrollBar()->setValue(7);
  EXPECT_EQ(grid.rowViewportPosition(0), -7) << "pixels, not rows";
  EXPECT_EQ(fixed.rowViewportPosition(0), -7);
  grid.SetColWidth(0, 960);
  for (const int column : {2, 1}) {
    grid.setCurrentCell(0, column);
    EXPECT_GE(grid.visualRect(grid.currentIndex()).left(), grid.columnWidth(0)) << column;
  }
  QFont large = grid.font();
  large.setPointSizeF(30);
  grid.setFont(large);
  EXPECT_GE(grid.rowHeight(0), grid.fontMetrics().height());
  EXPECT_EQ(fixed.rowHeight(0), grid.rowHeight(0));
}

TEST(FlexGrid, OpensWithAsManyColumnsAsFitIntoItsWidthAndGrowsWithItsTexts) {
  FlexGrid grid("grid", 3, 12);
  const int bar = grid.verticalScrollBar()->sizeHint().width();
  const int width = grid.columnWidth(0);
  EXPECT_EQ(grid.sizeHint().width(), 8 * width + bar);
  EXPECT_GT(grid.sizeHint().height(), 3 * grid.rowHeight(0));
  grid.SetTextMatrix(0, 1, QString(200, 'W'));
  grid.SetTextMatrix(1, 2, "x");
  for (const int column : {1, 2, 3}) grid.WidenToText(column);
  EXPECT_GE(grid.columnWidth(1), 2 * width);
  EXPECT_LT(grid.columnWidth(1), 4 * width) << "a damaged text doesn't fill the window";
  EXPECT_EQ(grid.columnWidth(2), width);
  grid.SetColWidth(0, 144'000);
  EXPECT_EQ(grid.sizeHint().width(), 10 * grid.logicalDpiX()) << "ten inches at most";
}

TEST(ElidedLabel, NeverAsksForRoomForItsWholeText) {
  ElidedLabel label("label");
  label.SetText(QString(60'000, 'W'));
  EXPECT_LT(label.sizeHint().width(), 400);
  EXPECT_EQ(label.text().size(), 60'000);
  label.AskForRoom(40);
  label.setMargin(7);
  EXPECT_GE(label.sizeHint().width() - 2 * 7,
            label.fontMetrics().horizontalAdvance(QString(40, 'W')));
  EXPECT_LT(label.minimumSizeHint().width(), 400);
  const QSize least = label.minimumSizeHint();
  label.setMargin(9);
  EXPECT_EQ(label.minimumSizeHint(), least + QSize(4, 4));
}

TEST(ElidedButton, AnIconTakesNoRoomFromTheText) {
  ElidedButton button("play", QString(20, 'W'));
  const int width = button.sizeHint().width();
  EXPECT_GT(width, button.fontMetrics().horizontalAdvance(QString(20, 'W')));
  QPixmap picture(16, 40);
  picture.fill(Qt::red);
  button.setIcon(picture);
  button.setIconSize(picture.size());
  EXPECT_GE(button.sizeHint().width(), width + 16);
  EXPECT_GE(button.sizeHint().height(), 40);
}

TEST(ElidedButton, ShowsItsCaptionLiterallyAndWhatIsTooLongInTheToolTip) {
  ElidedButton button("Q & A", "Q & A");
  EXPECT_EQ(button.text(), "Q && A");
  EXPECT_EQ(button.toolTip(), "");
  button.SetCaption("Q & A and more");
  EXPECT_EQ(button.toolTip(), "Q & A and more");
  EXPECT_EQ(button.Caption(), "Q & A and more");
  button.resize(button.sizeHint());
  for (const QSize icon : {QSize(), QSize(16, 16)}) {
    QPixmap picture(icon);
    picture.fill(Qt::red);
    button.setIcon(picture);
    button.setIconSize(icon);
    const auto with_end = [&button](const char* end) {
      button.SetCaption(QString(40, 'i') + end);
      return button.grab().toImage();
    };
    EXPECT_EQ(with_end("A"), with_end("B")) << "the end is cut off";
  }
}

TEST(CopyText, SeparatorsInsideACellBecomeBlanks) {
  EXPECT_EQ(TabSeparatedText({{"a\tb", "c\nd\re"}, {"f"}}), "a b\tc d e\nf\n");
}

TEST(PlainToolTip, ShowsMarkupLiterallyAndCutsALongText) {
  EXPECT_EQ(PlainToolTip("plain & simple"), "plain & simple");
  EXPECT_EQ(PlainToolTip("<b>x</b>"), "<span style='white-space: pre'>&lt;b&gt;x&lt;/b&gt;</span>");
  EXPECT_EQ(PlainToolTip(QString(5000, 'x')), QString(400, 'x'));
}

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
  WriteFile(path.toStdString(), std::string("BMno picture any more"));
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
      cell->setToolTip("Cell " + QString::number(index));
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
  EXPECT_EQ(QToolTip::text(), "Cell 1") << "as under the mouse";
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
