#include "shell/loading.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "toolkit/form_parts.h"

namespace rostermill {

Loading::Loading() : ChildForm("Loading", "Loading...") {
  // It is read while the main window around it is disabled.
  QPalette colors = palette();
  colors.setColor(QPalette::Disabled, QPalette::WindowText,
                  colors.color(QPalette::Active, QPalette::WindowText));
  setPalette(colors);
  auto* Frame1 = NewFrame("Frame1", "Loading Data From ROM");
  auto* lines = new QVBoxLayout(Frame1);
  for (const char* step :
       {"Validating...", "Player Attributes...", "Player Names...", "Team Data...",
        "Team Colors...", "Default Playbooks...", "Schedule...", "Game Settings..."}) {
    QLabel* line = lblData.Add(NewLabel({}, step));
    line->setMinimumWidth(line->fontMetrics().horizontalAdvance("Default Playbooks...Loading  "));
    lines->addWidget(line);
  }
  (new QVBoxLayout(this))->addWidget(Frame1);
}

}  // namespace rostermill
