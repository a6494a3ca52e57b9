#pragma once

#include <QLabel>

#include "league/load_steps.h"
#include "toolkit/control_array.h"
#include "toolkit/form.h"

namespace rostermill {

/// "Loading...": one line per step of a load. It closes when the load ends.
class Loading : public ChildForm {
  Q_OBJECT

 public:
  Loading();

  /// Sets the line of a step.
  void SetCaption(LoadStep step, const QString& caption) {
    lblData[static_cast<int>(step)]->setText(caption);
  }

 private:
  ControlArray<QLabel> lblData{"lblData"};
};

}  // namespace rostermill
