#include "league/save_image.h"

#include <new>
#include <stdexcept>
#include <utility>

#include "league/file_access.h"
#include "league/game_settings.h"
#include "league/playbooks.h"
#include "league/player_attributes.h"
#include "league/player_names.h"
#include "league/probowl.h"
#include "league/quantity_text.h"
#include "league/save_lock.h"
#include "league/schedule.h"
#include "league/team_colors.h"
#include "league/team_data.h"

namespace rostermill {

namespace {

std::optional<std::string> OverflowText(std::string_view what, int needed, int capacity) {
  if (needed <= capacity) return std::nullopt;
  const auto quantity = [](int count, std::string_view noun) {
    return QuantityText(static_cast<std::uint64_t>(count), noun);
  };
  return std::string(what) + " are too long for the image: they need " + quantity(needed, "byte") +
         ", and it has room for " + quantity(capacity, "byte") + ". " + "Shorten them by " +
         quantity(needed - capacity, "letter") + ".";
}

SaveOutcome Refuse(PipelineHost& host, const std::string& text) {
  host.ShowMessage(MessageKind::Exclamation, text, "Error");
  return SaveOutcome::Refused;
}

void CheckTexts(const LeagueData& league) {
  if (const auto overflow = TextOverflow(league)) throw std::length_error(*overflow);
}

/// Writes the league over the file, which begins with these bytes.
void WriteOver(const std::string& path, FileStart file, const LeagueData& league,
               const Yield& yield, ImageWatch& watch) {
  if (file.Bytes.size() < OpenImage::WholeSize) {
    throw std::length_error(path + " has become too short for an image: it is " +
                            QuantityText(file.FileSize, "byte") + " long, and a whole one has " +
                            QuantityText(OpenImage::WholeSize, "byte") + ".");
  }
  watch.BeforeReplace(path, file);
  file.Bytes.resize(OpenImage::WholeSize);
  OpenImage image(std::move(file.Bytes));
  WriteLeague(image, league, yield);
  try {
    ReplaceFileStart(path, image.Bytes(), yield);
  } catch (const FileNotSynced&) {
    watch.Replaced(path, image.Bytes(), false);
    throw;
  }
  watch.Replaced(path, image.Bytes(), true);
}

}  // namespace

std::optional<std::string> TextOverflow(const LeagueData& league) {
  const auto names = OverflowText("The players' names", NameBytesNeeded(league), NameDataCapacity);
  const auto teams =
      OverflowText("The teams' cities and names", TeamTextBytesNeeded(league), TeamTextCapacity);
  if (names && teams) return *names + "\n\n" + *teams;
  return names ? names : teams;
}

void WriteLeague(OpenImage& image, const LeagueData& league, const Yield& yield) {
  WritePlayerAttributes(image, league, yield);
  WriteReturners(image, league);
  WritePlayerNames(image, league, yield);
  WriteTeamText(image, league, yield);
  WriteTeamColors(image, league);
  WriteFormations(image, league);
  WriteProbowl(image, league);
  WritePlaybooks(image, league);
  WriteSchedule(image, league);
  WriteGameSettings(image, league);
}

void SaveLeague(const LeagueData& league, const std::string& path, const Yield& yield) {
  CheckTexts(league);
  ImageWatch nobody;
  const SaveLock lock(path);
  WriteOver(path, nobody.ReadForSave(path), league, yield, nobody);
}

SaveOutcome SaveImage(const LeagueSession& session, PipelineHost& host) {
  ImageWatch nobody;
  return SaveImage(session, host, nobody);
}

SaveOutcome SaveImage(const LeagueSession& session, PipelineHost& host, ImageWatch& watch,
                      const std::string& note) {
  const std::string& path = session.ImagePath;
  const std::string warning = watch.SaveWarning(path);
  if (!host.Confirm({"Are you sure you want to save to " + path + "?", "Save Confirmation",
                     warning + (warning.empty() || note.empty() ? "" : "\n\n") + note,
                     !warning.empty()})) {
    return SaveOutcome::Declined;
  }
  try {
    CheckTexts(session.League());
    std::optional<SaveLock> lock;
    FileStart file;
    for (;;) {
      lock.emplace(path);
      file = watch.ReadForSave(path);
      const std::string changed = watch.ReplaceWarning(file);
      if (changed.empty()) break;
      lock.reset();  // nobody should have to wait for the answer
      if (!host.Confirm({"Do you want to save to " + path + " all the same?", "Save Confirmation",
                         changed, true})) {
        return SaveOutcome::Declined;
      }
    }
    const BusyScope busy(host);
    WriteOver(
        path, std::move(file), session.League(), [&host] { host.YieldToWindow(); }, watch);
    host.Beep();
  } catch (const std::length_error& error) {
    return Refuse(host, error.what() + std::string("\n\nNothing was written."));
  } catch (const FileNotSynced& error) {
    return Refuse(host, NotSyncedText(path, error) + ".\n\nPlease save again.");
  } catch (const FileMissing& error) {
    return Refuse(host, path + " could not be saved: " + error.what() +
                            ".\n\nA save needs the image there, and your changes are still here. "
                            "Put it back and try again.");
  } catch (const FileError& error) {
    return Refuse(host, path + " could not be saved: " + error.what() +
                            ".\n\nThe file is as it was, and your changes are still here. You can "
                            "try again.");
  } catch (const std::bad_alloc&) {
    return Refuse(host, path + " could not be saved: there is not enough memory.");
  }
  if (const std::string trouble = watch.TakeTrouble(); !trouble.empty()) {
    host.ShowMessage(MessageKind::Exclamation, trouble, "Saved");
  }
  return SaveOutcome::Saved;
}

}  // namespace rostermill
