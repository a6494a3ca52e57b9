#include <QDir>
#include <QFileInfo>
#include <QInputDialog>

#include "shell/emulator.h"
#include "tests/support/main_window.h"

namespace rostermill::test {
namespace {

TEST(Emulator, TheFileTakesItsPlaceInTheCommandLine) {
  EXPECT_EQ(CallOf("fceux", "/a b.nes"), (EmulatorCall{"fceux", {"/a b.nes"}}));
  EXPECT_EQ(CallOf("\"/opt/my emu\" -x \"--rom=%f\" y", "/a.nes"),
            (EmulatorCall{"/opt/my emu", {"-x", "--rom=/a.nes", "y"}}));
  EXPECT_EQ(CallOf("  ", "/a.nes"), std::nullopt);
}

TEST(Emulator, TheFirstUsualOneThatIsInstalledIsTaken) {
  const TempFolder folder;
  const QStringList cores{QString::fromStdString(folder.Path())};
  QStringList installed{"retroarch"};
  const auto find = [&](const QString& name) {
    return installed.contains(name) ? "/bin/" + name : QString();
  };
  EXPECT_EQ(UsualEmulator(find, cores), "") << "retroarch needs a core";
  WriteFile(folder.Path("fceumm_libretro.so"), std::string());
  EXPECT_EQ(UsualEmulator(find, cores),
            "\"/bin/retroarch\" -L \"" + cores[0] + "/fceumm_libretro.so\" %f");
  installed << "nestopia"
            << "mednafen";
  EXPECT_EQ(UsualEmulator(find, cores), "\"/bin/mednafen\"");
}

TEST(Emulator, CoresAreLookedForWhereDebianHasThemToo) {
  const QStringList folders = CoreFolders();
  EXPECT_EQ(folders[0], QDir::homePath() + "/.config/retroarch/cores");
  EXPECT_EQ(folders[1], "/usr/lib/libretro");
  if (!QFileInfo("/usr/lib/x86_64-linux-gnu").isDir()) GTEST_SKIP() << "another processor";
  EXPECT_TRUE(folders.contains("/usr/lib/x86_64-linux-gnu/libretro"));
}

class Play : public MainWindow {
 protected:
  Play() {
    qputenv("XDG_CACHE_HOME", QByteArray::fromStdString(folder_.Path("cache")));
    EXPECT_TRUE(window_.OpenImageFile(path_));
  }
  ~Play() override { qunsetenv("XDG_CACHE_HOME"); }

  void Choose(const QString& command) {
    OnNextDialog([command](QDialog& dialog) {
      dynamic_cast<QInputDialog&>(dialog).setTextValue(command);
      dialog.accept();
    });
    Pick("mToolEmulator");
  }
};

TEST_F(Play, TheEmulatorGetsTheLeagueAsItIsInMemory) {
  const std::string played = folder_.Path("played.nes");
  WriteFile(folder_.Path("emulator.sh"), "#!/bin/sh\ncp \"$2\" '" + played + ".new' && mv '" +
                                             played + ".new' '" + played + "'\n");
  std::filesystem::permissions(folder_.Path("emulator.sh"), std::filesystem::perms::owner_all);
  Choose("\"" + QString::fromStdString(folder_.Path("emulator.sh")) + "\" --game");
  session_.Change("a number",
                  [](LeagueData& league) { league.NameData[1][1].JerseyNumber = "77"; });
  Pick("mToolPlay");
  ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(played); }));
  EXPECT_EQ(FileBytes(played)[0x6DA], 0x77);
  EXPECT_EQ(FileBytes(path_), SampleBytes()) << "the image itself is not written";
  EXPECT_EQ(settings_.value("Emulator/Program").toString(),
            "\"" + QString::fromStdString(folder_.Path("emulator.sh")) + "\" --game");
}

TEST_F(Play, WhatCanNotBePlayedIsTold) {
  Choose("/no/such/emulator");
  QString told;
  const auto listen = [&] {
    AnswerNextMessage("OK", &told);
    Pick("mToolPlay");
  };
  listen();
  EXPECT_TRUE(told.startsWith("/no/such/emulator could not be started: ")) << told.toStdString();
  EXPECT_TRUE(told.endsWith(".\n\nTools > Choose Emulator sets another program."));
  std::filesystem::remove_all(folder_.Path("cache"));
  WriteFile(folder_.Path("cache"), std::string("no folder"));
  listen();
  EXPECT_EQ(told.toStdString(), "The copy to play could not be written: Not a directory.");
  session_.Change("a long city",
                  [](LeagueData& league) { league.TeamData[1].City = std::string(999, 'A'); });
  listen();
  EXPECT_TRUE(told.startsWith("The teams' cities and names are too long for the image"))
      << told.toStdString();
}

TEST_F(Play, WithoutAnEmulatorOneIsAskedFor) {
  window_.FindEmulator = [](const QString&) { return QString(); };
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", QByteArray::fromStdString(folder_.Path()));  // where no desktop's tool is
  QString asked;
  OnNextDialog([&](QDialog& dialog) {
    asked = dialog.windowTitle();
    dialog.reject();
  });
  Pick("mToolPlay");
  qputenv("PATH", path);
  EXPECT_EQ(asked, "Choose Emulator");
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("cache")));
  EXPECT_FALSE(settings_.contains("Emulator/Program"));
}

}  // namespace
}  // namespace rostermill::test
