#pragma once

#include <QStringList>
#include <QWidget>

namespace rostermill::test {

/// Uses each control of a form once and returns the lines of the form's description that change.
/// Buttons that close the form or open another one are skipped.
QStringList ChangesByControl(QWidget& form);

}  // namespace rostermill::test
