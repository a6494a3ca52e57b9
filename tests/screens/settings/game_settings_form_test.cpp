#include "screens/settings/game_settings_form.h"

#include "tests/screens/screen_fixture.h"
#include "tests/support/typing.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

class GameSettingsFormTest : public ScreenTest {
 protected:
  GameSettingsFormTest() {
    SetTexts("1991", "XFL", "N  ", "\x41\xC9 ");
    area_.resize(600, 500);
    area_.show();
    QApplication::setActiveWindow(&area_);
    Open();
  }

  void Open() {
    area_.OpenOrRaise(form, [this] { return new frmEditGameSettings(*session_); });
  }
  void SetTexts(const std::string& year, const std::string& a, const std::string& b,
                const std::string& c) {
    League().RosterYear = year;
    League().LeagueText[1] = a;
    League().LeagueText[2] = b;
    League().LeagueText[3] = c;
  }
  std::string Texts() const {
    const auto& texts = League().LeagueText;
    return League().RosterYear.str() + "|" + texts[1].str() + "|" + texts[2].str() + "|" +
           texts[3].str();
  }
  std::string Shown() const {
    QStringList texts;
    for (const TextBox* box : form->findChildren<TextBox*>()) texts << box->Text();
    return ToLatin1(texts.join('|'));
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

  QPointer<frmEditGameSettings> form;
};

TEST_F(GameSettingsFormTest, ShowsTheStoredTextsAndStoresWhatIsTypedAtItsFixedLength) {
  EXPECT_EQ(Shown(), "1991|XFL|N  |A\xC9 ");
  EXPECT_EQ(Box("txtRosterYear").selectedText(), "1991");
  Replace("txtRosterYear", "20X45");
  Replace("txtLeague(0)", "abcd");
  Replace("txtLeague(1)", "<&>");
  Replace("txtLeague(2)", "z");
  EXPECT_EQ(Shown(), "20X4|abc|<&>|z");
  EXPECT_EQ(Texts(), "1991|XFL|N  |A\xC9 ") << "stored before OK";
  Press("cmdOK");
  EXPECT_FALSE(form);
  EXPECT_EQ(Texts(), "20X4|abc|<&>|z  ");

  Open();
  Replace("txtRosterYear", "92");
  Replace("txtLeague(0)", "");
  for (const char* name : {"txtLeague(1)", "txtLeague(2)"}) {
    Box(name).selectAll();
    Paste(Box(name), "\n\x7f\t");
  }
  QTest::keyClick(&Box("txtLeague(2)"), Qt::Key_Return);
  EXPECT_EQ(Texts(), "92  |   |\n\x7f\t|\n\x7f\t");
}

TEST_F(GameSettingsFormTest, EscStoresNothingAndOkKeepsAnyBytes) {
  Replace("txtRosterYear", "7777");
  Replace("txtLeague(1)", "QQQ");
  QTest::keyClick(&Box("txtLeague(1)"), Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_FALSE(form);
  Open();
  EXPECT_EQ(Shown(), "1991|XFL|N  |A\xC9 ");

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
