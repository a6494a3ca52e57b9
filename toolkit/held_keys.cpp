#include "toolkit/held_keys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

namespace rostermill {

namespace {

class HeldKeysFilter : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyRelease) NoteRelease(*static_cast<QKeyEvent*>(event));
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    const auto& press = *static_cast<QKeyEvent*>(event);
    if (press.key() == Qt::Key_Escape) return IsRepetition(press);
    if (press.key() != Qt::Key_Return && press.key() != Qt::Key_Enter) return false;
    const QWidget* window = static_cast<QWidget*>(watched)->window();
    const auto* button = qobject_cast<QAbstractButton*>(window->focusWidget());
    const bool steps = button != nullptr && button->autoRepeat();
    return !steps && IsRepetition(press);
  }

 private:
  void NoteRelease(const QKeyEvent& release) {
    released_key_ = release.key();
    released_at_ = release.timestamp();
  }

  /// X11 sends a repetition as a release and a press within one millisecond, and Qt sometimes reads
  /// the first before the second has arrived and reports a real release and press.
  bool IsRepetition(const QKeyEvent& press) const {
    const bool just_released = press.key() == released_key_ && press.timestamp() == released_at_;
    return press.isAutoRepeat() || (just_released && press.timestamp() != 0);
  }

  int released_key_ = 0;
  quint64 released_at_ = 0;
};

}  // namespace

void LetHeldKeysActOnce() {
  static QPointer<HeldKeysFilter> filter;  // destroyed with the application
  if (filter != nullptr) return;
  filter = new HeldKeysFilter(qApp);
  qApp->installEventFilter(filter);
}

}  // namespace rostermill
