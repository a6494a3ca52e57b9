#include "toolkit/file_drops.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWidget>

namespace rostermill {

FileDrops::FileDrops(QWidget* window) : QObject(window), window_(window) {
  window->setAcceptDrops(true);
  qApp->installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::DragEnter || !watched->isWidgetType()) return false;
  const auto* widget = static_cast<QWidget*>(watched);
  if (widget == window_ || widget->window() != window_) return false;
  auto* drag = static_cast<QDragEnterEvent*>(event);
  if (!drag->mimeData()->hasUrls()) return false;
  // Qt asks the parents of a control that ignores a drag.
  drag->ignore();
  return true;
}

}  // namespace rostermill
