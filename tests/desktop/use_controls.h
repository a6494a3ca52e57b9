#pragma once

#include <QStringList>
#include <QWidget>

namespace rostermill::test {

/// Uses the controls of a form one after another in a way that each kind is made for, and returns
/// for each the lines of its description that are different then. Buttons that close a form or
/// open another are left alone.
QStringList ChangesByControl(QWidget& form);

}  // namespace rostermill::test
