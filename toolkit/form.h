#pragma once

#include <QDialog>
#include <QMdiArea>
#include <QPointer>
#include <QWidget>

class QPushButton;

namespace rostermill {

class ChildStyle;

/// A modeless window inside the main window. It is created by showing it and closed by its
/// buttons or its close box; Form_Unload runs once, whichever closes it. Enter presses the button
/// that has the focus or otherwise the default button, Esc the cancel button, once per press.
class ChildForm : public QWidget {
  Q_OBJECT

 public:
  ChildForm(const QString& name, const QString& caption);

  /// Closes the form with its window.
  void CloseForm();
  bool IsOpen() const { return open_; }

 signals:
  void Unloaded();

 protected:
  virtual void Form_Unload() {}

  void SetDefaultButton(QPushButton* button);
  void SetCancelButton(QPushButton* button);

  /// The area that holds this form; null before it is shown.
  class ChildArea* Area() const;

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool open_ = true;
  QPointer<QPushButton> default_button_;
  QPointer<QPushButton> cancel_button_;
};

/// The inside of the main window, which holds the child forms.
class ChildArea : public QMdiArea {
  Q_OBJECT

 public:
  ChildArea();

  /// Brings the form to the front. One that is not shown yet gets a window of its own, as large as
  /// its content asks for if the area has the room. The window opens inside the area, beside the
  /// others while there is room, or at its corner if its minimum size is too large; the area then
  /// scrolls.
  void ShowForm(ChildForm* form);

  /// Moves the window of a form that is shown to the middle of the area, or to its corner if it
  /// does not fit.
  void CenterForm(ChildForm* form);

  /// Shows the form in `slot`; makes one first if none is open.
  template <typename Form, typename Make>
  Form* OpenOrRaise(QPointer<Form>& slot, Make make) {
    if (!slot || !slot->IsOpen()) slot = make();
    ShowForm(slot);
    return slot;
  }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  /// Makes the background a quiet shade of the windows' color.
  void ShadeBackground();
  /// The place for a new window of this size that hides the least of the others.
  QPoint FreePlace(QSize size) const;
  /// Moves a window as close to `place` as possible while keeping it inside.
  void MoveInside(QWidget& window, QPoint place);

  ChildStyle* style_ = nullptr;  ///< made with the first window
};

/// Closes the form in `slot` if one is open.
template <typename Form>
void CloseIfOpen(const QPointer<Form>& slot) {
  if (slot && slot->IsOpen()) slot->CloseForm();
}

/// A modal window. Esc cancels it, and so does the close box unless the dialog says otherwise.
class DialogForm : public QDialog {
  Q_OBJECT

 public:
  DialogForm(QWidget* parent, const QString& name, const QString& caption);
};

}  // namespace rostermill
