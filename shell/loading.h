#pragma once

#include <QLabel>

#include "toolkit/control_array.h"
#include "toolkit/form.h"

namespace rostermill {

/// "Loading...": the eight lines in which a load reports its steps. It closes when the load ends.
class Loading : public ChildForm {
  Q_OBJECT

 public:
  Loading();

  /// Sets line 0 to 7.
  void SetCaption(int line, const QString& caption) { lblData[line]->setText(caption); }

 private:
  ControlArray<QLabel> lblData{"lblData"};
};

}  // namespace rostermill
