#include <QLabel>
#include <QMessageBox>
#include <QTreeWidget>

#include <filesystem>

#include "history/data_folder.h"
#include "history/store_folder.h"
#include "tests/support/main_window.h"
#include "toolkit/color_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/text_box.h"

namespace rostermill::test {
namespace {

class History : public MainWindow {
 protected:
  History() {
    EXPECT_TRUE(window_.OpenImageFile(path_));
    loaded_ = std::make_unique<LeagueData>(session_.League());
  }

  QString ChangedLabel() { return Find<QLabel>(window_, "lblChanged").text(); }
  TextBox& Box(const QString& form, const QString& box) { return Find<TextBox>(Form(form), box); }
  void RenamePlayer(const QString& name) {
    if (!IsOpen("EditPlayer")) {
      Pick("mViePlayerData");
      Press("ViewPlayer", "btnEdit");
    }
    Box("EditPlayer", "txtPlayer").SetText(name);
    Press("EditPlayer", "btnSavePlayer");
  }
  void Save(const QString& answer, QString* note = nullptr, QString* preset = nullptr) {
    OnNextDialog([=](QDialog& dialog) {
      const auto& box = dynamic_cast<QMessageBox&>(dialog);
      if (note != nullptr) *note = box.informativeText();
      if (preset != nullptr) *preset = box.defaultButton()->text().remove('&');
      ClickButton(dialog, answer);
    });
    Pick("mFilSaveROM");
  }
  QStringList VersionRows() {
    QStringList rows;
    auto& list = Find<QTreeWidget>(Form("frmVersions"), "lstVersions");
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
      rows << list.topLevelItem(row)->text(1) + ": " + list.topLevelItem(row)->text(2);
    }
    return rows;
  }

  std::unique_ptr<LeagueData> loaded_;
};

TEST_F(History, AConferenceChampionsColorIsAStep) {
  Pick("mVieTeamData");
  Press("ViewTeams", "btnEdit");
  OnNextDialog([](QDialog& dialog) {
    emit Find<ColorBox>(dialog, "picColor(9)").Click();
    ClickButton(dialog, "OK");
  });
  emit Find<ColorBox>(Form("EditTeam"), "picConfChamp(2)").Click();
  EXPECT_EQ(Item("mnuEditUndo").text(), "&Undo Conference Champion Color: Bayou verde Newts");
  Pick("mnuEditUndo");
  EXPECT_TRUE(session_.League() == *loaded_);
}

TEST_F(History, AnUndoKeepsTheSelectionAndWhatIsNotStoredOfAnotherPlayer) {
  Pick("mViePlayerData");
  auto& teams = Find<DropDownList>(Form("ViewPlayer"), "cmbTeam");
  auto& players = Find<DropDownList>(Form("ViewPlayer"), "cmbPlayer");
  teams.SetListIndex(7);
  RenamePlayer("Zed Zander");
  EXPECT_EQ(Find<QLabel>(window_, "lblChanged").toolTip(), "1 change since the last save");
  players.SetListIndex(3);
  Box("EditPlayer", "txtPlayer").SetText("Not Stored");
  const QString shown = teams.Text() + ": " + players.Text();
  Pick("mnuEditUndo");
  EXPECT_EQ(teams.Text() + ": " + players.Text(), shown);
  EXPECT_EQ(Box("EditPlayer", "txtPlayer").Text(), "Not Stored");
}

TEST_F(History, KeysUndoTheTypingOfABoxFirst) {
  RenamePlayer("Ann Auk");
  Activate(window_);
  TextBox& box = Box("EditPlayer", "txtPlayer");
  box.setFocus();
  QTest::keyClicks(&box, "x");
  QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), "Ann Auk");
  EXPECT_FALSE(session_.League() == *loaded_);
  QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(session_.League() == *loaded_);
}

TEST_F(History, ASaveNamesTheEditorsThatItLeavesOut) {
  for (const char* item : {"mViePlayerData", "mVieTeamData", "mSchEdit", "mnuEditGameSettings"}) {
    Pick(item);
  }
  Press("ViewPlayer", "btnEdit");
  Press("ViewTeams", "btnEdit");
  QString note;
  Save("No", &note);
  EXPECT_EQ(note, "");
  Press("EditPlayer", "btnPlus(0)");
  Press("EditPlayer", "btnMinus(1)");
  Find<DropDownList>(Form("EditTeam"), "cmbFormation").SetListIndex(2);
  auto& box = Find<ComboBox>(Form("frmEditSchedule"), "cmbTeam(0)");
  box.SetListIndex(box.ListIndex() == 5 ? 6 : 5);
  Box("frmEditGameSettings", "txtLeague(1)").SetText("NEW");
  Save("No", &note);
  EXPECT_EQ(note.toStdString(),
            "Not stored yet, and not part of this save: Edit Player (Quin Birch), "
            "Edit Team (Bayou verde Newts), Edit Schedule, Game Settings");
}

TEST_F(History, ASaveKeepsWhatItReplaces) {
  RenamePlayer("Ann Auk");
  QString preset;
  Save("Yes", nullptr, &preset);
  EXPECT_EQ(preset, "Yes");
  Pick("mToolVersions");
  Press("frmVersions", "btnBring");
  EXPECT_TRUE(session_.League() == *loaded_);
  AnswerNextMessage("OK");
  EXPECT_FALSE(window_.OpenImageFile(BinFolder() + "colors.txt"));
  EXPECT_EQ(VersionRows(), QStringList{"first state, before a save: none"});
  EXPECT_EQ(Item("mnuEditUndo").text(), "&Undo Bring Back Version 1 (before a save)");
  for (const std::string& name : FilesIn(ImageFolder(DataFolder(), path_))) {
    const std::string file = ImageFolder(DataFolder(), path_) + "/" + name;
    if (name.ends_with(".nes")) WriteFile(file, std::vector<std::uint8_t>(393'232));
  }
  Pick("mnuEditUndo");
  EXPECT_EQ(VersionRows(), QStringList{"first state, before a save: unknown"});
  EXPECT_EQ(Find<QTreeWidget>(Form("frmVersions"), "lstVersions").topLevelItem(0)->toolTip(2),
            "Version 1 is damaged.");

  std::filesystem::rename(DataFolder(), DataFolder() + " elsewhere");
  WriteFile(DataFolder(), std::string("no folder"));
  QString told;
  OnNextDialog([&](QDialog& dialog) {
    told = dynamic_cast<QMessageBox&>(dialog).text();
    EXPECT_EQ(VersionRows(), QStringList()) << "the list is ready before the message";
    EXPECT_FALSE(Find<QPushButton>(Form("frmVersions"), "btnBring").isEnabled());
    ClickButton(dialog, "OK");
  });
  Pick("mnuEditRedo");
  EXPECT_EQ(told, "Not a directory");
  Pick("mnuEditUndo");  // and no message again
  RenamePlayer("Ann Owl");
  EXPECT_TRUE(QTest::qWaitFor([this] { return ChangedLabel() == "Changed, not kept"; }))
      << "shown without another step";
  std::filesystem::remove(DataFolder());
  std::filesystem::rename(DataFolder() + " elsewhere", DataFolder());
}

TEST_F(History, AFileThatAnotherProgramChangedIsNotSavedOverSilently) {
  RenamePlayer("Ann Auk");
  auto others = SampleBytes();
  others[300'000] ^= 1;
  WriteFile(path_, others);
  QString note;
  QString preset;
  Save("No", &note, &preset);
  EXPECT_TRUE(note.startsWith("The file seems to have been changed by another program."));
  EXPECT_EQ(preset, "No");
  EXPECT_EQ(FileBytes(path_), others);
  Save("Yes");
  EXPECT_EQ(ChangedLabel(), "");
  Save("Yes", &note);
  EXPECT_EQ(note, "") << "now it is this program's own";
  EXPECT_NE(FileBytes(path_), others);
}

TEST_F(History, UnsavedChangesComeBackAfterTheNextLoad) {
  RenamePlayer("Ann " + QString(40, 'N'));
  const LeagueData changed = session_.League();
  QTest::qWait(1300);
  ASSERT_EQ(ChangedLabel(), "Changed");
  AnswerNextMessage("Yes");
  Pick("mFilUnloadROM");
  ASSERT_TRUE(window_.OpenImageFile(path_));
  EXPECT_TRUE(session_.League() == *loaded_);
  Pick("mToolUnsaved");
  EXPECT_TRUE(session_.League() == changed);
  EXPECT_EQ(ChangedLabel(), "Changed");
  EXPECT_EQ(Item("mnuEditUndo").text(), "&Undo Bring Back Unsaved Changes");
  AnswerNextMessage("Yes");
  Pick("mFilSaveROM");
  EXPECT_FALSE(Item("mToolUnsaved").isEnabled()) << "what is saved is not kept any longer";
}

}  // namespace
}  // namespace rostermill::test
