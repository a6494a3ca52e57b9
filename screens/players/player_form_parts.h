#pragma once

class QHBoxLayout;
class QLabel;
class QWidget;

namespace rostermill {

/// The label lblNumber: the uniform number, large, in the fixed-pitch font.
QLabel* NewPlayerNumber();

/// The middle of both player screens: the photo with the number under it, then the attributes.
QHBoxLayout* FaceBesideAttributes(QWidget* face, QWidget* number, QWidget* attributes);

}  // namespace rostermill
