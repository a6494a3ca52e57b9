#pragma once

#include <QDialog>
#include <QPointer>

#include <random>
#include <string>

#include "shell/rsm_form.h"

namespace rostermill::test {

/// Uses the program at random, from one seed: picks menu items, finds the controls of every open
/// form by name, clicks, selects, types and presses keys in them, closes forms and answers dialogs.
class Walker : public QObject {
 public:
  /// `folder` is for the images to load, which the walker writes.
  Walker(FRSMform& window, LeagueSession& session, const std::string& folder, unsigned seed);

  /// Takes the steps in the program's event loop, one after another, and closes all forms at the
  /// end. Throws std::runtime_error with the last steps if one fails.
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
