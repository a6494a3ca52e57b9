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
  EXPECT_EQ(Teams().ListCount(), 28);
  EXPECT_EQ(session_->ViewTeam, 20);
  EXPECT_EQ(Viewed("lblInfo(1)"), " & <B>ANTS");
  EXPECT_EQ(Viewed("lblInfo(3)"), " " + Named(0) + " and Bl\xC3\xA5 \xE8\x89\xB2");
  EXPECT_EQ(Viewed("lblInfo(4)"), " Unknown 4F and " + Named(63));
  EXPECT_EQ(Find<ColorBox>(*viewer_, "picSwatch(2)").BackColor(), std::nullopt);
  Team(1).Formation = 3;
  GoTo(1);
  EXPECT_EQ(Viewed("lblInfo(5)"), " Not Available");
}

TEST_F(TeamForms, BothShowAllOfATeam) {
  Team(9) = {"OAK",           "ELKS", "OAK ", 2, {{1, 22, 33, 18, 15, 44}}, {{2, 3, 4, 5, 7}},
             {{8, 9, 10, 11}}};
  Team(20) = {"ELM", "OWLS", "ELM.", 1, {{0, 6, 45, 12, 22, 63}}, {{16, 17, 19, 20, 21}}, {}};
  Team(20).ConfChampColors = {{34, 35, 36, 37}};
  League().TeamPlays[9] = {{2, 0, 1, 3, 4, 5, 6, 7}};
  League().TeamPlays[20] = {{0, 3, 8, 2, 4, 0, 6, 7}};
  const QString plays_of_9 =
      "WTE Offtackle Right|T Power Dive|Run and Shoot Sweep Right|One Setback Dive|"
      "Roll Out Left|Offset Flare E|Pro T Flare C|Redgun Z Slant";
  const QString plays_of_20 =
      "T Fake Sweep Right|Pitch Left Fake|Unknown play 8|Run and Shoot QB Sneak|"
      "Roll Out Left|Power Fake Z Post|Pro T Flare C|Redgun Z Slant";
  OpenEditor(20);
  const auto expect_color = [&](QWidget& form, const QString& name, int color) {
    const auto& box = Find<ColorBox>(form, name);
    EXPECT_EQ(box.BackColor(), Screen(color)) << name.toStdString();
    EXPECT_EQ(box.toolTip(), NameAndNumber(color)) << name.toStdString();
  };
  EXPECT_EQ(viewer_->findChildren<PictureBox*>().size(), 4 + 8);
  EXPECT_EQ(editor_->findChildren<QPushButton*>().size(), 4 + 8 + 2);
  const char* spoken[] = {"jersey color 1", "jersey color 2", "jersey color 3", "helmet color 1",
                          "helmet color 2"};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(Find<ColorBox>(*editor_, MemberName("picDivChamp", i)).accessibleName(),
              QString("division champ colors, ") + spoken[i]);
    EXPECT_EQ(Find<ColorBox>(*editor_, MemberName("picConfChamp", (i + 1) % 4)).accessibleName(),
              QString("conference champ colors, ") + spoken[i % 4]);
  }
  for (const int number : {9, 20, 9}) {
    SCOPED_TRACE(number);
    GoTo(number);
    const TeamRec& team = Team(number);
    const auto& colors = team.TeamColors;
    const QString formation = number == 9 ? "1RB 3WR 1TE" : "1RB 4WR";
    const QStringList shown{FromLatin1(team.City),
                            FromLatin1(team.Nickname),
                            FromLatin1(team.Abbreviation),
                            Named(colors[1]) + " and " + Named(colors[3]),
                            Named(colors[4]) + " and " + Named(colors[6]),
                            formation};
    for (int info = 0; info < 6; ++info) {
      EXPECT_EQ(Find<QLabel>(*viewer_, MemberName("lblInfo", info)).text(), " " + shown[info]);
    }
    EXPECT_EQ(Box("txtCity").Text(), shown[0]);
    EXPECT_EQ(Box("txtName").Text(), shown[1]);
    EXPECT_EQ(Box("txtAbbreviation").Text(), shown[2]);
    EXPECT_EQ(Find<DropDownList>(*editor_, "cmbFormation").Text(), formation);
    int at = 0;
    for (const int color : {colors[1], colors[3], colors[4], colors[6]}) {
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
    const QStringList skins = number == 9 ? QStringList{"Option1(0)", "Option3(1)"}
                                          : QStringList{"Option2(0)", "Option1(1)"};
    for (const auto* option : editor_->findChildren<QRadioButton*>()) {
      EXPECT_EQ(option->isChecked(), skins.contains(option->objectName()));
    }
    const QStringList plays = (number == 9 ? plays_of_9 : plays_of_20).split('|');
    for (int i = 0; i < 8; ++i) {
      const int choice = League().TeamPlays[number][i + 1];
      auto& box = Find<PictureBox>(*viewer_, MemberName("picRun", i));
      EXPECT_EQ(box.isHidden(), choice > 7);
      EXPECT_TRUE(box.sizePolicy().retainSizeWhenHidden());
      if (!box.isHidden()) {
        EXPECT_EQ(box.Picture(), PlayPicture(i + 1, choice));
      }
      EXPECT_EQ(box.toolTip(), plays[i]);
      EXPECT_EQ(box.accessibleName(), plays[i]);
      EXPECT_EQ(Find<QPushButton>(*editor_, MemberName("btnPlay", i)).text(), plays[i]);
    }
  }
}

TEST_F(TeamForms, TheEditorFollowsTheViewerAndClosesWithIt) {
  OpenEditor(5);
  EXPECT_TRUE(session_->EditTeamOpen);
  Box("txtCity").SetText("PENDING");
  GoTo(9);
  EXPECT_EQ(Box("txtCity").Text(), FromLatin1(Team(9).City));
  EXPECT_NE(FromLatin1(Team(5).City), "PENDING");
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
    Undo(box);
    EXPECT_EQ(box.Text(), before);
    Redo(box);
    EXPECT_EQ(box.Text(), "A B");
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
  Box("txtName").SetText("zebus");
  Box("txtAbbreviation").SetText("zz");
  Find<DropDownList>(*editor_, "cmbFormation").SetListIndex(2);
  Find<QRadioButton>(*editor_, "Option3(1)").click();
  EXPECT_NE(Team(27).TeamColors[5], 15);
  Press("btnSave");
  EXPECT_EQ(Team(27).City, "ZZYZX");
  EXPECT_EQ(Team(27).Nickname, "ZEBUS");
  EXPECT_EQ(Team(27).Abbreviation, "ZZ  ");
  EXPECT_EQ(Team(27).Formation, 2);
  EXPECT_EQ(Team(27).TeamColors[5], 15);
  EXPECT_EQ(session_->ViewTeam, 27);
  EXPECT_EQ(Teams().ListIndex(), 27);
  EXPECT_EQ(Teams().ListCount(), 28);
  EXPECT_EQ(Viewed("lblInfo(0)"), " ZZYZX");
  EXPECT_EQ(Viewed("lblInfo(5)"), " 1RB 3WR 1TE");
  EXPECT_TRUE(editor_->IsOpen());
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
  EXPECT_EQ(Cell("picJersey(2)", 3, 7), Screen(22));
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
  const QString before = room.text();
  EXPECT_TRUE(mark.isHidden());
  EXPECT_EQ(room.parentWidget(), Box("txtCity").parentWidget()) << "it is near the boxes";
  const auto number = [](const QString& text) { return text.split(' ')[2].toInt(); };
  QTest::keyClick(&Box("txtCity"), Qt::Key_X);
  EXPECT_EQ(number(room.text()), number(before) - 1);
  EXPECT_TRUE(room.text().endsWith("bytes free"));
  Box("txtName").SetText(QString(600, 'X'));
  EXPECT_TRUE(room.text().endsWith("bytes too many"));
  EXPECT_FALSE(mark.isHidden());
  Press("btnSave");
  EXPECT_EQ(Team(2).Nickname, std::string(600, 'X'));
}

}  // namespace
}  // namespace rostermill::test
