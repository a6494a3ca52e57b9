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

/// The first `limit` bytes of a file and its full length. Of standard input nothing is read once
/// it has turned out to be longer than `limit`; its length is then what was read.
FileStart ReadInput(const QString& path, std::size_t limit, Console& console);

/// The start of a file, as much as an image has. The length is the full one where the start is an
/// image's, of standard input as well.
FileStart ReadImageStart(const QString& path, Console& console);

/// A whole file of text, its bytes as they are, also from a pipe, which a shell makes of "<(...)".
/// Throws for one longer than `limit` as well.
std::string ReadTextFile(const QString& path, std::size_t limit, Console& console);

/// More than any table of a league.
inline constexpr std::size_t LargestTable = std::size_t{64} << 20;

// What is written takes the place of the file, atomically, or goes to the console's output. A
// cartridge image that the command wasn't given to change is never written over. These give ExitOk,
// or ExitUnconfirmed and a message.

int WriteTextFile(const QString& path, std::string_view text, Console& console);
/// Bytes that aren't an image, such as a patch.
int WriteOtherFile(const QString& path, std::span<const std::uint8_t> bytes, Console& console);

// Before one of these two replaces a file, it keeps it as an earlier version, "before resave",
// unless `arguments` has NoVersion. If it can't be kept, it is replaced all the same, and then a
// message says so. `source` is the image that the command was given; `path` may be the same.

/// Writes all sections of the league into the image, which was read from `source`, and the image
/// to `path`. Throws before anything is written where the league's texts don't fit.
int WriteLeagueFile(const QString& source, const QString& path, OpenImage& image,
                    const LeagueData& league, const Arguments& arguments, Console& console);

enum class Extent {
  Whole,
  Start,  ///< the file at `path`, which has to be there, keeps what comes after these bytes
};

/// Writes the bytes as they are.
int WriteImageFile(const QString& source, const QString& path, std::span<const std::uint8_t> bytes,
                   Extent extent, const Arguments& arguments, Console& console);

/// Why these bytes are not a whole image; empty where they are one.
std::string ImageFault(const FileStart& file);

/// The bytes of a file, an image's or any other's; throws for one that is too large to be one.
std::vector<std::uint8_t> ReadWholeFile(const QString& path, Console& console);

/// The bytes of an image and of what may come after it.
std::vector<std::uint8_t> ReadImageFile(const QString& path, Console& console);

/// The league of an image; its palette is empty.
LeagueData ReadLeagueFile(const QString& path, Console& console);

/// The name of a file in messages: its path, or "standard input".
std::string InputName(const QString& path);

}  // namespace rostermill
