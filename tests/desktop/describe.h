#pragma once

#include <QStringList>
#include <QWidget>

namespace rostermill::test {

/// Describes what a form shows: one line per control, in layout order and with its place in the
/// layout. The text does not depend on fonts or screens.
QString Described(QWidget& form);

}  // namespace rostermill::test
