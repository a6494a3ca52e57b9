#pragma once

#include <QIcon>

#include <initializer_list>

namespace rostermill {

/// The program's icon in some of its sizes: 16, 24, 32, 48, 64, 128 or 256 pixels. Qt decodes each
/// at once.
QIcon IconOfSizes(std::initializer_list<int> sizes);

/// In the sizes that window systems ask for.
QIcon WindowIcon();

}  // namespace rostermill
