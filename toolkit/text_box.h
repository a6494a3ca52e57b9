#pragma once

#include <QClipboard>
#include <QLineEdit>

#include <functional>
#include <optional>

namespace rostermill {

/// What a text box does with control characters (0x00 to 0x1F and 0x7F to 0x9F) in a text that the
/// user enters.
enum class ControlCharacters {
  Blanked,  ///< a run becomes one blank inside the text, and nothing at its ends
  Kept,
};

/// A one-line text box for texts of the cartridge. From a text that the user types, composes,
/// pastes or drops it accepts the characters that fit in one byte (Latin-1), up to `max_length` in
/// the box; a text of which nothing remains changes nothing. Caret, selection and undo are those of
/// any text box: isUndoAvailable() says whether the box has typing of its own to undo. A text set
/// by the program is shown unchanged, with nothing to undo. One that is longer than `max_length` is
/// shown in full; it can be shortened but not extended. Also works as the line edit of a combo box.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  TextBox(const QString& name, int max_length,
          ControlCharacters controls = ControlCharacters::Blanked);

  void SetText(const QString& text);
  QString Text() const { return text(); }

  /// Sets how entered text is written, for example in capitals. The function gets Latin-1 only and
  /// returns the same number of characters.
  void SetEnteredForm(std::function<QString(const QString&)> form);

 signals:
  void Change();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  /// The part of a text that the box accepts when it replaces that many of its characters.
  QString Admitted(const QString& entered, int replaced) const;
  void Paste(QClipboard::Mode from);
  /// Separates what is entered next from what was entered before, for undo.
  void EndUndoStep();

  int max_length_;
  ControlCharacters controls_;
  std::function<QString(const QString&)> entered_form_;
  /// The text with a selection that a composition has replaced, restored if the composition brings
  /// nothing.
  std::optional<QString> beside_selection_;
};

}  // namespace rostermill
