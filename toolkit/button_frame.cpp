#include "toolkit/button_frame.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QVBoxLayout>

#include "toolkit/form_parts.h"

namespace rostermill {

QGroupBox* NewButtonFrame(const QString& name, QPushButton* accept, QPushButton* reject) {
  QGroupBox* frame = NewFrame(name);
  frame->setFlat(true);
  auto* row = new QVBoxLayout(frame);
  row->setContentsMargins(0, row->contentsMargins().top(), 0, 0);
  row->addWidget(ButtonRow(accept, reject));
  return frame;
}

}  // namespace rostermill
