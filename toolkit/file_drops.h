#pragma once

#include <QObject>

class QWidget;

namespace rostermill {

/// Offers files that are dragged over a window to the window itself, wherever on it they are. Text
/// boxes, which would insert the path as text, let them through.
class FileDrops : public QObject {
 public:
  explicit FileDrops(QWidget* window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* window_;
};

}  // namespace rostermill
