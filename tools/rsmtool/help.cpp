#include "tools/rsmtool/help.h"

#include <array>

namespace rostermill {

namespace {

struct Topic {
  std::string_view command;
  std::string_view text;
};

constexpr std::array<Topic, 6> topics{{
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
    {"resave", R"(Usage: rsmtool resave IN OUT

Loads IN and writes a copy with all sections rewritten to OUT, as a save of the
editor would. OUT may be IN, but not another image that exists. It is replaced
whole or not at all.
)"},
    {"export-players", R"(Usage: rsmtool export-players IMAGE [FILE.csv]

Writes all 840 players as CSV (RFC 4180, UTF-8, with a line of headings) to the
file or to standard output: team and slot, counted from 1, position, name,
number, face, ratings as displayed, and who returns kicks and punts. Ratings
that a player's position doesn't have are left empty. An image is never written
over.
)"},
    {"import-players", R"(Usage: rsmtool import-players [--dry-run] IMAGE FILE.csv

Reads such a file back into the image. Rows and columns may be missing and in
any order; what is missing stays as it is, and only Team and Slot must be there.
An empty cell changes nothing either, except that an empty name is an empty
name. A "yes" for a returner takes the duty from the team mate who had it. The
position is compared, never changed.

If anything is wrong, every error is printed with its line and column, and
nothing is written.

Lines that begin with "Also:" are what the save changes besides: a stock image
gets the formation code, and what is odd in the image is put in order.

  --dry-run   print what would change, as diff does, and write nothing
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
