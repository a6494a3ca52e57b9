#include "screens/teams/choose_play.h"

#include <QDialogButtonBox>
#include <QGridLayout>

#include "rules/play_names.h"
#include "screens/teams/team_form_parts.h"
#include "toolkit/elided_label.h"
#include "toolkit/form_parts.h"
#include "toolkit/grid_walk.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int choices = 8;
constexpr int columns = 4;
/// Space for the focus frame around a name.
constexpr int name_margin = 5;

}  // namespace

ChoosePlay::ChoosePlay(QWidget* parent, LeagueSession& session)
    : DialogForm(parent, "ChoosePlay", "Choose Play"),
      session_(session),
      slot_(session.PlaySlot + 1) {
  BuildControls();
  LayOut();
  Connect();
  Form_Load();
}

void ChoosePlay::BuildControls() {
  for (int choice = 0; choice < choices; ++choice) {
    PictureBox* picture = picRun.Add(new PictureBox({}, PlayPictureSize, PlayMagnification));
    KeepRoomWhenHidden(picture);
    ClickLabel* name = lblName.Add(new ClickLabel("Name"));
    name->setMargin(name_margin);
  }
  lblChosen = new ElidedLabel("lblChosen");
  QFont font = lblChosen->font();
  font.setBold(true);
  lblChosen->setFont(font);
  btnOK = NewButton("btnOK", "OK");
  btnCancel = NewButton("btnCancel", "Cancel");
}

void ChoosePlay::LayOut() {
  auto* grid = new NaturalGrid(this);
  const int name_width = fontMetrics().horizontalAdvance("Run and Shoot Sweep Right");
  for (int column = 0; column < columns; ++column) {
    grid->setColumnMinimumWidth(column, name_width + 2 * name_margin);
  }
  for (int choice = 0; choice < choices; ++choice) {
    auto* tile = new QVBoxLayout;
    tile->setSpacing(0);
    tile->addWidget(picRun[choice], 0, Qt::AlignHCenter);
    tile->addWidget(lblName[choice], 0, Qt::AlignHCenter);
    grid->addLayout(tile, choice / columns, choice % columns);
  }
  auto* bottom = new QHBoxLayout;
  bottom->setSpacing(8);
  bottom->addWidget(lblChosen, 1);
  bottom->addWidget(ButtonRow(btnOK, btnCancel));
  grid->addLayout(bottom, choices / columns, 0, 1, columns);
  grid->setRowStretch(choices / columns, 1);
}

void ChoosePlay::Connect() {
  for (int choice = 0; choice < choices; ++choice) {
    connect(picRun[choice], &PictureBox::Click, this, [this, choice] { picRun_Click(choice); });
    // A play without a picture is picked by its name.
    connect(lblName[choice], &ClickLabel::Click, this, [this, choice] { picRun_Click(choice); });
    connect(lblName[choice], &ClickLabel::DblClick, this, [this, choice] {
      picRun_Click(choice);
      btnOK_Click();
    });
  }
  connect(btnOK, &QPushButton::clicked, this, &ChoosePlay::btnOK_Click);
  connect(btnCancel, &QPushButton::clicked, this, &ChoosePlay::btnCancel_Click);
}

void ChoosePlay::Form_Load() {
  std::vector<QWidget*> cells;
  for (int choice = 0; choice < choices; ++choice) {
    const QString name = FromLatin1(PlayName(slot_, choice));
    picRun[choice]->SetClickable(name);
    const bool pictured = ShowPlay(*picRun[choice], session_.AppDir, slot_, choice);
    QWidget* label = lblName[choice];
    cells.push_back(pictured ? picRun[choice] : label);
    // Before the text is set: a label that takes the focus lays it out as a whole document.
    lblName[choice]->setFocusPolicy(pictured ? Qt::NoFocus : Qt::StrongFocus);
    lblName[choice]->setText(name);
  }
  auto* walk = new GridWalk(cells, columns, this);
  walk->TakeBy(btnOK, [this](int cell) { return cell == session_.PlayChoice; });
  const int stored = session_.League().TeamPlays[session_.ViewTeam][slot_];
  ShowChoice(stored);
  if (stored < choices) {
    FocusPlay(stored);
  } else {
    // Enter without another pick keeps the play, which no picture shows.
    btnOK->setFocus();
  }
}

void ChoosePlay::ShowChoice(int choice) {
  lblChosen->SetText(FromLatin1(PlayName(slot_, choice)));
  session_.PlayChoice = static_cast<std::int16_t>(choice);
}

void ChoosePlay::FocusPlay(int choice) {
  QWidget* name = lblName[choice];
  (picRun[choice]->isHidden() ? name : picRun[choice])->setFocus();
}

void ChoosePlay::picRun_Click(int Index) {
  ShowChoice(Index);
  FocusPlay(Index);
}

void ChoosePlay::btnOK_Click() {
  session_.PreviewPlays[slot_] = session_.PlayChoice;
  accept();
}

void ChoosePlay::btnCancel_Click() {
  reject();
}

}  // namespace rostermill
