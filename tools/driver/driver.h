#pragma once

#include <QDialog>
#include <QPalette>
#include <QWidget>

#include <functional>
#include <stdexcept>
#include <string>

namespace rostermill::driver {

/// Drives real forms from outside: finds controls by name and answers dialogs.

/// Called with what went wrong where nobody waits for an exception; ends the process unless a
/// test sets something else.
extern std::function<void(const std::string&)> on_complaint;

/// The control of this name inside `form`. Throws std::runtime_error where there is none.
template <typename Control>
Control& Find(const QWidget& form, const QString& name) {
  auto* control = form.findChild<Control*>(name);
  if (control == nullptr) throw std::runtime_error("no control named " + name.toStdString());
  return *control;
}

/// Calls `act` with the next modal dialog that opens, inside its own event loop. `act` closes it.
/// Put a call before the statement that opens the dialog; each call serves one dialog, in turn.
void OnNextDialog(std::function<void(QDialog&)> act);

/// Dialogs announced with OnNextDialog that never opened, which are forgotten then; should be 0.
int DialogsStillExpected();

/// Clicks the button of this text ("Yes", "No", "OK", "&" not counting) in a dialog.
void ClickButton(QDialog& dialog, const QString& text);

/// Answers the next message box with the button of this text and puts its text and title where
/// they are wanted.
void AnswerNextMessage(const QString& button, QString* text = nullptr, QString* title = nullptr);

/// Chooses this path in the next file dialog; cancels it where the path is empty.
void AnswerNextFileDialog(const QString& path);

/// A dark scheme, as a dark desktop would hand it to the program.
QPalette DarkPalette();

}  // namespace rostermill::driver
