#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <QTreeWidget>

#include "league/league_session.h"
#include "shell/rsm_form.h"
#include "tests/sharing/stamp.h"
#include "tests/sharing/writer_log.h"
#include "tests/sharing/writers.h"
#include "tests/support/sample.h"
#include "toolkit/qt_strings.h"
#include "tools/driver/driver.h"

namespace rostermill::test {

namespace {

class Editor : public QObject {
 public:
  Editor(const Place& place, std::string name, unsigned seed)
      : place_(place),
        name_(std::move(name)),
        chances_(seed, name_),
        log_(place.Log(), name_),
        settings_(FromUtf8(place.File(name_ + ".ini")), QSettings::IniFormat),
        window_(session_, &settings_) {
    session_.AppDir = BinFolder();
    driver::on_error = [this](const std::string& text) { log_.Write(Fault, text); };
  }

  void Run() {
    window_.show();
    connect(&steps_, &QTimer::timeout, this, [this] { TryStep(); });
    connect(&answers_, &QTimer::timeout, this, [this] { AnswerMessage(); });
    steps_.start(0);
    answers_.start(0);
    QApplication::exec();
  }

 private:
  /// What the program has said and asked since the last save began.
  struct Talk {
    int Questions = 0;
    bool AnsweredNo = false;
    std::string Error;
    std::string Note;  ///< of a save that was made all the same
  };

  void Pick(const QString& item) { driver::Find<QAction>(window_, item).trigger(); }
  bool CanPick(const QString& item) { return driver::Find<QAction>(window_, item).isEnabled(); }

  void TryStep() {
    try {
      if (place_.Stopped()) return QApplication::quit();
      Step();
    } catch (const std::exception& error) {
      log_.Write(Fault, error.what());
      QApplication::quit();
    }
  }

  void Step() {
    const int kind = chances_.Below(100);
    if (session_.ImageLoaded == 0 || kind < 6) {
      Load();
    } else if (kind < 8) {
      BringBack();
    } else if (kind < 15 && CanPick("mnuEditUndo")) {
      Pick("mnuEditUndo");
    } else if (kind < 20 && CanPick("mnuEditRedo")) {
      Pick("mnuEditRedo");
    } else {
      const std::string stamp = Stamp(name_, ++serial_);
      session_.Change("Stamp " + stamp, [&](LeagueData& league) {
        LeagueData stamped = StampedLeague(stamp);
        stamped.PaletteData = league.PaletteData;
        league = std::move(stamped);
      });
    }
    if (session_.ImageLoaded != 0 && !chances_.OneIn(8)) Save();
  }

  void Load() {
    if (session_.ImageLoaded == 0) driver::AnswerNextFileDialog(FromUtf8(place_.Image()));
    Pick(session_.ImageLoaded == 0 ? "mFilLoadROM" : "mnuFileRecent(0)");
    if (session_.ImageLoaded == 0) throw std::runtime_error("no load: " + talk_.Error);
    if (!StampOf(session_.League())) throw std::runtime_error("a mixed league was loaded");
  }

  /// One of the list, in which there are also the unsaved changes of those who were killed. It may
  /// have gone meanwhile.
  void BringBack() {
    talk_ = {};
    Pick("mToolVersions");
    const auto& form = driver::Find<QWidget>(window_, "frmVersions");
    auto& list = driver::Find<QTreeWidget>(form, "lstVersions");
    if (list.topLevelItemCount() > 0) {
      list.setCurrentItem(list.topLevelItem(chances_.Below(list.topLevelItemCount())));
      driver::Find<QPushButton>(form, "btnBring").click();
    }
    driver::Find<QPushButton>(form, "btnOK").click();
    if (talk_.Error.find("There is no version") == std::string::npos &&
        talk_.Error.find("gone") == std::string::npos && !talk_.Error.empty()) {
      log_.Write(Fault, "bringing back: " + talk_.Error);
    }
  }

  void Save() {
    const auto stamp = StampOf(session_.League());
    if (!stamp) throw std::runtime_error("the league in memory is mixed");
    log_.Write(About, *stamp + " by the window");
    talk_ = {};
    Pick("mFilSaveROM");
    const QString state = driver::Find<QLabel>(window_, "lblChanged").text();
    if (!window_.isEnabled()) log_.Write(Fault, "the window stays disabled");
    if (!talk_.Note.empty()) log_.Write(NotKept, talk_.Note);
    if (!talk_.Error.empty()) {
      log_.Write(Refused, *stamp + " " + talk_.Error);
    } else if (talk_.AnsweredNo) {
      log_.Write(Declined, *stamp);
      if (chances_.OneIn(2)) Load();
    } else if (talk_.Questions == 0 || state.startsWith("Changed")) {
      log_.Write(Fault, "a save did nothing and didn't say so");
    } else {
      log_.Write(Saved, *stamp + " by the window");
    }
  }

  void AnswerMessage() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    const QString title = box->windowTitle();
    const bool warned = !box->informativeText().isEmpty();
    if (title == "Save Confirmation") {
      ++talk_.Questions;
      talk_.AnsweredNo = chances_.OneIn(warned ? 4 : 12);
      return driver::ClickButton(*box, talk_.AnsweredNo ? "No" : "Yes");
    }
    (title == "Saved" ? talk_.Note : talk_.Error) = ToUtf8(box->text());
    driver::ClickButton(*box, "OK");
  }

  Place place_;
  std::string name_;
  Chances chances_;
  WriterLog log_;
  QSettings settings_;
  LeagueSession session_;
  FRSMform window_;
  QTimer steps_;
  QTimer answers_;
  Talk talk_;
  int serial_ = 0;
};

}  // namespace

void RunEditor(const Place& place, const std::string& name, unsigned seed) {
  Editor(place, name, seed).Run();
}

}  // namespace rostermill::test
