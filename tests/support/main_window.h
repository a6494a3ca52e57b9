#pragma once

#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "shell/rsm_form.h"
#include "tests/support/dialogs.h"
#include "tests/support/sample.h"

namespace rostermill::test {

/// The main window, and a copy of the sample league that is not loaded yet.
class MainWindow : public testing::Test {
 protected:
  MainWindow() : path_(folder_.Path("league.nes")) {
    session_.AppDir = BinFolder();
    WriteFile(path_, SampleBytes());
    window_.show();
  }
  ~MainWindow() override { EXPECT_EQ(DialogsStillExpected(), 0); }

  QAction& Item(const QString& name) { return Find<QAction>(window_, name); }
  void Pick(const QString& item) {
    Item(item).trigger();
    QCoreApplication::processEvents();
  }
  void Load(const std::string& path) {
    AnswerNextFileDialog(QString::fromStdString(path));
    Item("mFilLoadROM").trigger();
  }
  QWidget& Form(const QString& name) { return Find<ChildForm>(window_, name); }
  bool IsOpen(const QString& name) {
    const auto* form = window_.findChild<ChildForm*>(name);
    return form != nullptr && form->isVisible();
  }
  void Press(const QString& form, const QString& button) {
    Find<QPushButton>(Form(form), button).click();
  }
  ChildArea& Area() { return *window_.findChild<ChildArea*>(); }

  static void Activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
  }

  TempFolder folder_;
  std::string path_;
  LeagueSession session_;
  QSettings settings_{QString::fromStdString(folder_.Path("settings.ini")), QSettings::IniFormat};
  FRSMform window_{session_, &settings_};
};

}  // namespace rostermill::test
