#pragma once

#include <QObject>

class QWidget;

namespace rostermill {

/// Offers files that are dragged over a window to the window itself, wherever they are on it: its
/// text boxes, which would take the path as a text, let them through.
class FileDrops : public QObject {
 public:
  explicit FileDrops(QWidget* window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* window_;
};

}  // namespace rostermill
