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

/// A one-line text box for texts of the cartridge. Of a text that the user types, composes, pastes
/// or drops it takes the characters that fit in one byte (Latin-1), until the box holds
/// `max_length` of them; a text of which nothing remains changes nothing. Caret, selection and undo
/// are those of any text box: isUndoAvailable() says whether the box has typing of its own to undo.
/// A text set by the program stands as it is, with nothing to undo. One that is longer than
/// `max_length` stands whole; it can be shortened and not be made longer.
/// It works as the line edit of a combo box, too.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  TextBox(const QString& name, int max_length,
          ControlCharacters controls = ControlCharacters::Blanked);

  void SetText(const QString& text);
  QString Text() const { return text(); }

  /// How an entered text is written, in capitals for example. The function gets Latin-1 only and
  /// returns as many characters.
  void SetEnteredForm(std::function<QString(const QString&)> form);

 signals:
  void Change();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  /// What the box takes of a text that replaces that many of its characters.
  QString Admitted(const QString& entered, int replaced) const;
  void Paste(QClipboard::Mode from);
  /// What is entered next is undone apart from what was entered before.
  void EndUndoStep();

  int max_length_;
  ControlCharacters controls_;
  std::function<QString(const QString&)> entered_form_;
  /// The text beside a selection that a composition has replaced, which is given back when the
  /// composition brings nothing.
  std::optional<QString> beside_selection_;
};

}  // namespace rostermill
