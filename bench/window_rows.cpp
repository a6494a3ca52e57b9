#include <QApplication>
#include <QFile>
#include <QSettings>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "bench/form_costs.h"
#include "history/league_history.h"
#include "history/store_folder.h"
#include "history/version_store.h"
#include "league/file_access.h"
#include "league/load_image.h"
#include "league/palette.h"
#include "screens/check/check_league_form.h"
#include "screens/compare/compare_form.h"
#include "screens/leaders/form_print.h"
#include "screens/leaders/view_leaders.h"
#include "screens/players/edit_player.h"
#include "screens/players/player_photos.h"
#include "screens/players/view_player.h"
#include "screens/probowl/choose_player_form.h"
#include "screens/probowl/probowl_form.h"
#include "screens/probowl/roster_form.h"
#include "screens/schedule/edit_schedule.h"
#include "screens/schedule/view_schedule.h"
#include "screens/schedule/view_team_schedule.h"
#include "screens/settings/game_settings_form.h"
#include "screens/table/set_ratings_form.h"
#include "screens/teams/choose_color.h"
#include "screens/teams/choose_play.h"
#include "screens/teams/edit_team.h"
#include "screens/teams/view_teams.h"
#include "screens/versions/versions_form.h"
#include "toolkit/qt_strings.h"
#include "tools/driver/driver.h"

namespace rostermill::bench {

namespace {

void CompareForms(ChildArea& area, LeagueSession& session) {
  CompareForm(area, "ViewPlayer", [&] { return new ViewPlayer(session); });
  CompareForm(area, "EditPlayer", [&] { return new EditPlayer(session); });
  CompareForm(area, "ViewTeams", [&] { return new ViewTeams(session); });
  CompareForm(area, "EditTeam", [&] { return new EditTeam(session); });
  CompareForm(area, "ViewLeaders", [&] { return new ViewLeaders(session); });
  CompareForm(area, "frmEditSchedule", [&] { return new frmEditSchedule(session); });
  CompareForm(area, "ViewTeamSchedule", [&] {
    auto* form = new ViewTeamSchedule(session);
    form->ShowTeam();
    return form;
  });
  CompareForm(area, "frmEditGameSettings", [&] { return new frmEditGameSettings(session); });
  CompareForm(area, "frmProbowl", [&] { return new frmProbowl(session); });
  CompareForm(area, "frmRoster", [&] { return new frmRoster(session); });
  CompareForm(area, "PlayerPhotos", [&] { return new PlayerPhotos(&area, session.AppDir); });
  CompareForm(area, "frmCheckLeague", [&] { return new frmCheckLeague(session); });
  CompareForm(area, "frmSetRatings", [&] {
    return new frmSetRatings(&area, session, {{1, 1}, {2, 3}});
  });
  CompareForm(area, "ChooseColor", [&] { return new ChooseColor(&area, session); });
  CompareForm(area, "ChoosePlay", [&] { return new ChoosePlay(&area, session); });
  CompareForm(area, "FormPrint", [&] { return new FormPrint(&area, session, 0); });
  CompareForm(area, "frmChoosePlayer", [&] {
    session.ChosenSlot = 1;
    return new frmChoosePlayer(&area, session);
  });
}

void CompareSeasonGrid(ChildArea& area, LeagueSession& session) {
  session.Change("fill", [](LeagueData& league) {
    for (ScheduleWeek& week : league.ScheduleData) week.GameCount = GamesPerWeek;
  });
  CompareForm(area, "ViewSchedule, 17 full weeks", [&] { return new ViewSchedule(session); });
}

void SelectNext(QComboBox& list) {
  list.setCurrentIndex((list.currentIndex() + 1) % list.count());
}

void CompareSteps(ChildArea& area, LeagueSession& session) {
  using driver::Find;
  auto* player = new ViewPlayer(session);
  Open(area, player);
  CompareStep("next player", *player, [&] { SelectNext(Find<QComboBox>(*player, "cmbPlayer")); });
  CompareStep("next team of players", *player,
              [&] { SelectNext(Find<QComboBox>(*player, "cmbTeam")); });
  Close(player);
  auto* teams = new ViewTeams(session);
  Open(area, teams);
  CompareStep("next team", *teams, [&] { SelectNext(Find<QComboBox>(*teams, "cmbTeam")); });
  Close(teams);
  auto* leaders = new ViewLeaders(session);
  Open(area, leaders);
  CompareStep("next position group", *leaders,
              [&] { SelectNext(Find<QComboBox>(*leaders, "cmbPosition")); });
  CompareStep("sort click", *leaders,
              [&] { emit Find<ClickLabel>(*leaders, "lblHead(1)").Click(); });
  Close(leaders);
}

void LoadSample(LeagueSession& session, const std::string& bin) {
  session.AppDir = bin + "/";
  OpenImage image(ReadFileStart(session.AppDir + "sample.nes", OpenImage::WholeSize).Bytes);
  LeagueData league = ReadLeague(image);
  league.PaletteData = ReadPalette(session.AppDir);
  session.SetLeague(std::move(league));
  session.ImageLoaded = 1;
}

/// Opens the viewer and the editor of a session, and presses Save Player for a changed player.
class PlayerSaver {
 public:
  PlayerSaver(ChildArea& area, LeagueSession& session) : viewer_(new ViewPlayer(session)) {
    Open(area, viewer_);
    driver::Find<QPushButton>(*viewer_, "btnEdit").click();
    Settle();
    for (auto* editor : area.findChildren<EditPlayer*>()) editor_ = editor;
  }
  ~PlayerSaver() { Close(viewer_); }
  PlayerSaver(const PlayerSaver&) = delete;
  PlayerSaver& operator=(const PlayerSaver&) = delete;

  template <typename Then>
  double Save(Then then) {
    raised_ = !raised_;
    driver::Find<QPushButton>(*editor_, raised_ ? "btnPlus(8)" : "btnMinus(8)").click();
    return Milliseconds([&] {
      driver::Find<QPushButton>(*editor_, "btnSavePlayer").click();
      then();
      Settle();
    });
  }

 private:
  ViewPlayer* viewer_;
  EditPlayer* editor_ = nullptr;
  bool raised_ = false;
};

/// How many rows of the list are visible when the form opens.
int RowsInView(ChildArea& area, frmVersions* form) {
  Open(area, form);
  const auto& list = driver::Find<QTreeWidget>(*form, "lstVersions");
  const QModelIndex last = list.indexAt({1, list.viewport()->height() - 1});
  const int rows = last.isValid() ? last.row() + 1 : list.topLevelItemCount();
  Close(form);
  return rows;
}

/// The list of 30 earlier versions, and a comparison with a league in which all players differ.
void CompareLists(ChildArea& area, const std::string& bin, const std::string& work) {
  LeagueSession session;
  LoadSample(session, bin);
  session.ImagePath = work + "/listed.nes";
  QFile::copy(FromUtf8(session.AppDir + "sample.nes"), FromUtf8(session.ImagePath));
  FileStart file = ReadFileStart(session.ImagePath, OpenImage::WholeSize);
  LeagueHistory history(session, work + "/listed");
  history.Loaded(file.Bytes);
  const VersionStore store(work + "/listed");
  for (int version = 0; version < 30; ++version) {
    file.Bytes.back() = static_cast<std::uint8_t>(version);
    store.Keep(session.ImagePath, file, "before a save");
  }
  // To count changes, the form reads each version in view.
  const std::filesystem::path folder = ImageFolder(work + "/listed", session.ImagePath);
  std::vector<std::string> files = FilesIn(folder);
  files.resize(static_cast<std::size_t>(RowsInView(area, new frmVersions(history))));
  CompareForm(
      area, "frmVersions, 30 versions", [&] { return new frmVersions(history); },
      [&] {
        for (const std::string& name : files) ReadFileStart(folder / name, OpenImage::WholeSize);
      });
  OtherLeague other{"other", session.League(), {}};
  for (int team = 1; team <= TeamCount; ++team) {
    for (NameRec& name : other.League.NameData[team]) name.JerseyNumber = "98";
  }
  CompareForm(area, "frmCompare, 840 differences", [&] { return new frmCompare(session, other); });
}

/// Save Player with the step recorded and the unsaved changes kept at once, against without either.
/// The history is full in the second half.
void CompareSavedPlayers(const std::string& bin, const std::string& work) {
  LeagueSession kept;
  LeagueSession plain;
  LoadSample(kept, bin);
  LoadSample(plain, bin);
  kept.ImagePath = work + "/kept.nes";
  QFile::copy(FromUtf8(kept.AppDir + "sample.nes"), FromUtf8(kept.ImagePath));
  LeagueHistory history(kept, work + "/kept");
  history.Loaded(ReadFileStart(kept.ImagePath, OpenImage::WholeSize).Bytes);
  ChildArea areas[2];
  for (ChildArea& area : areas) {
    area.resize(1120, 800);
    area.show();
  }
  PlayerSaver ours(areas[0], kept);
  PlayerSaver baseline(areas[1], plain);
  Compare(
      {"Save Player, recorded and kept", 1.2, 2 * click_pairs},
      [&] { return ours.Save([&] { history.KeepUnsaved(); }); },
      [&] { return baseline.Save([] {}); });
}

}  // namespace

}  // namespace rostermill::bench

/// bench_window BIN-FOLDER WORK-FOLDER
int main(int argc, char** argv) try {
  using namespace rostermill;
  using namespace rostermill::bench;
  QApplication app(argc, argv);
  if (argc != 3) return 2;
  LeagueSession session;
  LoadSample(session, argv[1]);
  ChildArea area;
  area.resize(1120, 800);
  area.show();
  Settle();
  CompareForms(area, session);
  ComparePhotoPages(session, QString::fromLocal8Bit(argv[2]));
  CompareSteps(area, session);
  QSettings settings(QString::fromLocal8Bit(argv[2]) + "/settings.ini", QSettings::IniFormat);
  CompareTable(area, session, settings);
  CompareLists(area, argv[1], argv[2]);
  CompareSavedPlayers(argv[1], argv[2]);
  CompareSeasonGrid(area, session);
} catch (const std::exception& error) {
  std::fprintf(stderr, "bench_window: %s\n", error.what());
  return 1;
}
