#include "screens/players/player_photos.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "league/ratings.h"
#include "screens/players/edit_player.h"
#include "tests/support/dialogs.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

class Photos : public testing::Test {
 protected:
  Photos() { OpenEditor(37); }
  ~Photos() override { EXPECT_EQ(DialogsStillExpected(), 0); }

  void OpenEditor(int face) {
    SetFace(session_->League, 1, 1, face);
    editor_ = std::make_unique<EditPlayer>(*session_);
    editor_->show();
  }
  /// Presses the editor's photo; `act` drives the picker and closes it.
  void Pick(const std::function<void(PlayerPhotos&)>& act) {
    OnNextDialog([act](QDialog& dialog) { act(dynamic_cast<PlayerPhotos&>(dialog)); });
    QTest::mouseClick(&EditorFace(), Qt::LeftButton);
  }
  PictureBox& EditorFace() { return Find<PictureBox>(*editor_, "imgFace"); }
  QString EditorNumber() { return Find<QLabel>(*editor_, "lblFace").text(); }

  static PictureBox& Cell(PlayerPhotos& photos, int index) {
    return Find<PictureBox>(photos, QString("imgFace(%1)").arg(index));
  }
  static void Press(PlayerPhotos& photos, int index) {
    QTest::mouseClick(&Cell(photos, index), Qt::LeftButton);
  }
  static void Turn(PlayerPhotos& photos, const char* page) {
    Find<QRadioButton>(photos, page).click();
  }
  static void Click(PlayerPhotos& photos, const char* button) {
    Find<QPushButton>(photos, button).click();
  }
  static const QImage& New(PlayerPhotos& photos) {
    return Find<PictureBox>(photos, "imgNew").Picture();
  }
  static QImage File(const std::string& name, const std::string& folder = BinFolder()) {
    return QImage(QString::fromStdString(folder + "faces/" + name + ".bmp"))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
  }
  /// A program folder with these pictures and no others.
  void UseFaces(std::initializer_list<const char*> names) {
    std::filesystem::create_directory(folder_.Path("faces"));
    for (const std::string name : names) {
      std::filesystem::copy_file(BinFolder() + "faces/" + name + ".bmp",
                                 folder_.Path("faces/" + name + ".bmp"));
    }
    session_->AppDir = folder_.Path("");
  }

  TempFolder folder_;
  std::unique_ptr<LeagueSession> session_ = SampleSession();
  std::unique_ptr<EditPlayer> editor_;
};

TEST_F(Photos, OpenByTheLeftButtonAndTheKeyboardAndNothingElse) {
  QTest::mouseClick(&EditorFace(), Qt::RightButton);
  QTest::mouseClick(&EditorFace(), Qt::MiddleButton);
  QTest::keyClick(&EditorFace(), Qt::Key_A);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(EditorFace().focusPolicy() & Qt::TabFocus);
  int opened = 0;
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
    OnNextDialog([&](QDialog& dialog) {
      ++opened;
      dialog.reject();
    });
    QTest::keyClick(&EditorFace(), key);
  }
  EXPECT_EQ(opened, 2);
}

TEST_F(Photos, OpenOnTheWhitePageWithThePlayersOwnFace) {
  for (const int face : {37, 200}) {
    OpenEditor(face);
    Pick([&](PlayerPhotos& photos) {
      EXPECT_EQ(photos.windowTitle(), "Player Photos");
      EXPECT_TRUE(photos.isModal());
      EXPECT_TRUE(Find<QRadioButton>(photos, "radWhite").isChecked());
      EXPECT_EQ(New(photos), File(face == 37 ? "25" : "C8"));
      EXPECT_EQ(Cell(photos, 0).Picture(), File("00"));
      EXPECT_EQ(Cell(photos, 127).Picture(), File("7F"));
      Click(photos, "btnOK");
    });
    EXPECT_EQ(EditorNumber(), QString::number(face)) << "OK without a pick keeps the face";
    EXPECT_EQ(EditorFace().Picture(), File(face == 37 ? "25" : "C8"));
  }
}

TEST_F(Photos, CellsGiveTheFacesOfTheirPage) {
  struct Case {
    const char* page;
    int cell;
    const char* number;
    const char* file;
  };
  for (const Case& c : {Case{"radWhite", 0, "0", "00"}, Case{"radWhite", 127, "127", "7F"},
                        Case{"radBlack", 0, "128", "80"}, Case{"radBlack", 127, "255", "FF"}}) {
    Pick([&](PlayerPhotos& photos) {
      Turn(photos, c.page);
      Press(photos, c.cell);
      EXPECT_EQ(Cell(photos, c.cell).Picture(), File(c.file));
      EXPECT_EQ(New(photos), File(c.file));
      Click(photos, "btnOK");
    });
    EXPECT_EQ(EditorNumber(), c.number);
    EXPECT_EQ(EditorFace().Picture(), File(c.file));
  }
  EXPECT_EQ(FaceOf(session_->League, 1, 1), 37) << "the league changes at the save only";
  Find<QPushButton>(*editor_, "btnSavePlayer").click();
  EXPECT_EQ(FaceOf(session_->League, 1, 1), 255);
}

TEST_F(Photos, APickStaysWhenThePageTurnsAndARightClickPicksNothing) {
  Pick([&](PlayerPhotos& photos) {
    Press(photos, 5);
    Turn(photos, "radBlack");
    EXPECT_EQ(New(photos), File("05"));
    QTest::mouseClick(&Cell(photos, 9), Qt::RightButton);
    EXPECT_EQ(New(photos), File("05"));
    Click(photos, "btnOK");
  });
  EXPECT_EQ(EditorNumber(), "5");
}

TEST_F(Photos, CancelEscAndTheCloseBoxLeaveTheEditorAsItWas) {
  const std::vector<std::function<void(PlayerPhotos&)>> ways = {
      [](PlayerPhotos& photos) { Click(photos, "btnCancel"); },
      [](PlayerPhotos& photos) { QTest::keyClick(&photos, Qt::Key_Escape); },
      [](PlayerPhotos& photos) { photos.close(); }};
  for (const auto& leave : ways) {
    Pick([&](PlayerPhotos& photos) {
      Press(photos, 99);
      leave(photos);
    });
    EXPECT_EQ(EditorNumber(), "37");
    EXPECT_EQ(EditorFace().Picture(), File("25"));
  }
}

TEST_F(Photos, MissingPicturesAreReplacedCellByCell) {
  UseFaces({"na", "00", "81", "82"});
  OpenEditor(37);
  Pick([&](PlayerPhotos& photos) {
    EXPECT_TRUE(New(photos).isNull()) << "the opener has no picture in place of his own";
    EXPECT_EQ(Cell(photos, 0).Picture(), File("00"));
    EXPECT_EQ(Cell(photos, 1).Picture(), File("na"));
    Turn(photos, "radBlack");
    EXPECT_EQ(Cell(photos, 0).Picture(), File("na"));
    EXPECT_EQ(Cell(photos, 1).Picture(), File("81"));
    Turn(photos, "radWhite");
    EXPECT_EQ(Cell(photos, 0).Picture(), File("00"));
    EXPECT_EQ(Cell(photos, 1).Picture(), File("81")) << "it keeps the other page's";
    EXPECT_EQ(Cell(photos, 3).Picture(), File("na"));
    Press(photos, 1);
    EXPECT_EQ(New(photos), File("na"));
    Click(photos, "btnOK");
  });
  EXPECT_EQ(EditorNumber(), "1");
  EXPECT_EQ(EditorFace().Picture(), File("na"));
}

TEST_F(Photos, WithoutAnyPictureTheNumbersCanStillBePicked) {
  session_->AppDir = folder_.Path("");
  Pick([&](PlayerPhotos& photos) {
    Turn(photos, "radBlack");
    EXPECT_TRUE(Cell(photos, 3).Picture().isNull());
    Press(photos, 3);
    Click(photos, "btnOK");
  });
  EXPECT_EQ(EditorNumber(), "131");
}

TEST_F(Photos, TheKeyboardWalksTheGridAndEnterPicksAndThenTakesTheFace) {
  Pick([&](PlayerPhotos& photos) {
    QApplication::setActiveWindow(&photos);
    const auto press = [&](Qt::Key key) { QTest::keyClick(photos.focusWidget(), key); };
    EXPECT_EQ(photos.focusWidget(), &Cell(photos, 37));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(photos.focusWidget(), &Cell(photos, 54));
    EXPECT_EQ(New(photos), File("25")) << "walking picks nothing";
    press(Qt::Key_Space);
    EXPECT_EQ(New(photos), File("36"));
    press(Qt::Key_Left);
    press(Qt::Key_Return);
    EXPECT_EQ(New(photos), File("35"));
    Turn(photos, "radBlack");
    Cell(photos, 53).setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(New(photos), File("B5")) << "the same cell of the other page is another face";
    ASSERT_TRUE(photos.isVisible());
    press(Qt::Key_Return);
    EXPECT_FALSE(photos.isVisible());
    if (photos.isVisible()) photos.reject();
  });
  EXPECT_EQ(EditorNumber(), "181");
  Pick([&](PlayerPhotos& photos) {
    QTest::mouseClick(&Cell(photos, 7), Qt::LeftButton);
    QTest::mouseDClick(&Cell(photos, 7), Qt::LeftButton);
    EXPECT_FALSE(photos.isVisible());
    if (photos.isVisible()) photos.reject();
  });
  EXPECT_EQ(EditorNumber(), "7");

  OpenEditor(200);
  Pick([&](PlayerPhotos& photos) { QTest::keyClick(photos.focusWidget(), Qt::Key_Return); });
  EXPECT_EQ(EditorNumber(), "200") << "a face of the other page isn't lost by Enter";
}

TEST_F(Photos, EveryCellTellsItsNumberAndFile) {
  Pick([&](PlayerPhotos& photos) {
    EXPECT_EQ(Cell(photos, 10).toolTip(), "Face 10, 0A.bmp");
    EXPECT_EQ(Cell(photos, 10).accessibleName(), "Face 10");
    Turn(photos, "radBlack");
    EXPECT_EQ(Cell(photos, 10).toolTip(), "Face 138, 8A.bmp");
    EXPECT_LE(photos.width(), 1366);
    EXPECT_LE(photos.height(), 700);
    photos.reject();
  });
}

}  // namespace
}  // namespace rostermill::test
