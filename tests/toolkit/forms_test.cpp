#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include "tests/support/dialogs.h"
#include "tests/support/typing.h"
#include "toolkit/form.h"
#include "toolkit/form_parts.h"
#include "toolkit/messages.h"

namespace rostermill::test {
namespace {

class SmallForm : public ChildForm {
 public:
  SmallForm() : ChildForm("SmallForm", "Small") {
    auto* column = new QVBoxLayout(this);
    for (QPushButton* button : {ok, cancel, other, step}) column->addWidget(button);
    SetDefaultButton(ok);
    SetCancelButton(cancel);
  }
  QPushButton* ok = new QPushButton("OK");
  QPushButton* cancel = new QPushButton("Cancel");
  QPushButton* other = new QPushButton("Other");
  QPushButton* step = NewStepButton("+");
  int unloads = 0;

 protected:
  void Form_Unload() override { ++unloads; }
};

class Forms : public testing::Test {
 protected:
  Forms() {
    area_.resize(400, 300);
    area_.show();
    area_.ShowForm(form_);
    for (QPushButton* button : form_->findChildren<QPushButton*>()) {
      QObject::connect(button, &QPushButton::clicked, [=, this] { pressed_ << button->text(); });
    }
  }
  ChildArea area_;
  SmallForm* form_ = new SmallForm;
  QStringList pressed_;
};

TEST_F(Forms, EnterPressesTheFocusedOrElseTheDefaultButton) {
  EXPECT_EQ(form_->focusWidget(), form_->ok) << "the first control has the focus";
  form_->ok->clearFocus();
  area_.ShowForm(form_);
  EXPECT_EQ(form_->focusWidget(), form_->ok) << "and gets it when no other has it";
  form_->setFocus();
  QTest::keyClick(form_, Qt::Key_Return);
  form_->other->setFocus();
  QTest::keyClick(form_->other, Qt::Key_Enter);
  QTest::keyClick(form_->other, Qt::Key_Escape);
  EXPECT_EQ(pressed_, QStringList({"OK", "Other", "Cancel"}));
}

TEST_F(Forms, HeldEnterAndEscPressNothingButAStepButton) {
  for (QPushButton* button : {form_->ok, form_->other, form_->step}) {
    button->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) Hold(*button, key);
  }
  EXPECT_EQ(pressed_, QStringList({"+", "+", "+", "+"}));
}

TEST_F(Forms, HeldEnterAndEscAnswerNoDialog) {
  DialogForm form(nullptr, "form", "Form");
  QPushButton button("OK", &form);
  button.setDefault(true);
  QObject::connect(&button, &QPushButton::clicked, [this] { pressed_ << "in the dialog"; });
  form.show();
  Hold(form, Qt::Key_Return);
  Hold(button, Qt::Key_Return);
  Hold(form, Qt::Key_Escape);
  EXPECT_EQ(pressed_, QStringList());
  EXPECT_TRUE(form.isVisible());
  OnNextDialog([](QDialog& box) {
    Hold(*box.focusWidget(), Qt::Key_Return);
    Hold(box, Qt::Key_Escape);
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(box.objectName(), "MessageBox");
    ClickButton(box, "Yes");
  });
  EXPECT_TRUE(AskYesNo(&form, "Sure?", "Question", QMessageBox::Yes));
}

TEST_F(Forms, AFormClosesOnceHoweverItIsClosedAndOpensAnew) {
  QPointer<SmallForm> slot = form_;
  const auto make = [] { return new SmallForm; };
  EXPECT_EQ(area_.OpenOrRaise(slot, make), form_) << "an open form only comes to the front";
  int unloaded = 0;
  QObject::connect(form_, &ChildForm::Unloaded, [&unloaded] { ++unloaded; });
  form_->CloseForm();
  form_->CloseForm();
  EXPECT_EQ(form_->unloads, 1);
  EXPECT_EQ(unloaded, 1);
  EXPECT_NE(area_.OpenOrRaise(slot, make), form_) << "a closed form is made anew at once";
  slot->parentWidget()->close();
  EXPECT_FALSE(slot->IsOpen());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(slot.isNull());
}

TEST(ChildArea, OpensAFormBesideOrBelowTheOthersWhereThereIsRoom) {
  ChildArea area;
  area.resize(500, 400);
  area.show();
  QList<QRect> places;
  for (int opened = 0; opened < 4; ++opened) {
    auto* form = new SmallForm;
    form->setFixedSize(200, 100);
    area.ShowForm(form);
    QCoreApplication::processEvents();
    places << form->parentWidget()->geometry();
  }
  const QPoint below = places[0].bottomLeft() + QPoint(0, 1);
  const QPoint beside = places[0].topRight() + QPoint(1, 0);
  EXPECT_EQ(places[0].topLeft(), QPoint(0, 0));
  EXPECT_EQ(places[1].topLeft(), beside);
  EXPECT_EQ(places[2].topLeft(), below);
  EXPECT_EQ(places[3].topLeft(), QPoint(beside.x(), below.y()));
}

TEST(ChildArea, OpensAFormInsideOrAtTheCornerAndScrollsToTheRest) {
  for (const QSize least : {QSize(200, 100), QSize(900, 150), QSize(250, 700), QSize(900, 700)}) {
    ChildArea area;
    area.resize(500, 400);
    area.show();
    for (int opened = 0; opened < 3; ++opened) {
      auto* form = new SmallForm;
      form->setMinimumSize(least);
      area.ShowForm(form);
      QCoreApplication::processEvents();
      for (const char* when : {"opened ", "centered "}) {
        const QRect room = area.viewport()->rect();
        const QRect place = form->parentWidget()->geometry();
        EXPECT_TRUE(place.left() == 0 || (place.left() > 0 && place.right() <= room.right()))
            << when << least.width() << ": " << place.left();
        EXPECT_TRUE(place.top() == 0 || (place.top() > 0 && place.bottom() <= room.bottom()))
            << when << least.height() << ": " << place.top();
        area.CenterForm(form);
      }
    }
    EXPECT_EQ(area.horizontalScrollBar()->maximum() > 0, least.width() > 500);
    EXPECT_EQ(area.verticalScrollBar()->maximum() > 0, least.height() > 400);
  }
}

}  // namespace
}  // namespace rostermill::test
