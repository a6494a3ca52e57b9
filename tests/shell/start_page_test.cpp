#include "shell/start_page.h"

#include <QLabel>
#include <QMenu>
#include <QScreen>

#include "shell/command_line.h"
#include "shell/recent_files.h"
#include "tests/support/main_window.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

class StartPageTest : public MainWindow {
 protected:
  StartPage& Page() { return Find<StartPage>(window_, "StartPage"); }
  /// The visible texts of the page, in reading order.
  std::string Texts() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList texts;
    for (const QWidget* part : Page().findChildren<QWidget*>()) {
      if (!part->isVisibleTo(&window_)) continue;
      if (auto* label = qobject_cast<const QLabel*>(part)) texts << label->text();
      if (auto* link = qobject_cast<const QPushButton*>(part)) texts << '<' + link->text() + '>';
    }
    texts.removeAll("");
    return texts.join('|').toStdString();
  }
  void PressLink(int index) {
    QTest::keyClick(&Find<QPushButton>(Page(), MemberName("btnLink", index)), Qt::Key_Return);
    QCoreApplication::processEvents();
  }
};

TEST_F(StartPageTest, OffersRecentFilesThenScreensAndGivesWayToForms) {
  const std::string invitation = "Drop a .nes file here, or press Ctrl+O";
  EXPECT_EQ(Texts(), invitation);
  window_.AddRecentFile(FromUtf8(path_));
  EXPECT_EQ(Texts(), invitation + "|Recent files|<" + path_ + ">");
  PressLink(0);
  EXPECT_EQ(session_.ImageLoaded, 1);
  const std::string screens =
      "league.nes|28 teams|<Players>|Ctrl+1|<Teams>|Ctrl+2|<Schedule>|Ctrl+3|<Leaders>|Ctrl+4|"
      "<Probowl Roster>|Ctrl+5|<Game Settings>|Ctrl+6|<All Players>|Ctrl+F";
  EXPECT_EQ(Texts(), screens);
  const QStringList keys{"Ctrl+1", "Ctrl+2", "Ctrl+3", "Ctrl+4", "Ctrl+5", "Ctrl+6", "Ctrl+F"};
  for (const QLabel* label : Page().findChildren<QLabel*>()) {
    const auto link = static_cast<int>(keys.indexOf(label->text()));
    if (link < 0) continue;
    const QRect beside = Find<QPushButton>(Page(), MemberName("btnLink", link)).geometry();
    EXPECT_LT(std::abs(label->geometry().center().y() - beside.center().y()), 5) << link;
  }
  EXPECT_EQ(Page().geometry(), Area().viewport()->rect());
  AnswerNextMessage("OK");
  EXPECT_FALSE(window_.OpenImageFile(BinFolder() + "colors.txt"));
  EXPECT_EQ(Texts(), screens) << "after a rejected file";

  Activate(window_);
  auto& first = Find<QPushButton>(Page(), "btnLink(0)");
  first.setFocus();
  const QImage with_focus = first.grab().toImage();
  Find<QPushButton>(Page(), "btnLink(1)").setFocus();
  EXPECT_NE(first.grab().toImage(), with_focus);
  first.setFocus();
  QStringList reached;
  for (int link = 0; link < 7; ++link) {
    reached << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(reached.join(' ').toStdString(),
            "btnLink(0) btnLink(1) btnLink(2) btnLink(3) btnLink(4) btnLink(5) btnLink(6)");

  PressLink(3);
  EXPECT_TRUE(IsOpen("ViewLeaders"));
  EXPECT_FALSE(Page().isVisible());
  Area().activeSubWindow()->showMinimized();
  EXPECT_FALSE(Page().isVisible());
  Press("ViewLeaders", "btnOK");
  EXPECT_EQ(Texts(), screens);
}

TEST_F(StartPageTest, TheWindowMenuListsTheFormsInCtrlTabsOrderAndClosesThem) {
  EXPECT_TRUE(window_.OpenImageFile(path_));
  Activate(window_);
  const std::pair<int, const char*> keys[] = {
      {Qt::Key_1, "ViewPlayer"},  {Qt::Key_2, "ViewTeams"},  {Qt::Key_3, "frmEditSchedule"},
      {Qt::Key_4, "ViewLeaders"}, {Qt::Key_5, "frmProbowl"}, {Qt::Key_6, "frmEditGameSettings"}};
  for (const auto& [key, form] : keys) {
    QTest::keyClick(&window_, static_cast<Qt::Key>(key), Qt::ControlModifier);
    EXPECT_TRUE(IsOpen(form)) << form;
  }
  Press("ViewPlayer", "btnEdit");
  const auto listed = [this] {
    QMenu& menu = *Item("mWindow").menu();
    emit menu.aboutToShow();
    QStringList texts;
    for (const QAction* item : menu.actions()) {
      if (!item->isCheckable()) continue;
      EXPECT_EQ(item->objectName(), QString("mWinForm(%1)").arg(texts.size()));
      texts << (item->isChecked() ? "*" : "") + item->text();
    }
    return texts.join(", ").toStdString();
  };
  EXPECT_EQ(listed(),
            "*&1 Edit Player Statstistics, &2 Game Settings, &3 Probowl Data, &4 View Leaders, "
            "&5 RSM Schedule Editor, &6 View Teams, &7 View Player Statstistics");
  Pick("mWinForm(5)");
  EXPECT_EQ(listed().substr(0, 14), "*&1 View Teams");
  Pick("mWinCascade");
  EXPECT_NE(Form("ViewTeams").parentWidget()->pos(), QPoint(0, 0));
  Pick("mWinCloseAll");
  EXPECT_TRUE(Area().subWindowList().isEmpty());
  EXPECT_EQ(listed(), "");
  EXPECT_FALSE(Item("mWinTile").isEnabled());
}

TEST_F(StartPageTest, TheSizeOfTheWindowIsKeptAndFitsTheScreen) {
  const QSize room = window_.screen()->availableGeometry().size();
  for (const auto& [left, opened] :
       {std::pair(QSize(600, 500), QSize(600, 500)), std::pair(QSize(9000, 9000), room * 0.95),
        std::pair(QSize(1, 1), QSize(320, 240))}) {
    window_.setMinimumSize(1, 1);
    window_.show();
    window_.resize(left);
    window_.close();
    settings_.setValue("Window/Size", left == QSize(1, 1) ? left : settings_.value("Window/Size"));
    LeagueSession other;
    FRSMform next(other, &settings_);
    EXPECT_EQ(next.size(), opened.expandedTo(next.minimumSizeHint()));
  }
}

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
  Restart();
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

TEST_F(RecentStore, TheMenuShowsFilledEntriesOnlyAndLooksUpNone) {
  OpenWindow();
  EXPECT_TRUE(window_->OpenImageFile(Image("league.nes").toStdString()));
  EXPECT_FALSE(Item("mnuFileRecentFiles").isEnabled());
  window_->AddRecentFile("/nowhere/a & b.nes");
  EXPECT_TRUE(Item("mnuFileRecentFiles").isEnabled());
  EXPECT_EQ(Recent(0).text(), "&1 /nowhere/a && b.nes");
  EXPECT_TRUE(Recent(0).isVisible() && Recent(0).isEnabled());
  for (int index = 1; index < 4; ++index) EXPECT_FALSE(Recent(index).isVisible()) << index;

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

TEST_F(RecentStore, OnlyAFileThatWasLoadedEntersTheList) {
  const QString good = Image("good.nes");
  WriteFile(folder_.Path("bad.nes"), std::string("not an image"));
  OpenWindow();
  for (const QString& path : {good, Path("bad.nes"), QString()}) {
    AnswerNextFileDialog(path);
    if (path == Path("bad.nes")) AnswerNextMessage("OK");
    Item("mFilLoadROM").trigger();
  }
  EXPECT_EQ(Stored(), (List{good, "", "", ""}));
  EXPECT_EQ(Recent(0).text(), "&1 " + good);
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
  EXPECT_EQ(session_.ImageLoaded, 0);
  EXPECT_EQ(Stored(), (List{Path("a.nes"), Path("c.nes"), "", ""}));
  EXPECT_EQ(Recent(1).text(), "&2 " + Path("c.nes"));
  EXPECT_FALSE(Recent(2).isVisible());
}

TEST(CommandLine, TakesOneFileOrAsksForATextAndRefusesTheRest) {
  const auto read = [](const std::vector<std::string>& words) {
    const CommandLine asked = ReadCommandLine(words);
    return asked.Image + "|" + std::to_string(asked.ExitCode) + "|" + asked.Print;
  };
  const std::string see = "; see rostermill --help\n";
  EXPECT_EQ(read({}), "|0|");
  EXPECT_EQ(read({"a b.nes"}), "a b.nes|0|");
  EXPECT_EQ(read({"--", "--help"}), "--help|0|");
  EXPECT_EQ(read({"--version"}), "|0|rostermill " ROSTERMILL_VERSION "\n");
  EXPECT_EQ(read({"--help"}).substr(0, 33), "|0|Usage: rostermill [FILE]\nOpens");
  EXPECT_EQ(read({"-platform", "x"}), "|2|rostermill: unknown option -platform" + see);
  EXPECT_EQ(read({"a.nes", "b.nes"}), "|2|rostermill: only one file can be opened" + see);
  EXPECT_EQ(read({""}), "|2|rostermill: the file's name is empty" + see);
}

}  // namespace
}  // namespace rostermill::test
