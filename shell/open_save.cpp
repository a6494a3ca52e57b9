#include "shell/open_save.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace rostermill {

namespace {

constexpr int cancel_error = 32755;

/// Removes blanks, and no other white space, at both ends.
QString WithoutOuterBlanks(QString text) {
  return text.remove(QRegularExpression("^ +| +$"));
}

std::int16_t ClampedToInt16(qsizetype number) {
  constexpr qsizetype largest = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::clamp<qsizetype>(number, 0, largest));
}

/// One pair as the dialog's "description (patterns)". A description that already ends with its
/// patterns does not show them twice, and "*.*" matches names without a dot as well.
QString NameFilter(QString description, const QString& patterns) {
  const QString written_out = "(" + patterns + ")";
  if (description.endsWith(written_out)) description.chop(written_out.size());
  QStringList names = patterns.split(';', Qt::SkipEmptyParts);
  names.replaceInStrings(QRegularExpression("^ *(\\*\\.\\*)? *$"), "*");
  if (names.isEmpty()) names << "*";
  return description.trimmed() + " (" + names.join(' ') + ")";
}

/// The pairs up to the first that has no description.
QStringList NameFilters(const QString& held_filter) {
  const QStringList parts = held_filter.split(QChar::Null);
  QStringList filters;
  for (qsizetype place = 0; place + 1 < parts.size() && !parts[place].isEmpty(); place += 2) {
    filters << NameFilter(parts[place], parts[place + 1]);
  }
  return filters;
}

}  // namespace

QString clsOpenSave::Filter() const {
  QString pairs = held_filter_;
  pairs.replace(QChar::Null, '|');
  for (int cut = 0; cut < 2 && pairs.endsWith('|'); ++cut) pairs.chop(1);
  return pairs;
}

void clsOpenSave::SetFilter(const QString& pairs) {
  const QString end(2, QChar::Null);
  held_filter_ = pairs;
  held_filter_.replace('|', QChar::Null);
  for (int added = 0; added < 2 && !held_filter_.endsWith(end); ++added) {
    held_filter_ += QChar::Null;
  }
}

void clsOpenSave::ShowOpen() {
  QFileDialog dialog(owner_);
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (!Run(dialog) && cancel_error_) file_name_ = Cancelled;
}

void clsOpenSave::ShowSave() {
  QFileDialog dialog(owner_);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  if (!Run(dialog) && cancel_error_) {
    throw RaisedError(cancel_error, "Run-time error", "Cancel was selected");
  }
}

bool clsOpenSave::Run(QFileDialog& dialog) {
  dialog.setObjectName("FileDialog");
  if (!dialog_title_.isEmpty()) dialog.setWindowTitle(dialog_title_);
  dialog.setDirectory(QFileInfo(init_dir_).isDir() ? init_dir_ : QDir::homePath());
  const QStringList filters = NameFilters(held_filter_);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(filter_index_ - 1, filters.front()));
  }
  dialog.setDefaultSuffix(default_ext_);
  if (!file_name_.isEmpty()) dialog.selectFile(file_name_);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  TakeOver(dialog);
  return true;
}

void clsOpenSave::TakeOver(const QFileDialog& dialog) {
  file_name_ = WithoutOuterBlanks(QDir::toNativeSeparators(dialog.selectedFiles().front()));
  const QFileInfo file(file_name_);
  file_title_ = WithoutOuterBlanks(file.fileName());
  const bool has_extension = file_title_.contains('.');
  file_ext_ = has_extension ? ClampedToInt16(file_name_.lastIndexOf('.') + 1) : std::int16_t{0};
  init_dir_ = WithoutOuterBlanks(init_dir_);
  const qsizetype selected = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
  if (selected >= 0) filter_index_ = ClampedToInt16(selected + 1);
}

}  // namespace rostermill
