#include "screens/players/player_photos.h"

#include <QLabel>

#include "rules/position_layout.h"
#include "screens/players/edit_player.h"
#include "tests/screens/screen_fixture.h"

namespace rostermill::test {
namespace {

class Photos : public ScreenTest {
 protected:
  Photos() { OpenEditor(37); }

  void OpenEditor(int face) {
    SetFace(League(), 1, 1, face);
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
  static void Click(PlayerPhotos& photos, const char* button) {
    Find<QAbstractButton>(photos, button).click();
  }
  static const QImage& New(PlayerPhotos& photos) {
    return Find<PictureBox>(photos, "imgNew").Picture();
  }
  static QImage File(const std::string& name) {
    return QImage(QString::fromStdString(BinFolder() + "faces/" + name + ".bmp"))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
  }

  TempFolder folder_;
  std::unique_ptr<EditPlayer> editor_;
};

TEST_F(Photos, OpenWithThePlayersOwnFace) {
  OnNextDialog([](QDialog& dialog) { dialog.reject(); });
  QTest::mouseClick(&EditorFace(), Qt::RightButton);
  EXPECT_EQ(DialogsStillExpected(), 1) << "the right button opened them";
  Pick([&](PlayerPhotos& photos) {
    EXPECT_EQ(photos.minimumSize(), photos.maximumSize());
    EXPECT_EQ(New(photos), File("25"));
    Click(photos, "btnOK");
  });
  EXPECT_EQ(EditorNumber(), "37") << "OK without a pick keeps the face";
}

TEST_F(Photos, CellsShowAndGiveTheFacesOfTheirPage) {
  for (const auto& [page, first] : {std::pair{"radBlack", 128}, {"radWhite", 0}}) {
    Pick([&, page = page, first = first](PlayerPhotos& photos) {
      if (first != 0) Click(photos, page);
      for (int index = 0; index < 128; ++index) {
        const QString file = QString("%1").arg(first + index, 2, 16, QChar('0')).toUpper();
        EXPECT_EQ(Cell(photos, index).Picture(), File(file.toStdString()));
      }
      Press(photos, 126);
      Press(photos, 127);
      if (first == 0) Click(photos, "radBlack");  // a pick stays
      EXPECT_EQ(New(photos), File(first == 0 ? "7F" : "FF"));
      Click(photos, "btnOK");
    });
    EXPECT_EQ(EditorNumber(), first == 0 ? "127" : "255");
    EXPECT_EQ(EditorFace().Picture(), File(first == 0 ? "7F" : "FF"));
  }
  Pick([&](PlayerPhotos& photos) {
    Press(photos, 99);
    Click(photos, "btnCancel");
  });
  EXPECT_EQ(FaceOf(League(), 1, 1), 37) << "the league changes at the save only";
  Find<QPushButton>(*editor_, "btnSavePlayer").click();
  EXPECT_EQ(FaceOf(League(), 1, 1), 127);
}

TEST_F(Photos, MissingPicturesAreReplacedCellByCellAndTheNumbersCanStillBePicked) {
  std::filesystem::create_directory(folder_.Path("faces"));
  for (const std::string name : {"faces/na.bmp", "faces/00.bmp", "faces/81.bmp"}) {
    std::filesystem::copy_file(BinFolder() + name, folder_.Path(name));
  }
  session_->AppDir = folder_.Path("");
  OpenEditor(37);
  Pick([&](PlayerPhotos& photos) {
    EXPECT_TRUE(New(photos).isNull()) << "the opener has no picture in place of its own";
    EXPECT_EQ(Cell(photos, 1).Picture(), File("na"));
    Click(photos, "radBlack");
    EXPECT_EQ(Cell(photos, 0).Picture(), File("na"));
    Click(photos, "radWhite");
    EXPECT_EQ(Cell(photos, 0).Picture(), File("00"));
    EXPECT_EQ(Cell(photos, 1).Picture(), File("81")) << "it keeps the other page's";
    Press(photos, 1);
    EXPECT_EQ(New(photos), File("na"));
    Click(photos, "btnOK");
  });
  EXPECT_EQ(EditorNumber(), "1");
  EXPECT_EQ(EditorFace().Picture(), File("na"));

  std::filesystem::remove(folder_.Path("faces/na.bmp"));
  Pick([&](PlayerPhotos& photos) {
    Click(photos, "radBlack");
    EXPECT_TRUE(Cell(photos, 3).Picture().isNull());
    Press(photos, 3);
    EXPECT_TRUE(New(photos).isNull());
    Click(photos, "btnOK");
  });
  EXPECT_EQ(EditorNumber(), "131");
  EXPECT_TRUE(EditorFace().Picture().isNull());
}

TEST_F(Photos, EnterPicksAndThenTakesTheFace) {
  Pick([&](PlayerPhotos& photos) {
    QApplication::setActiveWindow(&photos);
    const auto press = [&](Qt::Key key) { QTest::keyClick(photos.focusWidget(), key); };
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(New(photos), File("35"));
    Click(photos, "radBlack");
    Cell(photos, 53).setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(New(photos), File("B5")) << "the same cell of the other page is another face";
    ASSERT_TRUE(photos.isVisible());
    press(Qt::Key_Return);
    EXPECT_FALSE(photos.isVisible());
    if (photos.isVisible()) photos.reject();
  });
  EXPECT_EQ(EditorNumber(), "181");

  OpenEditor(200);
  Pick([&](PlayerPhotos& photos) { QTest::keyClick(photos.focusWidget(), Qt::Key_Return); });
  EXPECT_EQ(EditorNumber(), "200") << "a face of the other page isn't lost by Enter";
}

}  // namespace
}  // namespace rostermill::test
