#include "screens/probowl/roster_form.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>

#include <array>

#include "league/league_tables.h"
#include "league/probowl.h"
#include "rules/display_text.h"
#include "screens/probowl/choose_player_form.h"
#include "screens/probowl/place_label.h"
#include "toolkit/form_parts.h"
#include "toolkit/grid_walk.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

/// The labels of one frame: Index 0 shows FirstPlace. The group code handed to the chooser is
/// FirstCode, and grows by CodeStep from label to label.
struct LabelGroup {
  const char* Array;
  const char* Caption;
  int Count;
  int FirstPlace;
  int FirstCode;
  int CodeStep;
};

constexpr std::array<LabelGroup, 9> label_groups{{
    {"lblQB", "Quarter Backs", 2, 1, 1, 0},
    {"lblRB", "Running Backs", 4, 3, 2, 0},
    {"lblWR", "Wide Receivers", 4, 7, 3, 0},
    {"lblTE", "Tight Ends", 2, 11, 4, 0},
    {"lblOL", "Offensive Linemen", 5, 13, 5, 0},
    {"lblDL", "Defensive Linemen", 3, 18, 6, 0},
    {"lblLB", "Linebackers", 4, 21, 7, 0},
    {"lblDB", "Defensive Backs", 4, 25, 8, 0},
    {"lblK", "Kickers", 2, 29, 9, 1},
}};

/// Three groups make ten places, so the columns are equally long.
constexpr int groups_in_column = 3;
constexpr int places_in_column = 10;

QLabel* NewSlotCaption(const QString& text) {
  QLabel* caption = NewNumberLabel({}, "ROLB");
  caption->setText(text);
  return caption;
}

}  // namespace

frmRoster::frmRoster(LeagueSession& session) : ChildForm("frmRoster", "Roster"), session_(session) {
  BuildControls();
  LayOut();
  connect(btnOK, &QPushButton::clicked, this, &frmRoster::btnOK_Click);
  Form_Load();
}

void frmRoster::BuildControls() {
  for (const LabelGroup& group : label_groups) {
    auto* rows = new QGridLayout(Frame1.Add(new QGroupBox(group.Caption)));
    ControlArray<PlaceLabel> labels(group.Array);
    for (int Index = 0; Index < group.Count; ++Index) {
      const int place = group.FirstPlace + Index;
      const int code = group.FirstCode + group.CodeStep * Index;
      const QString slot_label = FromLatin1(SlotLabels[place]);
      labels_[place] = labels.Add(new PlaceLabel(slot_label));
      connect(labels_[place], &PlaceLabel::MouseDown, this,
              [=, this](Qt::MouseButtons Button) { lbl_MouseDown(place, code, Button); });
      rows->addWidget(NewSlotCaption(slot_label), Index, 0);
      rows->addWidget(labels_[place], Index, 1);
    }
  }
  btnOK = NewButton("btnOK", "OK");
  SetDefaultButton(btnOK);
}

void frmRoster::LayOut() {
  auto* Frame2 = ButtonRow(btnOK, nullptr);
  Frame2->setObjectName("Frame2");

  auto* columns = new QHBoxLayout;
  QVBoxLayout* column = nullptr;
  for (int number = Frame1.First(); number < Frame1.Next(); ++number) {
    if (number % groups_in_column == 0) {
      column = new QVBoxLayout;
      columns->addLayout(column, 1);
    }
    column->addWidget(Frame1[number]);
  }
  lblSide = NewLabel("lblSide");
  QFont large = lblSide->font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.2);
  lblSide->setFont(large);
  // The columns are the columns of the walk.
  std::vector<QWidget*> cells;
  for (int row = 1; row <= places_in_column; ++row) {
    for (int place = row; place <= SlotCount; place += places_in_column) {
      cells.push_back(labels_[place]);
    }
  }
  new GridWalk(cells, SlotCount / places_in_column, this);
  auto* whole = new NaturalColumn(this);
  whole->addWidget(lblSide);
  whole->addLayout(columns);
  whole->addStretch();
  whole->addWidget(Frame2);
}

void frmRoster::Form_Load() {
  RefreshRoster();
}

void frmRoster::RefreshRoster() {
  lblSide->setText(QString::fromLatin1(Side()) + " Roster");
  for (int place = 1; place <= SlotCount; ++place) {
    const ProbowlRec& rec = session_.League().ProbowlData[session_.RosterConference][place];
    labels_[place]->ShowPlayer(
        NamesPlayer(rec) ? FromLatin1(PlayerFullText(session_.League(), rec.Team, rec.Slot))
                         : "(nobody)");
  }
}

const char* frmRoster::Side() const {
  return session_.RosterConference == 1 ? "AFC" : "NFC";
}

void frmRoster::lbl_MouseDown(int place, int code, Qt::MouseButtons Button) {
  if (!Button.testFlag(Qt::LeftButton)) return;
  session_.ChosenSlot = static_cast<std::int16_t>(code);
  // The chooser is destroyed with this form if the program ends while it is open.
  const QPointer<frmChoosePlayer> chooser = new frmChoosePlayer(this, session_);
  chooser->exec();
  if (!chooser) return;
  delete chooser.data();
  if (session_.ChosenTeam > 0 && session_.ChosenSlot > 0) {
    const std::string player =
        PlayerEditText(session_.League(), session_.ChosenTeam, session_.ChosenSlot);
    session_.Change(std::string(Side()) + " Roster: " + player, [&](LeagueData& league) {
      league.ProbowlData[session_.RosterConference][place] = {session_.ChosenTeam,
                                                              session_.ChosenSlot};
    });
  }
  RefreshRoster();
}

void frmRoster::btnOK_Click() {
  CloseForm();
}

}  // namespace rostermill
