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

namespace {

void AddAction(QWidget* widget, const QString& caption, QKeySequence::StandardKey key,
               std::function<void()> act) {
  auto* action = new QAction(caption, widget);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(action, &QAction::triggered, widget, std::move(act));
  widget->addAction(action);
  widget->setContextMenuPolicy(Qt::ActionsContextMenu);
}

}  // namespace

void AddSelectAllAction(QWidget* widget, std::function<void()> select) {
  AddAction(widget, "Select &All", QKeySequence::SelectAll, std::move(select));
}

void AddCopyAction(QWidget* widget, std::function<QString()> text) {
  AddAction(widget, "&Copy", QKeySequence::Copy,
            [text = std::move(text)] { QGuiApplication::clipboard()->setText(text()); });
}

void AddPasteAction(QWidget* widget, std::function<void(const QString& text)> paste) {
  AddAction(widget, "&Paste", QKeySequence::Paste,
            [paste = std::move(paste)] { paste(QGuiApplication::clipboard()->text()); });
}

}  // namespace rostermill
