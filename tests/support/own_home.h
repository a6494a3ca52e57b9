#pragma once

#include <QByteArray>

#include "tests/support/sample.h"

namespace rostermill::test {

/// Keeps a program's hands off what its user keeps and has set: one at the start of main gives the
/// program empty folders of its own for both, until it ends.
class OwnHome {
 public:
  OwnHome() {
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
      qputenv(name, QByteArray::fromStdString(folder_.Path(name)));
    }
  }

 private:
  TempFolder folder_;
};

}  // namespace rostermill::test
