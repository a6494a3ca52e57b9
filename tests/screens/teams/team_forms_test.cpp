#include <set>

#include "tests/screens/teams/team_forms_fixture.h"
#include "tests/support/typing.h"

namespace rostermill::test {
namespace {

TEST_F(TeamForms, TheViewerOpensOnTheTextThatSortsFirstAndShowsOddValues) {
  Team(20).City = "AARDVALE";
  Team(20).Nickname = "& <B>ANTS";
  Team(20).TeamColors = {{0, 22, 33, 0x4F, 6, 63}};
  League().PaletteData[33].Name = "Bl\xC3\xA5 \xE8\x89\xB2";
  OpenViewer();
  EXPECT_EQ(Teams().Text(), "AARDVALE & <B>ANTS");
  EXPECT_EQ(Viewed("lblInfo(1)"), " & <B>ANTS");
  EXPECT_EQ(Viewed("lblInfo(3)"), " " + Named(0) + " and Bl\xC3\xA5 \xE8\x89\xB2");
  EXPECT_EQ(Viewed("lblInfo(4)"), " Unknown 4F and " + Named(63));
  EXPECT_EQ(Find<ColorBox>(*viewer_, "picSwatch(2)").BackColor(), std::nullopt);
  Team(1).Formation = 3;
  GoTo(1);
  EXPECT_EQ(Viewed("lblInfo(5)"), " Not Available");
}

TEST_F(TeamForms, BothShowEachColorSkinAndPlayInItsPlace) {
  TeamRec& team = Team(9);
  team.TeamColors = {{1, 6, 33, 18, 15, 44}};
  team.DivChampColors = {{2, 3, 4, 5, 7}};
  team.ConfChampColors = {{8, 9, 10, 11}};
  team.Formation = 2;
  League().TeamPlays[9] = {{2, 0, 8, 3, 4, 5, 6, 7}};
  OpenEditor(9);
  EXPECT_EQ(Viewed("lblInfo(3)"), " " + Named(1) + " and " + Named(33));
  EXPECT_EQ(Viewed("lblInfo(4)"), " " + Named(18) + " and " + Named(44));
  EXPECT_EQ(Viewed("lblInfo(5)"), " 1RB 3WR 1TE");
  EXPECT_EQ(Find<DropDownList>(*editor_, "cmbFormation").Text(), "1RB 3WR 1TE");
  const auto expect_color = [&](QWidget& form, const QString& name, int color) {
    EXPECT_EQ(Find<ColorBox>(form, name).BackColor(), Screen(color)) << name.toStdString();
  };
  int at = 0;
  for (const int color : {1, 33, 18, 44}) {
    expect_color(*viewer_, MemberName("picSwatch", at), color);
    auto& button = Find<QPushButton>(*editor_, MemberName("btnChange", at++));
    EXPECT_EQ(button.text(), Named(color));
    const QImage icon = button.icon().pixmap(button.iconSize()).toImage();
    EXPECT_EQ(icon.pixelColor(icon.height() / 2, icon.height() / 2), Screen(color));
  }
  for (int i = 0; i < 5; ++i) {
    expect_color(*editor_, MemberName("picDivChamp", i), team.DivChampColors[i + 1]);
  }
  for (int i = 0; i < 4; ++i) {
    expect_color(*editor_, MemberName("picConfChamp", i), team.ConfChampColors[i + 1]);
  }
  const QStringList skins{"Option2(0)", "Option3(1)"};
  for (const auto* option : editor_->findChildren<QRadioButton*>()) {
    EXPECT_EQ(option->isChecked(), skins.contains(option->objectName()));
  }
  const auto play = [this](int slot) -> PictureBox& {
    return Find<PictureBox>(*viewer_, MemberName("picRun", slot - 1));
  };
  for (const int slot : {1, 2, 4, 5, 6, 7, 8}) {
    EXPECT_EQ(play(slot).Picture(), PlayPicture(slot, League().TeamPlays[9][slot]));
  }
  EXPECT_TRUE(play(3).isHidden());
  EXPECT_TRUE(play(3).sizePolicy().retainSizeWhenHidden());
  EXPECT_EQ(play(3).toolTip(), "Unknown play 8");
  EXPECT_EQ(Caption("btnPlay(2)"), "Unknown play 8");
  GoTo(20);
  EXPECT_FALSE(play(3).isHidden());
}

TEST_F(TeamForms, TheEditorFollowsTheViewerAndClosesWithIt) {
  OpenEditor(5);
  EXPECT_TRUE(session_->EditTeamOpen);
  Box("txtCity").SetText("PENDING");
  GoTo(9);
  EXPECT_EQ(Box("txtCity").Text(), FromLatin1(Team(9).City));
  EditTeam* first = editor_;
  Find<QPushButton>(*viewer_, "btnEdit").click();
  EXPECT_EQ(area_.findChildren<EditTeam*>(), QList<EditTeam*>{first});
  Find<QPushButton>(*viewer_, "btnOK").click();
  EXPECT_FALSE(session_->EditTeamOpen);
  QTest::qWait(1);
  EXPECT_TRUE(area_.subWindowList().isEmpty());
}

TEST_F(TeamForms, EnteredTextsAreUpperCaseAsLongAsTheyMayBeAndCanBeUndone) {
  OpenEditor(4);
  for (const auto& [name, pending, length] :
       {std::tuple{"txtCity", &session_->PreviewCity, 15},
        {"txtName", &session_->PreviewName, 15},
        {"txtAbbreviation", &session_->PreviewAbbreviation, 4}}) {
    TextBox& box = Box(name);
    const QString before = box.Text();
    QTest::keyClick(&box, Qt::Key_Backspace);
    Find<QRadioButton>(*editor_, "Option3(0)").click();
    Undo(box);
    EXPECT_EQ(box.Text(), before) << "a change of a color makes typing final";
    EXPECT_EQ(*pending, before.toStdString());
    box.selectAll();
    Paste(box, "\na\r\nb\t");
    EXPECT_EQ(box.Text(), "A B") << name;
    EXPECT_EQ(*pending, "A B");
    box.selectAll();
    QTest::keyClicks(&box, QString(40, 'q'));
    EXPECT_EQ(box.Text(), QString(length, 'Q'));
  }
  GoTo(5);
  EXPECT_FALSE(Box("txtCity").isUndoAvailable()) << "another team's text comes back";
}

TEST_F(TeamForms, OKStoresMovesTheTeamInTheListAndKeepsItSelected) {
  OpenEditor(27);
  Box("txtCity").SetText("Zzyzx");
  Box("txtAbbreviation").SetText("zz");
  Find<QRadioButton>(*editor_, "Option3(1)").click();
  EXPECT_NE(Team(27).TeamColors[5], 15);
  Press("btnSave");
  EXPECT_EQ(Team(27).Abbreviation, "ZZ  ");
  EXPECT_EQ(Team(27).TeamColors[5], 15);
  EXPECT_EQ(Teams().ListIndex(), 27);
  EXPECT_EQ(Box("txtCity").Text(), "ZZYZX");
}

TEST_F(TeamForms, OfTwoTeamsWithOneNameTheLaterIsShownWhicheverIsPicked) {
  OpenEditor(3);
  Box("txtCity").SetText(FromLatin1(Team(7).City));
  Box("txtName").SetText(FromLatin1(Team(7).Nickname));
  Press("btnSave");
  EXPECT_EQ(session_->ViewTeam, 7);
  const int at = Teams().ListIndex();
  EXPECT_EQ(Teams().List(at), Teams().List(at - 1));
  GoTo(20);
  Teams().SetListIndex(at - 1);
  EXPECT_EQ(session_->ViewTeam, 7);
  Teams().SetListIndex(at);
  EXPECT_EQ(session_->ViewTeam, 7);
}

TEST_F(TeamForms, OddBytesSurviveOKUntouched) {
  Team(12).TeamColors = {{0x4F, 7, 0xFF, 64, 99, 200}};
  Team(12).DivChampColors = {{255, 64, 1, 2, 3}};
  Team(12).Formation = 7;
  League().TeamPlays[12] = {{8, 9, 0, 1, 2, 3, 4, 9}};
  OpenEditor(12);
  const LeagueData before = League();
  EXPECT_EQ(Caption("btnChange(1)"), "Unknown FF");
  EXPECT_EQ(Find<ColorBox>(*editor_, "picDivChamp(0)").BackColor(), std::nullopt);
  const QImage figure = Find<PictureBox>(*editor_, "picJersey(2)").Picture();
  std::set<QRgb> tones;
  for (int x = 18; x < 24; ++x) tones.insert(figure.pixel(x, 3));
  EXPECT_EQ(tones.size(), 2u) << "an unknown color is hatched";
  for (const char* option : {"Option1(0)", "Option2(0)", "Option3(0)"}) {
    EXPECT_FALSE(Find<QRadioButton>(*editor_, option).isChecked()) << option;
  }
  Press("btnSave");
  EXPECT_TRUE(League() == before);
}

TEST_F(TeamForms, TheFiguresShowTheThreeColorsOfTheirOwnUniform) {
  Team(6).TeamColors = {{0x11, 22, 0x21, 0x2A, 6, 0x38}};
  OpenEditor(6);
  // Row 1 column 6 is color 1, row 3 column 7 the skin, row 4 column 2 color 3, the corners ground.
  EXPECT_EQ(Cell("picJersey(2)", 1, 6), Screen(0x11));
  EXPECT_EQ(Cell("picJersey(2)", 4, 2), Screen(0x21));
  EXPECT_EQ(Cell("picJersey(3)", 1, 6), Screen(0x2A));
  EXPECT_EQ(Cell("picJersey(3)", 3, 7), Screen(6));
  EXPECT_EQ(Cell("picJersey(3)", 4, 2), Screen(0x38));
  EXPECT_EQ(Cell("picJersey(2)", 1, 1), Cell("picJersey(3)", 15, 9));
  const QImage figure = Find<PictureBox>(*editor_, "picJersey(2)").Picture();
  EXPECT_EQ(figure.pixelColor(18, 3), Screen(0x11));
  EXPECT_NE(figure.pixelColor(17, 3), Screen(0x11));
  EXPECT_NE(figure.pixelColor(18, 2), Screen(0x11));
  Find<QRadioButton>(*editor_, "Option3(1)").click();
  EXPECT_EQ(Cell("picJersey(3)", 3, 7), Screen(15));
  EXPECT_EQ(Cell("picJersey(2)", 3, 7), Screen(22));
}

TEST_F(TeamForms, TheRoomForTextsFollowsEachKeyAndIsMarkedWhenOverdrawn) {
  OpenEditor(2);
  Box("txtCity").SetText("ABC");
  const QLabel& room = Find<QLabel>(*editor_, "lblTextRoom");
  const QLabel& mark = Find<QLabel>(*editor_, "imgTextsTooLong");
  const auto bytes_free = [&room] { return room.text().split(' ')[2].toInt(); };
  const int before = bytes_free();
  QTest::keyClick(&Box("txtCity"), Qt::Key_X);
  EXPECT_EQ(bytes_free(), before - 1);
  Box("txtName").SetText(QString(600, 'X'));
  EXPECT_TRUE(room.text().endsWith("bytes too many"));
  EXPECT_FALSE(mark.isHidden());
  Press("btnSave");
  EXPECT_EQ(Team(2).Nickname, std::string(600, 'X'));
}

}  // namespace
}  // namespace rostermill::test
