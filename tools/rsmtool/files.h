#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "league/file_access.h"
#include "league/league_data.h"
#include "league/open_image.h"
#include "tools/rsmtool/console.h"

namespace rostermill {

// A file named "-" is the console's input or output. All of these throw ToolError with the file's
// name and the reason.

/// The first `limit` bytes of a file and its full length.
FileStart ReadInput(const QString& path, std::size_t limit, Console& console);

/// A whole file of text, its bytes as they are.
std::string ReadTextFile(const QString& path, Console& console);

/// Puts the bytes in place of the file, atomically, or on the console's output.
void WriteOutput(const QString& path, std::span<const std::uint8_t> bytes, Console& console);
void WriteOutput(const QString& path, std::string_view text, Console& console);

/// Writes all sections of the league into the image and the image to `path`. Throws before
/// anything is written where the league's texts don't fit.
void WriteLeagueFile(const QString& path, OpenImage& image, const LeagueData& league,
                     Console& console);

/// Why these bytes are no whole image; empty where they are one.
std::string WhyNoImage(const FileStart& file);

/// The bytes of an image and of what may lie behind it.
std::vector<std::uint8_t> ReadImageFile(const QString& path, Console& console);

/// The league of an image; its palette is empty.
LeagueData ReadLeagueFile(const QString& path, Console& console);

/// The name of a file in messages: its path, or "standard input".
std::string InputName(const QString& path);

}  // namespace rostermill
