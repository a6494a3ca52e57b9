#include "toolkit/form.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>

#include <algorithm>

#include "toolkit/held_keys.h"

namespace rostermill {

namespace {

/// Only Ctrl+F4 closes the window of a form. Qt gives it Ctrl+W too, but that is a command of the
/// main menu, and a key with two owners has no effect.
void LeaveKeysToMenu(QMdiSubWindow& window) {
  for (QAction* action : window.systemMenu()->actions()) {
    if (action->shortcuts().contains(QKeySequence("Ctrl+W"))) {
      action->setShortcut(QKeySequence("Ctrl+F4"));
    }
  }
}

/// The control that the Tab key reaches first; null for a form that takes the focus itself.
QWidget* FirstControl(QWidget& form) {
  if (form.focusPolicy() != Qt::NoFocus || form.focusProxy() != nullptr) return nullptr;
  for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain()) {
    const bool takes_tab = (next->focusPolicy() & Qt::TabFocus) != 0;
    if (takes_tab && form.isAncestorOf(next) && next->isEnabled() && next->isVisibleTo(&form)) {
      return next;
    }
  }
  return nullptr;
}

}  // namespace

ChildForm::ChildForm(const QString& name, const QString& caption) {
  setObjectName(name);
  setWindowTitle(caption);
  setAttribute(Qt::WA_DeleteOnClose, false);
}

void ChildForm::CloseForm() {
  auto* window = qobject_cast<QMdiSubWindow*>(parentWidget());
  if (window != nullptr) {
    window->close();
  } else {
    close();
  }
}

ChildArea* ChildForm::Area() const {
  for (QWidget* above = parentWidget(); above != nullptr; above = above->parentWidget()) {
    if (auto* area = qobject_cast<ChildArea*>(above)) return area;
  }
  return nullptr;
}

void ChildForm::SetDefaultButton(QPushButton* button) {
  default_button_ = button;
  button->setDefault(true);
}

void ChildForm::SetCancelButton(QPushButton* button) {
  cancel_button_ = button;
}

void ChildForm::closeEvent(QCloseEvent* event) {
  event->accept();
  if (!open_) return;
  open_ = false;
  Form_Unload();
  emit Unloaded();
}

void ChildForm::keyPressEvent(QKeyEvent* event) {
  QPushButton* pressed = nullptr;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    pressed = focused != nullptr ? focused : default_button_.data();
  } else if (event->key() == Qt::Key_Escape) {
    pressed = cancel_button_;
  }
  if (pressed != nullptr) {
    pressed->click();
  } else {
    QWidget::keyPressEvent(event);
  }
}

ChildArea::ChildArea() {
  LetHeldKeysActOnce();
  setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  // A small screen or a large font can leave a form outside; the area can then be scrolled to it.
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void ChildArea::ShowForm(ChildForm* form) {
  auto* window = qobject_cast<QMdiSubWindow*>(form->parentWidget());
  if (window == nullptr) {
    window = addSubWindow(form);
    window->setAttribute(Qt::WA_DeleteOnClose);
    LeaveKeysToMenu(*window);
    const QSize room = viewport()->size();
    window->resize(window->sizeHint().boundedTo(room).expandedTo(window->minimumSizeHint()));
    MoveInside(*window, window->pos());
    window->show();
  }
  if (window->isMinimized()) window->showNormal();
  setActiveSubWindow(window);
  QWidget* focused = form->focusWidget();
  if (focused == nullptr) focused = FirstControl(*form);
  (focused != nullptr ? focused : form)->setFocus();
}

void ChildArea::CentreForm(ChildForm* form) {
  QWidget* window = form->parentWidget();
  MoveInside(*window, viewport()->rect().center() - window->rect().center());
}

void ChildArea::MoveInside(QWidget& window, QPoint place) {
  const QSize free = viewport()->size() - window.size();
  window.move(std::max(0, std::min(place.x(), free.width())),
              std::max(0, std::min(place.y(), free.height())));
}

DialogForm::DialogForm(QWidget* parent, const QString& name, const QString& caption)
    : QDialog(parent) {
  setObjectName(name);
  setWindowTitle(caption);
}

}  // namespace rostermill
