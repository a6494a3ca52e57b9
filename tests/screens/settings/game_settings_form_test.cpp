#include "screens/settings/game_settings_form.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/support/dialogs.h"
#include "tests/support/sample.h"
#include "tests/support/typing.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {

namespace {

class GameSettingsFormTest : public testing::Test {
 protected:
  GameSettingsFormTest() {
    SetTexts("1991", "XFL", "N  ", "\x41\xC9 ");
    area.resize(600, 500);
    area.show();
    Open();
  }

  void Open() {
    area.OpenOrRaise(form, [this] { return new frmEditGameSettings(session); });
  }
  void SetTexts(const std::string& year, const std::string& a, const std::string& b,
                const std::string& c) {
    LeagueOf(session).RosterYear = year;
    LeagueOf(session).LeagueText[1] = a;
    LeagueOf(session).LeagueText[2] = b;
    LeagueOf(session).LeagueText[3] = c;
  }
  std::string Texts() const {
    const auto& texts = LeagueOf(session).LeagueText;
    return LeagueOf(session).RosterYear.str() + "|" + texts[1].str() + "|" + texts[2].str() + "|" +
           texts[3].str();
  }
  TextBox& Box(const QString& name) { return Find<TextBox>(*form, name); }
  void Replace(const QString& box, const QString& text) {
    Box(box).selectAll();
    QTest::keyClick(&Box(box), Qt::Key_Delete);
    QTest::keyClicks(&Box(box), text);
  }
  void Press(const QString& button) {
    Find<QPushButton>(*form, button).click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  LeagueSession session;
  ChildArea area;
  QPointer<frmEditGameSettings> form;
};

// Would catch boxes that are swapped, trimmed, or take more than their text has room for.
TEST_F(GameSettingsFormTest, ShowsTheStoredTextsAndStoresWhatIsTyped) {
  EXPECT_EQ(ToLatin1(Box("txtRosterYear").Text()), "1991");
  EXPECT_EQ(ToLatin1(Box("txtLeague(0)").Text()), "XFL");
  EXPECT_EQ(ToLatin1(Box("txtLeague(1)").Text()), "N  ");
  EXPECT_EQ(ToLatin1(Box("txtLeague(2)").Text()), "A\xC9 ");
  Replace("txtRosterYear", "20X45");
  Replace("txtLeague(0)", "abcd");
  Replace("txtLeague(1)", "<&>");
  Replace("txtLeague(2)", "zz");
  EXPECT_EQ(Texts(), "1991|XFL|N  |A\xC9 ") << "stored before OK";
  Press("cmdOK");
  EXPECT_FALSE(form);
  EXPECT_EQ(Texts(), "20X4|abc|<&>|zz ");
}

// Would catch a caret that jumps, and a box that turns a character away.
TEST_F(GameSettingsFormTest, TextsAreEditedWhereTheCaretStandsAndRefuseNoCharacter) {
  for (const char* name : {"txtRosterYear", "txtLeague(0)", "txtLeague(1)", "txtLeague(2)"}) {
    Replace(name, "z");
    QTest::keyClick(&Box(name), Qt::Key_Home);
    QTest::keyClicks(&Box(name), "xy");
    EXPECT_EQ(Box(name).Text(), "xyz") << name;
    Undo(Box(name));
    EXPECT_EQ(Box(name).Text(), "z") << name;
    Box(name).selectAll();
    Paste(Box(name), "\n\x7f\t");
  }
  Press("cmdOK");
  EXPECT_EQ(Texts(), "\n\x7f\t |\n\x7f\t|\n\x7f\t|\n\x7f\t");
}

// Would catch a text that isn't brought to its fixed length.
TEST_F(GameSettingsFormTest, ShortAndEmptyTextsAreFilledWithBlanks) {
  Replace("txtRosterYear", "92");
  Replace("txtLeague(0)", "");
  Replace("txtLeague(2)", "q");
  QTest::keyClick(&Box("txtLeague(2)"), Qt::Key_Return);
  EXPECT_EQ(Texts(), "92  |   |N  |q  ");
}

// Would catch an exit that stores what was typed, and a form that remembers it.
TEST_F(GameSettingsFormTest, LeavingWithoutOkStoresNothing) {
  const std::function<void()> exits[] = {
      [this] { Press("cmdCancel"); },
      [this] { QTest::keyClick(&Box("txtLeague(1)"), Qt::Key_Escape); },
      [this] { form->parentWidget()->close(); }};
  for (const auto& leave : exits) {
    Replace("txtRosterYear", "7777");
    Replace("txtLeague(1)", "QQQ");
    leave();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(form);
    EXPECT_EQ(Texts(), "1991|XFL|N  |A\xC9 ");
    Open();
    EXPECT_EQ(ToLatin1(Box("txtRosterYear").Text()), "1991");
  }
}

// Would catch a byte that a box or its text code changes on the way through.
TEST_F(GameSettingsFormTest, OpeningAndOkKeepsAnyBytes) {
  Press("cmdCancel");
  for (int byte = 0; byte <= 0xFF; byte += 3) {
    const std::string odd = {static_cast<char>(byte), static_cast<char>(byte + 1),
                             static_cast<char>(byte + 2)};
    SetTexts(odd + " ", odd, " " + odd.substr(0, 2), "  " + odd.substr(2));
    const std::string before = Texts();
    Open();
    Press("cmdOK");
    EXPECT_EQ(Texts(), before) << byte;
  }
}

}  // namespace

}  // namespace rostermill::test
