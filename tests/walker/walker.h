#pragma once

#include <QEventLoop>
#include <QStringList>

#include <functional>
#include <memory>
#include <random>
#include <string>

#include "league/league_session.h"
#include "shell/rsm_form.h"
#include "tests/support/damage.h"

namespace rostermill::test {

/// Uses the program at random, from one seed: picks menu items, finds the controls of every open
/// form by name, clicks, selects, types and presses keys in them, closes forms and answers dialogs.
class Walker : public QObject {
 public:
  /// `folder` is for the images to load, which the walker writes.
  Walker(FRSMform& window, LeagueSession& session, std::string folder, unsigned seed);

  /// Takes the steps in the program's event loop, one after another, and closes all forms at the
  /// end. Fails the test with the last steps if one fails.
  void Run(int steps);

  int StepsTaken() const { return step_; }

  /// Makes the images to load.
  std::function<std::vector<std::uint8_t>(std::mt19937& random)> NewImage = OddImage;
  /// Called after each step, including those in dialogs, with the step's number and description.
  /// May be called again with the same step.
  std::function<void(const QString& step)> AfterStep = [](const QString&) {};

 private:
  // Every step schedules the next one before it acts: if it opens a dialog, the next step runs in
  // the dialog's event loop and answers it.
  void Next();
  void Take();
  void CheckAtRest();
  /// A load leaves nothing to undo, so undoing everything has to lead back to what it loaded.
  void CheckUndo();
  void StepInWindow();
  void StepInDialog(QWidget& dialog);
  void PickMenuItem();
  QString AnyImagePath();
  void CloseOrResize(QMdiSubWindow& form);
  void UseControl(QWidget& form);
  void Use(QWidget& control);
  void Type(QWidget& control);
  void PressKey(QWidget& control);
  void ClickOn(QWidget& control);
  QString AnyText();
  /// Keeps the last steps for the report of a failure.
  void Note(const QString& step);

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool OneIn(int chances) { return Below(chances) == 0; }
  template <typename Items>
  typename Items::value_type AnyOf(const Items& items) {
    return *(items.begin() + Below(static_cast<int>(items.size())));
  }

  static constexpr int most_steps = 200;  // that can be undone

  FRSMform& window_;
  LeagueSession& session_;
  std::unique_ptr<LeagueData> loaded_;
  std::string folder_;
  std::mt19937 random_;
  QEventLoop loop_;
  int step_ = 0;
  int last_step_ = 0;
  bool over_ = false;
  QStringList notes_;
};

}  // namespace rostermill::test
