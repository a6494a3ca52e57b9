#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPointer>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#ifndef __SANITIZE_ADDRESS__
#include <malloc.h>
#endif

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <random>
#include <stdexcept>

#include "league/save_image.h"
#include "rules/face_paths.h"
#include "shell/rsm_form.h"
#include "tests/support/damage.h"
#include "tests/walker/walk_checks.h"
#include "toolkit/picture_cache.h"
#include "toolkit/qt_strings.h"
#include "tools/driver/driver.h"

namespace rostermill::test {
namespace {

int Number(const char* variable, int standard) {
  return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : standard;
}

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

/// Uses the program at random, from one seed: picks menu items, finds the controls of every open
/// form by name, clicks, selects, types and presses keys in them, closes forms and answers dialogs.
class Walker : public QObject {
 public:
  /// `folder` is for the images to load, which the walker writes.
  Walker(FRSMform& window, LeagueSession& session, std::string folder, unsigned seed)
      : window_(window), session_(session), folder_(std::move(folder)), random_(seed) {}

  /// Takes the steps in the program's event loop, one after another, and closes all forms at the
  /// end. Fails the test with the last steps if one fails.
  void Run(int steps) {
    last_step_ = step_ + steps;
    over_ = false;
    Next();
    loop_.exec();
    for (QMdiSubWindow* form : OpenForms(window_)) form->close();
    loaded_.reset();  // its texts may be long
    QTest::qWait(1);
  }

  int StepsTaken() const { return step_; }

 private:
  // Every step schedules the next one before it acts: if it opens a dialog, the next step runs in
  // the dialog's event loop and answers it.
  void Next() {
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

  void Take() {
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

  void CheckAtRest() {
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

  /// A load leaves nothing to undo, so undoing everything has to lead back to what it loaded.
  void CheckUndo() {
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

  void StepInWindow() {
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

  void StepInDialog(QWidget& dialog) {
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
      Note("answer " + box->text().left(60) + ": " + button->text());
      button->click();
    } else {
      UseControl(dialog);
    }
  }

  void PickMenuItem() {
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

  QString AnyImagePath() {
    if (OneIn(20)) return QString::fromStdString(folder_ + "missing.nes");
    const std::string path = folder_ + "image" + std::to_string(Below(6)) + ".nes";
    // Otherwise it is what an earlier save wrote.
    if (!std::filesystem::exists(path) || OneIn(2)) WriteFile(path, OddImage(random_));
    return QString::fromStdString(path);
  }

  void CloseOrResize(QMdiSubWindow& form) {
    Note("close " + form.widget()->objectName());
    const int kind = Below(6);
    if (kind == 0) return form.showMinimized();
    if (kind == 1) return form.resize(20 + Below(1500), 20 + Below(1200));
    form.close();
  }

  void UseControl(QWidget& form) {
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

  void Use(QWidget& control) {
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

  void Type(QWidget& control) {
    control.setFocus();
    if (OneIn(2)) QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
    QWidget* typed = QApplication::focusWidget() ? QApplication::focusWidget() : &control;
    QInputMethodEvent event;
    event.setCommitString(AnyText());
    QApplication::sendEvent(typed, &event);
    if (OneIn(2)) QTest::keyClick(typed, Qt::Key_Tab);
  }

  void PressKey(QWidget& control) {
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

  void ClickOn(QWidget& control) {
    const QPoint place(Below(std::max(control.width(), 1)), Below(std::max(control.height(), 1)));
    const Qt::MouseButton button = OneIn(4) ? Qt::RightButton : Qt::LeftButton;
    const QPointer<QWidget> still_there(&control);
    QTest::mousePress(&control, button, {}, place);
    if (still_there) QTest::mouseRelease(&control, button, {}, place);
  }

  QString AnyText() {
    constexpr std::array odd{0x20, 0x26, 0x3C, 0xE9, 0xFF, 0x0, 0x263A, 0x7F, 0x25};
    QString text;
    for (int length = OneIn(10) ? 300 : Below(20); length > 0; --length) {
      text += QChar(OneIn(5) ? AnyOf(odd) : 0x30 + Below(75));
    }
    return text;
  }

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool OneIn(int chances) { return Below(chances) == 0; }
  template <typename Items>
  typename Items::value_type AnyOf(const Items& items) {
    return *(items.begin() + Below(static_cast<int>(items.size())));
  }

  /// Keeps the last steps for the report of a failure.
  void Note(const QString& step) {
    notes_ << QString::number(step_) + " " + step;
    if (qEnvironmentVariableIsSet("ROSTERMILL_WALK_LOG")) qInfo().noquote() << notes_.back();
    if (notes_.size() > 25) notes_.removeFirst();
  }

  static constexpr int most_steps = 200;  // that can be undone

  FRSMform& window_;
  LeagueSession& session_;
  std::unique_ptr<LeagueData> loaded_;
  std::string folder_;
  std::mt19937 random_;
  QEventLoop loop_;
  int step_ = 0;
  int last_step_ = 0;
  bool over_ = false;
  QStringList notes_;
};

/// Kilobytes of heap in use with the plain sample league loaded, and without the leaders' names of
/// earlier leagues, which may be kilobytes long. 0 under the sanitizers, which find leaks.
std::size_t HeapAtRest(FRSMform& window, LeagueSession& session, const std::string& plain_image) {
  EXPECT_TRUE(window.OpenImageFile(plain_image));
  for (LeaderRow& row : session.LeaderRows) std::string().swap(row.Name);
#ifdef __SANITIZE_ADDRESS__
  return 0;
#else
  const auto heap = mallinfo2();
  return (heap.uordblks + heap.hblkhd) / 1024;
#endif
}

TEST(Walker, NoOrderOfStepsBreaksTheProgram) {
  // Pixmaps that Qt caches would hide what the program leaks.
  QPixmapCache::setCacheLimit(0);
  // Prevents printing.
  qputenv("CUPS_SERVER", "localhost:1");
  TempFolder folder;
  QDir::setCurrent(QString::fromStdString(folder.Path()));
  QSettings settings(QString::fromStdString(folder.Path("settings.ini")), QSettings::IniFormat);
  settings.setValue("Emulator/Program", "true");  // starts nothing
  LeagueSession session;
  session.AppDir = BinFolder();
  FRSMform window(session, &settings);
  window.show();
  // What is kept once it has been shown, the photos and a font for an odd character, would look
  // like a leak.
  QLabel odd_character(QString(QChar(0x263A)));
  odd_character.show();
  QTest::qWait(1);
  odd_character.hide();
  for (int face = 0; face < 256; ++face) LoadPicture(FromUtf8(FacePath(BinFolder(), face)));
  const std::string plain_image = folder.Path("plain.nes");
  WriteFile(plain_image, SampleBytes());

  const int seed = Number("ROSTERMILL_WALK_SEED", 1);
  const std::chrono::seconds seconds(Number("ROSTERMILL_WALK_SECONDS", 0));
  const int steps = Number("ROSTERMILL_WALK_STEPS", 800);
  SCOPED_TRACE("seed " + std::to_string(seed));
  Walker walker(window, session, folder.Path(""), static_cast<unsigned>(seed));
  const auto start = std::chrono::steady_clock::now();
  qsizetype objects_at_first = 0;
  std::size_t heap_at_first = 0;
  int round = 0;
  do {
    walker.Run(steps);
    const std::size_t heap = HeapAtRest(window, session, plain_image);
    const qsizetype objects = window.findChildren<QObject*>().size();
    if (++round == 1) {
      objects_at_first = objects;
      heap_at_first = heap;
    }
    EXPECT_LE(objects, objects_at_first + 200) << "closed forms are not deleted";
    EXPECT_LE(heap, heap_at_first + 2048) << "kilobytes; memory leaks";
    if (seconds.count() > 0) printf("%d steps, %zu KB of heap\n", walker.StepsTaken(), heap);
  } while (!testing::Test::HasFailure() &&
           (round < 2 || std::chrono::steady_clock::now() - start < seconds));
  EXPECT_EQ(walker.StepsTaken(), round * steps);
  QDir::setCurrent("/");
}

}  // namespace
}  // namespace rostermill::test
