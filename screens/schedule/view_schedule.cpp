#include "screens/schedule/view_schedule.h"

#include <QVBoxLayout>

#include "rules/season_facts.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

constexpr int week_width = 1000;  // twips
constexpr int game_width = 1300;  // twips

}  // namespace

ViewSchedule::ViewSchedule(const LeagueSession& session)
    : ChildForm("ViewSchedule", "NFL Schedule"), session_(session) {
  grdSchedule = new FlexGrid("grdSchedule", WeekCount, GamesPerWeek + 1);
  grdSchedule->setAccessibleName("Games of the season");
  LayOut();
  Form_Load();
}

void ViewSchedule::LayOut() {
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(grdSchedule);
}

void ViewSchedule::Form_Load() {
  grdSchedule->SetColWidth(0, week_width);
  for (int w = 1; w <= WeekCount; ++w) ShowWeek(w);
  for (int column = 0; column <= GamesPerWeek; ++column) grdSchedule->WidenToText(column);
}

void ViewSchedule::ShowWeek(int w) {
  const LeagueData& league = session_.League();
  const ScheduleWeek& week = league.ScheduleData[w - 1];
  grdSchedule->SetTextMatrix(w - 1, 0, QString(" Week %1").arg(w));
  for (int game = 1; game <= week.GameCount; ++game) {
    const GamePlace& place = week.Games[game - 1];
    grdSchedule->SetColWidth(game, game_width);
    grdSchedule->SetTextMatrix(
        w - 1, game,
        FromLatin1(SideAbbreviation(league, place.AwayTeam) + " @ " +
                   SideAbbreviation(league, place.HomeTeam)),
        FromLatin1(SideName(league, place.AwayTeam) + " at " + SideName(league, place.HomeTeam)));
  }
}

}  // namespace rostermill
