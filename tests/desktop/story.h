#pragma once

#include <QMap>
#include <QStringList>

#include <optional>

#include "shell/rsm_form.h"

namespace rostermill::test {

/// Records, step by step, what changes in the main window, its menu, and the open forms and
/// dialogs, as lines for a file of expected text. A change to the league is recorded as a hash.
class Story {
 public:
  /// Where the window shows `folder`, "(folder)" is recorded.
  Story(FRSMform& window, const LeagueSession& session, QString folder);

  /// Adds a section with what has changed since the last one.
  void Tell(const QString& title);
  const QStringList& Sections() const { return sections_; }

 private:
  /// The lines that describe the window and each form.
  using LinesOfParts = QMap<QString, QStringList>;

  LinesOfParts Parts();

  FRSMform& window_;
  const LeagueSession& session_;
  QString folder_;
  std::optional<LeagueData> league_;  ///< as of the last section
  QString league_hash_;
  LinesOfParts before_;
  QStringList sections_;
};

}  // namespace rostermill::test
