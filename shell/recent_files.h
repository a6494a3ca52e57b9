#pragma once

#include <QSettings>
#include <QString>

#include <array>

namespace rostermill {

/// The paths of the last four images, the most recent first, in the group "Recent Files" of the
/// settings, keys "0" to "3". An empty text means no path, and so does an unreadable entry. No path
/// is looked up on a disk.
class RecentFiles {
 public:
  static constexpr int Count = 4;
  using List = std::array<QString, Count>;

  /// `settings` outlives this object.
  explicit RecentFiles(QSettings& settings) : settings_(settings) {}

  /// The four entries; the filled ones are moved to the front, here and in the settings.
  List GetRecentFiles();
  /// Puts the path first and drops the oldest. Paths are compared ignoring case. False if the path
  /// is already first; nothing changes then.
  bool AddRecentFile(const QString& path);

  /// The text of an entry, 0 to 3, as it is stored.
  QString Entry(int index) const;
  void SetEntry(int index, const QString& path);

 private:
  void Store(const List& files);

  QSettings& settings_;
};

}  // namespace rostermill
