#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "league/league_data.h"

namespace rostermill {

/// No color was picked (ColorChoice), or a champion color is being chosen (ColorSlot): the all-ones
/// word.
inline constexpr std::uint16_t NoColor = 65535;

/// One row of the leaders table: a player's display text and his rating codes for columns 1 to 8.
struct LeaderRow {
  std::string Name;
  IndexedArray<std::int16_t, 1, 8> Attr;
  std::int16_t Team = 0;  ///< whose player it is, from 1
  std::int16_t Slot = 0;  ///< the player's place on the team, from 1
  bool operator==(const LeaderRow&) const = default;
};

/// Rows of the leaders table. The largest group is the receivers, in a league whose teams all play
/// the formation that has six.
inline constexpr int LeaderRowLimit = 6 * TeamCount;

/// Changes a league in one step. It may throw; the recorder then puts the league back.
using LeagueChange = std::function<void(LeagueData&)>;

/// The program's state: the league, the path it came from, and the variables with which screens
/// hand each other their subject. The one instance is created in main.
class LeagueSession {
 public:
  LeagueSession() = default;
  LeagueSession(const LeagueSession&) = delete;
  LeagueSession& operator=(const LeagueSession&) = delete;

  const LeagueData& League() const { return league_; }

  /// Changes the league; the only way for a screen. `description` names the step for the user,
  /// Latin-1: "Save Player: Sam Plover".
  void Change(const std::string& description, const LeagueChange& change);

  /// Puts another league in place, for a load, and takes its texts. Not a step.
  void SetLeague(LeagueData&& league);

  /// Empties the league's texts, for an unload. Not a step either.
  void EmptyTexts() { EmptyLeagueTexts(league_); }

  /// Makes every change; whoever keeps the steps sets it, or null at his end. Without one, a change
  /// is just made. Returns the league, which the recorder changes.
  using Recorder = std::function<void(const std::string& description, const LeagueChange&)>;
  LeagueData& SetRecorder(Recorder recorder) {
    recorder_ = std::move(recorder);
    return league_;
  }

  std::string ImagePath;  ///< UTF-8 path of the image in use; the target of every save
  int ImageLoaded = 0;    ///< 1 while League holds a loaded image
  std::string AppDir;     ///< UTF-8, the program's folder, with a separator at the end

  // Player screens.
  std::int16_t CurTeam = 1;
  std::int16_t CurSlot = 1;
  bool EditPlayerOpen = false;
  std::string PendingTeamName;
  std::string PendingPlayerName;

  // Team screens: the team on view and its working copies while it is edited.
  std::int16_t ViewTeam = 1;
  bool EditTeamOpen = false;
  IndexedArray<IndexedArray<std::int16_t, 1, 3>, 1, 2> PreviewColors;
  IndexedArray<std::int16_t, 1, 8> PreviewPlays;
  std::string PreviewCity;
  std::string PreviewName;
  std::string PreviewAbbreviation;
  std::int16_t PlaySlot = 0;            ///< 0 to 7: the playbook slot being chosen, less one
  std::int16_t PlayChoice = 0;          ///< the play shown and picked
  std::uint16_t ColorSlot = NoColor;    ///< 0 to 3 for a jersey color, NoColor for a champion's
  std::uint16_t ColorChoice = NoColor;  ///< the palette index picked, NoColor when cancelled

  // Schedule, leaders and all-star screens.
  std::int16_t SchedTeam = 1;
  IndexedArray<LeaderRow, 1, LeaderRowLimit> LeaderRows;
  std::int16_t PrintCancelled = 1;
  std::int16_t PrintToPrinter = -1;
  std::int16_t RosterConference = 1;  ///< 1 AFC, 2 NFC
  std::int16_t ChosenTeam = 0;
  std::int16_t ChosenSlot = 0;

 private:
  LeagueData league_;
  Recorder recorder_;
};

}  // namespace rostermill
