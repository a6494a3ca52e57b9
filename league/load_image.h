#pragma once

#include <cstdint>
#include <span>

#include "league/league_session.h"
#include "league/open_image.h"
#include "league/pipeline_host.h"
#include "league/yield.h"

namespace rostermill {

enum class LoadOutcome {
  Loaded,
  Rejected,    ///< the file is no whole image; the league in memory stays as it was
  EndProgram,  ///< a failure that the program doesn't outlive; the user has been told
};

/// True for the 16 bytes of an iNES header that say: 16 program banks, 16 character banks,
/// mapper 4, with or without battery, nothing else set. Fewer bytes give false.
bool IsImageHeader(std::span<const std::uint8_t> header);

/// Reads all sections of a whole image into a fresh league; its palette is empty. `caption` is
/// told each step, by its line on the Loading screen and its text.
LeagueData ReadLeague(OpenImage& image, const Yield& yield,
                      const std::function<void(int, std::string_view)>& caption);
LeagueData ReadLeague(OpenImage& image);

/// Loads the image at session.ImagePath: tests its header, reads the league, then the palette
/// beside the program, and puts the whole in place.
LoadOutcome LoadImage(LeagueSession& session, PipelineHost& host);

/// Empties the league's texts, marks it as not loaded and has the commands follow.
void ClearLeague(LeagueSession& session, PipelineHost& host);

}  // namespace rostermill
