#pragma once

#include <QHash>
#include <QPixmap>
#include <QWidget>

class QBoxLayout;
class QGridLayout;
class QLayout;

namespace rostermill::bench {

/// Makes bare copies of a form: plain Qt widgets in the same layouts, with constant texts and
/// pictures, and no code that fills them in.
class Twin {
 public:
  /// `form` has been painted already and has to outlive the twin.
  explicit Twin(const QWidget& form);

  /// A new copy: a dialog for a dialog, a child form for a child form.
  QWidget* Make() const;

 private:
  QWidget* Copy(const QWidget& widget) const;
  QWidget* CopyOf(const QWidget& widget) const;
  void CopyLayout(const QLayout& from, QLayout* to) const;
  void CopyBox(const QBoxLayout& from, QBoxLayout* to) const;
  void CopyGrid(const QGridLayout& from, QGridLayout* to) const;
  static QLayout* NewLayoutLike(const QLayout& layout);

  const QWidget& form_;
  QHash<const QWidget*, QPixmap> pictures_;
};

}  // namespace rostermill::bench
