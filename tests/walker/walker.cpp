#include "tests/walker/walker.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <array>
#include <stdexcept>

#include "tests/support/sample.h"
#include "tests/walker/odd_images.h"
#include "tests/walker/ranges.h"

namespace rostermill::test {

namespace {

constexpr int notes_kept = 25;
constexpr int steps_in_a_dialog = 12;
constexpr const char* steps_taken = "walker_steps";

/// The named controls of a form that a user can reach; with `labels_too`, also the plain labels, on
/// which nothing happens.
QList<QWidget*> Usable(const QWidget& form, bool labels_too) {
  QList<QWidget*> found;
  for (QWidget* control : form.findChildren<QWidget*>()) {
    const QString name = control->objectName();
    if (name.isEmpty() || name.startsWith("qt_")) continue;
    if (!control->isVisible() || !control->isEnabled()) continue;
    if (labels_too || control->focusPolicy() != Qt::NoFocus) found << control;
  }
  return found;
}

/// Whether a user can pick the item, which is not possible in a disabled menu.
bool InReach(const QAction& item) {
  if (!item.isEnabled() || !item.isVisible() || item.isSeparator()) return false;
  for (QObject* holder : item.associatedObjects()) {
    const auto* menu = qobject_cast<QMenu*>(holder);
    if (menu != nullptr && !InReach(*menu->menuAction())) return false;
  }
  return true;
}

const QRegularExpression& ClosingButtons() {
  static const QRegularExpression buttons("^(btn|cmd)(OK|Ok|Cancel|Close|Exit)$");
  return buttons;
}

QList<QMdiSubWindow*> OpenForms(const FRSMform& window) {
  QList<QMdiSubWindow*> open;
  for (QMdiSubWindow* form : window.findChildren<QMdiSubWindow*>()) {
    if (form->isVisible() && form->widget() != nullptr) open << form;
  }
  return open;
}

}  // namespace

Walker::Walker(FRSMform& window, LeagueSession& session, const std::string& folder, unsigned seed)
    : window_(window), session_(session), folder_(folder), seed_(seed), random_(seed) {}

void Walker::Run(int steps) {
  last_step_ = step_ + steps;
  over_ = false;
  walking_ = true;
  QEventLoop loop;
  QTimer watch;
  connect(&watch, &QTimer::timeout, &loop, [&] {
    if (!walking_) loop.quit();
  });
  watch.start(1);
  Next();
  loop.exec();
  for (QMdiSubWindow* form : OpenForms(window_)) form->close();
  QTest::qWait(1);
  if (!failure_.empty()) throw std::runtime_error(failure_);
}

// Every step schedules the next one before it acts: if it opens a dialog, the next step runs in the
// dialog's event loop and answers it.
void Walker::Next() {
  QTimer::singleShot(0, this, [this] {
    walking_ = !over_ || QApplication::activeModalWidget() != nullptr;
    if (!walking_) return;
    Next();
    try {
      Take();
    } catch (const std::exception& error) {
      Fail(error.what());
    }
  });
}

void Walker::Take() {
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (QWidget* dialog = QApplication::activeModalWidget()) {
    StepInDialog(*dialog);
  } else if (window_.isEnabled() && !over_) {
    StepInWindow();
    if (QApplication::activeModalWidget() == nullptr) CheckAtRest();
    if (++step_ >= last_step_) over_ = true;
  }
}

void Walker::CheckAtRest() {
  if (const auto table = OutOfRange(session_)) Fail("out of range: " + *table);
  if (!window_.isEnabled()) Fail("the window stays disabled");
  if (QApplication::overrideCursor() != nullptr) Fail("the pointer stays busy");
  if (OpenForms(window_).size() > 12) Fail("too many forms are open");
}

void Walker::StepInWindow() {
  const QList<QMdiSubWindow*> forms = OpenForms(window_);
  const int kind = Below(100);
  if (session_.ImageLoaded == 0 ? OneIn(2) : kind < 2) {
    LoadAnImage();
  } else if (forms.isEmpty() || kind < 16) {
    PickMenuItem();
  } else if (kind < 20) {
    CloseAForm();
  } else {
    QMdiSubWindow* form = forms[Below(static_cast<int>(forms.size()))];
    if (form->isMinimized()) form->showNormal();
    UseControl(*form->widget());
  }
}

void Walker::StepInDialog(QWidget& dialog) {
  const int taken = dialog.property(steps_taken).toInt() + 1;
  dialog.setProperty(steps_taken, taken);
  if (taken > steps_in_a_dialog || over_) {
    Note("dismiss " + dialog.objectName());
    dialog.close();
    if (auto* form = qobject_cast<QDialog*>(&dialog); form != nullptr && form->isVisible()) {
      form->reject();
    }
  } else if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
    const QString path = AnyImagePath();
    Note("choose " + path);
    files->selectFile(path);
    OneIn(4) ? files->reject() : static_cast<QDialog*>(files)->accept();
  } else if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
    const auto buttons = box->buttons();
    QAbstractButton* button = buttons[Below(static_cast<int>(buttons.size()))];
    Note("answer " + box->text().left(60) + ": " + button->text());
    button->click();
  } else {
    UseControl(dialog);
  }
}

void Walker::PickMenuItem() {
  const bool a_team = OneIn(6);
  QList<QAction*> items;
  for (QAction* item : window_.findChildren<QAction*>()) {
    const QString name = item->objectName();
    if (name == "mFilExit" || item->menu() != nullptr || !InReach(*item)) continue;
    if (name.startsWith('m') && (MenuTree::TeamOfItem(name) == 0 || a_team)) {
      items << item;
    }
  }
  QAction* item = items[Below(static_cast<int>(items.size()))];
  Note("menu " + item->objectName());
  item->trigger();
}

void Walker::LoadAnImage() {
  const QString path = AnyImagePath();
  Note("load " + path);
  if (window_.OpenImageFile(path.toStdString())) window_.AddRecentFile(path);
}

QString Walker::AnyImagePath() {
  if (OneIn(20)) return QString::fromStdString(folder_ + "missing.nes");
  const std::string path = folder_ + "image" + std::to_string(Below(6)) + ".nes";
  // Otherwise it is what an earlier save wrote.
  if (!std::filesystem::exists(path) || OneIn(2)) WriteFile(path, OddImage(random_));
  return QString::fromStdString(path);
}

void Walker::CloseAForm() {
  const QList<QMdiSubWindow*> forms = OpenForms(window_);
  QMdiSubWindow* form = forms[Below(static_cast<int>(forms.size()))];
  Note("close " + form->widget()->objectName());
  switch (Below(6)) {
    case 0:
      form->showMinimized();
      break;
    case 1:
      form->resize(20 + Below(1500), 20 + Below(1200));
      break;
    default:
      form->close();
  }
}

void Walker::UseControl(QWidget& form) {
  const QList<QWidget*> controls = Usable(form, OneIn(20));
  if (controls.isEmpty()) {
    if (OneIn(5)) (form.isWindow() ? form : *form.parentWidget()).close();
    return;
  }
  QWidget* control = controls[Below(static_cast<int>(controls.size()))];
  // Seldom, or most forms would close before anything happened in them.
  const bool closes = ClosingButtons().match(control->objectName()).hasMatch();
  if (closes && !OneIn(4)) return;
  Note("use " + form.objectName() + "/" + control->objectName());
  Use(*control);
}

void Walker::Use(QWidget& control) {
  if (OneIn(6)) return PressKey(control);
  if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
    button->click();
  } else if (auto* list = qobject_cast<QComboBox*>(&control)) {
    if (list->isEditable() && OneIn(2)) return Type(control);
    if (list->count() > 0) list->setCurrentIndex(Below(list->count()));
  } else if (qobject_cast<QLineEdit*>(&control) != nullptr) {
    Type(control);
  } else {
    ClickOn(control);
  }
}

void Walker::Type(QWidget& control) {
  control.setFocus();
  if (OneIn(2)) QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
  QWidget* typed = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &control;
  QInputMethodEvent event;
  event.setCommitString(AnyText());
  QApplication::sendEvent(typed, &event);
  if (OneIn(2)) QTest::keyClick(typed, Qt::Key_Tab);
}

void Walker::PressKey(QWidget& control) {
  constexpr std::array keys{Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Return,    Qt::Key_Escape,
                            Qt::Key_Space, Qt::Key_Up,      Qt::Key_Down,      Qt::Key_Left,
                            Qt::Key_Right, Qt::Key_Home,    Qt::Key_End,       Qt::Key_PageUp,
                            Qt::Key_F4,    Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_PageDown,
                            Qt::Key_A,     Qt::Key_7};
  control.setFocus();
  const Qt::Key key = keys[static_cast<std::size_t>(Below(keys.size()))];
  const bool with_control = OneIn(8) && key != Qt::Key_F4;
  QTest::keyClick(&control, key, with_control ? Qt::ControlModifier : Qt::NoModifier);
}

void Walker::ClickOn(QWidget& control) {
  const QPoint place(Below(std::max(control.width(), 1)), Below(std::max(control.height(), 1)));
  const Qt::MouseButton button = OneIn(4) ? Qt::RightButton : Qt::LeftButton;
  QPointer<QWidget> still_there(&control);
  QTest::mousePress(&control, button, {}, place);
  if (still_there) QTest::mouseRelease(&control, button, {}, place);
}

QString Walker::AnyText() {
  QString text;
  for (int length = OneIn(10) ? 300 : Below(20); length > 0; --length) {
    constexpr std::array odd{0x20, 0x26, 0x3C, 0xE9, 0xFF, 0x0, 0x263A, 0x7F, 0x25};
    text += QChar(OneIn(5) ? odd[static_cast<std::size_t>(Below(odd.size()))] : 0x30 + Below(75));
  }
  return text;
}

void Walker::Note(const QString& step) {
  const QString line = QString::number(step_) + " " + step;
  if (qEnvironmentVariableIsSet("ROSTERMILL_WALK_LOG")) qInfo().noquote() << line;
  notes_ << line;
  if (notes_.size() > notes_kept) notes_.removeFirst();
}

void Walker::Fail(const std::string& why) {
  over_ = true;
  if (!failure_.empty()) return;
  failure_ =
      why + "; seed " + std::to_string(seed_) + ", last steps:\n" + notes_.join('\n').toStdString();
}

}  // namespace rostermill::test
