#pragma once

#include <QList>
#include <QStringList>

#include <functional>

class QWidget;

namespace rostermill {

/// Rows of cells as lines of tab-separated text. A tab or line break inside a cell becomes a blank.
QString TabSeparatedText(const QList<QStringList>& rows);

/// Gives the widget "Select All", by Ctrl+A and in its context menu.
void AddSelectAllAction(QWidget* widget, std::function<void()> select);

/// Gives the widget "Copy", by Ctrl+C and in its context menu, which puts the text on the
/// clipboard.
void AddCopyAction(QWidget* widget, std::function<QString()> text);

/// Gives the widget "Paste", by Ctrl+V and in its context menu, with the text on the clipboard.
void AddPasteAction(QWidget* widget, std::function<void(const QString& text)> paste);

}  // namespace rostermill
