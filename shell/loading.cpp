#include "shell/loading.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "toolkit/form_parts.h"
#include "toolkit/text_codec.h"

namespace rostermill {

Loading::Loading() : ChildForm("Loading", "Loading...") {
  // It is read while the main window around it is disabled.
  QPalette colors = palette();
  colors.setColor(QPalette::Disabled, QPalette::WindowText,
                  colors.color(QPalette::Active, QPalette::WindowText));
  setPalette(colors);
  auto* Frame1 = NewFrame("Frame1", "Loading Data From ROM");
  auto* lines = new QVBoxLayout(Frame1);
  const QString widest = FromLatin1(LoadCaption(LoadStep::Playbooks, "Loading  "));
  for (const std::string_view caption : LoadStepCaptions) {
    QLabel* line = lblData.Add(NewLabel({}, FromLatin1(caption)));
    line->setMinimumWidth(line->fontMetrics().horizontalAdvance(widest));
    lines->addWidget(line);
  }
  (new QVBoxLayout(this))->addWidget(Frame1);
}

}  // namespace rostermill
