#include "tests/desktop/describe.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QTreeView>

#include "toolkit/color_box.h"
#include "toolkit/picture_box.h"

namespace rostermill::test {

namespace {

QString Quoted(const QString& text) {
  return '"' + QString(text).replace('\n', "\\n") + '"';
}

QString Size(QSize size) {
  return QString("%1x%2").arg(size.width()).arg(size.height());
}

/// The cells of a row with their check marks and tool tips; bold text is noted. A ">" marks a
/// right-aligned cell, a "*" an editable one.
QString RowText(const QAbstractItemModel& model, int row, const QModelIndex& parent) {
  QStringList cells;
  for (int column = 0; column < model.columnCount(parent); ++column) {
    const QModelIndex cell = model.index(row, column, parent);
    QString text = cell.data().toString();
    const QVariant tick = cell.data(Qt::CheckStateRole);
    if (tick.isValid()) text.prepend(tick.toInt() == Qt::Checked ? "[x] " : "[ ] ");
    const QString tip = cell.data(Qt::ToolTipRole).toString();
    if (!tip.isEmpty() && tip != text) text += " (tip " + tip + ')';
    if (cell.data(Qt::FontRole).value<QFont>().bold()) text += " (bold)";
    if ((cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0) text += '>';
    if (cell.flags().testFlag(Qt::ItemIsEditable)) text += '*';
    cells << text;
  }
  return cells.join(" | ");
}

class FormText {
 public:
  explicit FormText(QWidget& form) {
    const QString focus = form.focusWidget() ? form.focusWidget()->objectName() : "nothing";
    Add(0, form.objectName() + ' ' + Quoted(form.windowTitle()) + ", focus on " + focus);
    if (form.layout() != nullptr) AddLayout(1, {}, *form.layout());
  }

  QString Text() const { return lines_.join("\n"); }

 private:
  void Add(int depth, const QString& line) { lines_ << QString(2 * depth, ' ') + line.trimmed(); }

  void AddLayout(int depth, const QString& place, QLayout& layout) {
    if (auto* grid = qobject_cast<QGridLayout*>(&layout)) return AddGrid(depth, place, *grid);
    auto* box = qobject_cast<QBoxLayout*>(&layout);
    const bool down = box != nullptr && box->direction() == QBoxLayout::TopToBottom;
    Add(depth, place + (down ? "column" : "row"));
    for (int at = 0; at < layout.count(); ++at) {
      const int stretch = box != nullptr ? box->stretch(at) : 0;
      const QString aligned = layout.itemAt(at)->alignment() != 0 ? "aligned " : "";
      AddItem(depth + 1, (stretch != 0 ? "stretched " : "") + aligned, *layout.itemAt(at));
    }
  }

  void AddGrid(int depth, const QString& where, QGridLayout& grid) {
    QString stretched;
    for (int row = 0; row < grid.rowCount(); ++row) {
      if (grid.rowStretch(row) != 0) stretched += QString(" row %1").arg(row);
    }
    for (int column = 0; column < grid.columnCount(); ++column) {
      if (grid.columnStretch(column) != 0) stretched += QString(" column %1").arg(column);
    }
    Add(depth, where + "grid" + (stretched.isEmpty() ? "" : ", stretched" + stretched));
    QMap<QString, QLayoutItem*> items;
    for (int at = 0; at < grid.count(); ++at) {
      int row = 0, column = 0, rows = 0, columns = 0;
      grid.getItemPosition(at, &row, &column, &rows, &columns);
      QString place = QString("%1,%2").arg(row, 2, 10, QChar('0')).arg(column, 2, 10, QChar('0'));
      if (rows * columns > 1) place += " (" + Size({columns, rows}) + ')';
      if (grid.itemAt(at)->alignment() != 0) place += " aligned";
      items.insert(place, grid.itemAt(at));
    }
    for (const auto& [place, item] : items.asKeyValueRange()) {
      AddItem(depth + 1, place + ' ', *item);
    }
  }

  void AddItem(int depth, const QString& place, QLayoutItem& item) {
    if (item.widget() != nullptr) return AddWidget(depth, place, *item.widget());
    if (item.layout() == nullptr) return Add(depth, place + "space");
    AddLayout(depth, place, *item.layout());
  }

  void AddWidget(int depth, const QString& place, QWidget& widget) {
    if (widget.objectName().startsWith("qt_")) return;
    const QString kind = QString(widget.metaObject()->className()).remove("rostermill::");
    Add(depth, place + kind + ' ' + widget.objectName() + Facts(widget) + Spoken(widget));
    if (auto* view = qobject_cast<QAbstractItemView*>(&widget)) return AddRows(depth + 1, *view);
    const bool whole =
        qobject_cast<QComboBox*>(&widget) || qobject_cast<QAbstractSpinBox*>(&widget);
    if (widget.layout() != nullptr && !whole) AddLayout(depth + 1, {}, *widget.layout());
  }

  static QString Facts(QWidget& widget) {
    QString facts = ContentOf(widget);
    if (!widget.isEnabled()) facts += ", disabled";
    if (widget.isHidden()) facts += ", hidden";
    if (widget.font().bold()) facts += ", bold";
    if (widget.font().pointSizeF() > QApplication::font().pointSizeF() * 1.1) facts += ", large";
    if (widget.cursor().shape() == Qt::PointingHandCursor) facts += ", hand";
    if (widget.contextMenuPolicy() == Qt::CustomContextMenu) facts += ", menu";
    return facts;
  }

  static QString ContentOf(QWidget& widget) {
    if (auto* label = qobject_cast<QLabel*>(&widget)) {
      QString text = ' ' + Quoted(label->text());
      if (!label->pixmap().isNull()) text += ", picture " + Size(label->pixmap().size());
      if (label->buddy() != nullptr) text += " of " + label->buddy()->objectName();
      if (label->alignment() & Qt::AlignRight) text += ", right";
      if (label->alignment() & Qt::AlignHCenter) text += ", centered";
      return label->wordWrap() ? text + ", wrapped" : text;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
      QString text = ' ' + Quoted(button->text());
      if (!button->icon().isNull()) text += ", icon " + Size(button->iconSize());
      if (button->isCheckable()) text += button->isChecked() ? ", on" : ", off";
      if (button->autoRepeat()) text += ", repeats";
      auto* push = qobject_cast<QPushButton*>(button);
      if (push != nullptr && push->isDefault()) text += ", default";
      return text;
    }
    if (auto* group = qobject_cast<QGroupBox*>(&widget)) return ' ' + Quoted(group->title());
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
      QString text = ' ' + Quoted(line->text());
      if (!line->placeholderText().isEmpty()) text += " over " + Quoted(line->placeholderText());
      return line->isClearButtonEnabled() ? text + ", clear button" : text;
    }
    if (auto* list = qobject_cast<QComboBox*>(&widget)) {
      QStringList entries;
      for (int at = 0; at < list->count(); ++at) entries << list->itemText(at);
      return ' ' + Quoted(list->currentText()) + " of " + entries.join(" | ") +
             QString(", %1 in view").arg(list->maxVisibleItems());
    }
    if (auto* number = qobject_cast<QSpinBox*>(&widget)) {
      return ' ' + Quoted(number->text()) +
             QString(" of %1 to %2").arg(number->minimum()).arg(number->maximum());
    }
    if (auto* bar = qobject_cast<QScrollBar*>(&widget)) {
      return QString(" %1 of %2 to %3, pages of %4")
          .arg(bar->value())
          .arg(bar->minimum())
          .arg(bar->maximum())
          .arg(bar->pageStep());
    }
    if (qobject_cast<ColorBox*>(&widget)) {
      const QImage shown = widget.grab().toImage();
      return ' ' + shown.pixelColor(shown.rect().center()).name() + " in " + Size(shown.size());
    }
    if (auto* box = qobject_cast<PictureBox*>(&widget)) {
      return ' ' + Size(box->Picture().size()) + " in " + Size(box->contentsRect().size());
    }
    return {};
  }

  static QString ItemsOf(const QList<QAction*>& actions) {
    QStringList items;
    for (const QAction* action : actions) {
      const QString tick = action->isChecked() ? "[x] " : "[ ] ";
      items << (action->isCheckable() ? tick : QString()) + action->text();
    }
    return "menu " + items.join(" | ");
  }

  static QString Spoken(QWidget& widget) {
    QString text;
    if (!widget.toolTip().isEmpty()) text += ", tip " + Quoted(widget.toolTip());
    if (!widget.accessibleName().isEmpty()) text += ", spoken " + Quoted(widget.accessibleName());
    const QString more = widget.accessibleDescription();
    return more.isEmpty() ? text : text + " and " + Quoted(more);
  }

  static const QHeaderView& HeaderOf(QAbstractItemView& view) {
    if (auto* tree = qobject_cast<QTreeView*>(&view)) return *tree->header();
    return *dynamic_cast<QTableView&>(view).horizontalHeader();
  }

  void AddRows(int depth, QAbstractItemView& view) {
    const QAbstractItemModel& model = *view.model();
    QStringList heads;
    for (int column = 0; column < model.columnCount(); ++column) {
      const QString tip = model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
      heads << model.headerData(column, Qt::Horizontal).toString() +
                   (tip.isEmpty() ? "" : " (tip " + tip + ')');
    }
    const auto* table = qobject_cast<QTableView*>(&view);
    if (table != nullptr && !table->verticalHeader()->isHidden()) Add(depth, "numbered");
    if (!view.actions().isEmpty()) Add(depth, ItemsOf(view.actions()));
    if (!HeaderOf(view).isHidden()) Add(depth, "heads " + heads.join(" | "));
    AddRowsOf(depth, view, {});
  }

  /// The first three rows and the last.
  void AddRowsOf(int depth, QAbstractItemView& view, const QModelIndex& parent) {
    const int rows = view.model()->rowCount(parent);
    for (int row = 0; row < rows; ++row) {
      if (row == 3 && rows > 4) Add(depth, QString("(%1 rows)").arg(rows));
      if (row >= 3 && row < rows - 1) continue;
      const QModelIndex index = view.model()->index(row, 0, parent);
      const bool current = view.currentIndex().siblingAtColumn(0) == index;
      Add(depth, (current ? "> " : "- ") + RowText(*view.model(), row, parent));
      AddRowsOf(depth + 1, view, index);
    }
  }

  QStringList lines_;
};

}  // namespace

QString Described(QWidget& form) {
  return FormText(form).Text().replace(QDir::currentPath(), "(current folder)");
}

}  // namespace rostermill::test
