#include <QAbstractScrollArea>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>
#include <QVBoxLayout>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "bench/pairs.h"
#include "bench/twin.h"
#include "history/league_history.h"
#include "league/file_access.h"
#include "league/load_image.h"
#include "league/palette.h"
#include "rules/face_paths.h"
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
#include "screens/table/all_players_form.h"
#include "screens/teams/choose_color.h"
#include "screens/teams/choose_play.h"
#include "screens/teams/edit_team.h"
#include "screens/teams/view_teams.h"
#include "toolkit/qt_strings.h"
#include "tools/driver/driver.h"

namespace rostermill::bench {

namespace {

constexpr int form_pairs = 101;
constexpr int click_pairs = 201;
constexpr int page_size = 128;

/// Waits until everything is laid out and painted.
void Settle() {
  for (int round = 0; round < 3; ++round) QCoreApplication::processEvents();
}

/// Shows the form as the program does, and waits for its last paint.
void Open(ChildArea& area, QWidget* form) {
  if (auto* child = qobject_cast<ChildForm*>(form)) {
    area.ShowForm(child);
  } else {
    form->show();
  }
  Settle();
}

void Close(QWidget* form) {
  if (auto* child = qobject_cast<ChildForm*>(form)) {
    child->CloseForm();
  } else {
    delete form;
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Settle();
}

template <typename Make>
double CostOfOpening(ChildArea& area, Make make) {
  QWidget* form = nullptr;
  const double cost = Milliseconds([&] {
    form = make();
    Open(area, form);
  });
  Close(form);
  return cost;
}

template <typename Make>
void CompareForm(ChildArea& area, const std::string& name, Make make) {
  QWidget* model = make();
  Open(area, model);
  const Twin twin(*model);
  Compare(
      {"form " + name, 1.5, form_pairs}, [&] { return CostOfOpening(area, make); },
      [&] { return CostOfOpening(area, [&] { return twin.Make(); }); });
  Close(model);
}

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

/// Compares the cost of a step until it is painted with a repaint of its whole form.
template <typename Step>
void CompareStep(const std::string& what, QWidget& form, Step step) {
  Compare(
      {what, 2, click_pairs},
      [&] {
        return Milliseconds([&] {
          step();
          Settle();
        });
      },
      [&] {
        return Milliseconds([&] {
          form.update();
          // Their grounds hide the form's, so it doesn't paint them.
          for (auto* area : form.findChildren<QAbstractScrollArea*>()) area->viewport()->update();
          Settle();
        });
      });
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

/// A table of this size with nothing in it.
class EmptyModel : public QAbstractTableModel {
 public:
  int rowCount(const QModelIndex&) const override { return TeamCount * SlotCount; }
  int columnCount(const QModelIndex&) const override {
    return static_cast<int>(PlayersModel::Columns().size());
  }
  QVariant data(const QModelIndex&, int) const override { return {}; }
};

/// The table of all players against one of an empty model, and a letter typed against a repaint.
void CompareAllPlayers(ChildArea& area, LeagueSession& session, QSettings& settings) {
  const auto make = [&] { return new frmAllPlayers(session, settings); };
  EmptyModel model;
  const QSize size = std::unique_ptr<frmAllPlayers>(make())->sizeHint();
  const auto make_empty = [&] {
    auto* form = new ChildForm("Twin", "All Players");
    auto* column = new QVBoxLayout(form);
    auto* grid = new QTableView;
    grid->setModel(&model);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(26);
    column->addWidget(new QLineEdit);
    column->addWidget(grid, 1);
    column->addWidget(new QLabel("840 of 840 players"));
    auto* buttons = new QHBoxLayout;
    for (const char* text : {"OK", "Set Ratings...", "Show"}) {
      buttons->addWidget(new QPushButton(text));
    }
    column->addLayout(buttons);
    grid->setMinimumSize(size - QSize(40, 120));
    return form;
  };
  Compare(
      {"form frmAllPlayers, against an empty model", 1.5, form_pairs},
      [&] { return CostOfOpening(area, make); }, [&] { return CostOfOpening(area, make_empty); });
  frmAllPlayers* players = make();
  Open(area, players);
  auto& find = driver::Find<QLineEdit>(*players, "txtFind");
  CompareStep("a letter typed to find players", *players,
              [&] { find.setText(find.text().size() < 3 ? find.text() + "a" : QString()); });
  Close(players);
}

/// Turns the pages of the photo picker, in a folder whose files are new to it or known.
class PhotoPages {
 public:
  PhotoPages(const LeagueSession& session, const QString& work)
      : folder_(work + "/"), photos_(MakeFolder(session, folder_)) {}

  /// Clicks the button of the other page. The pictures are set by then, and painted later.
  double Turn() {
    white_ = !white_;
    auto& page = driver::Find<QRadioButton>(*photos_, white_ ? "radWhite" : "radBlack");
    return Milliseconds([&] { page.click(); });
  }

  /// Makes all files look changed since they were read.
  void TouchFiles() {
    ++seconds_;
    for (int face = 0; face < 2 * page_size; ++face) {
      QFile file(FromUtf8(FacePath(ToUtf8(folder_), face)));
      if (!file.open(QIODevice::ReadWrite) ||
          !file.setFileTime(QDateTime::fromSecsSinceEpoch(seconds_),
                            QFileDevice::FileModificationTime)) {
        std::exit(1);
      }
    }
  }

  double Decode() const {
    return Milliseconds([this] {
      for (int index = 0; index < page_size; ++index) {
        if (QImageReader(FaceFile(index)).read().isNull()) std::exit(1);
      }
    });
  }

 private:
  static std::unique_ptr<PlayerPhotos> MakeFolder(const LeagueSession& session,
                                                  const QString& folder) {
    QDir().mkpath(folder + "faces");
    for (int face = 0; face < 2 * page_size; ++face) {
      QFile::copy(FromUtf8(FacePath(session.AppDir, face)),
                  FromUtf8(FacePath(ToUtf8(folder), face)));
    }
    return std::make_unique<PlayerPhotos>(nullptr, ToUtf8(folder));
  }

  QString FaceFile(int index) const {
    return FromUtf8(FacePath(ToUtf8(folder_), index + (white_ ? 0 : page_size)));
  }

  QString folder_;
  std::unique_ptr<PlayerPhotos> photos_;
  bool white_ = true;
  qint64 seconds_ = 1'000'000;
};

void ComparePhotoPages(const LeagueSession& session, const QString& work) {
  PhotoPages pages(session, work);
  Compare(
      {"photo page of 128, first time", 1.3, form_pairs},
      [&] {
        pages.TouchFiles();
        return pages.Turn();
      },
      [&] {
        pages.TouchFiles();
        return pages.Decode();
      });
  pages.Turn();
  pages.Turn();
  Compare(
      {"photo page of 128, seen before", 0.6, form_pairs}, [&] { return pages.Turn(); },
      [&] { return pages.Decode(); });
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
  CompareAllPlayers(area, session, settings);
  CompareSavedPlayers(argv[1], argv[2]);
  CompareSeasonGrid(area, session);
} catch (const std::exception& error) {
  std::fprintf(stderr, "bench_window: %s\n", error.what());
  return 1;
}
