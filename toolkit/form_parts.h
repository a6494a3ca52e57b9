#pragma once

#include <QFont>
#include <QLabel>
#include <QPushButton>

#include <initializer_list>

class QDialogButtonBox;
class QGroupBox;

namespace rostermill {

/// The small parts that all forms are built from, so that they look alike.

/// The system's fixed-pitch font, at least as large as the interface's, for numbers and position
/// labels.
QFont FixedFont();

/// The width of this many characters, whatever they are, in pixels.
int RoomFor(const QFontMetrics& metrics, int characters);

/// A named label. Its text is plain, never markup.
QLabel* NewLabel(const QString& name, const QString& text = {});
/// A label in the fixed-pitch font, as wide as `widest`, right-aligned.
QLabel* NewNumberLabel(const QString& name, const QString& widest);
/// A caption, right-aligned on the control that it names.
QLabel* NewCaption(const QString& name, const QString& text, QWidget* buddy = nullptr);
QPushButton* NewButton(const QString& name, const QString& text);
/// A small square button that repeats while it is held: "-", "+".
QPushButton* NewStepButton(const QString& text);
QGroupBox* NewFrame(const QString& name, const QString& title = {});

/// A row with the buttons at the right, in the platform's order. `accept` and `reject` may be null;
/// `actions` are the buttons that do neither.
QDialogButtonBox* ButtonRow(QPushButton* accept, QPushButton* reject,
                            std::initializer_list<QPushButton*> actions = {});

/// The text as a tool tip that shows it literally, never as markup.
QString PlainToolTip(const QString& text);

/// Makes the ticks' frames in a list visible in a dark scheme too: the style draws them darker than
/// the window, which on the list's dark ground is nothing.
void OutlineTicks(QWidget& list);

/// Keeps the space of a control that is hidden at times, so that the others do not move.
void KeepRoomWhenHidden(QWidget* widget);

}  // namespace rostermill
