#include "tests/support/dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

#include <deque>
#include <stdexcept>

namespace rostermill::test {

namespace {

/// Watches for modal dialogs while any is expected, and hands each to the first in line.
class DialogWatch : public QObject {
 public:
  static DialogWatch& Instance() {
    static auto* watch = new DialogWatch;
    return *watch;
  }

  void Expect(std::function<void(QDialog&)> act) {
    expected_.push_back(std::move(act));
    timer_.start(1);
  }

  int Pending() const { return static_cast<int>(expected_.size()); }
  void Forget() { expected_.clear(); }

 private:
  DialogWatch() {
    connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
  }

  void Look() {
    if (expected_.empty()) {
      timer_.stop();
      return;
    }
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    const auto act = std::move(expected_.front());
    expected_.pop_front();
    act(*dialog);
  }

  QTimer timer_;
  std::deque<std::function<void(QDialog&)>> expected_;
};

}  // namespace

void OnNextDialog(std::function<void(QDialog&)> act) {
  DialogWatch::Instance().Expect(std::move(act));
}

int DialogsStillExpected() {
  const int pending = DialogWatch::Instance().Pending();
  DialogWatch::Instance().Forget();
  return pending;
}

void AnswerNextMessage(const QString& button, QString* text, QString* title) {
  OnNextDialog([=](QDialog& dialog) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    if (box == nullptr) {
      ADD_FAILURE() << "no message box but " << dialog.objectName().toStdString();
      dialog.reject();
      return;
    }
    if (text != nullptr) *text = box->text();
    if (title != nullptr) *title = box->windowTitle();
    for (QAbstractButton* choice : box->buttons()) {
      if (choice->text().remove('&') == button) return choice->click();
    }
    ADD_FAILURE() << "no button " << button.toStdString();
    box->reject();
  });
}

void FailToFind(const QString& name) {
  ADD_FAILURE() << "no control named " << name.toStdString();
  throw std::runtime_error("no control named " + name.toStdString());
}

}  // namespace rostermill::test
