#pragma once

#include <QDialog>
#include <QPalette>
#include <QWidget>

#include <functional>
#include <stdexcept>
#include <string>

namespace rostermill::driver {

// Drives real forms from outside: finds controls by name and answers dialogs.

/// Called with what went wrong where nothing could catch an exception. Exits the process unless a
/// test sets another function.
extern std::function<void(const std::string&)> on_error;

/// The control of this name inside `form`. Throws std::runtime_error if there is none.
template <typename Control>
Control& Find(const QWidget& form, const QString& name) {
  auto* control = form.findChild<Control*>(name);
  if (control == nullptr) throw std::runtime_error("no control named " + name.toStdString());
  return *control;
}

/// Calls `act` with the next modal dialog that opens, in the dialog's event loop; `act` closes it.
/// Goes before the statement that opens the dialog. Each call handles one dialog, in order.
void OnNextDialog(std::function<void(QDialog&)> act);

/// The number of calls of OnNextDialog whose dialog never opened, which should be 0. Forgets them.
int DialogsStillExpected();

/// Clicks the button with this text ("Yes", "No", "OK") in a dialog. An "&" in it is ignored.
void ClickButton(QDialog& dialog, const QString& text);

/// Answers the next message box with the button of this text. Its own text and title are stored if
/// the pointers aren't null.
void AnswerNextMessage(const QString& button, QString* text = nullptr, QString* title = nullptr);

/// Chooses this path in the next file dialog; cancels it if the path is empty.
void AnswerNextFileDialog(const QString& path);

/// A dark color scheme, like that of a dark desktop.
QPalette DarkPalette();

}  // namespace rostermill::driver
