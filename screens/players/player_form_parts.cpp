#include "screens/players/player_form_parts.h"

#include <QHBoxLayout>
#include <QLabel>
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

}  // namespace rostermill
