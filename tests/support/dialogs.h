#pragma once

#include <QDialog>
#include <QWidget>

#include <functional>

namespace rostermill::test {

/// The control of this name inside `form`; a test failure and an exception where there is none.
template <typename Control>
Control& Find(const QWidget& form, const QString& name);

/// Calls `act` with the next modal dialog that opens, inside its own event loop. `act` closes it.
/// Put a call before the statement that opens the dialog; each call serves one dialog, in turn.
void OnNextDialog(std::function<void(QDialog&)> act);

/// Dialogs announced with OnNextDialog that never opened; a test ends by expecting 0.
int DialogsStillExpected();

/// Answers the next message box with the button of this text ("Yes", "No", "OK", "&" not
/// counting) and gives its text into `text`, where one is wanted.
void AnswerNextMessage(const QString& button, QString* text = nullptr, QString* title = nullptr);

[[noreturn]] void FailToFind(const QString& name);

template <typename Control>
Control& Find(const QWidget& form, const QString& name) {
  auto* control = form.findChild<Control*>(name);
  if (control == nullptr) FailToFind(name);
  return *control;
}

}  // namespace rostermill::test
