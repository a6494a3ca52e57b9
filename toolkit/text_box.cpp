#include "toolkit/text_box.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include <algorithm>

namespace rostermill {

namespace {

bool IsControl(QChar c) {
  return c.unicode() < 0x20 || (c.unicode() >= 0x7F && c.unicode() <= 0x9F);
}

/// A letter and an accent that follows it count as one character if Latin-1 has it.
QString Latin1Only(const QString& text) {
  return text.normalized(QString::NormalizationForm_C).removeIf([](QChar c) {
    return c.unicode() > 0xFF;
  });
}

QString ControlsBlanked(const QString& text) {
  QString blanked;
  bool after_control = false;
  for (const QChar c : text) {
    if (!IsControl(c)) {
      if (after_control && !blanked.isEmpty()) blanked += ' ';
      blanked += c;
    }
    after_control = IsControl(c);
  }
  return blanked;
}

}  // namespace

TextBox::TextBox(const QString& name, int max_length, ControlCharacters controls)
    : max_length_(max_length), controls_(controls) {
  setObjectName(name);
  setMaxLength(max_length);
  connect(this, &QLineEdit::textChanged, this, &TextBox::Change);
}

void TextBox::SetText(const QString& text) {
  const int length = static_cast<int>(text.size());
  // Qt cuts a text to its limit.
  setMaxLength(std::max(maxLength(), length));
  setText(text);
  setMaxLength(std::max(max_length_, length));
}

void TextBox::SetEnteredForm(std::function<QString(const QString&)> form) {
  entered_form_ = std::move(form);
}

QString TextBox::Admitted(const QString& entered, int replaced) const {
  QString admitted = Latin1Only(entered);
  if (controls_ == ControlCharacters::Blanked) admitted = ControlsBlanked(admitted);
  if (entered_form_) admitted = entered_form_(admitted);
  const int length = static_cast<int>(text().size());
  const int room = std::max(max_length_, length) - (length - replaced);
  return admitted.left(std::max(room, 0));
}

bool TextBox::event(QEvent* event) {
  // A line edit claims these keys even with nothing to undo; then they are the window's.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if ((key->matches(QKeySequence::Undo) && !isUndoAvailable()) ||
        (key->matches(QKeySequence::Redo) && !isRedoAvailable())) {
      event->ignore();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    const bool from_selection = event->key() == Qt::Key_Insert &&
                                event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    return Paste(from_selection ? QClipboard::Selection : QClipboard::Clipboard);
  }
  QKeyEvent admitted(event->type(), event->key(), event->modifiers(), event->nativeScanCode(),
                     event->nativeVirtualKey(), event->nativeModifiers(),
                     Admitted(event->text(), selectionLength()), event->isAutoRepeat(),
                     static_cast<quint16>(event->count()), event->device());
  QLineEdit::keyPressEvent(&admitted);
  event->setAccepted(admitted.isAccepted());
}

void TextBox::inputMethodEvent(QInputMethodEvent* event) {
  const bool replaces = hasSelectedText() && !event->preeditString().isEmpty();
  const QString commit =
      Admitted(event->commitString(), selectionLength() + event->replacementLength());
  QInputMethodEvent admitted(event->preeditString(), event->attributes());
  admitted.setCommitString(commit, event->replacementStart(), event->replacementLength());
  QLineEdit::inputMethodEvent(&admitted);
  event->setAccepted(admitted.isAccepted());
  if (!commit.isEmpty()) {
    beside_selection_.reset();
  } else if (replaces) {
    beside_selection_ = text();
  } else if (event->preeditString().isEmpty()) {
    if (beside_selection_ == text()) undo();
    beside_selection_.reset();
  }
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection()) {
    deselect();
    Paste(QClipboard::Selection);
  } else {
    QLineEdit::mouseReleaseEvent(event);
  }
}

void TextBox::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (QAction* action : menu->actions()) {
    // The connected one is "Paste".
    if (action->disconnect(SIGNAL(triggered()), this, SLOT(paste()))) {
      connect(action, &QAction::triggered, this, [this] { Paste(QClipboard::Clipboard); });
    }
  }
  menu->popup(event->globalPos());
}

void TextBox::dropEvent(QDropEvent* event) {
  QMimeData admitted;
  admitted.setText(Admitted(event->mimeData()->text(), 0));
  QDropEvent drop(event->position(), event->possibleActions(), &admitted, event->buttons(),
                  event->modifiers());
  drop.setDropAction(event->dropAction());
  EndUndoStep();
  QLineEdit::dropEvent(&drop);
  EndUndoStep();
  event->setDropAction(drop.dropAction());
  event->setAccepted(drop.isAccepted());
}

void TextBox::Paste(QClipboard::Mode from) {
  const QString pasted = Admitted(QGuiApplication::clipboard()->text(from), selectionLength());
  if (pasted.isEmpty()) return;
  EndUndoStep();
  insert(pasted);
  EndUndoStep();
}

void TextBox::EndUndoStep() {
  // Replacing a selection begins a new undo step anyway. Otherwise moving the caret does.
  if (hasSelectedText() || text().isEmpty()) return;
  const int caret = cursorPosition();
  setCursorPosition(caret > 0 ? caret - 1 : 1);
  setCursorPosition(caret);
}

}  // namespace rostermill
