#include "screens/teams/choose_color.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QScreen>

#include "rules/working_copies.h"
#include "screens/teams/team_form_parts.h"
#include "toolkit/elided_label.h"
#include "toolkit/form_parts.h"
#include "toolkit/grid_walk.h"
#include "toolkit/natural_layout.h"

namespace rostermill {

namespace {

constexpr int columns = 16;
constexpr QSize box_size(26, 26);
constexpr QSize current_size(52, 26);

}  // namespace

ChooseColor::ChooseColor(QWidget* parent, LeagueSession& session, int current_color)
    : DialogForm(parent, "ChooseColor", "Choose Color"),
      session_(session),
      CurrentColor(current_color) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void ChooseColor::BuildControls() {
  for (int index = 0; index < PaletteSize; ++index) {
    ColorBox* box = picColor.Add(new ColorBox({}, box_size));
    box->SetClickable(ColorNameAndNumber(session_.League(), index));
  }
  walk_ = new GridWalk({picColor.begin(), picColor.end()}, columns, this);
  picCurrentColor = new ColorBox("picCurrentColor", current_size);
  picCurrentColor->setAccessibleName("Picked color");
  lblColor = new ElidedLabel("lblColor");
  btnOK = NewButton("btnOK", "OK");
  btnCancel = NewButton("btnCancel", "Cancel");
}

void ChooseColor::LayOut() {
  auto* grid = new NaturalGrid(this);
  auto* colors = new QGridLayout;
  colors->setSpacing(3);
  for (int index = 0; index < PaletteSize; ++index) {
    colors->addWidget(picColor[index], index / columns, index % columns);
  }
  grid->addLayout(colors, 0, 0);
  auto* bottom = new QHBoxLayout;
  bottom->setSpacing(8);
  bottom->addWidget(picCurrentColor);
  bottom->addWidget(lblColor, 1);
  bottom->addWidget(ButtonRow(btnOK, btnCancel));
  grid->addLayout(bottom, 1, 0);
  grid->setRowStretch(2, 1);
  grid->setVerticalSpacing(10);
}

void ChooseColor::Connect() {
  for (int index = 0; index < PaletteSize; ++index) {
    connect(picColor[index], &PictureBox::Click, this, [this, index] { picColor_Click(index); });
  }
  walk_->TakeBy(btnOK, [this](int cell) { return cell == CurrentColor; });
  connect(btnOK, &QPushButton::clicked, this, &ChooseColor::btnOK_Click);
  connect(btnCancel, &QPushButton::clicked, this, &ChooseColor::btnCancel_Click);
}

void ChooseColor::Form_Load() {
  CenterOnScreen();
  if (AsksForJersey()) CurrentColor = JerseyColor(session_, session_.ColorSlot);
  session_.ColorChoice = static_cast<std::uint16_t>(CurrentColor);
  ShowCurrentColor();
  for (int index = 0; index < PaletteSize; ++index) {
    ShowColor(*picColor[index], session_.League(), index);
  }
  if (CurrentColor < PaletteSize) {
    picColor[CurrentColor]->setFocus();
  } else {
    // Enter without another pick keeps the color, which no box shows.
    btnOK->setFocus();
  }
}

void ChooseColor::CenterOnScreen() {
  adjustSize();
  move(screen()->availableGeometry().center() - rect().center());
}

void ChooseColor::ShowCurrentColor() {
  ShowColor(*picCurrentColor, session_.League(), CurrentColor);
  lblColor->SetText(ColorName(session_.League(), CurrentColor));
}

void ChooseColor::picColor_Click(int Index) {
  CurrentColor = Index;
  session_.ColorChoice = static_cast<std::uint16_t>(Index);
  ShowCurrentColor();
}

void ChooseColor::btnOK_Click() {
  if (AsksForJersey()) {
    JerseyColor(session_, session_.ColorSlot) = static_cast<std::int16_t>(session_.ColorChoice);
  }
  accept();
}

void ChooseColor::btnCancel_Click() {
  session_.ColorChoice = NoColor;
  done(Rejected);
}

void ChooseColor::reject() {
  btnCancel_Click();
}

void ChooseColor::closeEvent(QCloseEvent* event) {
  done(Rejected);
  event->accept();
}

}  // namespace rostermill
