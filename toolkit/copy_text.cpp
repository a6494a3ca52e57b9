#include "toolkit/copy_text.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QWidget>

namespace rostermill {

QString TabSeparatedText(const QList<QStringList>& rows) {
  QString text;
  for (const QStringList& row : rows) {
    QStringList cells;
    for (QString cell : row) {
      for (const char separator : {'\t', '\n', '\r'}) cell.replace(separator, ' ');
      cells << cell;
    }
    text += cells.join('\t') + '\n';
  }
  return text;
}

void AddCopyAction(QWidget* widget, std::function<QString()> text) {
  auto* copy = new QAction("&Copy", widget);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(copy, &QAction::triggered, widget,
                   [text = std::move(text)] { QGuiApplication::clipboard()->setText(text()); });
  widget->addAction(copy);
  widget->setContextMenuPolicy(Qt::ActionsContextMenu);
}

}  // namespace rostermill
