#include "screens/table/set_ratings_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

#include "league/league_tables.h"
#include "league/quantity_text.h"
#include "screens/table/players_model.h"
#include "toolkit/control_array.h"
#include "toolkit/form_parts.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

QString Count(int count, const char* noun) {
  return FromUtf8(QuantityText(static_cast<std::uint64_t>(count), noun));
}

}  // namespace

frmSetRatings::frmSetRatings(QWidget* parent, LeagueSession& session,
                             std::vector<PlayerPlace> players)
    : DialogForm(parent, "frmSetRatings", "Set Ratings"),
      session_(session),
      players_(std::move(players)) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void frmSetRatings::BuildControls() {
  for (const Column* column : PlayersModel::Columns()) {
    if (column->Kind == ColumnKind::Rating) columns_.push_back(column);
  }
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    auto* box = new QCheckBox(FromUtf8(columns_[at]->Heading));
    box->setObjectName(MemberName("chkRating", static_cast<int>(at)));
    chkRating.push_back(box);
  }
  const auto radio = [](const char* name, const char* text) {
    auto* button = new QRadioButton(text);
    button->setObjectName(name);
    return button;
  };
  radValue = radio("radValue", "To the value");
  radSteps = radio("radSteps", "Up or down by steps");
  radPercent = radio("radPercent", "Up or down by percent");
  cmbValue = new QComboBox;
  cmbValue->setObjectName("cmbValue");
  cmbValue->setAccessibleName("Value");
  cmbValue->setFocusPolicy(Qt::StrongFocus);
  for (const int value : RatingValues) cmbValue->addItem(QString::number(value));
  const auto spin = [](const char* name, const char* accessible, int most, const char* unit) {
    auto* box = new QSpinBox;
    box->setObjectName(name);
    box->setAccessibleName(accessible);
    box->setRange(-most, most);
    box->setSuffix(unit);
    box->setFocusPolicy(Qt::StrongFocus);
    return box;
  };
  spnSteps = spin("spnSteps", "Steps", RatingValues.last, "");
  spnPercent = spin("spnPercent", "Percent", 100, " %");
  lblEffect = NewLabel("lblEffect");
  btnOK = NewButton("btnOK", "OK");
  btnCancel = NewButton("btnCancel", "Cancel");
}

void frmSetRatings::LayOut() {
  auto* ratings = new QGroupBox("Ratings");
  auto* boxes = new QGridLayout(ratings);
  const int rows = static_cast<int>(chkRating.size() + 1) / 2;
  for (int at = 0; at < static_cast<int>(chkRating.size()); ++at) {
    boxes->addWidget(chkRating[static_cast<std::size_t>(at)], at % rows, at / rows);
  }
  auto* change = new QGroupBox("Change");
  auto* grid = new QGridLayout(change);
  grid->addWidget(radValue, 0, 0);
  grid->addWidget(cmbValue, 0, 1);
  grid->addWidget(radSteps, 1, 0);
  grid->addWidget(spnSteps, 1, 1);
  grid->addWidget(radPercent, 2, 0);
  grid->addWidget(spnPercent, 2, 1);
  grid->setColumnStretch(0, 1);
  auto* column = new NaturalColumn(this);
  column->addWidget(ratings);
  column->addWidget(change);
  column->addWidget(lblEffect);
  column->addWidget(ButtonRow(btnOK, btnCancel));
  lblEffect->setMinimumWidth(fontMetrics().averageCharWidth() * 64);
}

void frmSetRatings::Connect() {
  for (QCheckBox* box : chkRating) {
    connect(box, &QCheckBox::toggled, this, &frmSetRatings::Changed);
  }
  for (QRadioButton* button : {radValue, radSteps, radPercent}) {
    connect(button, &QRadioButton::toggled, this, &frmSetRatings::Changed);
  }
  connect(cmbValue, &QComboBox::currentIndexChanged, this, &frmSetRatings::Changed);
  connect(spnSteps, &QSpinBox::valueChanged, this, &frmSetRatings::Changed);
  connect(spnPercent, &QSpinBox::valueChanged, this, &frmSetRatings::Changed);
  connect(btnOK, &QPushButton::clicked, this, &frmSetRatings::btnOK_Click);
  connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSetRatings::Form_Load() {
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    // Only what one of the players has.
    chkRating[at]->setEnabled(std::ranges::any_of(players_, [&](const PlayerPlace& player) {
      return HasColumn(*columns_[at], player.Slot);
    }));
  }
  radSteps->setChecked(true);
  spnSteps->setValue(1);
  Changed();
}

RatingShift frmSetRatings::Shift() const {
  using enum RatingShift::Way;
  if (radValue->isChecked()) return {ToValue, cmbValue->currentText().toInt()};
  if (radSteps->isChecked()) return {BySteps, spnSteps->value()};
  return {ByPercent, spnPercent->value()};
}

std::vector<const Column*> frmSetRatings::PickedColumns() const {
  std::vector<const Column*> picked;
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    if (chkRating[at]->isChecked()) picked.push_back(columns_[at]);
  }
  return picked;
}

void frmSetRatings::Changed() {
  cmbValue->setEnabled(radValue->isChecked());
  spnSteps->setEnabled(radSteps->isChecked());
  spnPercent->setEnabled(radPercent->isChecked());
  const auto league = std::make_unique<LeagueData>(session_.League());
  const RatingShift shift = Shift();
  const ShiftCount count = ShiftRatings(players_, PickedColumns(), shift, *league);
  QString text = Count(static_cast<int>(players_.size()), "player") + ", " +
                 Count(count.Changed, "rating") + (count.Changed == 1 ? " changes" : " change");
  if (count.AtEnd > 0) {
    text += QString(", %1 %2 at the %3 already")
                .arg(count.AtEnd)
                .arg(count.AtEnd == 1 ? "is" : "are", shift.Amount > 0 ? "top" : "bottom");
  }
  lblEffect->setText(text);
  btnOK->setEnabled(count.Changed > 0);
}

void frmSetRatings::btnOK_Click() {
  const auto league = std::make_unique<LeagueData>(session_.League());
  const ShiftCount count = ShiftRatings(players_, PickedColumns(), Shift(), *league);
  session_.Change("Set " + QuantityText(static_cast<std::uint64_t>(count.Changed), "Rating"),
                  [&](LeagueData& changed) { changed = *league; });
  accept();
}

}  // namespace rostermill
