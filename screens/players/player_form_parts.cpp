#include "screens/players/player_form_parts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

#include "toolkit/form_parts.h"

namespace rostermill {

QLabel* NewPlayerNumber() {
  QLabel* number = NewLabel("lblNumber");
  QFont font = FixedFont();
  font.setPointSizeF(font.pointSizeF() * 1.4);
  font.setBold(true);
  number->setFont(font);
  number->setAlignment(Qt::AlignCenter);
  number->setMinimumWidth(QFontMetrics(font).horizontalAdvance("#00"));
  return number;
}

QHBoxLayout* FaceBesideAttributes(QWidget* face, QWidget* number, QWidget* attributes) {
  auto* column = new QVBoxLayout;
  column->addStretch();
  column->addWidget(face, 0, Qt::AlignHCenter);
  column->addWidget(number, 0, Qt::AlignHCenter);
  column->addStretch();
  auto* row = new QHBoxLayout;
  row->addLayout(column);
  row->addWidget(attributes, 1);
  return row;
}

void AddSlotKeys(QWidget* form, const std::function<void(int step)>& step) {
  const auto add = [&](int key, int by) {
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(key)), form);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(shortcut, &QShortcut::activated, form, [step, by] { step(by); });
  };
  add(Qt::Key_PageDown, +1);
  add(Qt::Key_PageUp, -1);
}

}  // namespace rostermill
