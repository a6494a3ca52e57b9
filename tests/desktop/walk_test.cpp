#include <QDir>

#include "tests/desktop/story.h"
#include "tests/support/expected_text.h"
#include "tests/support/main_window.h"
#include "tests/walker/walker.h"

namespace rostermill::test {
namespace {

/// Keeps the start of a long line, followed by a hash of the whole line. Unprintable characters are
/// shown like "\x07".
QString Shortened(const QString& section) {
  QStringList lines = section.split('\n');
  for (QString& line : lines) {
    QString shown;
    for (const QChar c : line) {
      shown += c.isPrint() ? QString(c) : QString("\\x%1").arg(c.unicode(), 2, 16, QChar('0'));
    }
    constexpr int longest = 160;
    line = shown.size() <= longest ? shown : shown.left(longest) + "... #" + ShortHash(shown);
  }
  return lines.join('\n');
}

class Walk : public MainWindow {};

TEST_F(Walk, RandomStepsChangeWhatTheirRecordSays) {
  qputenv("CUPS_SERVER", "localhost:1");           // has no printers
  settings_.setValue("Emulator/Program", "true");  // starts nothing
  const QString here = QDir::currentPath();
  QDir::setCurrent(QString::fromStdString(folder_.Path()));
  EXPECT_TRUE(window_.OpenImageFile(path_));
  Activate(window_);
  Story story(window_, session_, QString::fromStdString(folder_.Path()));
  Walker walker(window_, session_, folder_.Path(""), 7);
  walker.NewImage = [](std::mt19937& random) { return DamagedImage(random, 3); };
  walker.AfterStep = [&](const QString& step) { story.Tell(step); };
  walker.Run(1000);
  QDir::setCurrent(here);
  QStringList sections;
  for (const QString& section : story.Sections()) {
    if (section.contains('\n')) sections << Shortened(section);
  }
  ExpectTextOfFile("desktop/walk.txt", sections);
}

}  // namespace
}  // namespace rostermill::test
