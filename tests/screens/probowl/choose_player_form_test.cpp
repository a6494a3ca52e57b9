#include "screens/probowl/choose_player_form.h"

#include <QPushButton>
#include <gtest/gtest.h>

#include "tests/support/dialogs.h"
#include "tests/support/sample.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {

namespace {

/// The sample league and the chooser as the roster opens it.
struct Chooser {
  Chooser(int side, int code) : session(SampleSession()) {
    session->RosterConference = static_cast<std::int16_t>(side);
    session->ChosenSlot = static_cast<std::int16_t>(code);
    form = std::make_unique<frmChoosePlayer>(nullptr, *session);
    form->show();
  }
  DropDownList& List(const QString& name) { return Find<DropDownList>(*form, name); }
  std::string Entry(const QString& list, int index) { return ToUtf8(List(list).List(index)); }
  std::pair<int, int> Ok() {
    Find<QPushButton>(*form, "btnOK").click();
    EXPECT_FALSE(form->isVisible());
    return {session->ChosenTeam, session->ChosenSlot};
  }

  std::unique_ptr<LeagueSession> session;
  std::unique_ptr<frmChoosePlayer> form;
};

// Would catch teams of the other side, and a list index that isn't counted from the side's first.
TEST(ChoosePlayer, OffersTheFourteenTeamsOfTheSide) {
  Chooser afc(1, 9);
  EXPECT_EQ(afc.List("cmbTeam").ListCount(), 14);
  EXPECT_EQ(afc.Entry("cmbTeam", 0), "HARBORTON SPARROWS");
  EXPECT_EQ(afc.Entry("cmbTeam", 13), "FERNWICK FERRETS");
  afc.List("cmbTeam").SetListIndex(13);
  EXPECT_EQ(afc.Ok(), std::make_pair(14, 29));

  Chooser nfc(2, 4);
  EXPECT_EQ(nfc.List("cmbTeam").ListCount(), 14);
  EXPECT_EQ(nfc.Entry("cmbTeam", 0), "OLDCASTLE ROOKS");
  EXPECT_EQ(nfc.Entry("cmbTeam", 13), "PEACHFORD BEES");
  EXPECT_EQ(nfc.Ok(), std::make_pair(15, 3));
}

// Would catch a group with wrong ends, and kickers offered by one label only.
TEST(ChoosePlayer, OffersTheSlotsOfTheGroup) {
  struct Case {
    int Code, Count, FirstSlot;
  };
  for (const Case& c :
       {Case{1, 2, 1}, Case{2, 10, 3}, Case{3, 10, 3}, Case{4, 10, 3}, Case{5, 5, 13},
        Case{6, 3, 18}, Case{7, 4, 21}, Case{8, 4, 25}, Case{9, 2, 29}, Case{10, 2, 29}}) {
    Chooser chooser(2, c.Code);
    EXPECT_EQ(chooser.List("cmbPlayer").ListCount(), c.Count) << c.Code;
    EXPECT_EQ(chooser.List("cmbPlayer").ListIndex(), 0) << c.Code;
    for (int i = 0; i < c.Count; ++i) {
      const NameRec& name = LeagueOf(*chooser.session).NameData[15][c.FirstSlot + i];
      EXPECT_EQ(chooser.Entry("cmbPlayer", i), name.FirstName + " " + name.LastName) << c.Code;
    }
    chooser.List("cmbPlayer").SetListIndex(c.Count - 1);
    EXPECT_EQ(chooser.Ok(), std::make_pair(15, c.FirstSlot + c.Count - 1)) << c.Code;
  }
}

// Would catch players of the team before, and nameless ones dropped so that the others move up.
TEST(ChoosePlayer, AnotherTeamKeepsTheGroupAndStartsAtItsFirstPlayer) {
  Chooser chooser(1, 7);
  auto& names = LeagueOf(*chooser.session).NameData[4];
  names[21] = {"", "", "00"};
  names[22] = {"ann", "OTHER", "00"};
  chooser.List("cmbPlayer").SetListIndex(3);
  chooser.List("cmbTeam").SetListIndex(3);
  EXPECT_EQ(chooser.List("cmbPlayer").ListCount(), 4);
  EXPECT_EQ(chooser.List("cmbPlayer").ListIndex(), 0);
  EXPECT_EQ(chooser.Entry("cmbPlayer", 0), " ");
  EXPECT_EQ(chooser.Entry("cmbPlayer", 1), "ann OTHER");
  chooser.List("cmbPlayer").SetListIndex(1);
  EXPECT_EQ(chooser.Ok(), std::make_pair(4, 22));
}

}  // namespace

}  // namespace rostermill::test
