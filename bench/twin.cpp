#include "bench/twin.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QToolButton>
#include <QTreeWidget>

#include "toolkit/form.h"
#include "toolkit/picture_box.h"

namespace rostermill::bench {

namespace {

template <typename Button>
QWidget* CopyButton(const QAbstractButton& from) {
  auto* button = new Button;
  button->setText(from.text());
  button->setIcon(from.icon());
  button->setIconSize(from.iconSize());
  button->setCheckable(from.isCheckable());
  button->setChecked(from.isChecked());
  return button;
}

QWidget* CopyList(const QComboBox& from) {
  auto* list = new QComboBox;
  list->setEditable(from.isEditable());
  list->setSizeAdjustPolicy(from.sizeAdjustPolicy());
  list->setMinimumContentsLength(from.minimumContentsLength());
  for (int index = 0; index < from.count(); ++index) list->addItem(from.itemText(index));
  list->setCurrentIndex(from.currentIndex());
  return list;
}

QWidget* CopyLabel(const QLabel& from) {
  auto* label = new QLabel(from.text());
  label->setTextFormat(from.textFormat());
  label->setWordWrap(from.wordWrap());
  label->setAlignment(from.alignment());
  label->setMargin(from.margin());
  label->setFrameStyle(from.frameStyle());
  if (const QPixmap picture = from.pixmap(Qt::ReturnByValue); !picture.isNull()) {
    label->setPixmap(picture);
  }
  return label;
}

QWidget* CopyTable(const QTableWidget& from) {
  auto* table = new QTableWidget(from.rowCount(), from.columnCount());
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(from.verticalHeader()->defaultSectionSize());
  for (int column = 0; column < from.columnCount(); ++column) {
    table->setColumnWidth(column, from.columnWidth(column));
    for (int row = 0; row < from.rowCount(); ++row) {
      if (const QTableWidgetItem* cell = from.item(row, column)) {
        table->setItem(row, column, new QTableWidgetItem(cell->text()));
      }
    }
  }
  table->setMinimumSize(from.size());
  return table;
}

QWidget* CopyButtonRow(const QDialogButtonBox& from) {
  auto* row = new QDialogButtonBox(from.orientation());
  for (QAbstractButton* button : from.buttons()) {
    row->addButton(button->text(), from.buttonRole(button));
  }
  return row;
}

/// A copy of a standard Qt control; null for a widget that only contains others.
QWidget* CopyTree(const QTreeWidget& from) {
  auto* copy = new QTreeWidget;
  copy->setHeaderItem(from.headerItem()->clone());
  copy->setHeaderHidden(from.isHeaderHidden());
  copy->setRootIsDecorated(from.rootIsDecorated());
  copy->setUniformRowHeights(from.uniformRowHeights());
  for (int row = 0; row < from.topLevelItemCount(); ++row) {
    QTreeWidgetItem* item = from.topLevelItem(row)->clone();
    // A row may create its texts only on request, and its clone has none then.
    for (int column = 0; column < from.columnCount(); ++column) {
      item->setText(column, from.topLevelItem(row)->text(column));
    }
    copy->addTopLevelItem(item);
    item->setExpanded(from.topLevelItem(row)->isExpanded());
  }
  for (int column = 0; column < from.columnCount(); ++column) {
    copy->setColumnWidth(column, from.columnWidth(column));
  }
  copy->setMinimumSize(from.minimumSize());
  return copy;
}

QWidget* CopyControl(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
    return CopyButton<QPushButton>(*button);
  }
  if (const auto* button = qobject_cast<const QCheckBox*>(&widget)) {
    return CopyButton<QCheckBox>(*button);
  }
  if (const auto* button = qobject_cast<const QRadioButton*>(&widget)) {
    return CopyButton<QRadioButton>(*button);
  }
  if (const auto* button = qobject_cast<const QToolButton*>(&widget)) {
    return CopyButton<QToolButton>(*button);
  }
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return CopyList(*list);
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return CopyLabel(*label);
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return new QLineEdit(line->text());
  }
  if (const auto* bar = qobject_cast<const QScrollBar*>(&widget)) {
    return new QScrollBar(bar->orientation());
  }
  if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) return CopyTable(*table);
  if (const auto* tree = qobject_cast<const QTreeWidget*>(&widget)) return CopyTree(*tree);
  if (const auto* row = qobject_cast<const QDialogButtonBox*>(&widget)) return CopyButtonRow(*row);
  return nullptr;
}

}  // namespace

Twin::Twin(const QWidget& form) : form_(form) {
  for (PictureBox* box : form.findChildren<PictureBox*>()) {
    pictures_.insert(box, box->grab(box->contentsRect()));
  }
}

QWidget* Twin::Make() const {
  QWidget* twin = nullptr;
  if (qobject_cast<const QDialog*>(&form_) != nullptr) {
    twin = new QDialog;
    twin->setWindowTitle(form_.windowTitle());
  } else {
    twin = new ChildForm("Twin", form_.windowTitle());
  }
  QLayout* layout = NewLayoutLike(*form_.layout());
  twin->setLayout(layout);
  CopyLayout(*form_.layout(), layout);
  return twin;
}

QWidget* Twin::Copy(const QWidget& widget) const {
  QWidget* copy = CopyOf(widget);
  copy->setSizePolicy(widget.sizePolicy());
  if (!widget.isEnabled()) copy->setEnabled(false);
  if (widget.minimumWidth() != 0) copy->setMinimumWidth(widget.minimumWidth());
  if (widget.testAttribute(Qt::WA_SetFont)) copy->setFont(widget.font());
  if (widget.testAttribute(Qt::WA_SetPalette)) copy->setPalette(widget.palette());
  if (widget.autoFillBackground()) copy->setAutoFillBackground(true);
  if (widget.isHidden()) copy->hide();
  return copy;
}

QWidget* Twin::CopyOf(const QWidget& widget) const {
  if (const auto picture = pictures_.constFind(&widget); picture != pictures_.constEnd()) {
    auto* label = new QLabel;
    label->setPixmap(*picture);
    label->setFrameStyle(static_cast<const PictureBox&>(widget).frameStyle());
    return label;
  }
  if (QWidget* control = CopyControl(widget)) return control;
  const auto* box = qobject_cast<const QGroupBox*>(&widget);
  QWidget* copy = box != nullptr ? new QGroupBox(box->title()) : new QWidget;
  if (widget.layout() != nullptr) {
    QLayout* layout = NewLayoutLike(*widget.layout());
    copy->setLayout(layout);
    CopyLayout(*widget.layout(), layout);
  }
  return copy;
}

QLayout* Twin::NewLayoutLike(const QLayout& layout) {
  if (const auto* box = qobject_cast<const QBoxLayout*>(&layout)) {
    auto* copy = new QBoxLayout(box->direction());
    copy->setSpacing(box->spacing());
    return copy;
  }
  const auto& grid = static_cast<const QGridLayout&>(layout);
  auto* copy = new QGridLayout;
  copy->setHorizontalSpacing(grid.horizontalSpacing());
  copy->setVerticalSpacing(grid.verticalSpacing());
  for (int column = 0; column < grid.columnCount(); ++column) {
    copy->setColumnStretch(column, grid.columnStretch(column));
    copy->setColumnMinimumWidth(column, grid.columnMinimumWidth(column));
  }
  for (int row = 0; row < grid.rowCount(); ++row) copy->setRowStretch(row, grid.rowStretch(row));
  return copy;
}

void Twin::CopyLayout(const QLayout& from, QLayout* to) const {
  to->setContentsMargins(from.contentsMargins());
  to->setSizeConstraint(from.sizeConstraint());
  if (const auto* box = qobject_cast<const QBoxLayout*>(&from)) {
    CopyBox(*box, static_cast<QBoxLayout*>(to));
  } else {
    CopyGrid(static_cast<const QGridLayout&>(from), static_cast<QGridLayout*>(to));
  }
}

void Twin::CopyBox(const QBoxLayout& from, QBoxLayout* to) const {
  for (int index = 0; index < from.count(); ++index) {
    QLayoutItem* item = from.itemAt(index);
    const int stretch = from.stretch(index);
    if (QWidget* widget = item->widget()) {
      to->addWidget(Copy(*widget), stretch, item->alignment());
    } else if (QLayout* inner = item->layout()) {
      QLayout* copy = NewLayoutLike(*inner);
      to->addLayout(copy, stretch);
      CopyLayout(*inner, copy);
    } else {
      to->addStretch(stretch);
    }
  }
}

void Twin::CopyGrid(const QGridLayout& from, QGridLayout* to) const {
  for (int index = 0; index < from.count(); ++index) {
    QLayoutItem* item = from.itemAt(index);
    int row = 0, column = 0, rows = 1, columns = 1;
    from.getItemPosition(index, &row, &column, &rows, &columns);
    if (QWidget* widget = item->widget()) {
      to->addWidget(Copy(*widget), row, column, rows, columns, item->alignment());
    } else if (QLayout* inner = item->layout()) {
      QLayout* copy = NewLayoutLike(*inner);
      to->addLayout(copy, row, column, rows, columns, item->alignment());
      CopyLayout(*inner, copy);
    }
  }
}

}  // namespace rostermill::bench
