#pragma once

#include <QStringList>

namespace rostermill::test {

/// Eight hexadecimal digits that stand for what would be too long to read.
QString ShortHash(const QString& text);

/// The lines of `after` that differ from the line at the same index in `before`; of a long list the
/// first ten, the number of the others and their hash.
QStringList NewLines(const QStringList& before, const QStringList& after);

/// The text of a file in the `tests` folder; a file that can't be opened fails the test.
QString TextOfTestFile(const QString& path);

/// Compares the sections with those of a file in the `tests` folder, which are separated by empty
/// lines. On a difference, writes an updated file to the current folder for review.
void ExpectTextOfFile(const QString& path, const QStringList& sections);

}  // namespace rostermill::test
