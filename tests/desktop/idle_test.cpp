#include <QEventLoop>
#include <QLineEdit>
#include <QTimer>

#include "tests/desktop/all_forms.h"
#include "toolkit/caret_rest.h"
#include <sys/resource.h>

namespace rostermill::test {
namespace {

/// How often the process has gone to sleep.
long Sleeps() {
  rusage use{};
  getrusage(RUSAGE_SELF, &use);
  return use.ru_nvcsw;
}

void RunFor(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

TEST_F(AllForms, OpenTheyWakeTheProcessorLessThanOnceASecond) {
  VisitAll([](QWidget&) {});
  Pick("mViePlayerData");
  Press("ViewPlayer", "btnEdit");
  Pick("mVieTeamData");
  Press("ViewTeams", "btnEdit");
  Pick("mToolPlayers");
  Activate(window_);
  auto& box = Find<QLineEdit>(Form("frmAllPlayers"), "txtFind");
  box.setFocus();
  ASSERT_TRUE(box.hasFocus());
  LetCaretRest(std::chrono::milliseconds(100));
  QTest::keyClick(&box, Qt::Key_A);
  const int flash_time = QApplication::cursorFlashTime();
  EXPECT_GT(flash_time, 0);
  EXPECT_EQ(window_.findChildren<ChildForm*>().size(), 16);
  RunFor(2500);  // what follows a change is over

  constexpr int seconds = 4;
  const long before = Sleeps();
  RunFor(seconds * 1000);
  EXPECT_LT(Sleeps() - before, seconds);
  EXPECT_EQ(QApplication::cursorFlashTime(), 0);

  QTest::keyClick(&box, Qt::Key_B);
  EXPECT_EQ(QApplication::cursorFlashTime(), flash_time);
}

}  // namespace
}  // namespace rostermill::test
