#include "toolkit/messages.h"

#include <QInputDialog>
#include <gtest/gtest.h>

#include "tests/support/dialogs.h"

namespace rostermill::test {
namespace {

TEST(Messages, ShowTheirTextsLiterallyAndPresetAButton) {
  QStringList shown;
  const auto look = [&shown](QDialog& dialog) {
    const auto& box = dynamic_cast<QMessageBox&>(dialog);
    shown = {box.windowTitle(), box.text(), box.informativeText()};
    shown << QString::number(box.icon()) + ' ' + QString::number(box.textFormat());
    return box.standardButton(qobject_cast<QAbstractButton*>(box.defaultButton()));
  };
  OnNextDialog([&](QDialog& box) {
    EXPECT_EQ(look(box), QMessageBox::Ok);
    box.reject();
  });
  ShowMessageBox(nullptr, QMessageBox::Warning, "<b>text", "Title");
  EXPECT_EQ(shown.join('|'), "Title|<b>text||2 0") << "a warning in plain text";
  for (const auto preset : {QMessageBox::Yes, QMessageBox::No}) {
    OnNextDialog([&](QDialog& box) {
      EXPECT_EQ(look(box), preset);
      ClickButton(box, preset == QMessageBox::Yes ? "Yes" : "No");
    });
    EXPECT_EQ(AskYesNo(nullptr, "Sure?", "Title", preset, "a note"), preset == QMessageBox::Yes);
    EXPECT_EQ(shown.join('|'), "Title|Sure?|a note|4 0") << "a question";
  }
}

TEST(Messages, AskForALine) {
  for (const bool accepted : {true, false}) {
    OnNextDialog([&](QDialog& dialog) {
      auto& box = dynamic_cast<QInputDialog&>(dialog);
      EXPECT_EQ(box.windowTitle() + '|' + box.labelText() + '|' + box.textValue(),
                "Title|Prompt|preset");
      box.setTextValue("typed");
      accepted ? box.accept() : box.reject();
    });
    EXPECT_EQ(AskForLine(nullptr, "Prompt", "Title", "preset"), accepted ? "typed" : "");
  }
}

}  // namespace
}  // namespace rostermill::test
