#include "tools/rsmtool/help.h"

#include <array>

namespace rostermill {

namespace {

struct Topic {
  std::string_view command;
  std::string_view text;
};

constexpr std::array<Topic, 8> topics{{
    {"check", R"(Usage: rsmtool check [--json] IMAGE...

Says for each file whether it is a whole image, and whether it has ever been
saved by the editor; how much room its names and team texts use and leave; and
everything odd in it: pointers out of place, values without a meaning, teams
twice in a week, all-star places that name nobody, returners that are unset.

  --json   one JSON array with an object for each file

Exit status: 0 all clean, 1 something odd, 2 a file is not a usable image.
)"},
    {"dump", R"(Usage: rsmtool dump IMAGE

Prints the whole league as JSON, always in the same order and one value a line,
to be read and to be compared with line tools. Ratings are codes from 0 to 15;
teams of the schedule are counted from 0, those of the all-star rosters from 1.
)"},
    {"diff", R"(Usage: rsmtool diff [--json] A B

Prints what differs between the leagues of two images, one line a change:
  SPARROWS QB 1 sam PLOVER: Passing Speed 50 -> 63

  --json   a JSON array with an object for each change

Exit status: 0 the same, 1 different, 2 trouble.
)"},
    {"resave", R"(Usage: rsmtool resave [--no-version] IN OUT

Loads IN and writes a copy with all sections rewritten to OUT, as a save of the
editor would. OUT may be IN, but not another image that exists. It is replaced
whole or not at all, and what it was before is kept as an earlier version.

  --no-version   don't keep the earlier version
)"},
    {"export-players", R"(Usage: rsmtool export-players IMAGE [FILE.csv]

Writes all 840 players as CSV (RFC 4180, UTF-8, with a line of headings) to the
file or to standard output: team and slot, counted from 1, position, name,
number, face, ratings as displayed, and who returns kicks and punts. Ratings
that a player's position doesn't have are left empty. An image is never written
over.
)"},
    {"import-players", R"(Usage: rsmtool import-players [--dry-run] [--no-version] IMAGE FILE.csv

Reads such a file back into the image. Rows and columns may be missing and in
any order; what is missing stays as it is, and only Team and Slot must be there.
An empty cell changes nothing either, except that an empty name is an empty
name. A "yes" for a returner takes the duty from the team mate who had it. The
position is compared, never changed.

If anything is wrong, every error is printed with its line and column, and
nothing is written.

Lines that begin with "Also:" are what the save changes besides: a stock image
gets the formation code, and what is odd in the image is put in order.

What the image was before is kept as an earlier version.

  --dry-run      print what would change, as diff does, and write nothing
  --no-version   don't keep the earlier version
)"},
    {"versions", R"(Usage: rsmtool versions [--json] IMAGE

Lists the earlier versions of an image that are kept, the latest first and the
first state last: number, local time, and before what it was kept.
  2  2026-07-30 21:40:12  before resave
  1  2026-07-29 20:05:51  first state, before import-players

Every command that replaces a file keeps what it replaces. The first state and
the last 30 others are kept, the same bytes once; of a file longer than 4 MB
only the first 393,232 bytes, which are all that a save changes.

  --json   a JSON array with an object for each version, its time in UTC
)"},
    {"restore", R"(Usage: rsmtool restore [--no-version] IMAGE NUMBER [OUT]

Writes the version of the image that "rsmtool versions" lists under this number
back to the image, or to OUT, byte for byte. What it replaces is kept first, so
that it can be restored in turn. Of a version that is only the start of a long
file, the start is written, and the rest is that of the image as it is now. OUT
may not be another image that exists.

  --no-version   don't keep what is replaced
)"},
}};

}  // namespace

std::string ProgramHelp() {
  return R"(Usage: rsmtool COMMAND [OPTION] FILE...

Works on cartridge images of the league without a window.

  check IMAGE...                    is it whole, what room is left, what is odd
  dump IMAGE                        the whole league as JSON
  diff A B                          what differs between two images
  resave IN OUT                     a copy with all sections rewritten
  export-players IMAGE [FILE.csv]   all players as a spreadsheet
  import-players IMAGE FILE.csv     such a spreadsheet back into the image
  versions IMAGE                    its earlier versions
  restore IMAGE NUMBER [OUT]        one of them back into the image

  rsmtool COMMAND --help   more about a command
  rsmtool --version        the version

A file named "-" is standard input, or standard output where it is written.
Exit status: 0 all is well, 1 check or diff found something, 2 trouble, and no
file was written, 3 a file was written, but the system could not confirm that
it is safe on the disk.
)";
}

std::string CommandHelp(std::string_view command) {
  for (const Topic& topic : topics) {
    if (topic.command == command) return std::string(topic.text);
  }
  return ProgramHelp();
}

}  // namespace rostermill
