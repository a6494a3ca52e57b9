#pragma once

#include <QString>

#include <vector>

namespace rostermill {

/// The object name of a member of a control array: "btnPlus(3)".
inline QString MemberName(const QString& array, int index) {
  return QStringLiteral("%1(%2)").arg(array).arg(index);
}

/// Controls that share a name and differ by an index, whose first may be other than 0. The
/// controls belong to their parent widgets.
template <typename Control>
class ControlArray {
 public:
  explicit ControlArray(QString name, int first = 0) : name_(std::move(name)), first_(first) {}

  /// Names the control as the next member and keeps it.
  Control* Add(Control* control) {
    control->setObjectName(MemberName(name_, Next()));
    members_.push_back(control);
    return control;
  }

  /// The member with this index; throws std::out_of_range if there is none.
  Control* operator[](int index) const {
    return members_.at(static_cast<std::size_t>(index - first_));
  }

  int First() const { return first_; }
  int Next() const { return first_ + static_cast<int>(members_.size()); }
  auto begin() const { return members_.begin(); }
  auto end() const { return members_.end(); }

 private:
  QString name_;
  int first_;
  std::vector<Control*> members_;
};

}  // namespace rostermill
