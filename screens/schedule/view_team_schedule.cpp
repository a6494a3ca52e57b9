#include "screens/schedule/view_team_schedule.h"

#include <QMouseEvent>
#include <QVBoxLayout>

#include "rules/display_text.h"
#include "rules/season_facts.h"
#include "toolkit/copy_text.h"
#include "toolkit/natural_layout.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

ViewTeamSchedule::ViewTeamSchedule(const LeagueSession& session)
    : ChildForm("ViewTeamSchedule", "Team Schedule"), session_(session) {
  BuildControls();
  LayOut();
  AddCopyAction(this, [this] { return CopiedText(); });
  AddSelectAllAction(this, [this] { MarkSelected(true); });
  Form_Load();
}

void ViewTeamSchedule::BuildControls() {
  lblTeamName = new ElidedLabel("lblTeamName");
  QFont large = lblTeamName->font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.2);
  lblTeamName->setFont(large);
  lblTeamName->AskForRoom(LongestTeamText);
  for (int w = 0; w < WeekCount; ++w) lblOpponent.Add(new ElidedLabel({}));
  for (ElidedLabel* line : lblOpponent) line->AskForRoom(LongestTeamText);
}

void ViewTeamSchedule::LayOut() {
  auto* lines = new NaturalColumn(this);
  lines->addWidget(lblTeamName);
  lines->addSpacing(lines->spacing());
  for (ElidedLabel* line : lblOpponent) lines->addWidget(line);
  lines->addStretch();
  setFocusPolicy(Qt::StrongFocus);
}

void ViewTeamSchedule::Form_Load() {
  ShowTeam();
}

void ViewTeamSchedule::MarkSelected(bool selected) {
  const auto mark = [selected](QLabel* line) {
    line->setAutoFillBackground(selected);
    line->setBackgroundRole(selected ? QPalette::Highlight : QPalette::NoRole);
    line->setForegroundRole(selected ? QPalette::HighlightedText : QPalette::NoRole);
  };
  mark(lblTeamName);
  for (QLabel* line : lblOpponent) mark(line);
}

void ViewTeamSchedule::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) MarkSelected(false);
  ChildForm::mousePressEvent(event);
}

void ViewTeamSchedule::ShowTeam() {
  MarkSelected(false);
  lblTeamName->SetText(FromLatin1(SideName(session_.League(), session_.SchedTeam - 1)));
  for (int w = 0; w < WeekCount; ++w) {
    lblOpponent[w]->SetText(OpponentText(session_.League().ScheduleData[w]));
  }
}

QString ViewTeamSchedule::OpponentText(const ScheduleWeek& week) const {
  std::string text = "Bye Week";
  for (int game = 0; game < week.GameCount; ++game) {
    const GamePlace& place = week.Games[game];
    if (place.HomeTeam + 1 == session_.SchedTeam) {
      text = LowerText(SideName(session_.League(), place.AwayTeam));
    } else if (place.AwayTeam + 1 == session_.SchedTeam) {
      text = UpperText(SideName(session_.League(), place.HomeTeam));
    }
  }
  return FromLatin1(text);
}

QString ViewTeamSchedule::CopiedText() const {
  QList<QStringList> rows{{lblTeamName->text()}};
  for (int w = 0; w < WeekCount; ++w) {
    rows << QStringList{QString("Week %1").arg(w + 1), lblOpponent[w]->text()};
  }
  return TabSeparatedText(rows);
}

}  // namespace rostermill
