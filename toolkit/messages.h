#pragma once

#include <QMessageBox>
#include <QString>

class QWidget;

namespace rostermill {

/// A QMessageBox named "MessageBox" with one OK button. Texts are plain, never markup.
void ShowMessageBox(QWidget* owner, QMessageBox::Icon icon, const QString& text,
                    const QString& title);

/// A question with Yes and No; false if the answer is No. Closing the box means No. Enter gives the
/// answer `preset`. `note` is a second text below the first.
bool AskYesNo(QWidget* owner, const QString& text, const QString& title,
              QMessageBox::StandardButton preset, const QString& note = {});

/// A QInputDialog named "InputBox"; the text entered, empty when cancelled.
QString AskForLine(QWidget* owner, const QString& prompt, const QString& title,
                   const QString& preset);

}  // namespace rostermill
