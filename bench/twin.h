#pragma once

#include <QHash>
#include <QPixmap>
#include <QWidget>

class QBoxLayout;
class QGridLayout;
class QLayout;

namespace rostermill::bench {

/// Makes bare copies of a form: the same widgets of Qt's own in the same layouts, with constant
/// texts and pictures, and nothing that fills them.
class Twin {
 public:
  /// `form` is painted already and outlives the twin.
  explicit Twin(const QWidget& form);

  /// A fresh copy: a dialog of a dialog, a child form of a child form.
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
