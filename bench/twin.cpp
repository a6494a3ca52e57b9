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

}  // namespace

Twin::Twin(const QWidget& form) : form_(form) {
  for (PictureBox* box : form.findChildren<PictureBox*>()) pictures_.insert(box, box->grab());
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
    return label;
  }
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
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return new QLineEdit(line->text());
  if (const auto* bar = qobject_cast<const QScrollBar*>(&widget)) {
    return new QScrollBar(bar->orientation());
  }
  if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) return CopyTable(*table);
  if (const auto* row = qobject_cast<const QDialogButtonBox*>(&widget)) return CopyButtonRow(*row);
  QWidget* copy = nullptr;
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) {
    copy = new QGroupBox(box->title());
  } else {
    copy = new QWidget;
  }
  if (widget.layout() != nullptr) {
    QLayout* layout = NewLayoutLike(*widget.layout());
    copy->setLayout(layout);
    CopyLayout(*widget.layout(), layout);
  }
  return copy;
}

QLayout* Twin::NewLayoutLike(const QLayout& layout) const {
  QLayout* copy = nullptr;
  if (const auto* box = qobject_cast<const QBoxLayout*>(&layout)) {
    copy = new QBoxLayout(box->direction());
  } else {
    copy = new QGridLayout;
  }
  return copy;
}

void Twin::CopyLayout(const QLayout& from, QLayout* to) const {
  if (!from.contentsMargins().isNull()) {
    to->setContentsMargins(from.contentsMargins());
  }
  to->setSizeConstraint(from.sizeConstraint());
  const auto* from_grid = qobject_cast<const QGridLayout*>(&from);
  const auto* from_box = qobject_cast<const QBoxLayout*>(&from);
  auto* grid = qobject_cast<QGridLayout*>(to);
  auto* box = qobject_cast<QBoxLayout*>(to);
  if (grid != nullptr) grid->setSpacing(from_grid->spacing());
  for (int index = 0; index < from.count(); ++index) {
    QLayoutItem* item = from.itemAt(index);
    int row = 0, column = 0, rows = 1, columns = 1;
    if (grid != nullptr) from_grid->getItemPosition(index, &row, &column, &rows, &columns);
    if (QWidget* widget = item->widget()) {
      if (grid != nullptr) {
        grid->addWidget(Copy(*widget), row, column, rows, columns, item->alignment());
      } else {
        box->addWidget(Copy(*widget), from_box->stretch(index), item->alignment());
      }
    } else if (QLayout* inner = item->layout()) {
      QLayout* copy = NewLayoutLike(*inner);
      if (grid != nullptr) {
        grid->addLayout(copy, row, column, rows, columns, item->alignment());
      } else {
        box->addLayout(copy, from_box->stretch(index));
      }
      CopyLayout(*inner, copy);
    } else if (box != nullptr) {
      box->addStretch(from_box->stretch(index));
    }
  }
  if (grid == nullptr) return;
  for (int column = 0; column < from_grid->columnCount(); ++column) {
    grid->setColumnStretch(column, from_grid->columnStretch(column));
  }
  for (int row = 0; row < from_grid->rowCount(); ++row) {
    grid->setRowStretch(row, from_grid->rowStretch(row));
  }
}

}  // namespace rostermill::bench
