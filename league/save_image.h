#pragma once

#include <optional>
#include <string>

#include "league/image_watch.h"
#include "league/league_session.h"
#include "league/open_image.h"
#include "league/pipeline_host.h"
#include "league/yield.h"

namespace rostermill {

enum class SaveOutcome {
  Saved,
  Declined,  ///< the user answered No; nothing was opened
  Refused,   ///< the league doesn't fit or the file can't be written; the user has been told
};

/// Why the league's texts do not fit an image: which are too long, the bytes they need and have,
/// and by how many letters they have to be shortened. Empty if they fit.
std::optional<std::string> TextOverflow(const LeagueData& league);

/// Writes all sections. The caller has made sure that TextOverflow is empty.
void WriteLeague(OpenImage& image, const LeagueData& league, const Yield& yield);

/// Asks, then writes the league over the image at session.ImagePath. The file is bytewise the old
/// image or the new one, whatever fails; the session is never changed. `note` is a second text for
/// the question.
SaveOutcome SaveImage(const LeagueSession& session, PipelineHost& host, ImageWatch& watch,
                      const std::string& note = {});
SaveOutcome SaveImage(const LeagueSession& session, PipelineHost& host);

/// A save without questions. Throws FileError, or std::length_error with a message for the user
/// where the texts or the file have the wrong length.
void SaveLeague(const LeagueData& league, const std::string& path, const Yield& yield);

}  // namespace rostermill
