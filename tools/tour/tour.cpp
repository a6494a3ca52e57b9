#include "tools/tour/tour.h"

#include <QMdiSubWindow>
#include <QPushButton>

#include <stdexcept>

#include "shell/loading.h"
#include "shell/rsm_form.h"
#include "toolkit/qt_strings.h"
#include "tools/driver/driver.h"

namespace rostermill {

Tour::Tour(const QString& program_folder, const QString& sample, const QString& pictures)
    : pictures_(pictures), image_(pictures_.absoluteFilePath("tour-league.nes")) {
  if (!pictures_.mkpath(".")) throw std::runtime_error("can't create the folder for the pictures");
  QFile::remove(image_);
  Require(QFile::copy(sample, image_), "the sample league is copied");
  session_ = std::make_unique<LeagueSession>();
  session_->AppDir = ToUtf8(program_folder + "/");
  // The user's own recent files stay out of the tour.
  const QString ini = pictures_.absoluteFilePath("tour-settings.ini");
  QFile::remove(ini);
  settings_ = std::make_unique<QSettings>(ini, QSettings::IniFormat);
  window_ = std::make_unique<FRSMform>(*session_, settings_.get());
  // A common size today, whatever screen the platform without a display has.
  window_->resize(1440, 860);
  window_->show();
}

Tour::~Tour() = default;

int Tour::Run() {
  StartAndLoad();
  VisitPlayers(*this);
  VisitTeams(*this);
  VisitSchedule(*this);
  VisitLeaders(*this);
  VisitProbowl(*this);
  VisitSettings(*this);
  SaveAndReload();
  VisitVersions(*this);
  VisitTools(*this);
  ShowSeveralForms();
  return count_;
}

void Tour::StartAndLoad() {
  Picture(*window_, "start");
  driver::OnNextDialog([this](QDialog& about) {
    Picture(about, "about");
    about.accept();
  });
  Pick("mHelAbout");

  Loading loading;
  Picture(loading, "loading");

  driver::OnNextDialog([this](QDialog& files) {
    Picture(files, "load-rom");
    files.reject();
  });
  Pick("mFilLoadROM");

  driver::AnswerNextFileDialog(QString::fromStdString(session_->AppDir) + "colors.txt");
  driver::OnNextDialog([this](QDialog& message) {
    Picture(message, "not-a-rom");
    message.accept();
  });
  Pick("mFilLoadROM");
  Require(session_->ImageLoaded == 0, "a palette file isn't loaded as an image");

  driver::AnswerNextFileDialog(image_);
  Pick("mFilLoadROM");
  Require(session_->ImageLoaded == 1, "the sample loads");
  Picture(*window_, "start-loaded");
}

void Tour::SaveAndReload() {
  const LeagueData changed = session_->League();
  driver::OnNextDialog([this](QDialog& question) {
    Picture(question, "save-question");
    driver::ClickButton(question, "Yes");
  });
  Pick("mFilSaveROM");
  driver::OnNextDialog([this](QDialog& question) {
    Picture(question, "unload-question");
    driver::ClickButton(question, "Yes");
  });
  Pick("mFilUnloadROM");
  Require(session_->ImageLoaded == 0, "the image is unloaded");
  driver::AnswerNextFileDialog(image_);
  Pick("mFilLoadROM");
  Require(session_->League() == changed, "the saved file holds the changed league");
  Require(driver::DialogsStillExpected() == 0, "every expected dialog opened");
}

void Tour::ShowSeveralForms() {
  Pick("mVieTeamData");
  Choose(driver::Find<QComboBox>(Form("ViewTeams"), "cmbTeam"), "RIVERMOOR");
  Click("ViewTeams", "btnEdit");
  Pick("mViePlayerData");
  QWidget& viewer = Form("ViewPlayer");
  Choose(driver::Find<QComboBox>(viewer, "cmbTeam"), "RIVERMOOR");
  Choose(driver::Find<QComboBox>(viewer, "cmbPosition"), "QB 1");
  Picture(*window_, "several-forms");
}

QWidget& Tour::Form(const QString& name) {
  for (QMdiSubWindow* window : window_->findChildren<QMdiSubWindow*>()) {
    QWidget* form = window->widget();
    if (form != nullptr && form->objectName() == name && window->isVisible()) return *form;
  }
  throw std::runtime_error("form " + name.toStdString() + " is not open");
}

void Tour::Pick(const QString& item) {
  QAction& action = driver::Find<QAction>(*window_, item);
  Require(action.isEnabled(), item + " is enabled");
  action.trigger();
  QCoreApplication::processEvents();
}

void Tour::Click(const QString& form, const QString& button) {
  driver::Find<QPushButton>(Form(form), button).click();
  QCoreApplication::processEvents();
}

void Tour::Choose(QComboBox& list, const QString& beginning) {
  const int index = list.findText(beginning, Qt::MatchStartsWith | Qt::MatchCaseSensitive);
  Require(index >= 0, "a list has " + beginning);
  list.setCurrentIndex(index);
}

void Tour::Picture(QWidget& what, const QString& name) {
  QCoreApplication::processEvents();
  auto* frame = qobject_cast<QMdiSubWindow*>(what.parentWidget());
  Write(frame != nullptr ? *frame : what, name);
  if (all_sizes_ && frame != nullptr) PictureEnlarged(*frame, name);
}

void Tour::PictureEnlarged(QMdiSubWindow& frame, const QString& name) {
  const QRect place = frame.geometry();
  frame.resize(place.size() * 2);
  QCoreApplication::processEvents();
  Write(frame, name + "-twice");
  frame.showMaximized();
  QCoreApplication::processEvents();
  Write(*window_, name + "-maximized");
  frame.showNormal();
  frame.setGeometry(place);
  QCoreApplication::processEvents();
}

void Tour::Write(QWidget& what, const QString& name) {
  const QString file = QStringLiteral("%1-%2.png").arg(++count_, 2, 10, QChar('0')).arg(name);
  Require(what.grab().save(pictures_.filePath(file)), "picture " + file + " is written");
}

void Tour::Require(bool holds, const QString& what) {
  if (!holds) throw std::runtime_error("check failed: " + what.toStdString());
}

}  // namespace rostermill
