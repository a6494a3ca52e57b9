#include "shell/open_save.h"

#include <QDir>
#include <QFileDialog>
#include <gtest/gtest.h>

#include "tests/support/dialogs.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

class OpenSave : public testing::Test {
 protected:
  OpenSave() {
    WriteFile(folder_.Path("league.one.nes"), std::string("x"));
    WriteFile(folder_.Path("plain"), std::string("x"));
  }
  ~OpenSave() override { EXPECT_EQ(DialogsStillExpected(), 0); }

  QString Path(const std::string& name) { return QString::fromStdString(folder_.Path(name)); }
  /// Looks at the dialog for opening and cancels it.
  static void LookAt(clsOpenSave& dialog, const std::function<void(QFileDialog&)>& look) {
    OnNextDialog([look](QDialog& shown) {
      look(dynamic_cast<QFileDialog&>(shown));
      shown.reject();
    });
    dialog.ShowOpen();
  }

  TempFolder folder_;
  clsOpenSave dialog_;
};

TEST_F(OpenSave, ANewObjectHasItsDefaultsAndAFilterReadsBackWithoutUpToTwoBars) {
  EXPECT_EQ(dialog_.FileExt(), 0);
  EXPECT_EQ(dialog_.hWnd(), nullptr);
  EXPECT_EQ(dialog_.MaxFileSize(), 260);
  EXPECT_EQ(dialog_.InitDir(), "C:\\");
  EXPECT_EQ(dialog_.Flags(), 0);
  EXPECT_EQ(dialog_.Filter(), "All Files (*.*)|*.*");
  EXPECT_EQ(dialog_.FilterIndex(), 1);
  EXPECT_EQ(dialog_.FileTitle() + dialog_.fileName() + dialog_.DialogTitle() + dialog_.DefaultExt(),
            "");
  EXPECT_FALSE(dialog_.CancelError());
  const QString pairs = "NES (*.nes)|*.nes|All Files|*.*";
  for (const auto& [set, read] : {std::pair{pairs, pairs},
                                  {pairs + "|", pairs},
                                  {pairs + "||", pairs},
                                  {pairs + "|||", pairs + "|"},
                                  {"", ""}}) {
    dialog_.SetFilter(set);
    EXPECT_EQ(dialog_.Filter(), read) << set.toStdString();
  }
}

TEST_F(OpenSave, TheDialogShowsWhatThePropertiesSay) {
  QWidget owner;
  dialog_.SetHWnd(&owner);
  dialog_.SetInitDir(Path(""));
  dialog_.SetDialogTitle("Pick a league");
  dialog_.SetDefaultExt("nes");
  dialog_.SetFilter("NES (*.nes)|*.nes|Pictures|*.bmp;*.png|All Files|*.*");
  dialog_.SetFilterIndex(2);
  LookAt(dialog_, [&](QFileDialog& shown) {
    EXPECT_EQ(shown.parentWidget(), &owner);
    EXPECT_TRUE(shown.isModal());
    EXPECT_EQ(shown.windowTitle(), "Pick a league");
    EXPECT_EQ(shown.directory(), QDir(Path("")));
    EXPECT_EQ(shown.defaultSuffix(), "nes");
    EXPECT_EQ(shown.nameFilters(),
              QStringList({"NES (*.nes)", "Pictures (*.bmp *.png)", "All Files (*)"}));
    EXPECT_EQ(shown.selectedNameFilter(), "Pictures (*.bmp *.png)");
    EXPECT_EQ(shown.acceptMode(), QFileDialog::AcceptOpen);
  });

  // Neither a folder that isn't there nor a filter of one half or of none may stop it.
  for (const char* filter : {"", "Only a description", "||"}) {
    clsOpenSave odd;
    odd.SetFilter(filter);
    odd.SetFilterIndex(9);
    LookAt(odd, [](QFileDialog& shown) { EXPECT_EQ(shown.directory(), QDir::home()); });
  }
}

TEST_F(OpenSave, AChosenFileFillsTheProperties) {
  dialog_.SetInitDir("  " + Path("") + " ");
  dialog_.SetFlags(4);
  dialog_.SetFilter("NES (*.nes)|*.nes|All Files|*.*");
  dialog_.SetFilterIndex(2);
  AnswerNextFileDialog(Path("league.one.nes"));
  dialog_.ShowOpen();
  EXPECT_EQ(dialog_.fileName(), Path("league.one.nes"));
  EXPECT_EQ(dialog_.FileTitle(), "league.one.nes");
  EXPECT_EQ(dialog_.fileName().mid(dialog_.FileExt()), "nes");
  EXPECT_EQ(dialog_.FilterIndex(), 2);
  EXPECT_EQ(dialog_.InitDir(), Path(""));
  EXPECT_EQ(dialog_.Flags(), 4);

  OnNextDialog([this](QDialog& shown) {
    auto& files = dynamic_cast<QFileDialog&>(shown);
    files.selectNameFilter(files.nameFilters().front());
    files.selectFile(Path("plain"));
    shown.accept();
  });
  dialog_.ShowOpen();
  EXPECT_EQ(dialog_.FilterIndex(), 1);
  EXPECT_EQ(dialog_.FileTitle(), "plain");
  EXPECT_EQ(dialog_.FileExt(), 0) << "a dot in the folder's name is no extension";

  dialog_.SetDefaultExt("txt");
  AnswerNextFileDialog(Path("fresh"));
  dialog_.ShowSave();
  EXPECT_EQ(dialog_.fileName(), Path("fresh.txt"));
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("fresh.txt"))) << "it only asks for a name";
}

TEST_F(OpenSave, ACancelIsReportedAsCancelErrorAsks) {
  dialog_.SetFileName(Path("plain"));
  AnswerNextFileDialog("");
  dialog_.ShowOpen();
  EXPECT_EQ(dialog_.fileName(), Path("plain"));
  OnNextDialog([](QDialog& shown) {
    EXPECT_EQ(dynamic_cast<QFileDialog&>(shown).acceptMode(), QFileDialog::AcceptSave);
    shown.reject();
  });
  EXPECT_NO_THROW(dialog_.ShowSave());

  dialog_.SetCancelError(true);
  AnswerNextFileDialog("");
  try {
    dialog_.ShowSave();
    ADD_FAILURE() << "no error was raised";
  } catch (const RaisedError& error) {
    EXPECT_EQ(error.Number, 32755);
    EXPECT_EQ(error.Source, "Run-time error");
    EXPECT_EQ(error.Description, "Cancel was selected");
  }
  EXPECT_EQ(dialog_.fileName(), Path("plain"));
  AnswerNextFileDialog("");
  EXPECT_NO_THROW(dialog_.ShowOpen());
  EXPECT_EQ(dialog_.fileName(), "?error?");
  EXPECT_EQ(dialog_.InitDir(), "C:\\") << "nothing else changes";
}

}  // namespace
}  // namespace rostermill::test
