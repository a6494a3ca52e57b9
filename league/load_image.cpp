#include "league/load_image.h"

#include <array>
#include <cerrno>
#include <memory>
#include <new>
#include <system_error>
#include <type_traits>
#include <utility>

#include "league/file_access.h"
#include "league/game_settings.h"
#include "league/palette.h"
#include "league/playbooks.h"
#include "league/player_attributes.h"
#include "league/player_names.h"
#include "league/probowl.h"
#include "league/quantity_text.h"
#include "league/schedule.h"
#include "league/team_colors.h"
#include "league/team_data.h"

namespace rostermill {

namespace {

constexpr std::size_t header_size = 16;

/// Ends the load of a file that is no whole image; `detail` is the message's second paragraph.
LoadOutcome Reject(PipelineHost& host, const std::string& detail) {
  host.CloseLoading();
  host.SetBusy(false);
  host.ShowMessage(MessageKind::Exclamation,
                   "Not a valid ROM file!" + (detail.empty() ? "" : "\n\n" + detail), "Error");
  return LoadOutcome::Rejected;
}

LoadOutcome Fail(PipelineHost& host, int number, const std::string& detail) {
  host.CloseLoading();
  host.SetBusy(false);
  host.ShowMessage(MessageKind::Plain, "Error: " + std::to_string(number) + "\n\n" + detail,
                   "Error");
  return LoadOutcome::EndProgram;
}

std::string WithSeparator(std::string folder) {
  if (!folder.ends_with('/') && !folder.ends_with('\\')) folder += '/';
  return folder;
}

/// Asks for the program's folder until colors.txt lies there; false when the answer is blank.
bool FindPalette(LeagueSession& session, PipelineHost& host) {
  while (!IsRegularFile(PalettePath(session.AppDir))) {
    const std::string answer = host.AskForText(
        "Please Enter Path of Rostermill. (Example: C:\\RSML\\). Leave blank to end program.",
        "File Not Found", session.AppDir);
    if (answer.find_first_not_of(" \t") == std::string::npos) return false;
    session.AppDir = WithSeparator(answer);
  }
  return true;
}

LoadOutcome LoadFile(LeagueSession& session, PipelineHost& host) {
  if (!IsRegularFile(session.ImagePath)) return Reject(host, "");
  FileStart file = ReadFileStart(session.ImagePath, OpenImage::WholeSize);
  if (!IsImageHeader(file.Bytes)) return Reject(host, "");
  if (file.Bytes.size() < OpenImage::WholeSize) {
    return Reject(host, "The file is " + QuantityText(file.FileSize, "byte") +
                            " long; a whole image has " +
                            QuantityText(OpenImage::WholeSize, "byte") + ".");
  }
  ClearLeague(session, host);
  host.SetLoadingCaption(0, "Validating...File OK");
  OpenImage image(std::move(file.Bytes));
  LeagueData league = ReadLeague(
      image, [&host] { host.YieldToWindow(); },
      [&host](int line, std::string_view caption) { host.SetLoadingCaption(line, caption); });
  host.CloseLoading();
  if (!FindPalette(session, host)) {
    host.SetBusy(false);
    return LoadOutcome::EndProgram;
  }
  league.PaletteData = ReadPalette(session.AppDir);
  // Moved over the old one, a short text would stay in the room of the longest that was ever there.
  static_assert(std::is_nothrow_move_constructible_v<LeagueData>);
  std::destroy_at(&session.League);
  std::construct_at(&session.League, std::move(league));
  session.ImageLoaded = 1;
  host.Beep();
  host.SetBusy(false);
  host.UpdateCommandState();
  return LoadOutcome::Loaded;
}

}  // namespace

bool IsImageHeader(std::span<const std::uint8_t> header) {
  constexpr std::array<std::uint8_t, header_size> plain{'N', 'E', 'S', 0x1A, 0x10, 0x10, 0x40};
  constexpr std::size_t flags_at = 6;
  constexpr std::uint8_t battery_flag = 0x02;
  if (header.size() < header_size) return false;
  std::array<std::uint8_t, header_size> found{};
  std::copy_n(header.begin(), header_size, found.begin());
  found[flags_at] = static_cast<std::uint8_t>(found[flags_at] & ~battery_flag);
  return found == plain;
}

LeagueData ReadLeague(OpenImage& image, const Yield& yield,
                      const std::function<void(int, std::string_view)>& caption) {
  LeagueData league;
  caption(1, "Player Attributes...Loading");
  ReadPlayerAttributes(image, league, yield);
  caption(1, "Player Attributes...Done");
  caption(2, "Player Names...Loading");
  ReadPlayerNames(image, league, yield);
  caption(2, "Player Names...Done");
  caption(3, "Team Data...Loading");
  ReadTeamData(image, league, yield);
  ReadProbowl(image, league);
  caption(3, "Team Data...Done");
  caption(4, "Team Colors...Loading");
  ReadTeamColors(image, league);
  caption(4, "Team Colors...Done");
  caption(5, "Default Playbooks...Loading");
  ReadPlaybooks(image, league);
  caption(5, "Default Playbooks...Done");
  caption(6, "Schedule...Loading");
  ReadSchedule(image, league);
  caption(6, "Schedule...Done");
  caption(7, "Game Settings...Loading");
  ReadGameSettings(image, league);
  caption(7, "Game Settings...Done");
  return league;
}

LeagueData ReadLeague(OpenImage& image) {
  return ReadLeague(
      image, [] {}, [](int, std::string_view) {});
}

LoadOutcome LoadImage(LeagueSession& session, PipelineHost& host) {
  host.SetBusy(true);
  host.SetLoadingCaption(0, "Validating...Checking");
  try {
    return LoadFile(session, host);
  } catch (const FileError& error) {
    return Fail(host, error.Number(), session.ImagePath + ": " + error.what());
  } catch (const std::system_error& error) {
    return Fail(host, error.code().value(), PalettePath(session.AppDir) + ": " + error.what());
  } catch (const std::bad_alloc& error) {
    return Fail(host, ENOMEM, error.what());
  }
}

void ClearLeague(LeagueSession& session, PipelineHost& host) {
  EmptyLeagueTexts(session.League);
  session.ImageLoaded = 0;
  host.UpdateCommandState();
}

}  // namespace rostermill
