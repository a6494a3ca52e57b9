#include <set>

#include "tests/screens/teams/team_forms_fixture.h"
#include "tests/support/typing.h"

namespace rostermill::test {
namespace {

TEST_F(TeamForms, TheViewerOpensOnTheTextThatSortsFirstAndShowsTheTeam) {
  Team(20).City = "AARDVALE";
  Team(20).Nickname = "& <B>ANTS";
  Team(20).Abbreviation = "AARD";
  Team(20).TeamColors = {{0, 22, 33, 0x4F, 6, 63}};
  Team(20).Formation = 1;
  session_->League.TeamPlays[20] = {{0, 3, 1, 2, 4, 0, 6, 7}};
  session_->League.PaletteData[33].Name = "Bl\xC3\xA5 \xE8\x89\xB2";
  OpenViewer();
  EXPECT_EQ(Teams().Text(), "AARDVALE & <B>ANTS");
  EXPECT_EQ(Teams().ListCount(), 28);
  EXPECT_EQ(session_->ViewTeam, 20);
  EXPECT_EQ(Viewed("lblInfo(0)"), " AARDVALE");
  EXPECT_EQ(Viewed("lblInfo(1)"), " & <B>ANTS");
  EXPECT_EQ(Viewed("lblInfo(2)"), " AARD");
  EXPECT_EQ(Viewed("lblInfo(3)"), " " + Named(0) + " and Bl\xC3\xA5 \xE8\x89\xB2");
  EXPECT_EQ(Viewed("lblInfo(4)"), " Unknown 4F and " + Named(63));
  EXPECT_EQ(Viewed("lblInfo(5)"), " 1RB 4WR");
  EXPECT_EQ(Find<ColorBox>(*viewer_, "picSwatch(1)").BackColor(), Screen(33));
  EXPECT_EQ(Find<ColorBox>(*viewer_, "picSwatch(2)").BackColor(), std::nullopt);
  const auto shown = [&](const char* box) { return Find<PictureBox>(*viewer_, box).Picture(); };
  const auto in_file = [&](const char* name) {
    return QImage(FromUtf8(BinFolder()) + name).convertToFormat(QImage::Format_RGB32);
  };
  EXPECT_EQ(shown("picRun(1)").convertToFormat(QImage::Format_RGB32), in_file("r2-3.bmp"));
  EXPECT_EQ(shown("picRun(5)").convertToFormat(QImage::Format_RGB32), in_file("p2-0.bmp"));
  Team(1).Formation = 3;
  GoTo(1);
  EXPECT_EQ(Viewed("lblInfo(5)"), " Not Available");
}

/// A picture that stays hidden for the next team, or a play without one that hides all behind it.
TEST_F(TeamForms, OnlyThePlayWithoutAPictureIsHidden) {
  session_->League.TeamPlays[1] = {{0, 0, 8, 0, 0, 9, 0, 0}};
  session_->League.TeamPlays[2] = {{1, 1, 1, 1, 1, 1, 1, 1}};
  OpenViewer();
  const auto hidden = [&] {
    std::string boxes;
    for (int i = 0; i < 8; ++i) {
      const bool is = Find<PictureBox>(*viewer_, MemberName("picRun", i)).isHidden();
      boxes += is ? '-' : '#';
    }
    return boxes;
  };
  GoTo(1);
  EXPECT_EQ(hidden(), "##-##-##");
  GoTo(2);
  EXPECT_EQ(hidden(), "########");
}

TEST_F(TeamForms, TheEditorFollowsTheViewerAndClosesWithIt) {
  Team(9).TeamColors = {{1, 22, 33, 18, 15, 63}};
  Team(9).Formation = 2;
  session_->League.TeamPlays[9] = {{2, 0, 0, 0, 0, 0, 3, 8}};
  OpenEditor(5);
  EXPECT_TRUE(session_->EditTeamOpen);
  Box("txtCity").SetText("PENDING");
  GoTo(9);
  EXPECT_EQ(Box("txtCity").Text(), FromLatin1(Team(9).City));
  EXPECT_EQ(Box("txtName").Text(), FromLatin1(Team(9).Nickname));
  EXPECT_EQ(Find<DropDownList>(*editor_, "cmbFormation").Text(), "1RB 3WR 1TE");
  EXPECT_EQ(Caption("btnChange(0)"), Named(1));
  EXPECT_EQ(Caption("btnChange(1)"), Named(33));
  EXPECT_EQ(Caption("btnChange(2)"), Named(18));
  EXPECT_EQ(Caption("btnChange(3)"), Named(63));
  EXPECT_EQ(Caption("btnPlay(0)"), "WTE Offtackle Right");
  EXPECT_EQ(Caption("btnPlay(6)"), "Rund and Shoot 3-Wing");
  EXPECT_EQ(Caption("btnPlay(7)"), "Unknown play 8");
  EXPECT_TRUE(Find<QRadioButton>(*editor_, "Option1(0)").isChecked());
  EXPECT_TRUE(Find<QRadioButton>(*editor_, "Option3(1)").isChecked());
  EXPECT_NE(FromLatin1(Team(5).City), "PENDING");
  EditTeam* first = editor_;
  Find<QPushButton>(*viewer_, "btnEdit").click();
  EXPECT_EQ(area_.findChildren<EditTeam*>(), QList<EditTeam*>{first});
  Find<QPushButton>(*viewer_, "btnOK").click();
  EXPECT_FALSE(session_->EditTeamOpen);
  QTest::qWait(1);
  EXPECT_TRUE(area_.subWindowList().isEmpty());
}

TEST_F(TeamForms, TypedTextsAreUpperCaseWithTheCaretBehindThemAndBounded) {
  OpenEditor(4);
  Box("txtAbbreviation").SetText("");
  QTest::keyClicks(&Box("txtAbbreviation"), "abzqx");
  QTest::keyClick(&Box("txtAbbreviation"), Qt::Key_Home);
  EXPECT_EQ(Box("txtAbbreviation").Text().left(2), "AB");
  EXPECT_EQ(Box("txtAbbreviation").Text().size(), 4);
  QTest::keyClick(&Box("txtAbbreviation"), Qt::Key_Delete);
  EXPECT_EQ(Box("txtAbbreviation").cursorPosition(), 3);
  for (const char* name : {"txtCity", "txtName"}) {
    Box(name).SetText("");
    QTest::keyClicks(&Box(name), "abcdefghijklmnopq");
    EXPECT_EQ(Box(name).Text(), "ABCDEFGHIJKLMNO") << name;
  }
  EXPECT_EQ(session_->PreviewCity, "ABCDEFGHIJKLMNO");
  EXPECT_NE(Team(4).City, "ABCDEFGHIJKLMNO");
}

/// Typing that can't be taken back, or that a pick of a color makes final.
TEST_F(TeamForms, TypedTextsCanBeUndoneAndPastedOnesHaveNoControlCharacters) {
  OpenEditor(4);
  for (const auto& [name, pending] :
       {std::pair{"txtCity", &session_->PreviewCity}, std::pair{"txtName", &session_->PreviewName},
        std::pair{"txtAbbreviation", &session_->PreviewAbbreviation}}) {
    TextBox& box = Box(name);
    const QString before = box.Text();
    EXPECT_FALSE(box.isUndoAvailable()) << name;
    QTest::keyClick(&box, Qt::Key_Home);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClick(&box, Qt::Key_Backspace);
    Find<QRadioButton>(*editor_, "Option3(0)").click();
    Undo(box);
    Undo(box);
    EXPECT_EQ(box.Text(), before);
    EXPECT_EQ(*pending, before.toStdString());
    EXPECT_EQ(box.cursorPosition(), before.size());
    box.selectAll();
    Paste(box, "\na\r\nb\t");
    EXPECT_EQ(box.Text(), "A B") << name;
    EXPECT_EQ(*pending, "A B");
    Undo(box);
    EXPECT_EQ(box.Text(), before);
    Redo(box);
    EXPECT_EQ(box.Text(), "A B");
  }
  GoTo(5);
  EXPECT_FALSE(Box("txtCity").isUndoAvailable()) << "another team's text comes back";
}

/// The list's selection lost on a save, or a short abbreviation stored as typed.
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

/// A team that is stored although the user only looked at it, its odd bytes made plain.
TEST_F(TeamForms, OddBytesSurviveOKUntouched) {
  Team(12).TeamColors = {{0x4F, 7, 0xFF, 64, 99, 200}};
  Team(12).DivChampColors = {{255, 64, 1, 2, 3}};
  Team(12).Formation = 7;
  session_->League.TeamPlays[12] = {{8, 9, 0, 1, 2, 3, 4, 9}};
  OpenEditor(12);
  const LeagueData before = session_->League;
  EXPECT_EQ(Caption("btnChange(1)"), "Unknown FF");
  EXPECT_EQ(Find<ColorBox>(*editor_, "picDivChamp(0)").BackColor(), std::nullopt);
  const QImage figure = Find<PictureBox>(*editor_, "picJersey(2)").Picture();
  std::set<QRgb> tones;
  for (int x = 18; x < 24; ++x) tones.insert(figure.pixel(x, 3));
  EXPECT_EQ(tones.size(), 2u) << "an unknown colour is hatched";
  for (const char* option : {"Option1(0)", "Option2(0)", "Option3(0)"}) {
    EXPECT_FALSE(Find<QRadioButton>(*editor_, option).isChecked()) << option;
  }
  Press("btnSave");
  EXPECT_TRUE(session_->League == before);
}

TEST_F(TeamForms, TheFiguresShowTheThreeColorsOfTheirOwnUniform) {
  Team(6).TeamColors = {{0x11, 22, 0x21, 0x2A, 6, 0x38}};
  OpenEditor(6);
  // Row 1 column 6 is colour 1, row 3 column 7 the skin, row 4 column 2 colour 3, the corner
  // ground.
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

/// Room counted from stored texts only, or an overdrawn block that looks like any other.
TEST_F(TeamForms, TheRoomForTextsFollowsEachKeyAndIsMarkedWhenOverdrawn) {
  OpenEditor(2);
  Box("txtCity").SetText("ABC");
  const QLabel& room = Find<QLabel>(*editor_, "lblTextRoom");
  const QLabel& mark = Find<QLabel>(*editor_, "imgTextsTooLong");
  const QString before = room.text();
  EXPECT_TRUE(mark.isHidden());
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

/// Champion boxes passed in array order, or a control that Tab never reaches.
TEST_F(TeamForms, TabFollowsReadingOrder) {
  OpenEditor(1);
  std::string order;
  QWidget* widget = &Box("txtCity");
  do {
    const bool radio = qobject_cast<QRadioButton*>(widget) != nullptr;
    if (widget->focusPolicy() & Qt::TabFocus && editor_->isAncestorOf(widget) && !radio) {
      order += widget->objectName().toStdString() + " ";
    }
    widget = widget->nextInFocusChain();
  } while (widget != &Box("txtCity"));
  EXPECT_EQ(order,
            "txtCity txtName txtAbbreviation btnChange(0) btnChange(1) btnChange(2) btnChange(3) "
            "cmbFormation btnPlay(0) btnPlay(1) btnPlay(2) btnPlay(3) btnPlay(4) btnPlay(5) "
            "btnPlay(6) btnPlay(7) picDivChamp(0) picDivChamp(1) picDivChamp(2) picDivChamp(3) "
            "picDivChamp(4) picConfChamp(1) picConfChamp(2) picConfChamp(3) picConfChamp(0) "
            "btnSave btnCancel ");
}

}  // namespace
}  // namespace rostermill::test
