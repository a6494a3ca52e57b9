#include "toolkit/text_box.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/support/typing.h"

namespace rostermill::test {
namespace {

QString Utf8(const char* text) {
  return QString::fromUtf8(text);
}

void Compose(TextBox& box, const QString& preedit, const QString& commit) {
  QInputMethodEvent event(preedit, {});
  event.setCommitString(commit);
  QApplication::sendEvent(&box, &event);
}

void PasteByMenu(TextBox& box, const QString& text) {
  QApplication::clipboard()->setText(text);
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
  QApplication::sendEvent(&box, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  for (QAction* action : menu->actions()) {
    if (action->text().startsWith("&Paste")) action->trigger();
  }
  menu->close();
}

void Drop(TextBox& box, const QString& text) {
  QMimeData data;
  data.setText(text);
  QDropEvent event(QPointF(2, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  // Not through the application, which knows of no drag.
  static_cast<QObject&>(box).event(&event);
}

TEST(TextBox, TypingStaysAtTheCaretAndCanBeUndone) {
  TextBox box("box", 16);
  box.SetText("Quin Birch");
  QTest::keyClick(&box, Qt::Key_Home);
  QTest::keyClicks(&box, "xy");
  EXPECT_EQ(box.Text(), "xyQuin Birch");
  EXPECT_EQ(box.cursorPosition(), 2);
  Paste(box, "!");
  Undo(box);
  EXPECT_EQ(box.Text(), "xyQuin Birch") << "a paste is one step";
  Undo(box);
  EXPECT_EQ(box.Text(), "Quin Birch");
  EXPECT_FALSE(box.isUndoAvailable());
  Redo(box);
  EXPECT_EQ(box.Text(), "xyQuin Birch");
  box.SetText("Quin Birch");
  EXPECT_FALSE(box.isUndoAvailable()) << "a text set by the program has nothing to undo";
}

TEST(TextBox, LeavesUndoToTheWindowWhileItHasNothingToUndo) {
  TextBox box("box", 16);
  const auto claims = [&box](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers, QString(QChar(key)));
    event.ignore();
    QApplication::sendEvent(&box, &event);
    return event.isAccepted();
  };
  const auto claimed = [&] {
    return QString("%1%2%3")
        .arg(claims(Qt::Key_Z, Qt::ControlModifier) ? "undo " : "")
        .arg(claims(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier) ? "redo " : "")
        .arg(claims(Qt::Key_A, Qt::NoModifier) ? "a" : "");
  };
  EXPECT_EQ(claimed(), "a");
  QTest::keyClicks(&box, "b");
  EXPECT_EQ(claimed(), "undo a");
  Undo(box);
  EXPECT_EQ(claimed(), "redo a");
}

TEST(TextBox, ShiftInsertPastesWhatWasCopied) {
  TextBox box("box", 16);
  QApplication::clipboard()->setText("copied");
  QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(box.Text(), "copied");
}

TEST(TextBox, OfAnEnteredTextOnlyTheCharactersOutsideLatin1AreLost) {
  TextBox box("box", 8);
  QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, Utf8("Ж"), Qt::NoModifier);
  EXPECT_EQ(box.Text(), "");
  Paste(box, Utf8("ЖЖЖЖЖЖ€Zo\u00ff🏈 Ane\u0301"));
  EXPECT_EQ(box.Text(), Utf8("Zoÿ Ané")) << "cut to the box before what is lost is taken out";
  box.setSelection(0, 3);
  QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, Utf8("Ж"), Qt::NoModifier);
  Paste(box, Utf8("Жан"));
  Compose(box, {}, Utf8("Ж"));
  EXPECT_EQ(box.selectedText(), Utf8("Zoÿ")) << "nothing came, and the selection is eaten";
  Compose(box, Utf8("ふ"), {});
  Compose(box, Utf8("ふみ"), {});
  Compose(box, {}, Utf8("文"));
  EXPECT_EQ(box.selectedText(), Utf8("Zoÿ"));
  Compose(box, Utf8("ふ"), {});
  Compose(box, {}, Utf8("Fu文mi"));
  EXPECT_EQ(box.Text(), Utf8("Fumi Ané"));
  box.setSelection(0, 4);
  QTest::keyClick(&box, Qt::Key_Backspace);
  Compose(box, Utf8("ふ"), {});
  Compose(box, {}, {});
  EXPECT_EQ(box.Text(), Utf8(" Ané")) << "what was deleted since stays deleted";
}

TEST(TextBox, EveryWayInBlanksControlCharactersWhereItIsToldSo) {
  const QString entered = QString("\r\nA\r\n\x7f") + QChar(0x9F) + QChar(0xA0) + "\tB\x1f\n";
  const QString blanked = QString("A ") + QChar(0xA0) + " B";
  TextBox box("box", 30);
  using Way = std::function<void()>;
  for (const Way& enter :
       {Way([&] { Paste(box, entered); }), Way([&] { Compose(box, {}, entered); }),
        Way([&] { Drop(box, entered); }), Way([&] { PasteByMenu(box, entered); })}) {
    box.SetText({});
    enter();
    EXPECT_EQ(box.Text(), blanked);
  }
  Drop(box, "  a  b ");
  EXPECT_EQ(box.Text(), "  a  b " + blanked) << "blanks stay";
  box.SetText("a\nb");
  EXPECT_EQ(box.Text(), "a\nb") << "what the program sets stays";

  TextBox keeps("keeps", 30, ControlCharacters::Kept);
  Paste(keeps, entered);
  EXPECT_EQ(keeps.Text(), entered);
}

TEST(TextBox, TakesNoMoreThanItsLengthAndCutsNoTextSetByTheProgram) {
  TextBox box("box", 4);
  QTest::keyClicks(&box, "abcde");
  EXPECT_EQ(box.Text(), "abcd");
  box.SetText("longer text");
  EXPECT_EQ(box.Text(), "longer text");
  QTest::keyClicks(&box, "x");
  EXPECT_EQ(box.Text(), "longer text") << "it can't grow";
  QTest::keyClick(&box, Qt::Key_Backspace);
  Paste(box, "xyz");
  EXPECT_EQ(box.Text(), "longer tex");
  Undo(box);
  EXPECT_EQ(box.Text(), "longer text");
  box.selectAll();
  Paste(box, "a somewhat longer text");
  EXPECT_EQ(box.Text(), "a somewhat ") << "it can be as long as it was";
  box.SetText("ab");
  QTest::keyClicks(&box, "cde");
  EXPECT_EQ(box.Text(), "abcd") << "and the limit is back";
}

}  // namespace
}  // namespace rostermill::test
