#include "tools/driver/driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <deque>

namespace rostermill::driver {

std::function<void(const std::string&)> on_error = [](const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::exit(1);
};

namespace {

/// Watches for modal dialogs while any are expected, and passes each to the first action in line.
class DialogWatch : public QObject {
 public:
  static DialogWatch& Instance() {
    static auto* watch = new DialogWatch(qApp);
    return *watch;
  }

  void Expect(std::function<void(QDialog&)> act) {
    expected_.push_back(std::move(act));
    timer_.start(1);
  }

  int Forget() {
    const auto pending = static_cast<int>(expected_.size());
    expected_.clear();
    return pending;
  }

 private:
  explicit DialogWatch(QObject* parent) : QObject(parent) {
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

/// Casts a dialog to the expected type; reports and closes one of another type and returns null.
template <typename Dialog>
Dialog* Expected(QDialog& dialog) {
  auto* found = qobject_cast<Dialog*>(&dialog);
  if (found == nullptr) {
    on_error("unexpected dialog: " + dialog.objectName().toStdString() + " \"" +
             dialog.windowTitle().toStdString() + "\"");
    dialog.reject();
  }
  return found;
}

}  // namespace

void OnNextDialog(std::function<void(QDialog&)> act) {
  DialogWatch::Instance().Expect(std::move(act));
}

int DialogsStillExpected() {
  return DialogWatch::Instance().Forget();
}

void ClickButton(QDialog& dialog, const QString& text) {
  for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->text().remove('&') == text) return button->click();
  }
  on_error("no button named " + text.toStdString());
  dialog.reject();
}

void AnswerNextMessage(const QString& button, QString* text, QString* title) {
  OnNextDialog([=](QDialog& dialog) {
    auto* box = Expected<QMessageBox>(dialog);
    if (box == nullptr) return;
    if (text != nullptr) *text = box->text();
    if (title != nullptr) *title = box->windowTitle();
    ClickButton(*box, button);
  });
}

void AnswerNextFileDialog(const QString& path) {
  OnNextDialog([path](QDialog& dialog) {
    auto* files = Expected<QFileDialog>(dialog);
    if (files == nullptr) return;
    if (path.isEmpty()) return dialog.reject();
    files->selectFile(path);
    dialog.accept();
  });
}

QPalette DarkPalette() {
  QPalette palette(QColor(49, 54, 59));
  palette.setColor(QPalette::Base, QColor(35, 38, 41));
  palette.setColor(QPalette::AlternateBase, QColor(42, 46, 50));
  palette.setColor(QPalette::Text, QColor(239, 240, 241));
  palette.setColor(QPalette::WindowText, QColor(239, 240, 241));
  palette.setColor(QPalette::ButtonText, QColor(239, 240, 241));
  palette.setColor(QPalette::ToolTipBase, QColor(35, 38, 41));
  palette.setColor(QPalette::ToolTipText, QColor(239, 240, 241));
  palette.setColor(QPalette::Highlight, QColor(61, 126, 201));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(140, 143, 146));
  }
  return palette;
}

}  // namespace rostermill::driver
