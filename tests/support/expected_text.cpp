#include "tests/support/expected_text.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

#include "tests/support/sample.h"

namespace rostermill::test {

QString ShortHash(const QString& text) {
  return QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Md5).toHex().left(8);
}

QStringList NewLines(const QStringList& before, const QStringList& after) {
  QStringList lines;
  for (int at = 0; at < after.size(); ++at) {
    if (after[at] != before.value(at)) lines << after[at].trimmed();
  }
  constexpr int enough = 10;
  if (lines.size() <= enough) return lines;
  const QString rest = lines.mid(enough).join('\n');
  return lines.first(enough)
         << QString("(%1 more, #%2)").arg(lines.size() - enough).arg(ShortHash(rest));
}

QString TextOfTestFile(const QString& path) {
  QFile file(QString(TESTS_FOLDER "/") + path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
  return QString::fromUtf8(file.readAll()).trimmed();
}

void ExpectTextOfFile(const QString& path, const QStringList& sections) {
  const QString expected = TextOfTestFile(path);
  const QStringList parts = expected.split("\n\n");
  for (int at = 0; at < std::max(parts.size(), sections.size()); ++at) {
    EXPECT_EQ(sections.value(at).toStdString(), parts.value(at).toStdString());
  }
  const QString shown = sections.join("\n\n");
  if (shown == expected) return;
  const QString name = QFileInfo(path).fileName();
  WriteFile(name.toStdString(), shown.toStdString() + '\n');
  ADD_FAILURE() << "If the changes are intended, copy " << name.toStdString() << " from here to "
                << TESTS_FOLDER "/" << path.toStdString();
}

}  // namespace rostermill::test
