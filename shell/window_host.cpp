#include "shell/window_host.h"

#include <QApplication>

#include <utility>

#include "toolkit/messages.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

namespace {

QMessageBox::Icon IconOf(MessageKind kind) {
  switch (kind) {
    case MessageKind::Exclamation:
      return QMessageBox::Warning;
    case MessageKind::Information:
      return QMessageBox::Information;
    case MessageKind::Plain:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

WindowHost::WindowHost(QMainWindow& window, ChildArea& area, std::function<void()> update_commands)
    : window_(window), area_(area), update_commands_(std::move(update_commands)) {}

void WindowHost::ShowLoading() {
  focus_before_ = window_.focusWidget();
  loading_ = new Loading;
  area_.ShowForm(loading_);
  area_.CenterForm(loading_);
}

void WindowHost::SetBusy(bool busy) {
  // A disabled window has no focus; it is restored afterwards.
  const QPointer<QWidget> in_front = window_.focusWidget();
  if (busy && in_front != loading_) focus_before_ = in_front;
  window_.setEnabled(!busy);
  // Qt enables the items of all submenus with the window.
  if (!busy) update_commands_();
  if (!busy && focus_before_) focus_before_->setFocus();
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void WindowHost::SetLoadingCaption(LoadStep step, std::string_view caption) {
  if (loading_) loading_->SetCaption(step, FromUtf8(caption));
  YieldToWindow();
}

void WindowHost::CloseLoading() {
  CloseIfOpen(loading_);
}

void WindowHost::YieldToWindow() {
  QCoreApplication::processEvents();
}

void WindowHost::Beep() {
  QApplication::beep();
}

void WindowHost::ShowMessage(MessageKind kind, const std::string& text, const std::string& title) {
  ShowMessageBox(&window_, IconOf(kind), FromUtf8(text), FromUtf8(title));
}

bool WindowHost::Confirm(const Question& question) {
  return AskYesNo(&window_, FromUtf8(question.Text), FromUtf8(question.Title),
                  question.NoByDefault ? QMessageBox::No : QMessageBox::Yes,
                  FromUtf8(question.Note));
}

std::string WindowHost::AskForText(const std::string& prompt, const std::string& title,
                                   const std::string& preset) {
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  const QString answer = AskForLine(&window_, FromUtf8(prompt), FromUtf8(title), FromUtf8(preset));
  QApplication::restoreOverrideCursor();
  return ToUtf8(answer);
}

}  // namespace rostermill
