#pragma once

#include "league/league_data.h"
#include "league/open_image.h"
#include "tools/rsmtool/console.h"

namespace rostermill {

/// How a command ends that changes the league of an image, which was read from `source`: prints
/// what changes with --dry-run; otherwise writes the league into the image and the image to `out`,
/// and says how much changed. `before` is the image's own league. Where nothing changes the image
/// is left as it is, and copied where `out` is another file. Throws ToolError, nothing written,
/// where the texts together don't fit the image.
int StoreLeague(const QString& source, const QString& out, OpenImage& image,
                const LeagueData& before, const LeagueData& league, const Arguments& arguments,
                Console& console);

/// Throws where errors have been printed: "3 errors; nothing was written".
void StopAtErrors(std::size_t errors);

}  // namespace rostermill
