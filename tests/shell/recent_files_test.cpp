#include "shell/recent_files.h"

#include <QAction>
#include <QMenu>
#include <QScreen>
#include <gtest/gtest.h>

#include "shell/rsm_form.h"
#include "tests/support/dialogs.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

using List = RecentFiles::List;

class RecentStore : public testing::Test {
 protected:
  RecentStore() { Restart(); }
  ~RecentStore() override { EXPECT_EQ(DialogsStillExpected(), 0); }

  /// Settings read anew from the file, as another run of the program does.
  void Restart() {
    window_.reset();
    settings_.reset();
    settings_ = std::make_unique<QSettings>(ini_, QSettings::IniFormat);
  }
  void WriteStore(const std::string& text) {
    settings_.reset();
    WriteFile(ini_.toStdString(), text);
    Restart();
  }
  List Stored() {
    const auto key = [this](const char* name) { return settings_->value(name).toString(); };
    return {key("Recent Files/0"), key("Recent Files/1"), key("Recent Files/2"),
            key("Recent Files/3")};
  }
  List Get() { return RecentFiles(*settings_).GetRecentFiles(); }
  bool Add(const QString& path) { return RecentFiles(*settings_).AddRecentFile(path); }

  void OpenWindow() {
    session_.AppDir = BinFolder();
    window_ = std::make_unique<FRSMform>(session_, settings_.get());
  }
  QAction& Item(const QString& name) { return Find<QAction>(*window_, name); }
  QAction& Recent(int index) { return Item(QString("mnuFileRecent(%1)").arg(index)); }
  QString Path(const std::string& name) { return QString::fromStdString(folder_.Path(name)); }
  QString Image(const std::string& name) {
    WriteFile(folder_.Path(name), SampleBytes());
    return Path(name);
  }

  TempFolder folder_;
  QString ini_ = Path("settings.ini");
  std::unique_ptr<QSettings> settings_;
  LeagueSession session_;
  std::unique_ptr<FRSMform> window_;
};

TEST_F(RecentStore, KeepsFourPathsOverARestartTheLastOneFirstWhateverItsCase) {
  for (const char* path : {"/a", "/b", "/c", "/d", "/e"}) EXPECT_TRUE(Add(path));
  Restart();
  EXPECT_EQ(Get(), (List{"/e", "/d", "/c", "/b"}));
  EXPECT_FALSE(Add("/E"));
  EXPECT_EQ(Stored(), (List{"/e", "/d", "/c", "/b"}));
  EXPECT_TRUE(Add("/C"));
  EXPECT_EQ(Stored(), (List{"/C", "/e", "/d", "/b"}));
  EXPECT_TRUE(Add("/b"));
  EXPECT_EQ(Stored(), (List{"/b", "/C", "/e", "/d"}));
}

TEST_F(RecentStore, EmptyKeysAreSqueezedOutInTheStoreToo) {
  WriteStore("[Recent%20Files]\n0=\n1=/b\n3=/d, west\n");
  EXPECT_EQ(Get(), (List{"/b", "/d,west", "", ""}));
  Restart();
  EXPECT_EQ(Stored(), (List{"/b", "/d,west", "", ""}));
}

TEST_F(RecentStore, AnUnreadableStoreReadsAsEmptyAndServesThisRun) {
  WriteStore(std::string("[Recent\0\xFF\n=\n%%%", 15));
  EXPECT_EQ(Get(), List());
  settings_.reset();
  std::filesystem::remove(ini_.toStdString());
  std::filesystem::create_directory(ini_.toStdString());
  Restart();
  EXPECT_EQ(Get(), List());
  EXPECT_TRUE(Add("/a"));
  OpenWindow();
  EXPECT_EQ(Recent(0).text(), "&1 /a");
}

TEST_F(RecentStore, TheMenuShowsFilledEntriesOnly) {
  WriteStore("[Recent%20Files]\n0=None\n1=/b\n2=\n3=None\n");
  OpenWindow();
  EXPECT_TRUE(Item("mnuFileRecentFiles").isEnabled());
  EXPECT_FALSE(Recent(0).isVisible());
  EXPECT_EQ(Recent(1).text(), "&2 /b");
  EXPECT_FALSE(Recent(2).isVisible() || Recent(3).isVisible());
  EXPECT_EQ(Stored(), (List{"None", "/b", "None", ""}));

  WriteStore("[Recent%20Files]\n0=None\n1=None\n2=None\n3=None\n");
  OpenWindow();
  EXPECT_FALSE(Item("mnuFileRecentFiles").isEnabled());
  EXPECT_EQ(Stored(), (List{"None", "None", "None", "None"}));
}

TEST_F(RecentStore, ALongPathIsCutInTheMiddleByItsWidth) {
  OpenWindow();
  for (const char c : {'i', 'W'}) {
    const QString path = "/first & last/" + QString(c == 'W' ? 60'000 : 300, c) + "/deep/b.nes";
    window_->AddRecentFile(path);
    const QString text = Recent(0).text();
    EXPECT_TRUE(text.startsWith("&1 /first && last/")) << text.toStdString();
    EXPECT_TRUE(text.endsWith("/deep/b.nes")) << text.toStdString();
    const QMenu& menu = *Item("mnuFileRecentFiles").menu();
    const int width = menu.fontMetrics().horizontalAdvance(text);
    EXPECT_LT(width, menu.screen()->availableGeometry().width() * 2 / 3);
    EXPECT_GT(width, menu.screen()->availableGeometry().width() / 3);
    EXPECT_TRUE(menu.toolTipsVisible());
    EXPECT_EQ(Recent(0).toolTip(), path.left(400));
  }
  window_->AddRecentFile("/short.nes");
  EXPECT_EQ(Recent(0).text(), "&1 /short.nes");
}

TEST_F(RecentStore, AnEntryLoadsWithoutReorderingAndNulsAreDropped) {
  const QString second = Image("second.nes");
  settings_->setValue("Recent Files/0", "/first.nes");
  settings_->setValue("Recent Files/1", second + QString(3, QChar::Null));
  Restart();
  OpenWindow();
  EXPECT_EQ(Recent(1).text(), "&2 " + second);
  Recent(1).trigger();
  EXPECT_EQ(session_.ImagePath, second.toStdString());
  EXPECT_EQ(Stored()[0], "/first.nes");
}

TEST_F(RecentStore, AFileThatIsGoneIsReportedAndLeavesTheList) {
  for (const char* name : {"c.nes", "b.nes", "a.nes"}) Add(Image(name));
  OpenWindow();
  std::filesystem::remove(folder_.Path("b.nes"));
  QString text;
  QString title;
  AnswerNextMessage("OK", &text, &title);
  Recent(1).trigger();
  EXPECT_EQ(text, "The file no longer exists");
  EXPECT_EQ(title, "Error");
  EXPECT_EQ(Stored(), (List{Path("a.nes"), Path("c.nes"), "", ""}));
  EXPECT_EQ(Recent(1).text(), "&2 " + Path("c.nes"));
  EXPECT_FALSE(Recent(2).isVisible());
}

}  // namespace
}  // namespace rostermill::test
