#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "league/league_data.h"
#include "toolkit/control_array.h"

namespace rostermill {

/// The frame "Attributes" of the two player screens: eight places, each a caption Label2(p + 1)
/// and a value Label3(p), on the editor with the buttons btnMinus(p) and btnPlus(p). The left
/// column shows places 1, 0, 2, 3 and the right one 4 to 7; a place that the player's group
/// does not use is hidden.
class AttributePanel : public QGroupBox {
  Q_OBJECT

 public:
  /// Without step buttons.
  AttributePanel();
  /// With step buttons 0 to 7, which are added to the two arrays.
  AttributePanel(ControlArray<QPushButton>& minus, ControlArray<QPushButton>& plus);

  /// Writes the captions and ratings of the player's places and hides the others.
  void ShowPlayer(const LeagueData& league, int team, int slot);

  /// The rating shown in a place, 0 to 7, as decimal text.
  QString Value(int place) const { return Label3[place]->text(); }
  void SetValue(int place, const QString& text) { Label3[place]->setText(text); }

 private:
  void LayOut(ControlArray<QPushButton>* minus, ControlArray<QPushButton>* plus);

  ControlArray<QLabel> Label2{"Label2", 1};
  ControlArray<QLabel> Label3{"Label3"};
  ControlArray<QPushButton>* btnMinus = nullptr;
  ControlArray<QPushButton>* btnPlus = nullptr;
};

}  // namespace rostermill
