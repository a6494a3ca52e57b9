#pragma once

#include <QStringList>

namespace rostermill::test {

/// The lines of `after` that differ from the line at the same index in `before`. A long list is
/// reduced to its first and last six lines.
QStringList NewLines(const QStringList& before, const QStringList& after);

/// The text of a file in the `tests` folder; a file that can't be opened fails the test.
QString TextOfTestFile(const QString& path);

/// Compares the sections with those of a file in the `tests` folder, which are separated by empty
/// lines. On a difference, writes an updated file to the current folder for review.
void ExpectTextOfFile(const QString& path, const QStringList& sections);

}  // namespace rostermill::test
