#pragma once

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QSettings>
#include <QString>
#include <QWidget>

#include <memory>

#include "league/league_session.h"

namespace rostermill {

class FRSMform;

/// A walk through the program as a user makes it, in the real main window, over a copy of the
/// sample league. Takes a picture at every stop and throws std::runtime_error when something is
/// not as it must be.
class Tour {
 public:
  /// `sample` is the sample league's image, which is copied. `pictures` is made where it doesn't
  /// exist; what a former tour left there is written over.
  Tour(const QString& program_folder, const QString& sample, const QString& pictures);
  ~Tour();

  /// Makes all stops; returns how many pictures were taken.
  int Run();

  // What the stops are made of.

  LeagueSession& Session() { return *session_; }
  FRSMform& Window() { return *window_; }
  /// The open child form of this name.
  QWidget& Form(const QString& name);
  /// Picks a menu item by its name; throws when it is disabled.
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

  QDir pictures_;
  QString image_;
  int count_ = 0;
  std::unique_ptr<QSettings> settings_;
  std::unique_ptr<LeagueSession> session_;
  std::unique_ptr<FRSMform> window_;
};

// The stops, one file a folder of screens. Each leaves its forms closed.
void VisitPlayers(Tour& tour);
void VisitTeams(Tour& tour);
void VisitSchedule(Tour& tour);
void VisitLeaders(Tour& tour);
void VisitProbowl(Tour& tour);
void VisitSettings(Tour& tour);

}  // namespace rostermill
