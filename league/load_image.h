#pragma once

#include <cstdint>
#include <span>

#include "league/image_watch.h"
#include "league/league_session.h"
#include "league/open_image.h"
#include "league/pipeline_host.h"
#include "league/yield.h"

namespace rostermill {

enum class LoadOutcome {
  Loaded,
  Rejected,    ///< the file is not a whole image; the league in memory is unchanged
  EndProgram,  ///< a failure that ends the program; the user has seen a message
};

/// True for the 16 bytes of an iNES header that say: 16 program banks, 16 character banks,
/// mapper 4, with or without battery, nothing else set. Fewer bytes give false.
bool IsImageHeader(std::span<const std::uint8_t> header);

/// Called when a step of a load starts and ends; the state is "Loading" or "Done".
using StepReport = std::function<void(LoadStep step, std::string_view state)>;

/// Reads all sections of a whole image into a fresh league; its palette is empty.
LeagueData ReadLeague(OpenImage& image, const Yield& yield, const StepReport& report);
LeagueData ReadLeague(OpenImage& image);

/// Loads the image at session.ImagePath: tests its header, reads the league, then the palette
/// beside the program, and puts the whole in place.
LoadOutcome LoadImage(LeagueSession& session, PipelineHost& host, ImageWatch& watch);
LoadOutcome LoadImage(LeagueSession& session, PipelineHost& host);

/// Empties the league's texts, marks it as not loaded and has the commands follow.
void ClearLeague(LeagueSession& session, PipelineHost& host);

}  // namespace rostermill
