#include "shell/recent_files.h"

#include <QStringList>

#include <algorithm>

#include "toolkit/keep_setting.h"

namespace rostermill {

namespace {

QString KeyOf(int index) {
  return QStringLiteral("Recent Files/%1").arg(index);
}

}  // namespace

RecentFiles::List RecentFiles::GetRecentFiles() {
  List files;
  auto next = files.begin();
  for (int index = 0; index < Count; ++index) {
    const QString entry = Entry(index);
    if (!entry.isEmpty()) *next++ = entry;
  }
  Store(files);
  return files;
}

bool RecentFiles::AddRecentFile(const QString& path) {
  List files = GetRecentFiles();
  const auto same = [&](const QString& entry) {
    return entry.compare(path, Qt::CaseInsensitive) == 0;
  };
  if (same(files.front())) return false;
  const auto place = std::find_if(files.begin(), files.end() - 1, same);
  std::move_backward(files.begin(), place, place + 1);
  files.front() = path;
  Store(files);
  return true;
}

QString RecentFiles::Entry(int index) const {
  // A text edited by hand may contain a comma outside quotes, which is read as a list.
  return settings_.value(KeyOf(index)).toStringList().join(',');
}

void RecentFiles::SetEntry(int index, const QString& path) {
  if (Entry(index) != path) KeepSetting(settings_, KeyOf(index), path);
}

void RecentFiles::Store(const List& files) {
  for (int index = 0; index < Count; ++index) {
    SetEntry(index, files[static_cast<std::size_t>(index)]);
  }
}

}  // namespace rostermill
