#include "shell/rsm_form.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QInputDialog>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "league/load_image.h"
#include "tests/support/damage.h"
#include "tests/support/dialogs.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/text_box.h"

namespace rostermill::test {
namespace {

class MainWindow : public testing::Test {
 protected:
  MainWindow() : path_(folder_.Path("league.nes")) {
    session_.AppDir = BinFolder();
    WriteFile(path_, SampleBytes());
    window_ = std::make_unique<FRSMform>(session_);
    window_->show();
  }
  ~MainWindow() override { EXPECT_EQ(DialogsStillExpected(), 0); }

  QAction& Item(const QString& name) { return Find<QAction>(*window_, name); }
  QString Status() { return Find<QLabel>(*window_, "StatusBar1.Panels(1)").text(); }
  QWidget* Form(const QString& name) {
    for (QMdiSubWindow* window : window_->findChildren<QMdiSubWindow*>()) {
      if (window->isVisible() && window->widget() != nullptr &&
          window->widget()->objectName() == name) {
        return window->widget();
      }
    }
    return nullptr;
  }
  void Load(const std::string& path) {
    AnswerNextFileDialog(QString::fromStdString(path));
    Item("mFilLoadROM").trigger();
  }

  TempFolder folder_;
  std::string path_;
  LeagueSession session_;
  std::unique_ptr<FRSMform> window_;
};

TEST_F(MainWindow, WithoutAnImageOnlyLoadExitAndAboutAreOffered) {
  for (const char* item : {"mFilUnloadROM", "mFilSaveROM", "mnuEditGameSettings", "mViePlayerData",
                           "mVieTeamData", "mDatProbowl", "mSchEdit", "mSchView", "mVieLeaders"}) {
    EXPECT_FALSE(Item(item).isEnabled()) << item;
  }
  for (const char* item : {"mFilLoadROM", "mFilExit", "mHelAbout"}) {
    EXPECT_TRUE(Item(item).isEnabled()) << item;
  }
  EXPECT_EQ(Status(), "No ROM Loaded");
  EXPECT_EQ(Item("mAFCe1").text(), " ");
  EXPECT_EQ(Item("mNFCw4").text(), " ");
  EXPECT_EQ(window_->windowTitle(), "Rostermill");
}

TEST_F(MainWindow, ALoadEnablesTheCommandsAndNamesTheTeams) {
  Load(path_);
  EXPECT_TRUE(Item("mFilSaveROM").isEnabled());
  EXPECT_TRUE(Item("mViePlayerData").isEnabled());
  EXPECT_TRUE(Item("mSchView").isEnabled());
  EXPECT_EQ(Status().toStdString(), path_);
  EXPECT_EQ(Item("mAFCe1").text(), "HARBORTON SPARROWS");
  EXPECT_EQ(Item("mAFCw5").text(), "FERNWICK FERRETS");
  EXPECT_EQ(Item("mNFCc5").text(), "PALMSHORE CRABS");
  EXPECT_EQ(Item("mNFCw4").text(), "PEACHFORD BEES");
  EXPECT_EQ(Form("Loading"), nullptr);
  EXPECT_TRUE(window_->isEnabled());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindow, ARejectedFileLeavesPathStatusAndLeagueInUse) {
  Load(path_);
  WriteFile(folder_.Path("other.nes"), std::string("not an image"));
  const LeagueData before = session_.League;
  for (const std::string name : {"other.nes", "missing.nes"}) {
    QString text;
    QString title;
    AnswerNextMessage("OK", &text, &title);
    EXPECT_FALSE(window_->OpenImageFile(folder_.Path(name)));
    EXPECT_EQ(text, "Not a valid ROM file!");
    EXPECT_EQ(title, "Error");
    EXPECT_EQ(session_.ImagePath, path_);
    EXPECT_EQ(Status().toStdString(), path_);
    EXPECT_EQ(session_.League, before);
    EXPECT_EQ(Form("Loading"), nullptr);
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("missing.nes")));
}

TEST_F(MainWindow, ACancelledFileDialogChangesNothing) {
  Load("");
  EXPECT_EQ(session_.ImagePath, "");
  EXPECT_EQ(session_.ImageLoaded, 0);
}

TEST_F(MainWindow, UnloadAsksAndClosesTheViewers) {
  Load(path_);
  Item("mViePlayerData").trigger();
  ASSERT_NE(Form("ViewPlayer"), nullptr);
  QString text;
  AnswerNextMessage("No", &text);
  Item("mFilUnloadROM").trigger();
  EXPECT_EQ(text, "Are you sure you want to unload the ROM?");
  EXPECT_EQ(session_.ImageLoaded, 1);
  EXPECT_NE(Form("ViewPlayer"), nullptr);

  AnswerNextMessage("Yes");
  Item("mFilUnloadROM").trigger();
  EXPECT_EQ(session_.ImageLoaded, 0);
  EXPECT_EQ(Form("ViewPlayer"), nullptr);
  EXPECT_EQ(Status(), "No ROM Loaded");
  EXPECT_EQ(Item("mAFCe1").text(), " ");
  EXPECT_FALSE(Item("mFilSaveROM").isEnabled());
  EXPECT_EQ(session_.ImagePath, path_);
}

// Would catch an Enter too many that throws the league away.
TEST_F(MainWindow, EnterKeepsTheLeagueAtAnUnloadAndSavesAtASave) {
  const auto enter = [] {
    OnNextDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
  };
  Load(path_);
  enter();
  Item("mFilUnloadROM").trigger();
  EXPECT_EQ(session_.ImageLoaded, 1);
  session_.League.RosterYear = "77";
  enter();
  Item("mFilSaveROM").trigger();
  EXPECT_NE(FileBytes(path_), SampleBytes());
}

TEST_F(MainWindow, AChangeOfOnePlayerMovesItsOwnBytesAndNoOthers) {
  const auto save = [this] {
    AnswerNextMessage("Yes");
    Item("mFilSaveROM").trigger();
    return FileBytes(path_);
  };
  Load(path_);
  // The first back of team 1: his entry is the third, and he returns neither kicks nor punts.
  session_.League.NameData[1][3] = {"sid", "TESTER", "29"};
  session_.League.SkillData[1][1] = {5, 5, 5, 5, 40, 5, 5, 0, 0};
  for (SkillRec& mate : session_.League.SkillData[1]) mate.KickReturner = 0;
  session_.League.SkillData[1][4].KickReturner = 1;
  const auto before = save();
  Item("mViePlayerData").trigger();
  QWidget* viewer = Form("ViewPlayer");
  ASSERT_NE(viewer, nullptr);
  auto& teams = Find<DropDownList>(*viewer, "cmbTeam");
  teams.SetListIndex(teams.findText("HARBORTON SPARROWS"));
  Find<DropDownList>(*viewer, "cmbPosition").SetListIndex(2);
  Find<QPushButton>(*viewer, "btnEdit").click();
  QWidget* editor = Form("EditPlayer");
  ASSERT_NE(editor, nullptr);
  Find<TextBox>(*editor, "txtPlayer").setText("tid TESTES");
  Find<QPushButton>(*editor, "btnPlus(4)").click();
  Find<QPushButton>(*editor, "btnPlus(8)").click();
  Find<QCheckBox>(*editor, "chkKick").setChecked(true);
  Find<QPushButton>(*editor, "btnSavePlayer").click();
  const auto after = save();

  const int entry = (before[0x4C] | before[0x4D] << 8) - 0x7FF0;
  EXPECT_EQ(DifferingOffsets(before, after),
            (std::vector<int>{entry, entry + 1, entry + 9, 0x301D, 0x239D3, 0x328D3}));
  EXPECT_EQ(std::string(after.begin() + entry, after.begin() + entry + 10), "\x30tidTESTES");
  EXPECT_EQ(after[0x301D], 0x65);
  EXPECT_EQ(after[0x239D3] >> 4, 2);
  EXPECT_EQ(after[0x328D3], after[0x239D3]);
  const LeagueData changed = session_.League;
  Load(path_);
  EXPECT_EQ(session_.League, changed);
}

TEST_F(MainWindow, ASaveLeavesTheFocusWhereItWasAndCtrlWUnloads) {
  Load(path_);
  Item("mViePlayerData").trigger();
  Find<QPushButton>(*Form("ViewPlayer"), "btnEdit").click();
  auto& name = Find<TextBox>(*Form("EditPlayer"), "txtPlayer");
  QApplication::setActiveWindow(window_.get());
  name.setFocus();
  AnswerNextMessage("Yes");
  Item("mFilSaveROM").trigger();
  EXPECT_EQ(window_->focusWidget(), &name);

  QString text;
  QApplication::setActiveWindow(window_.get());
  AnswerNextMessage("No", &text);
  QTest::keyClick(&name, Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(text, "Are you sure you want to unload the ROM?");
}

TEST_F(MainWindow, AMissingPaletteIsAskedForAndABlankAnswerEndsTheProgram) {
  session_.AppDir = folder_.Path("");
  OnNextDialog([](QDialog& dialog) {
    auto& box = dynamic_cast<QInputDialog&>(dialog);
    EXPECT_EQ(box.objectName(), "InputBox");
    EXPECT_EQ(box.windowTitle(), "File Not Found");
    box.setTextValue(QString::fromStdString(BinFolder()));
    box.accept();
  });
  EXPECT_TRUE(window_->OpenImageFile(path_));
  EXPECT_EQ(session_.AppDir, BinFolder());

  session_.AppDir = folder_.Path("");
  OnNextDialog([](QDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(window_->OpenImageFile(path_));
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(MainWindow, TextsOfAnyLengthAndKindInTheImageOnlyLookOdd) {
  auto bytes = SampleBytes();
  for (int at = 0x48; at < 0x6DA; at += 4) bytes[static_cast<std::size_t>(at + 1)] = 0xFF;
  for (int at = 0x1FC50; at < 0x1FD00; at += 4) bytes[static_cast<std::size_t>(at + 1)] = 0xFF;
  WriteFile(path_, bytes);
  Load(path_);
  EXPECT_EQ(session_.ImageLoaded, 1);
  Item("mViePlayerData").trigger();
  ASSERT_NE(Form("ViewPlayer"), nullptr);
  EXPECT_LT(Form("ViewPlayer")->sizeHint().width(), 1000);
  auto& players = Find<DropDownList>(*Form("ViewPlayer"), "cmbPlayer");
  Find<QPushButton>(*Form("ViewPlayer"), "btnEdit").click();
  ASSERT_NE(Form("EditPlayer"), nullptr);
  EXPECT_LT(Form("EditPlayer")->sizeHint().width(), 1000);
  for (int index = 0; index < players.ListCount(); ++index) players.SetListIndex(index);
  QString text;
  AnswerNextMessage("Yes");
  AnswerNextMessage("OK", &text);
  Item("mFilSaveROM").trigger();
  EXPECT_TRUE(text.contains("too long for the image"));
  EXPECT_EQ(FileBytes(path_), bytes);
}

TEST_F(MainWindow, EveryItemOfTheMenuHasItsName) {
  for (const char* name : {"mFilE",
                           "mFilB1",
                           "mnuFileRecentFiles",
                           "mnuFileRecent(0)",
                           "mnuFileRecent(3)",
                           "mnuFileB2",
                           "mView",
                           "mDatB1",
                           "mnuEditB2",
                           "mView1",
                           "mSchVieAll",
                           "mSchVieB1",
                           "mSchVieAFC",
                           "mSchVieAFCEast",
                           "mSchVieAFCCentral",
                           "mSchVieAFCWest",
                           "mSchVieNFC",
                           "mVieNFCEast",
                           "mVieNFCCentral",
                           "mViewNFCWest",
                           "mHelp"}) {
    EXPECT_NE(window_->findChild<QAction*>(name), nullptr) << name;
  }
  EXPECT_NE(window_->findChild<QMenu*>("mSchView"), nullptr);
  EXPECT_EQ(MenuTree::TeamOfItem("mAFCw5"), 14);
  EXPECT_EQ(MenuTree::TeamOfItem("mNFCc5"), 24);
  EXPECT_EQ(MenuTree::TeamOfItem("mHelp"), 0);
  EXPECT_EQ(Item("mFilSaveROM").shortcut(), QKeySequence("Ctrl+S"));
}

}  // namespace
}  // namespace rostermill::test
