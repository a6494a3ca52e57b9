#include <QApplication>
#include <QFontInfo>
#include <gtest/gtest.h>

#include "tests/support/own_home.h"
#include "tools/driver/driver.h"

namespace {

// Without a font, text widths are wrong and nothing reports it.
TEST(TestSetUp, AFontIsInstalled) {
  EXPECT_FALSE(QFontInfo(QApplication::font()).family().isEmpty());
  EXPECT_GT(QFontMetrics(QApplication::font()).horizontalAdvance("Rostermill"), 20);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const rostermill::test::OwnHome home;
  QApplication app(argc, argv);
  QApplication::setApplicationName("RostermillTest");
  QApplication::setOrganizationName("RostermillTest");
  rostermill::driver::on_error = [](const std::string& text) { ADD_FAILURE() << text; };
  return RUN_ALL_TESTS();
}
