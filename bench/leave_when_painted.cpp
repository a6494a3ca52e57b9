#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>

#include <cstdlib>

// Linked into an unmodified program, this makes it exit once its main window is on the screen.

namespace {

class PaintWatch : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched) != nullptr) {
      // The widgets inside are painted before the next event is handled.
      QMetaObject::invokeMethod(
          this, [] { std::_Exit(0); }, Qt::QueuedConnection);
    }
    return false;
  }
};

void WatchPaints() {
  qApp->installEventFilter(new PaintWatch(qApp));
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchPaints)
