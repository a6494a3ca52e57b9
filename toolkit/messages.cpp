#include "toolkit/messages.h"

#include <QInputDialog>

namespace rostermill {

namespace {

int RunMessageBox(QWidget* owner, QMessageBox::Icon icon, const QString& text, const QString& title,
                  QMessageBox::StandardButtons buttons, QMessageBox::StandardButton preset,
                  const QString& note = {}) {
  QMessageBox box(icon, title, text, buttons, owner);
  box.setObjectName("MessageBox");
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(note);
  box.setDefaultButton(preset);
  return box.exec();
}

}  // namespace

void ShowMessageBox(QWidget* owner, QMessageBox::Icon icon, const QString& text,
                    const QString& title) {
  RunMessageBox(owner, icon, text, title, QMessageBox::Ok, QMessageBox::Ok);
}

bool AskYesNo(QWidget* owner, const QString& text, const QString& title,
              QMessageBox::StandardButton preset, const QString& note) {
  return RunMessageBox(owner, QMessageBox::Question, text, title,
                       QMessageBox::Yes | QMessageBox::No, preset, note) == QMessageBox::Yes;
}

QString AskForLine(QWidget* owner, const QString& prompt, const QString& title,
                   const QString& preset) {
  QInputDialog box(owner);
  box.setObjectName("InputBox");
  box.setWindowTitle(title);
  box.setLabelText(prompt);
  box.setTextValue(preset);
  return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

}  // namespace rostermill
