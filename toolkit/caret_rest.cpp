#include "toolkit/caret_rest.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QTimer>

namespace rostermill {

namespace {

class CaretRest : public QObject {
 public:
  CaretRest() : QObject(qApp), usual_flash_time_(QApplication::cursorFlashTime()) {
    idle_.setSingleShot(true);
    idle_.callOnTimeout(this, [] { QApplication::setCursorFlashTime(0); });
    qApp->installEventFilter(this);
  }

  void RestAfter(std::chrono::milliseconds time) { idle_.start(time); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
      QApplication::setCursorFlashTime(usual_flash_time_);
      idle_.start();
    }
    return false;
  }

 private:
  const int usual_flash_time_;
  QTimer idle_;
};

}  // namespace

void LetCaretRest(std::chrono::milliseconds after) {
  static QPointer<CaretRest> rest;  // destroyed with the application
  if (rest == nullptr) rest = new CaretRest;
  rest->RestAfter(after);
}

}  // namespace rostermill
