#include "tests/desktop/use_controls.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>

#include "tests/desktop/describe.h"
#include "tests/support/expected_text.h"
#include "toolkit/click_label.h"
#include "toolkit/picture_box.h"

namespace rostermill::test {

namespace {

/// Uses the control and returns how; empty if it is skipped.
QString Use(QWidget& control) {
  if (auto* list = qobject_cast<QComboBox*>(&control)) {
    const Qt::Key key = list->isEditable() ? Qt::Key_Down : Qt::Key_End;
    QTest::keyClick(list, key);
    return list->isEditable() ? "Down" : "End";
  }
  if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
    if (!button->isCheckable() && !button->autoRepeat()) return {};
    button->click();
    return "press";
  }
  if (auto* bar = qobject_cast<QScrollBar*>(&control)) {
    bar->setValue(bar->maximum());
    return "to the end";
  }
  if (auto* number = qobject_cast<QSpinBox*>(&control)) {
    QTest::keyClick(number, Qt::Key_Up);
    return "Up";
  }
  if (auto* view = qobject_cast<QAbstractItemView*>(&control)) {
    QTest::keyClick(view, Qt::Key_Down);
    return "Down";
  }
  if (auto* box = qobject_cast<QLineEdit*>(&control)) {
    QTest::keyClick(box, Qt::Key_End);
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, "a");
    return "a for the last letter";
  }
  const bool picked =
      qobject_cast<PictureBox*>(&control) && qobject_cast<QDialog*>(control.window());
  if (!picked && !qobject_cast<ClickLabel*>(&control)) return {};
  QTest::mouseClick(&control, Qt::LeftButton);
  return "click";
}

/// Whether a control is neither the first nor the last of its array.
bool IsBetweenOthers(const QWidget& form, const QWidget& control) {
  const QString array = control.objectName().section('(', 0, 0);
  const int index = control.objectName().section('(', 1).section(')', 0, 0).toInt();
  const auto has = [&](int at) {
    return form.findChild<QWidget*>(QString("%1(%2)").arg(array).arg(at)) != nullptr;
  };
  return index > 0 && has(index - 1) && has(index + 1);
}

}  // namespace

QStringList ChangesByControl(QWidget& form) {
  QStringList changes;
  QStringList before = Described(form).split('\n');
  for (QWidget* control : form.findChildren<QWidget*>()) {
    const bool inside = control->objectName().startsWith("qt_") || control->objectName().isEmpty();
    if (inside || !control->isVisibleTo(&form) || !control->isEnabled()) continue;
    const bool one_of_many = qobject_cast<QComboBox*>(control) ||
                             qobject_cast<PictureBox*>(control) ||
                             qobject_cast<ClickLabel*>(control);
    if (one_of_many && IsBetweenOthers(form, *control)) continue;
    const QString use = Use(*control);
    if (use.isEmpty()) continue;
    const QStringList after = Described(form).split('\n');
    const QStringList lines = NewLines(before, after);
    changes << control->objectName() + ", " + use + (lines.isEmpty() ? ": nothing" : ":");
    for (const QString& line : lines) changes << "  " + line;
    before = after;
  }
  return changes;
}

}  // namespace rostermill::test
