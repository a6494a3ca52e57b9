#include "toolkit/form.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <climits>
#include <numeric>
#include <tuple>

#include "toolkit/child_style.h"
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

/// The width in which a window can show its whole title between its icon and its three buttons.
int RoomForTitle(const QMdiSubWindow& window) {
  const int bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  constexpr int signs = 5;
  return window.fontMetrics().horizontalAdvance(window.windowTitle()) + signs * bar;
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
  ShadeBackground();
}

void ChildArea::changeEvent(QEvent* event) {
  QMdiArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShadeBackground();
}

void ChildArea::ShadeBackground() {
  constexpr int shade = 112;  // percent
  setBackground(palette().color(QPalette::Window).darker(shade));
}

void ChildArea::ShowForm(ChildForm* form) {
  auto* window = qobject_cast<QMdiSubWindow*>(form->parentWidget());
  // Opening the window moves the focus to the first control.
  QWidget* focused = form->focusWidget();
  if (window == nullptr) {
    window = addSubWindow(form);
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (style_ == nullptr) style_ = new ChildStyle(this);
    window->setStyle(style_);
    LeaveKeysToMenu(*window);
    const QSize room = viewport()->size();
    const QSize wanted = window->sizeHint().expandedTo({RoomForTitle(*window), 0});
    window->resize(wanted.boundedTo(room).expandedTo(window->minimumSizeHint()));
    MoveInside(*window, FreePlace(window->size()));
    window->show();
  }
  if (window->isMinimized()) window->showNormal();
  setActiveSubWindow(window);
  if (focused == nullptr) focused = FirstControl(*form);
  (focused != nullptr ? focused : form)->setFocus();
}

void ChildArea::CenterForm(ChildForm* form) {
  QWidget* window = form->parentWidget();
  MoveInside(*window, viewport()->rect().center() - window->rect().center());
}

QPoint ChildArea::FreePlace(QSize size) const {
  constexpr int offset = 30;  // leaves the title bar in view
  QList<QRect> taken;
  QList<QRect> buttons;
  QList<int> lefts{0};
  QList<int> tops{0};
  for (const QMdiSubWindow* window : subWindowList()) {
    if (!window->isVisible() || window->isMinimized()) continue;
    const QRect place = window->geometry();
    taken << place;
    for (const auto* row : window->findChildren<QDialogButtonBox*>()) {
      buttons << QRect(row->mapTo(viewport(), QPoint()), row->size());
    }
    lefts << place.right() + 1 << place.left() + offset << place.left();
    tops << place.top() << place.bottom() + 1 << place.top() + offset;
  }
  const QRect room = viewport()->rect();
  const auto hidden = [](const QList<QRect>& parts, const QRect& by) {
    return std::accumulate(parts.begin(), parts.end(), 0, [&](int sum, const QRect& part) {
      const QRect common = part & by;
      return sum + common.width() * common.height();
    });
  };
  // What is hidden of the buttons counts first, then what is hidden of the windows.
  std::tuple<int, int> least{INT_MAX, INT_MAX};
  QPoint best;
  for (const int top : tops) {
    for (const int left : lefts) {
      const QRect place(QPoint(std::clamp(left, 0, std::max(0, room.width() - size.width())),
                               std::clamp(top, 0, std::max(0, room.height() - size.height()))),
                        size);
      const std::tuple<int, int> cost{hidden(buttons, place), hidden(taken, place)};
      if (cost >= least) continue;
      least = cost;
      best = place.topLeft();
    }
  }
  return best;
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
