#include "tests/walker/walker.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

#include "tests/walker/walk_checks.h"
#include "tools/driver/driver.h"

namespace rostermill::test {

namespace {

/// The named controls of a form that a user can reach; with `labels_too`, also the plain labels, on
/// which nothing happens.
QList<QWidget*> Usable(const QWidget& form, bool labels_too) {
  QList<QWidget*> found;
  for (QWidget* control : form.findChildren<QWidget*>(QRegularExpression("^(?!qt_)."))) {
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

QList<QMdiSubWindow*> OpenForms(const FRSMform& window) {
  QList<QMdiSubWindow*> open;
  for (QMdiSubWindow* form : window.findChildren<QMdiSubWindow*>()) {
    if (form->isVisible() && form->widget() != nullptr) open << form;
  }
  return open;
}

}  // namespace

Walker::Walker(FRSMform& window, LeagueSession& session, std::string folder, unsigned seed)
    : window_(window), session_(session), folder_(std::move(folder)), random_(seed) {}

void Walker::Run(int steps) {
  last_step_ = step_ + steps;
  over_ = false;
  Next();
  loop_.exec();
  for (QMdiSubWindow* form : OpenForms(window_)) form->close();
  loaded_.reset();  // its texts may be long
  QTest::qWait(1);
}

void Walker::Next() {
  QTimer::singleShot(0, this, [this] {
    if (over_ && QApplication::activeModalWidget() == nullptr) return loop_.quit();
    Next();
    try {
      Take();
    } catch (const std::exception& error) {
      if (!over_) ADD_FAILURE() << error.what() << "\n" << notes_.join('\n').toStdString();
      over_ = true;
    }
  });
}

void Walker::Take() {
  QWidget* dialog = QApplication::activeModalWidget();
  if (dialog == nullptr && !window_.isEnabled()) return;  // in the middle of a load or a save
  if (!notes_.isEmpty()) AfterStep(notes_.back());
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (dialog != nullptr) {
    StepInDialog(*dialog);
  } else if (!over_) {
    StepInWindow();
    if (QApplication::activeModalWidget() == nullptr) CheckAtRest();
    if (++step_ >= last_step_) over_ = true;
  }
}

void Walker::CheckAtRest() {
  CheckValues(session_);
  if (session_.ImageLoaded != 0 && step_ % 10 == 0) CheckSave(LeagueOf(session_));
  CheckUndo();
  if (!window_.isEnabled()) throw std::runtime_error("the window stays disabled");
  if (QApplication::overrideCursor()) throw std::runtime_error("the pointer stays busy");
  const QList<QMdiSubWindow*> forms = OpenForms(window_);
  if (forms.size() > 16) throw std::runtime_error("too many forms are open");
  for (const QMdiSubWindow* form : forms) {
    if (form->sizeHint().width() > 1200) throw std::runtime_error("a form grows with its texts");
  }
}

void Walker::CheckUndo() {
  QAction& undo = driver::Find<QAction>(window_, "mnuEditUndo");
  QAction& redo = driver::Find<QAction>(window_, "mnuEditRedo");
  if (!undo.isEnabled() && !redo.isEnabled()) {
    loaded_ = std::make_unique<LeagueData>(session_.League());
  }
  if (step_ % 25 != 0) return;
  const LeagueData now = session_.League();
  int steps = 0;
  for (; undo.isEnabled(); ++steps) undo.trigger();
  if (steps < most_steps && session_.League() != *loaded_) {
    throw std::runtime_error("undoing everything doesn't give the loaded league");
  }
  for (; steps > 0; --steps) redo.trigger();
  if (session_.League() != now) throw std::runtime_error("redoing doesn't give the league back");
}

void Walker::StepInWindow() {
  const QList<QMdiSubWindow*> forms = OpenForms(window_);
  const int kind = Below(100);
  if (session_.ImageLoaded == 0 ? OneIn(2) : kind < 2) {
    const QString path = AnyImagePath();
    Note("load " + path);
    if (window_.OpenImageFile(path.toStdString())) window_.AddRecentFile(path);
  } else if (forms.isEmpty() || kind < 16) {
    PickMenuItem();
  } else if (kind < 20) {
    CloseOrResize(*AnyOf(forms));
  } else {
    QMdiSubWindow* form = AnyOf(forms);
    if (form->isMinimized()) form->showNormal();
    UseControl(*form->widget());
  }
}

void Walker::StepInDialog(QWidget& dialog) {
  const int taken = dialog.property("walker_steps").toInt() + 1;
  dialog.setProperty("walker_steps", taken);
  if (taken > 12 || over_) {
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
    QAbstractButton* button = AnyOf(box->buttons());
    Note("answer " + box->windowTitle() + ": " + button->text());
    button->click();
  } else {
    UseControl(dialog);
  }
}

void Walker::PickMenuItem() {
  const bool a_team = OneIn(6);
  QList<QAction*> items;
  for (QAction* item :
       window_.findChildren<QAction*>(QRegularExpression("^m(?!FilExit|ToolEmulator)"))) {
    if (item->menu() != nullptr || !InReach(*item)) continue;
    if (MenuTree::TeamOfItem(item->objectName()) == 0 || a_team) items << item;
  }
  QAction* item = AnyOf(items);
  Note("menu " + item->objectName());
  item->trigger();
}

QString Walker::AnyImagePath() {
  if (OneIn(20)) return QString::fromStdString(folder_ + "missing.nes");
  const std::string path = folder_ + "image" + std::to_string(Below(6)) + ".nes";
  // Otherwise it is what an earlier save wrote.
  if (!std::filesystem::exists(path) || OneIn(2)) WriteFile(path, NewImage(random_));
  return QString::fromStdString(path);
}

void Walker::CloseOrResize(QMdiSubWindow& form) {
  Note("close " + form.widget()->objectName());
  const int kind = Below(6);
  if (kind == 0) return form.showMinimized();
  if (kind == 1) return form.resize(QSize{20 + Below(1500), 20 + Below(1200)});
  form.close();
}

void Walker::UseControl(QWidget& form) {
  static const QRegularExpression closing("^(btn|cmd)(OK|Ok|Cancel|Close|Exit)$");
  const QList<QWidget*> controls = Usable(form, OneIn(20));
  if (controls.isEmpty()) {
    if (OneIn(5)) (form.isWindow() ? form : *form.parentWidget()).close();
    return;
  }
  QWidget* control = AnyOf(controls);
  // Seldom, or most forms would close before anything happened in them.
  if (closing.match(control->objectName()).hasMatch() && !OneIn(4)) return;
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
  QWidget* typed = QApplication::focusWidget() ? QApplication::focusWidget() : &control;
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
  const Qt::Key key = AnyOf(keys);
  const bool with_control = OneIn(8) && key != Qt::Key_F4;
  QTest::keyClick(&control, key, with_control ? Qt::ControlModifier : Qt::NoModifier);
}

void Walker::ClickOn(QWidget& control) {
  // With braces, every compiler draws the numbers in the same order.
  const QPoint place{control.width() * Below(100) / 100, control.height() * Below(100) / 100};
  const Qt::MouseButton button = OneIn(4) ? Qt::RightButton : Qt::LeftButton;
  const QPointer<QWidget> still_there(&control);
  QTest::mousePress(&control, button, {}, place);
  if (still_there) QTest::mouseRelease(&control, button, {}, place);
}

QString Walker::AnyText() {
  constexpr std::array odd{0x20, 0x26, 0x3C, 0xE9, 0xFF, 0x0, 0x263A, 0x7F, 0x25};
  QString text;
  for (int length = OneIn(10) ? 300 : Below(20); length > 0; --length) {
    text += QChar(OneIn(5) ? AnyOf(odd) : 0x30 + Below(75));
  }
  return text;
}

void Walker::Note(const QString& step) {
  notes_ << QString::number(step_) + " " + step;
  if (qEnvironmentVariableIsSet("ROSTERMILL_WALK_LOG")) qInfo().noquote() << notes_.back();
  if (notes_.size() > 25) notes_.removeFirst();
}

}  // namespace rostermill::test
