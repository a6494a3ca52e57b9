#include <QFile>

#include "tests/screens/teams/team_forms_fixture.h"
#include "toolkit/click_label.h"

namespace rostermill::test {
namespace {

/// Presses Space on a picture of the next dialog, then a button, or closes it with "close".
void PickInNextDialog(const QString& picture, const QString& button) {
  OnNextDialog([=](QDialog& dialog) {
    if (!picture.isEmpty()) QTest::keyClick(&Find<PictureBox>(dialog, picture), Qt::Key_Space);
    if (button == "close") {
      dialog.close();
    } else if (button == "Esc") {
      QTest::keyClick(&dialog, Qt::Key_Escape);
    } else {
      Find<QPushButton>(dialog, button).click();
    }
  });
}

/// Presses Enter where the focus is, which is meant to take what is picked.
void TakeByEnter(QDialog& dialog) {
  EXPECT_NE(dialog.focusWidget(), nullptr);
  if (dialog.focusWidget() != nullptr) QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  if (dialog.isVisible()) dialog.reject();
}

TEST_F(TeamForms, AJerseyColorIsPendingUntilOK) {
  Team(6).TeamColors = {{1, 22, 2, 3, 6, 4}};
  OpenEditor(6);
  const QString viewed = Viewed("lblInfo(3)");
  QString first;
  OnNextDialog([&](QDialog& dialog) {
    first = Find<QLabel>(dialog, "lblColor").text();
    const QPoint middle = dialog.screen()->availableGeometry().center();
    EXPECT_LT((dialog.geometry().center() - middle).manhattanLength(), 10);
    Find<QPushButton>(dialog, "btnOK").click();
  });
  Press("btnChange(1)");
  EXPECT_EQ(first, Named(2));
  EXPECT_EQ(session_->PreviewColors[1][3], 2);
  PickInNextDialog("picColor(40)", "btnOK");
  Press("btnChange(1)");
  EXPECT_EQ(Caption("btnChange(1)"), Named(40));
  EXPECT_EQ(Cell("picJersey(2)", 4, 2), Screen(40));
  EXPECT_EQ(Viewed("lblInfo(3)"), viewed);
  PickInNextDialog("picColor(41)", "btnOK");
  Press("btnChange(2)");
  Press("btnSave");
  EXPECT_EQ(Team(6).TeamColors, (IndexedArray<std::int16_t, 1, 6>{{1, 22, 40, 41, 6, 4}}));
  EXPECT_EQ(Viewed("lblInfo(3)"), " " + Named(1) + " and " + Named(40));
}

TEST_F(TeamForms, CancelEscAndTheCloseBoxKeepAJerseyColor) {
  Team(6).TeamColors[1] = 1;
  OpenEditor(6);
  for (const char* way : {"btnCancel", "Esc", "close"}) {
    PickInNextDialog("picColor(40)", way);
    Press("btnChange(0)");
    EXPECT_EQ(Caption("btnChange(0)"), Named(1)) << way;
  }
}

TEST_F(TeamForms, AChampionColorIsStoredAtOnceAndKeptByCancel) {
  OpenEditor(8);
  PickInNextDialog("picColor(17)", "btnOK");
  PressPicture("picDivChamp(1)");
  EXPECT_EQ(Team(8).DivChampColors[2], 17);
  PickInNextDialog("picColor(18)", "btnCancel");
  PressPicture("picDivChamp(1)");
  EXPECT_EQ(Team(8).DivChampColors[2], 17);
  PickInNextDialog("picColor(19)", "close");
  PressPicture("picConfChamp(2)");
  EXPECT_EQ(Team(8).ConfChampColors[3], 19);
  OnNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(Find<QLabel>(dialog, "lblColor").text(), Named(19));
    dialog.reject();
  });
  PressPicture("picConfChamp(2)");
  Press("btnCancel");
  EXPECT_FALSE(session_->EditTeamOpen);
}

TEST_F(TeamForms, AnUnknownColorIsKeptByOKAndReplacedByAPick) {
  Team(8).ConfChampColors[1] = 0xC1;
  Team(8).TeamColors[1] = 0x41;
  OpenEditor(8);
  OnNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(Find<QLabel>(dialog, "lblColor").text(), "Unknown C1");
    EXPECT_EQ(Find<ColorBox>(dialog, "picCurrentColor").BackColor(), std::nullopt);
    Find<QPushButton>(dialog, "btnOK").click();
  });
  PressPicture("picConfChamp(0)");
  EXPECT_EQ(Team(8).ConfChampColors[1], 0xC1);
  PickInNextDialog("", "btnOK");
  Press("btnChange(0)");
  EXPECT_EQ(session_->PreviewColors[1][1], 0x41);
  OnNextDialog(TakeByEnter);
  Press("btnChange(0)");
  EXPECT_EQ(session_->PreviewColors[1][1], 0x41) << "Enter at once picks the first color";
  PickInNextDialog("picColor(0)", "btnOK");
  Press("btnChange(0)");
  EXPECT_EQ(session_->PreviewColors[1][1], 0);
}

TEST_F(TeamForms, EnterPicksAColorOrPlayAndEnterAgainOrADoubleClickTakesIt) {
  Team(8).TeamColors[1] = 22;
  League().TeamPlays[8][1] = 2;
  OpenEditor(8);
  const auto enter_below = [](QDialog& dialog) {
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(dialog.isVisible());
    TakeByEnter(dialog);
  };
  OnNextDialog(enter_below);
  Press("btnChange(0)");
  EXPECT_EQ(session_->PreviewColors[1][1], 38);
  OnNextDialog(enter_below);
  Press("btnPlay(0)");
  EXPECT_EQ(session_->PreviewPlays[1], 6);
  OnNextDialog([&](QDialog& dialog) {
    auto& name = Find<QWidget>(dialog, "lblName(3)");
    QTest::mouseClick(&name, Qt::LeftButton);
    ASSERT_TRUE(dialog.isVisible());
    QTest::mouseDClick(&name, Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    if (dialog.isVisible()) dialog.reject();
  });
  Press("btnPlay(0)");
  EXPECT_EQ(session_->PreviewPlays[1], 3);
}

TEST_F(TeamForms, ThePlayChooserShowsThePicturesOfItsSlot) {
  OpenEditor(5);
  for (int slot = 1; slot <= 8; ++slot) {
    SCOPED_TRACE(slot);
    OnNextDialog([&](QDialog& dialog) {
      for (int choice = 0; choice < 8; ++choice) {
        const auto& picture = Find<PictureBox>(dialog, MemberName("picRun", choice));
        EXPECT_EQ(picture.Picture(), PlayPicture(slot, choice));
      }
      dialog.reject();
    });
    Press(MemberName("btnPlay", slot - 1));
  }
}

TEST_F(TeamForms, ThePlayChooserStartsFromTheStoredPlay) {
  League().TeamPlays[5][1] = 2;
  OpenEditor(5);
  PickInNextDialog("picRun(6)", "btnOK");
  Press("btnPlay(0)");
  PickInNextDialog("picRun(7)", "btnCancel");
  Press("btnPlay(0)");
  EXPECT_EQ(Caption("btnPlay(0)"), "FB Open Left");
  // OK without a pick takes the pending one back.
  OnNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(Find<QLabel>(dialog, "lblChosen").text(), "WTE Offtackle Right");
    Find<QPushButton>(dialog, "btnOK").click();
  });
  Press("btnPlay(0)");
  EXPECT_EQ(Caption("btnPlay(0)"), "WTE Offtackle Right");
  PickInNextDialog("picRun(5)", "btnOK");
  Press("btnPlay(7)");
  Press("btnSave");
  EXPECT_EQ(League().TeamPlays[5][1], 2);
  EXPECT_EQ(League().TeamPlays[5][8], 5);
}

TEST_F(TeamForms, APlayWithoutPictureIsPickedByItsName) {
  const TempFolder folder;
  ASSERT_TRUE(QFile::copy(FromUtf8(BinFolder() + "p3-1.bmp"), FromUtf8(folder.Path("p3-1.bmp"))));
  session_->AppDir = folder.Path("");
  League().TeamPlays[5][7] = 9;
  OpenEditor(5);
  OnNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(Find<QLabel>(dialog, "lblChosen").text(), "Unknown play 9");
    EXPECT_FALSE(Find<PictureBox>(dialog, "picRun(1)").isHidden());
    EXPECT_TRUE(Find<PictureBox>(dialog, "picRun(3)").isHidden());
    TakeByEnter(dialog);
  });
  Press("btnPlay(6)");
  EXPECT_EQ(session_->PreviewPlays[7], 9);
  OnNextDialog([&](QDialog& dialog) {
    auto& name = Find<ClickLabel>(dialog, "lblName(3)");
    EXPECT_EQ(name.text(), "Rund and Shoot 3-Wing");
    QTest::mouseClick(&name, Qt::LeftButton);
    EXPECT_EQ(Find<QLabel>(dialog, "lblChosen").text(), "Rund and Shoot 3-Wing");
    // Stop by stop, the pictured one between the others too.
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Left, Qt::Key_Down, Qt::Key_Home}) {
      QTest::keyClick(dialog.focusWidget(), key);
    }
    EXPECT_EQ(dialog.focusWidget()->objectName(), "lblName(4)");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    Find<QPushButton>(dialog, "btnOK").click();
  });
  Press("btnPlay(6)");
  EXPECT_EQ(session_->PreviewPlays[7], 4);
}

}  // namespace
}  // namespace rostermill::test
