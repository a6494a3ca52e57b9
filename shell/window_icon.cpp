#include "shell/window_icon.h"

namespace rostermill {

QIcon IconOfSizes(std::initializer_list<int> sizes) {
  QIcon icon;
  for (const int size : sizes) {
    icon.addFile(QStringLiteral(":/icons/rostermill-%1.png").arg(size), QSize(size, size));
  }
  return icon;
}

QIcon WindowIcon() {
  return IconOfSizes({16, 24, 32, 48, 64, 128});
}

}  // namespace rostermill
