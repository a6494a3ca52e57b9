#pragma once

class QGroupBox;
class QPushButton;
class QString;

namespace rostermill {

/// The named frame at the foot of a form: a line above, and the buttons at the right in the
/// platform's order. `reject` may be null.
QGroupBox* NewButtonFrame(const QString& name, QPushButton* accept, QPushButton* reject = nullptr);

}  // namespace rostermill
