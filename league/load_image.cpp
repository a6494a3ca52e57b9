#include "league/load_image.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>
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
#include "league/text.h"

namespace rostermill {

namespace {

constexpr std::size_t header_size = 16;

/// The file is not a whole image. what() is the second paragraph of the message; it may be empty.
class NotAnImage : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The Loading screen is open until the end of the scope, or until Close.
class LoadingScope {
 public:
  explicit LoadingScope(PipelineHost& host) : host_(host) {}
  ~LoadingScope() { Close(); }
  LoadingScope(const LoadingScope&) = delete;
  LoadingScope& operator=(const LoadingScope&) = delete;

  void Close() { host_.CloseLoading(); }

 private:
  PipelineHost& host_;
};

LoadOutcome Reject(PipelineHost& host, const std::string& detail) {
  host.ShowMessage(MessageKind::Exclamation,
                   "Not a valid ROM file!" + (detail.empty() ? "" : "\n\n" + detail), "Error");
  return LoadOutcome::Rejected;
}

LoadOutcome Fail(PipelineHost& host, int number, const std::string& detail) {
  host.ShowMessage(MessageKind::Plain, "Error: " + std::to_string(number) + "\n\n" + detail,
                   "Error");
  return LoadOutcome::EndProgram;
}

std::string WithSeparator(std::string folder) {
  if (!folder.ends_with('/') && !folder.ends_with('\\')) folder += '/';
  return folder;
}

/// Asks for the program's folder until colors.txt is there; false when the answer is blank.
bool FindPalette(LeagueSession& session, PipelineHost& host) {
  while (KindOf(PalettePath(session.AppDir)) != PathKind::RegularFile) {
    const std::string answer = host.AskForText(
        "Please Enter Path of Rostermill. (Example: C:\\RSML\\). Leave blank to end program.",
        "File Not Found", session.AppDir);
    if (TrimmedText(answer).empty()) return false;
    session.AppDir = WithSeparator(answer);
  }
  return true;
}

/// The bytes of the image at the path. Throws NotAnImage, or FileError.
std::vector<std::uint8_t> ReadImageFile(const std::string& path) {
  const PathKind kind = KindOf(path);
  if (kind == PathKind::Missing) throw NotAnImage("");
  if (kind == PathKind::Other) throw NotAnImage(path + " is not a regular file.");
  FileStart file = ReadFileStart(path, OpenImage::WholeSize);
  if (!IsImageHeader(file.Bytes)) throw NotAnImage("");
  if (file.Bytes.size() < OpenImage::WholeSize) {
    throw NotAnImage("The file is " + QuantityText(file.FileSize, "byte") +
                     " long; a whole image has " + QuantityText(OpenImage::WholeSize, "byte") +
                     ".");
  }
  return std::move(file.Bytes);
}

/// The part of a load during which the host is busy. False when the user gave up the search for
/// the palette.
bool LoadFile(LeagueSession& session, PipelineHost& host, ImageWatch& watch) {
  const BusyScope busy(host);
  LoadingScope loading(host);
  host.SetLoadingCaption(LoadStep::Validating, LoadCaption(LoadStep::Validating, "Checking"));
  OpenImage image(ReadImageFile(session.ImagePath));
  ClearLeague(session, host);
  host.SetLoadingCaption(LoadStep::Validating, LoadCaption(LoadStep::Validating, "File OK"));
  LeagueData league = ReadLeague(
      image, [&host] { host.YieldToWindow(); },
      [&host](LoadStep step, std::string_view state) {
        host.SetLoadingCaption(step, LoadCaption(step, state));
      });
  loading.Close();
  if (!FindPalette(session, host)) return false;
  league.PaletteData = ReadPalette(session.AppDir);
  session.SetLeague(std::move(league));
  session.ImageLoaded = 1;
  watch.Loaded(image.Bytes());
  host.Beep();
  return true;
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

LeagueData ReadLeague(OpenImage& image, const Yield& yield, const StepReport& report) {
  LeagueData league;
  const auto step = [&report](LoadStep name, const auto& read) {
    report(name, "Loading");
    read();
    report(name, "Done");
  };
  step(LoadStep::PlayerAttributes, [&] { ReadPlayerAttributes(image, league, yield); });
  step(LoadStep::PlayerNames, [&] { ReadPlayerNames(image, league, yield); });
  step(LoadStep::TeamData, [&] {
    ReadTeamData(image, league, yield);
    ReadProbowl(image, league);
  });
  step(LoadStep::TeamColors, [&] { ReadTeamColors(image, league); });
  step(LoadStep::Playbooks, [&] { ReadPlaybooks(image, league); });
  step(LoadStep::Schedule, [&] { ReadSchedule(image, league); });
  step(LoadStep::GameSettings, [&] { ReadGameSettings(image, league); });
  return league;
}

LeagueData ReadLeague(OpenImage& image) {
  return ReadLeague(
      image, [] {}, [](LoadStep, std::string_view) {});
}

LoadOutcome LoadImage(LeagueSession& session, PipelineHost& host) {
  ImageWatch nobody;
  return LoadImage(session, host, nobody);
}

LoadOutcome LoadImage(LeagueSession& session, PipelineHost& host, ImageWatch& watch) {
  try {
    watch.BeforeLoad(session.ImagePath);
    if (!LoadFile(session, host, watch)) return LoadOutcome::EndProgram;
  } catch (const NotAnImage& error) {
    return Reject(host, error.what());
  } catch (const FileError& error) {
    return Fail(host, error.Number(), session.ImagePath + ": " + error.what());
  } catch (const std::system_error& error) {
    return Fail(host, error.code().value(), PalettePath(session.AppDir) + ": " + error.what());
  } catch (const std::bad_alloc& error) {
    return Fail(host, ENOMEM, error.what());
  }
  host.UpdateCommandState();
  return LoadOutcome::Loaded;
}

void ClearLeague(LeagueSession& session, PipelineHost& host) {
  session.EmptyTexts();
  session.ImageLoaded = 0;
  host.UpdateCommandState();
}

}  // namespace rostermill
