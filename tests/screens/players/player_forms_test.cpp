#include <QCheckBox>
#include <QLabel>
#include <QMdiSubWindow>

#include "rules/display_text.h"
#include "screens/players/edit_player.h"
#include "screens/players/view_player.h"
#include "tests/screens/screen_fixture.h"
#include "tests/support/typing.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

/// The player viewer and its editor inside a main window, on the sample league.
class PlayerForms : public ScreenTest {
 protected:
  PlayerForms() { area_.resize(1200, 900); }

  void OpenEditor() {
    Find<QPushButton>(*viewer_, "btnEdit").click();
    for (QMdiSubWindow* window : area_.subWindowList()) {
      if (auto* form = qobject_cast<EditPlayer*>(window->widget())) editor_ = form;
    }
    ASSERT_NE(editor_, nullptr);
  }
  void OpenBoth() {
    viewer_ = new ViewPlayer(*session_);
    area_.ShowForm(viewer_);
    OpenEditor();
  }

  DropDownList& List(const char* name) { return Find<DropDownList>(*viewer_, name); }
  QString Viewed(const char* label) { return Find<QLabel>(*viewer_, label).text(); }
  QString Edited(const QString& label) { return Find<QLabel>(*editor_, label).text(); }
  TextBox& NameBox() { return Find<TextBox>(*editor_, "txtPlayer"); }
  void Press(const QString& button, int times = 1) {
    for (int time = 0; time < times; ++time) Find<QPushButton>(*editor_, button).click();
  }
  void GoTo(int team, int slot) {
    List("cmbTeam").SetListIndex(
        List("cmbTeam").findText(FromLatin1(TeamListText(League(), team)), Qt::MatchExactly));
    List("cmbPosition").SetListIndex(slot - 1);
  }
  NameRec& Name(int team, int slot) { return League().NameData[team][slot]; }

  QPointer<ViewPlayer> viewer_;
  QPointer<EditPlayer> editor_;
};

TEST_F(PlayerForms, EveryTeamOfTheListIsShownAndALongNameMakesTheFormsNoWider) {
  for (TeamRec& team : League().TeamData) team.Nickname = std::string(50'000, 'W');
  OpenBoth();
  EXPECT_TRUE(QFontInfo(List("cmbPosition").font()).fixedPitch());
  EXPECT_LT(editor_->sizeHint().width(), 1000);
  for (int team = 0; team < 28; ++team) {
    List("cmbTeam").SetListIndex(team);
    EXPECT_EQ(Edited("lblTeam"), FromLatin1(TeamTitleText(League(), session_->CurTeam)));
    EXPECT_EQ(List("cmbTeam").Text(), FromLatin1(TeamListText(League(), session_->CurTeam)));
    EXPECT_EQ(List("cmbTeam").ListIndex(), team);
  }
}

/// What both forms show of a player of team 8, which plays "1RB 4WR".
struct ShownPlayer {
  int Slot;
  const char* Position;
  const char* Face;
  const char* Values;    // of the places in use
  const char* Captions;  // of the places from 4 on
};

TEST_F(PlayerForms, BothShowAllOfAPlayer) {
  LeagueData& league = League();
  league.QBData[8][2] = {0, 1, 2, 3, 0x15, 4, 5, 6, 7};
  league.LineData[8][5] = {8, 9, 10, 11, 0x96};
  for (auto& rec : league.SkillData[8]) rec.KickReturner = rec.PuntReturner = 0;
  league.SkillData[8][2] = {12, 13, 14, 15, 0x17, 0, 15, 1, 0};
  league.SkillData[8][9] = {1, 1, 1, 1, 0x18, 1, 1, 0, 1};
  OpenBoth();
  const char* passing = "|Passing Speed:|Pass Control:|Accuracy:|Avoid Pass Block:";
  const std::vector<ShownPlayer> players{
      {2, "QB 2", "15", "6 13 19 25 31 38 44 50", passing},
      {17, "RT", "96", "56 63 69 75", ""},
      {4, "WR 3", "17", "81 88 94 100 6 100", "|Ball Control:|Receptions:"},
      {11, "WR 5", "18", "13 13 13 13 13 13", "|Ball Control:|Receptions:"},
      {2, "QB 2", "15", "6 13 19 25 31 38 44 50", passing},
  };
  for (const ShownPlayer& player : players) {
    SCOPED_TRACE(player.Position);
    GoTo(8, player.Slot);
    const QString first = "Rushing Power:|Running Speed:|Maximum Speed:|Hitting Power:";
    const QStringList captions = (first + player.Captions).split('|');
    const QStringList values = QString(player.Values).split(' ');
    EXPECT_EQ(List("cmbPosition").Text(), player.Position);
    const QImage face = QImage(FromUtf8(BinFolder() + "faces/" + player.Face + ".bmp"))
                            .convertToFormat(QImage::Format_RGB32);
    for (QWidget* form : {static_cast<QWidget*>(viewer_), static_cast<QWidget*>(editor_)}) {
      SCOPED_TRACE(form->objectName().toStdString());
      for (int place = 0; place < 8; ++place) {
        const bool in_use = place < captions.size();
        QStringList names{MemberName("Label2", place + 1), MemberName("Label3", place)};
        if (form == editor_.data()) {
          names << MemberName("btnMinus", place) << MemberName("btnPlus", place);
        }
        for (const QString& name : names) {
          EXPECT_EQ(Find<QWidget>(*form, name).isVisibleTo(form), in_use) << name.toStdString();
        }
        if (!in_use) continue;
        EXPECT_EQ(Find<QLabel>(*form, names[0]).text(), captions[place]);
        EXPECT_EQ(Find<QLabel>(*form, names[1]).text(), values[place]);
      }
      EXPECT_EQ(Find<QLabel>(*form, "lblNumber").text(),
                FromLatin1("#" + Name(8, player.Slot).JerseyNumber));
      const QImage& photo = Find<PictureBox>(*form, "imgFace").Picture();
      EXPECT_EQ(photo.convertToFormat(face.format()), face);
    }
    EXPECT_EQ(Edited("lblFace").toInt(), QString(player.Face).toInt(nullptr, 16));
    EXPECT_FALSE(Find<QLabel>(*editor_, "lblFace").isVisibleTo(editor_));
    EXPECT_EQ(NameBox().Text(), FromLatin1(PlayerEditText(league, 8, player.Slot)));
    const bool skill = captions.contains("Receptions:");
    for (const auto& [box, slot] : {std::pair{"chkKick", 4}, {"chkPunt", 11}}) {
      EXPECT_EQ(Find<QCheckBox>(*editor_, box).isEnabled(), skill) << box;
      EXPECT_EQ(Find<QCheckBox>(*editor_, box).isChecked(), player.Slot == slot) << box;
    }
  }
  GoTo(1, 4);
  EXPECT_EQ(List("cmbPosition").Text(), "RB 2");
}

TEST_F(PlayerForms, NamesakesShowTheLowerSlotAndTeamsOfOneNameTheFirst) {
  Name(3, 5) = Name(3, 9) = {"twin", "BROTHERS", "11"};
  League().TeamData[9].City = League().TeamData[4].City;
  League().TeamData[9].Nickname = League().TeamData[4].Nickname;
  OpenBoth();
  League().NameData[3][9].JerseyNumber = "77";
  for (const int from : {1, 5}) {
    GoTo(3, from);
    List("cmbPosition").SetListIndex(8);
    EXPECT_EQ(List("cmbPosition").ListIndex(), 4) << "from slot " << from;
    EXPECT_EQ(Edited("lblNumber"), "#11") << "from slot " << from;
    Press("btnSavePlayer");
    EXPECT_EQ(session_->CurSlot, 5) << "after the save";
  }
  EXPECT_EQ(Name(3, 9).JerseyNumber, "77") << "one player's data went over the other's";
  auto& teams = List("cmbTeam");
  const int first = teams.findText("LAKEWICK HERONS");
  teams.SetListIndex(first + 1);
  EXPECT_EQ(session_->CurTeam, 4);
  teams.SetListIndex(first);
  EXPECT_EQ(session_->CurTeam, 4);
}

TEST_F(PlayerForms, EachButtonStepsItsOwnRatingOnTheLadderAndTheSaveStoresIt) {
  const QBRec stored = League().QBData[2][1] = {0, 4, 14, 15, 0x15, 7, 8, 9, 10};
  OpenBoth();
  GoTo(2, 1);
  for (const int place : {0, 4, 6}) Press(MemberName("btnMinus", place));
  for (const int place : {1, 2, 3, 5, 7}) Press(MemberName("btnPlus", place));
  QStringList values;
  for (int place = 0; place < 8; ++place) values << Edited(MemberName("Label3", place));
  EXPECT_EQ(values, QStringList({"6", "38", "100", "100", "44", "63", "56", "75"}));
  Press("btnPlus(0)", 20);
  EXPECT_EQ(Edited("Label3(0)"), "100");
  EXPECT_EQ(League().QBData[2][1], stored) << "nothing is stored before the save";
  Press("btnSavePlayer");
  EXPECT_EQ(League().QBData[2][1], (QBRec{15, 5, 15, 15, 0x15, 6, 9, 8, 11}));
}

TEST_F(PlayerForms, TheNumberStepsInDecimalBetween0And99) {
  Name(2, 1).JerseyNumber = "09";
  Name(2, 2).JerseyNumber = "A7";
  OpenBoth();
  GoTo(2, 1);
  Press("btnPlus(8)");
  EXPECT_EQ(Edited("lblNumber"), "#10");
  Press("btnMinus(8)", 13);
  EXPECT_EQ(Edited("lblNumber"), "#0");
  Press("btnPlus(8)", 120);
  EXPECT_EQ(Edited("lblNumber"), "#99");
  GoTo(2, 2);
  Press("btnSavePlayer");
  EXPECT_EQ(Name(2, 2).JerseyNumber, "A7");
  Press("btnPlus(8)");
  EXPECT_EQ(Edited("lblNumber"), "#1");
}

TEST_F(PlayerForms, ASavedPlayerMovesToHisNewPlaceInTheListAndStaysOnView) {
  OpenBoth();
  GoTo(12, 20);
  NameBox().SetText("zoe van ZYLE");
  Press("btnPlus(8)");
  QTest::keyClick(&NameBox(), Qt::Key_Return);  // the default button
  EXPECT_EQ(session_->CurSlot, 20);
  EXPECT_EQ(List("cmbPlayer").Text(), "VAN ZYLE, zoe");
  EXPECT_EQ(List("cmbTeam").Text(), "CEDAR PASS LYNXES");
  EXPECT_EQ(NameBox().Text(), "Zoe Van zyle");
  EXPECT_EQ(Viewed("lblNumber"), Edited("lblNumber"));
}

TEST_F(PlayerForms, NamesThatCannotBeSplitAreGivenBackAndTheRestIsSaved) {
  OpenBoth();
  GoTo(5, 1);
  const NameRec before = Name(5, 1);
  for (const char* text : {"", "oneword"}) {
    NameBox().SetText(text);
    Press("btnPlus(8)");
    const QString number = Edited("lblNumber").mid(1);
    Press("btnSavePlayer");
    EXPECT_EQ(Name(5, 1).FirstName, before.FirstName);
    EXPECT_EQ(Name(5, 1).LastName, before.LastName);
    EXPECT_EQ(Name(5, 1).JerseyNumber, number.toStdString());
    EXPECT_EQ(NameBox().Text(), FromLatin1(PlayerEditText(League(), 5, 1)));
  }
  for (const auto& [text, first, last] :
       {std::tuple{"Solo ", "solo", ""}, std::tuple{" Alone", "", "ALONE"},
        std::tuple{" ", "", ""}}) {
    NameBox().SetText(text);
    Press("btnSavePlayer");
    EXPECT_EQ(Name(5, 1).FirstName, first);
    EXPECT_EQ(Name(5, 1).LastName, last);
    EXPECT_EQ(session_->CurSlot, 1);
    EXPECT_EQ(NameBox().Text(), text);
  }
}

TEST_F(PlayerForms, ALongOrBrokenNameFromTheImageSurvivesASaveAndNoneIsEntered) {
  Name(6, 1) = {"bartholomew", "FEATHERSTONE\nHAUGH", "12"};
  OpenBoth();
  GoTo(6, 1);
  Press("btnPlus(8)");
  Press("btnSavePlayer");
  EXPECT_EQ(Name(6, 1).LastName, "FEATHERSTONE\nHAUGH");
  EXPECT_EQ(session_->CurSlot, 1);
  NameBox().selectAll();
  Paste(NameBox(), "bob\nSMITH\x7f\n");
  Press("btnSavePlayer");
  EXPECT_EQ(Name(6, 1).FirstName, "bob");
  EXPECT_EQ(Name(6, 1).LastName, "SMITH");
  NameBox().selectAll();
  QTest::keyClicks(&NameBox(), QString(20, 'x'));
  EXPECT_EQ(NameBox().Text(), QString(16, 'x'));
}

TEST_F(PlayerForms, ReturnersMoveWithinTheTeamAtTheSaveOnly) {
  for (auto& rec : League().SkillData[1]) rec.KickReturner = rec.PuntReturner = 0;
  League().SkillData[1][5].KickReturner = 1;
  League().SkillData[2][5].KickReturner = 1;
  League().SkillData[1][7].PuntReturner = 1;
  OpenBoth();
  auto& kick = Find<QCheckBox>(*editor_, "chkKick");
  auto& punt = Find<QCheckBox>(*editor_, "chkPunt");
  GoTo(1, 9);
  kick.setChecked(true);
  EXPECT_EQ(League().SkillData[1][5].KickReturner, 1);
  punt.setChecked(false);
  Press("btnSavePlayer");
  EXPECT_EQ(League().SkillData[1][5].KickReturner, 0);
  EXPECT_EQ(League().SkillData[1][7].KickReturner, 1);
  EXPECT_EQ(League().SkillData[1][7].PuntReturner, 0);
  EXPECT_EQ(League().SkillData[2][5].KickReturner, 1) << "another team's";
}

TEST_F(PlayerForms, TheEditorFollowsTheViewerAndClosesWithIt) {
  OpenBoth();
  GoTo(3, 4);
  NameBox().SetText("Not Saved");
  Find<QPushButton>(*viewer_, "btnEdit").click();
  EXPECT_EQ(NameBox().Text(), "Not Saved") << "the open editor only comes to the front";
  GoTo(3, 6);
  EXPECT_EQ(NameBox().Text(), FromLatin1(PlayerEditText(League(), 3, 6)));
  EXPECT_TRUE(session_->EditPlayerOpen);
  Press("btnClose");
  EXPECT_FALSE(session_->EditPlayerOpen);
  OpenEditor();
  Find<QPushButton>(*viewer_, "btnOK").click();
  EXPECT_FALSE(session_->EditPlayerOpen);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(editor_.isNull());
}

TEST_F(PlayerForms, ListsOfAnImageLoadedBeforeAreFilledAnewAtTheFirstPick) {
  OpenBoth();
  for (const char* list : {"cmbPlayer", "cmbTeam", "cmbPosition"}) {
    GoTo(3, 4);
    for (int team = 1; team <= TeamCount; ++team) {
      League().TeamData[team].City += "S";
      for (NameRec& name : League().NameData[team]) name.LastName += "X";
    }
    const LeagueData loaded = League();
    List(list).SetListIndex(7);
    const int team = session_->CurTeam;
    const int slot = session_->CurSlot;
    EXPECT_EQ(List("cmbTeam").Text(), FromLatin1(TeamListText(loaded, team))) << list;
    EXPECT_EQ(List("cmbPlayer").Text(), FromLatin1(PlayerListText(loaded, team, slot))) << list;
    EXPECT_EQ(List("cmbPosition").ListIndex(), slot - 1) << list;
    EXPECT_EQ(NameBox().Text(), FromLatin1(PlayerEditText(loaded, team, slot))) << list;
    EXPECT_EQ(Viewed("lblNumber"), FromLatin1(NumberCaption(loaded, team, slot))) << list;
    Press("btnSavePlayer");
    EXPECT_TRUE(League().NameData[3] == loaded.NameData[3]) << list;
  }
}

}  // namespace
}  // namespace rostermill::test
