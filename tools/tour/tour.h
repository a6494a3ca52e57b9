#pragma once

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QSettings>
#include <QString>
#include <QWidget>

#include <memory>

#include "league/league_session.h"

class QMdiSubWindow;

namespace rostermill {

class FRSMform;

/// Walks through the program as a user would, in the real main window and with a copy of the sample
/// league. Takes a picture at every stop, and throws std::runtime_error if a check fails.
class Tour {
 public:
  /// `sample` is the sample league's image, which is copied. The folder `pictures` is created if it
  /// doesn't exist; the pictures of an earlier tour in it are overwritten.
  Tour(const QString& program_folder, const QString& sample, const QString& pictures);
  ~Tour();

  /// Has every form's picture be followed by one at twice its size and one of it maximized.
  void TakeAllSizes() { all_sizes_ = true; }
  /// Makes all stops and returns the number of pictures taken.
  int Run();

  // For the stops.

  LeagueSession& Session() { return *session_; }
  FRSMform& Window() { return *window_; }
  /// The open child form of this name.
  QWidget& Form(const QString& name);
  /// Picks a menu item by name; throws if it is disabled.
  void Pick(const QString& item);
  /// Clicks the button of this name on an open form.
  void Click(const QString& form, const QString& button);
  /// Selects the list entry that begins with this text.
  void Choose(QComboBox& list, const QString& beginning);
  /// Takes a picture of a form with its window frame, or of a dialog.
  void Picture(QWidget& what, const QString& name);
  void Require(bool holds, const QString& what);

 private:
  void StartAndLoad();
  void SaveAndReload();
  void ShowSeveralForms();
  void PictureEnlarged(QMdiSubWindow& frame, const QString& name);
  void Write(QWidget& what, const QString& name);

  QDir pictures_;
  QString image_;
  int count_ = 0;
  bool all_sizes_ = false;
  std::unique_ptr<QSettings> settings_;
  std::unique_ptr<LeagueSession> session_;
  std::unique_ptr<FRSMform> window_;
};

// The stops, one file per folder of screens. Each closes its forms.
void VisitPlayers(Tour& tour);
void VisitTeams(Tour& tour);
void VisitSchedule(Tour& tour);
void VisitLeaders(Tour& tour);
void VisitProbowl(Tour& tour);
void VisitSettings(Tour& tour);
void VisitVersions(Tour& tour);
void VisitTools(Tour& tour);

}  // namespace rostermill
