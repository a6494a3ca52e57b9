#pragma once

#include <QStringList>

namespace rostermill::test {

/// The lines of `after` that `before` doesn't have in the same place; of very many the first and
/// the last ones.
QStringList NewLines(const QStringList& before, const QStringList& after);

/// Compares sections of text with those of a file in this folder, where empty lines separate them.
/// If they differ, the file is written anew in the current folder, to be read before it is kept.
void ExpectTextOfFile(const QString& name, const QStringList& sections);

}  // namespace rostermill::test
