#include <QLabel>
#include <QMdiSubWindow>

#include "rules/display_text.h"
#include "screens/probowl/probowl_form.h"
#include "tests/screens/screen_fixture.h"
#include "toolkit/control_array.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

struct LabelRow {
  const char* Array;
  int Count;
  int FirstPlace;
  int Listed;  ///< players in the chooser, a team
  int BaseSlot;
};

constexpr LabelRow label_rows[] = {
    {"lblQB", 2, 1, 2, 1},   {"lblRB", 4, 3, 10, 3},  {"lblWR", 4, 7, 10, 3},
    {"lblTE", 2, 11, 10, 3}, {"lblOL", 5, 13, 5, 13}, {"lblDL", 3, 18, 3, 18},
    {"lblLB", 4, 21, 4, 21}, {"lblDB", 4, 25, 4, 25}, {"lblK", 2, 29, 2, 29}};

/// The sample league with the small window open and the roster of the first side beside it.
class ProbowlTest : public ScreenTest {
 protected:
  ProbowlTest() {
    area_.resize(1000, 800);
    area_.show();
    area_.OpenOrRaise(form, [this] { return new frmProbowl(*session_); });
    Press(*form, "btnAFCroster");
  }

  static void Press(QWidget& window, const QString& button) {
    Find<QPushButton>(window, button).click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  QList<QWidget*> Rosters() const { return area_.findChildren<QWidget*>("frmRoster"); }
  QWidget& Roster() const { return Find<QWidget>(area_, "frmRoster"); }
  QLabel& Label(const QString& name) const { return Find<QLabel>(Roster(), name); }
  std::string Name(const QString& label) const { return ToUtf8(Label(label).text()); }
  void LeftClick(const QString& label) { QTest::mouseClick(&Label(label), Qt::LeftButton); }
  ProbowlRec& Place(int side, int place) { return League().ProbowlData[side][place]; }
  void SetName(int team, int slot, const std::string& first, const std::string& last) {
    League().NameData[team][slot] = {first, last, "00"};
  }

  QPointer<frmProbowl> form;
};

/// Picks these list entries in the next chooser and leaves by OK.
void PickInNextChooser(int team_index, int player_index) {
  OnNextDialog([=](QDialog& chooser) {
    Find<DropDownList>(chooser, "cmbTeam").SetListIndex(team_index);
    Find<DropDownList>(chooser, "cmbPlayer").SetListIndex(player_index);
    Find<QPushButton>(chooser, "btnOK").click();
  });
}

TEST_F(ProbowlTest, EveryLabelShowsItsPlaceAndFillsItFromItsGroup) {
  for (int place = 1; place <= 30; ++place) {
    SetName(28, place, "place" + std::to_string(place), "OLD");
    Place(2, place) = {28, static_cast<std::int16_t>(place)};
  }
  Press(*form, "btnNFCroster");
  for (const LabelRow& row : label_rows) {
    const int last_slot = row.BaseSlot + row.Listed - 1;
    for (int index = 0; index < row.Count; ++index) {
      const QString label = MemberName(row.Array, index);
      const int place = row.FirstPlace + index;
      EXPECT_EQ(Name(label), "place" + std::to_string(place) + " OLD");
      SetName(16, last_slot, "last", "LISTED");
      auto expected = League().ProbowlData;
      expected[2][place] = {16, static_cast<std::int16_t>(last_slot)};
      OnNextDialog([&](QDialog& chooser) {
        auto& players = Find<DropDownList>(chooser, "cmbPlayer");
        players.SetListIndex(1);
        Find<DropDownList>(chooser, "cmbTeam").SetListIndex(1);
        EXPECT_EQ(players.ListCount(), row.Listed);
        for (int at = 0; at < players.ListCount(); ++at) {
          const std::string player = PlayerFullText(League(), 16, row.BaseSlot + at);
          EXPECT_EQ(players.List(at), FromLatin1(player));
        }
        EXPECT_EQ(players.ListIndex(), 0);
        players.SetListIndex(row.Listed - 1);
        Find<QPushButton>(chooser, "btnOK").click();
      });
      LeftClick(label);
      EXPECT_TRUE(League().ProbowlData == expected) << ToUtf8(label);
      EXPECT_EQ(Name(label), "last LISTED");
    }
  }
}

TEST_F(ProbowlTest, ArrowKeysWalkThePlacesOfAllGroups) {
  EXPECT_EQ(Name("lblSide"), "AFC Roster");
  Press(*form, "btnNFCroster");
  QWidget* at = &Label("lblQB(1)");
  at->setFocus();
  for (const auto& [key, label] : {std::pair(Qt::Key_Down, "lblRB(0)"),
                                   {Qt::Key_Right, "lblOL(0)"},
                                   {Qt::Key_End, "lblLB(2)"},
                                   {Qt::Key_Up, "lblLB(1)"},
                                   {Qt::Key_Left, "lblTE(1)"},
                                   {Qt::Key_Home, "lblQB(1)"}}) {
    QTest::keyClick(at, key);
    at = Roster().focusWidget();
    EXPECT_EQ(at->objectName(), label);
  }
}

TEST_F(ProbowlTest, EnterAndSpaceOpenAPlaceButOtherMouseButtonsDoNot) {
  for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
    OnNextDialog([](QDialog& chooser) { chooser.reject(); });
    QTest::mouseClick(&Label("lblWR(2)"), button);
    QTest::qWait(20);
    EXPECT_EQ(DialogsStillExpected(), 1);
  }
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    Place(1, 13) = {1, 13};
    PickInNextChooser(1, 1);
    QTest::keyClick(&Label("lblOL(0)"), key);
    EXPECT_EQ(Place(1, 13), (ProbowlRec{2, 14})) << key;
  }
}

TEST_F(ProbowlTest, LeavingTheChooserWithoutOkStoresNothingAndRedraws) {
  const auto before = League().ProbowlData;
  session_->ChosenTeam = 7;
  SetName(Place(1, 8).Team, Place(1, 8).Slot, "turn", "NEW");
  OnNextDialog([](QDialog& chooser) { QTest::keyClick(&chooser, Qt::Key_Escape); });
  LeftClick("lblTE(0)");
  EXPECT_TRUE(League().ProbowlData == before);
  EXPECT_EQ(Name("lblWR(1)"), "turn NEW");
  OnNextDialog([](QDialog& chooser) { Find<QPushButton>(chooser, "btnCancel").click(); });
  LeftClick("lblTE(0)");
  EXPECT_TRUE(League().ProbowlData == before);
}

TEST_F(ProbowlTest, APlaceThatNamesNoPlayerSaysSoAndKeepsItsEntry) {
  const ProbowlRec odd[] = {{29, 1}, {1, 31}, {256, 256}, {0, 5}, {5, 0}};
  for (int i = 0; i < 5; ++i) Place(1, 13 + i) = odd[i];
  Press(*form, "btnAFCroster");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(Name(MemberName("lblOL", i)), "(nobody)");
  PickInNextChooser(0, 0);
  LeftClick("lblOL(2)");
  EXPECT_EQ(Place(1, 15), (ProbowlRec{1, 13}));
  EXPECT_NE(Name("lblOL(2)"), "(nobody)");
  for (const int i : {0, 1, 3, 4}) EXPECT_EQ(Place(1, 13 + i), odd[i]);
}

TEST_F(ProbowlTest, ASideButtonTurnsTheOpenRosterAtOnceAndTheSmallWindowClosesIt) {
  Press(*form, "btnNFCroster");
  SetName(1, 2, "south", "SIDE");
  Place(1, 1) = {1, 2};
  Press(*form, "btnAFCroster");
  EXPECT_EQ(Rosters().size(), 1);
  EXPECT_EQ(Name("lblQB(0)"), "south SIDE");
  EXPECT_EQ(area_.activeSubWindow()->widget(), &Roster());
  Press(Roster(), "btnOK");
  EXPECT_TRUE(Rosters().isEmpty());
  ASSERT_TRUE(form);
  Press(*form, "btnNFCroster");
  EXPECT_EQ(Rosters().size(), 1);
  Press(*form, "btnOK");
  EXPECT_FALSE(form);
  EXPECT_TRUE(Rosters().isEmpty());
}

TEST_F(ProbowlTest, NamesWithMarkupOrWithoutEndAreShownAsTheyAreAndKeepTheFormsSize) {
  const QSize before = Roster().minimumSizeHint();
  Place(1, 1) = {1, 1};
  Place(1, 2) = {1, 2};
  SetName(1, 1, "<b>a&b", "\xC9</b>");
  SetName(1, 2, std::string(30'000, 'x'), std::string(30'000, 'W'));
  Press(*form, "btnAFCroster");
  EXPECT_EQ(Name("lblQB(0)"), "<b>a&b É</b>");
  EXPECT_EQ(Label("lblQB(0)").textFormat(), Qt::PlainText);
  EXPECT_EQ(Roster().minimumSizeHint(), before);
  EXPECT_FALSE(Roster().grab().isNull());
}

}  // namespace
}  // namespace rostermill::test
