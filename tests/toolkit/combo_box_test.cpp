#include "toolkit/combo_box.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "toolkit/up_down.h"

namespace rostermill::test {
namespace {

class ComboBoxTest : public testing::Test {
 protected:
  ComboBoxTest() {
    auto* row = new QHBoxLayout(&window);
    row->addWidget(box);
    row->addWidget(other);
    for (const char* text : {"POR.", "HAR.", "BAY "}) box->AddItem(text);
    window.connect(box, &ComboBox::Click, &window, [this] { ++clicks; });
    window.connect(box, &ComboBox::LostFocus, &window, [this] { ++losses; });
    window.show();
    QApplication::setActiveWindow(&window);
    box->setFocus();
  }

  QWidget window;
  ComboBox* box = new ComboBox("box", ListOrder::Sorted);
  QLineEdit* other = new QLineEdit;
  int clicks = 0;
  int losses = 0;
};

TEST_F(ComboBoxTest, AnEntryIsSelectedOnlyWhileItsTextShowsAndTypingAddsNone) {
  box->SetListIndex(1);
  EXPECT_EQ(box->Text(), "HAR.");
  QTest::keyClick(box, Qt::Key_Home);
  QTest::keyClicks(box, "ab");
  EXPECT_EQ(box->ListIndex(), -1);
  EXPECT_EQ(box->Text(), "abHAR.");
  EXPECT_EQ(box->lineEdit()->cursorPosition(), 2);
  EXPECT_EQ(clicks, 1);
  box->SetListIndex(1);
  EXPECT_EQ(box->Text(), "HAR.");
  box->SetText({});
  QTest::keyClicks(box, "b");
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(box->Text(), "b");
  EXPECT_EQ(box->ListIndex(), -1);
  EXPECT_EQ(box->ListCount(), 3);
  EXPECT_EQ(clicks, 2);
}

TEST_F(ComboBoxTest, WhatIsTypedOverAnEntryIsFilteredAndUndone) {
  box->SetListIndex(1);
  QApplication::clipboard()->setText(QString::fromUtf8("\u0416"));
  box->lineEdit()->selectAll();
  QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box->Text(), "HAR.");
  EXPECT_EQ(box->ListIndex(), 1);
  QApplication::clipboard()->setText(QString::fromUtf8("b\u0416\na"));
  QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box->Text(), "b a");
  QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box->Text(), "HAR.");
  QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(box->Text(), "b a");
}

TEST_F(ComboBoxTest, KeysAndWheelGoToTheEntryThatTheLettersBegin) {
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp}) {
    box->SetText("p");
    QTest::keyClick(box, key);
    EXPECT_EQ(box->Text(), "POR.");
  }
  EXPECT_EQ(clicks, 4);
  for (const auto modifier : {Qt::AltModifier, Qt::ControlModifier}) {
    box->SetText("p");
    QTest::keyClick(box, Qt::Key_Down, modifier);
    box->hidePopup();
    EXPECT_EQ(box->Text(), "p");
  }
  box->SetListIndex(2);
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(box->Text(), "HAR.") << "from an entry they go to the next one";
  box->SetText("x");
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_EQ(box->Text(), "BAY ") << "letters that begin none start at the top";
  QWheelEvent turn({}, {}, {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
  box->SetText("p");
  QApplication::sendEvent(box, &turn);
  EXPECT_EQ(box->Text(), "POR.");
  box->SetText("h");
  other->setFocus();
  QApplication::sendEvent(box, &turn);
  EXPECT_EQ(box->Text(), "h") << "without the focus the wheel leaves it alone";
  box->showPopup();
  EXPECT_EQ(box->view()->currentIndex().row(), 1);
  box->hidePopup();
  EXPECT_EQ(box->Text(), "h");
}

TEST_F(ComboBoxTest, EnterAndEscAreLeftToTheForm) {
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(box, &press);
    EXPECT_FALSE(press.isAccepted()) << key;
  }
}

TEST_F(ComboBoxTest, OnlyAnotherControlTakesTheFocus) {
  box->showPopup();
  box->hidePopup();
  for (const auto reason :
       {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent leaves(QEvent::FocusOut, reason);
    QApplication::sendEvent(box, &leaves);
  }
  EXPECT_EQ(losses, 0) << "the focus comes back from there";
  QTest::keyClick(box, Qt::Key_Tab);
  EXPECT_TRUE(other->hasFocus());
  EXPECT_EQ(losses, 1);
}

TEST_F(ComboBoxTest, StepButtonsAndArrowKeysStepAndTakeTheFocus) {
  auto* steps = new UpDown("steps");
  window.layout()->addWidget(steps);
  QCoreApplication::processEvents();
  QString stepped;
  window.connect(steps, &UpDown::UpClick, &window, [&] { stepped += '+'; });
  window.connect(steps, &UpDown::DownClick, &window, [&] { stepped += '-'; });
  auto* up = steps->findChild<QWidget*>("Up");
  auto* down = steps->findChild<QWidget*>("Down");
  EXPECT_LT(up->geometry().bottom(), down->geometry().top());
  EXPECT_GT(up->width(), up->height());
  QTest::mouseClick(up, Qt::LeftButton);
  EXPECT_TRUE(steps->hasFocus());
  QTest::mouseClick(down, Qt::LeftButton);
  QTest::keyClick(steps, Qt::Key_Up);
  QTest::keyClick(steps, Qt::Key_Down);
  EXPECT_EQ(stepped, "+-+-");
}

}  // namespace
}  // namespace rostermill::test
