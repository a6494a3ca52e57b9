#include "screens/players/attribute_panel.h"

#include <QGridLayout>

#include <algorithm>
#include <array>

#include "rules/display_text.h"
#include "rules/position_layout.h"
#include "toolkit/form_parts.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr std::array<int, 4> left_column{1, 0, 2, 3};
constexpr std::array<int, 4> right_column{4, 5, 6, 7};
constexpr int column_gap = 24;

/// Keeps the width of the columns, whichever group is shown.
int WidestCaption(const QFontMetrics& metrics) {
  int widest = 0;
  for (const Rating& rating : AllRatings) {
    const std::string caption =
        PlaceCaption(rating.Group.value_or(PositionGroup::QB), rating.Place);
    widest = std::max(widest, metrics.horizontalAdvance(FromLatin1(caption)));
  }
  return widest;
}

}  // namespace

AttributePanel::AttributePanel() {
  LayOut(nullptr, nullptr);
}

AttributePanel::AttributePanel(ControlArray<QPushButton>& minus, ControlArray<QPushButton>& plus)
    : btnMinus(&minus), btnPlus(&plus) {
  LayOut(btnMinus, btnPlus);
}

void AttributePanel::LayOut(ControlArray<QPushButton>* minus, ControlArray<QPushButton>* plus) {
  setObjectName("Frame1");
  setTitle("Attributes");
  auto* grid = new QGridLayout(this);
  const int widest = WidestCaption(fontMetrics());
  for (int place = 0; place < PlaceCount; ++place) {
    QLabel* value = Label3.Add(NewLabel({}));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance("100"));
    QLabel* caption =
        Label2.Add(NewCaption({}, FromLatin1(PlaceCaption(PositionGroup::QB, place))));
    caption->setMinimumWidth(widest);
    KeepRoomWhenHidden(value);
    KeepRoomWhenHidden(caption);
  }
  const auto add_column = [&](const std::array<int, 4>& places, int column) {
    for (int row = 0; row < static_cast<int>(places.size()); ++row) {
      const int place = places[static_cast<std::size_t>(row)];
      grid->addWidget(Label2[place + 1], row, column);
      if (minus == nullptr) {
        grid->addWidget(Label3[place], row, column + 2);
        continue;
      }
      grid->addWidget((*minus)[place], row, column + 1);
      grid->addWidget(Label3[place], row, column + 2);
      grid->addWidget((*plus)[place], row, column + 3);
    }
  };
  if (minus != nullptr) {
    for (int place = 0; place < PlaceCount; ++place) {
      KeepRoomWhenHidden(minus->Add(NewStepButton("-")));
      KeepRoomWhenHidden(plus->Add(NewStepButton(" +")));
    }
  }
  add_column(left_column, 0);
  add_column(right_column, 5);
  grid->setColumnMinimumWidth(4, column_gap);
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(PlaceCount, 1);
}

void AttributePanel::ShowPlayer(const LeagueData& league, int team, int slot) {
  const PositionGroup group = GroupOfSlot(slot);
  for (int place = 0; place < PlaceCount; ++place) {
    const bool used = place < PlacesInUse(group);
    if (used) {
      const QString caption = FromLatin1(PlaceCaption(group, place));
      if (place >= SharedPlaceCount) Label2[place + 1]->setText(caption);
      Label3[place]->setText(FromLatin1(RatingText(PlaceCode(league, team, slot, place))));
      if (btnMinus != nullptr) {
        (*btnMinus)[place]->setAccessibleName("Lower " + caption);
        (*btnPlus)[place]->setAccessibleName("Raise " + caption);
      }
    }
    Label2[place + 1]->setVisible(used);
    Label3[place]->setVisible(used);
    if (btnMinus != nullptr) {
      (*btnMinus)[place]->setVisible(used);
      (*btnPlus)[place]->setVisible(used);
    }
  }
}

}  // namespace rostermill
