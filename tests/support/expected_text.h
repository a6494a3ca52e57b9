#pragma once

#include <QStringList>

namespace rostermill::test {

/// The lines of `after` that `before` doesn't have in the same place; of very many the first and
/// the last ones.
QStringList NewLines(const QStringList& before, const QStringList& after);

QString TextOfTestFile(const QString& path);

/// Compares sections of text with those of a file below `tests`, where empty lines separate them.
/// If they differ, the file is written anew in the current folder, to be read before it is kept.
void ExpectTextOfFile(const QString& path, const QStringList& sections);

}  // namespace rostermill::test
