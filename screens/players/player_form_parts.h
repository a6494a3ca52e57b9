#pragma once

#include <functional>

class QHBoxLayout;
class QLabel;
class QWidget;

namespace rostermill {

/// The label lblNumber: the uniform number, large, in the fixed-pitch font.
QLabel* NewPlayerNumber();

/// The middle of both player screens: the photo with the number under it, then the attributes.
QHBoxLayout* FaceBesideAttributes(QWidget* face, QWidget* number, QWidget* attributes);

/// Has Ctrl+Page Down and Ctrl+Page Up anywhere on the form call `step` with +1 and -1.
void AddSlotKeys(QWidget* form, const std::function<void(int step)>& step);

}  // namespace rostermill
