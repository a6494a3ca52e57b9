#pragma once

#include <QStringList>
#include <QWidget>

namespace rostermill::test {

/// What a form shows, one control a line in the order and with the places of its layouts, as a text
/// that doesn't depend on fonts and screens.
QString Described(QWidget& form);

}  // namespace rostermill::test
