#pragma once

#include <QIcon>

namespace rostermill {

/// The program's icon, in the sizes that window systems ask for.
QIcon WindowIcon();

}  // namespace rostermill
