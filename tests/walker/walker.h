#pragma once

#include <QDialog>
#include <QPointer>

#include <random>
#include <string>

#include "shell/rsm_form.h"

namespace rostermill::test {

/// Uses the program as nobody would: picks menu items, finds the controls of every open form by
/// their names, clicks, picks, types and presses keys in them, closes forms and answers dialogs,
/// all at random and all from one seed.
class Walker : public QObject {
 public:
  /// `folder` holds the images to load; the walker writes odd ones there.
  Walker(FRSMform& window, LeagueSession& session, const std::string& folder, unsigned seed);

  /// Takes the steps in the program's own event loop, one after another, and closes all forms at
  /// the end. Throws std::runtime_error with the last steps when one goes wrong.
  void Run(int steps);

  int StepsTaken() const { return step_; }

 private:
  void Next();
  void Take();
  void CheckAtRest();

  void StepInWindow();
  void StepInDialog(QWidget& dialog);
  void PickMenuItem();
  void LoadAnImage();
  void CloseAForm();
  void UseControl(QWidget& form);
  void Use(QWidget& control);
  void Type(QWidget& control);
  void PressKey(QWidget& control);
  void ClickOn(QWidget& control);

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool OneIn(int chances) { return Below(chances) == 0; }
  QString AnyText();
  QString AnyImagePath();
  void Note(const QString& step);
  void Fail(const std::string& why);

  FRSMform& window_;
  LeagueSession& session_;
  std::string folder_;
  unsigned seed_;
  std::mt19937 random_;
  int step_ = 0;
  int last_step_ = 0;
  bool over_ = false;
  bool walking_ = false;
  QStringList notes_;
  std::string failure_;
};

}  // namespace rostermill::test
