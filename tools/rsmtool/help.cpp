#include "tools/rsmtool/help.h"

#include <array>

namespace rostermill {

namespace {

struct Topic {
  std::string_view command;
  std::string_view text;
};

constexpr std::array<Topic, 17> topics{{
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
    {"apply", R"(Usage: rsmtool apply [--dry-run] [--no-version] IMAGE LEAGUE.json [OUT]

Writes what dump prints back into the image, or into a copy of it, OUT. Parts of
it are enough: a key that is missing or null changes nothing, teams are found by
"index" and players by "slot". A week that is given is replaced as a whole, and
a returner that is set to true takes the duty from whoever has it.

Every error is printed with its place in the JSON, and then nothing is written.
Lines that begin with "Also:" are what a save changes besides. What is replaced
is kept as an earlier version.

  --dry-run      print what would change, as diff does, and write nothing
  --no-version   don't keep the earlier version
)"},
    {"find", R"(Usage: rsmtool find [--json] IMAGE WORD...

Lists the players who have every word in their name, team, position or number,
in any case: team, slot, who it is, and the ratings as displayed.
  1  1   SPARROWS QB 1 sam PLOVER #01  RP 63 RS 38 MS 13 HP 6 PS 44 PC 44 ...

  --json   a JSON array with an object for each player

Exit status: 0 somebody, 1 nobody, 2 trouble.
)"},
    {"diff", R"(Usage: rsmtool diff [--json] A B

Prints what differs between the leagues of two images, one line a change:
  SPARROWS QB 1 sam PLOVER: Passing Speed 50 -> 63

  --json   a JSON array with an object for each change

Exit status: 0 the same, 1 different, 2 trouble.
)"},
    {"merge", R"(Usage: rsmtool merge [--ours | --theirs] [--dry-run] [--no-version]
                     BASE OURS THEIRS [OUT]

Brings what THEIRS changed since BASE into OURS, or into a copy of it, OUT. What
both changed in the same way is one change; what both changed differently is a
conflict. A rating, a face, a number, a whole name, a duty of a team, a text, a
color, a play, a formation, a week of games and an all-star place are compared
one by one. Conflicts are printed with both values, and then nothing is written.
Bytes outside the league are those of OURS.

  --ours         in a conflict, take our value
  --theirs       in a conflict, take their value
  --dry-run      print what would change in OURS, and write nothing
  --no-version   don't keep the earlier version

Exit status: 0 merged, 1 conflicts, 2 trouble.
)"},
    {"resave", R"(Usage: rsmtool resave [--no-version] IN OUT

Loads IN and writes a copy with all sections rewritten to OUT, as a save of the
editor would. OUT may be IN, but not another image that exists. It is replaced
whole or not at all, and what it was before is kept as an earlier version.

  --no-version   don't keep the earlier version
)"},
    {"export-players", R"(Usage: rsmtool export-players IMAGE [FILE.csv]

Writes all 840 players as a table (RFC 4180, UTF-8, with a line of headings) to
the file or to standard output: team and slot, counted from 1, position, name,
number, face, ratings as displayed, and who returns kicks and punts. Ratings
that a player's position doesn't have are left empty. An image is never written
over.
)"},
    {"import-players", R"(Usage: rsmtool import-players [OPTION]... IMAGE FILE [OUT]

Reads such a table back into the image, or into a copy of it, OUT. Rows and
columns may be missing and in any order; what is missing stays as it is. A team
is found by number, abbreviation, nickname or full name, or by "Team Name", a
player by "Slot" or "Position". An empty cell changes nothing, except that an
empty name is an empty name. A "yes" for a returner takes the duty from the team
mate who had it. A position is compared, never changed.

Commas, semicolons or tabs separate the cells; the text is UTF-8, UTF-16 with a
byte order mark, or Latin-1.

If anything is wrong, every error is printed with its line, column and team, and
nothing is written.

Lines that begin with "Also:" are what the save changes besides: a stock image
gets the formation code, and what is odd in the image is put in order. What is
replaced is kept as an earlier version.

  --dry-run          print what would change, as diff does, and write nothing
  --ignore-unknown   pass over columns that aren't known
  --round            take the nearest rating for one that doesn't exist
  --returners=keep   give a duty that nobody has any more to RB 1
  --no-version       don't keep the earlier version
)"},
    {"export-teams", R"(Usage: rsmtool export-teams IMAGE [FILE.csv]

Writes the 28 teams as a table, as export-players does: texts, formation, and
the colors and plays, each by its number and its name.
)"},
    {"import-teams", R"(Usage: rsmtool import-teams [OPTION]... IMAGE FILE [OUT]

Reads such a table back, as import-players does. Of a color or a play either the
number or the name may be edited.

  --dry-run          print what would change, as diff does, and write nothing
  --ignore-unknown   pass over columns that aren't known
  --no-version       don't keep the earlier version
)"},
    {"export-schedule", R"(Usage: rsmtool export-schedule IMAGE [FILE.csv]

Writes the season as a table with a row a game: week, visitor, host. Teams are
called by their abbreviations, or by their numbers where another team has the
same; 29 and 30 are the all-star sides.
)"},
    {"import-schedule", R"(Usage: rsmtool import-schedule [OPTION]... IMAGE FILE [OUT]

Reads such a table back, as import-players does. The weeks that are in the table
get its games and no others; the other weeks stay as they are. A row with a week
and no teams stands for a week without games.

  --dry-run          print what would change, as diff does, and write nothing
  --ignore-unknown   pass over columns that aren't known
  --no-version       don't keep the earlier version
)"},
    {"make-patch", R"(Usage: rsmtool make-patch BASE IMAGE PATCH

Writes what turns BASE into IMAGE as a patch, BPS or IPS by the ending of its
name, .bps or .ips. A patch holds only what differs, so it can be handed on. A
BPS knows its base and checks it; an IPS is for files of one length, and has the
header of an image always in it.
)"},
    {"apply-patch", R"(Usage: rsmtool apply-patch [--dry-run] [--no-version] IMAGE PATCH [OUT]

Applies a BPS or IPS patch to the image, or to a copy of it, OUT, after checking
it. Prints what changes in the league, as diff does, and how many bytes outside
it. What is replaced is kept as an earlier version.

  --dry-run      print what would change, and write nothing
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

  check IMAGE...                     is it whole, what room is left, what is odd
  find IMAGE WORD...                 players by name, team, position or number
  diff A B                           what differs between two images
  dump IMAGE                         the whole league as JSON
  apply IMAGE LEAGUE.json [OUT]      such JSON, or parts of it, back
  merge BASE OURS THEIRS [OUT]       what two people changed, together
  make-patch BASE IMAGE PATCH        what differs as a .bps or .ips patch
  apply-patch IMAGE PATCH [OUT]      such a patch into the image
  export-players IMAGE [FILE.csv]    all players as a table
  import-players IMAGE FILE [OUT]    such a table back
  export-teams IMAGE [FILE.csv]      all teams as a table
  import-teams IMAGE FILE [OUT]      such a table back
  export-schedule IMAGE [FILE.csv]   the season as a table
  import-schedule IMAGE FILE [OUT]   such a table back
  resave IN OUT                      a copy with all sections rewritten
  versions IMAGE                     its earlier versions
  restore IMAGE NUMBER [OUT]         one of them back

  rsmtool COMMAND --help   more about a command
  rsmtool --version        the version

A file named "-" is standard input, or standard output where it is written.
Without OUT the image itself is changed; what it was is kept (see versions).
Exit status: 0 all is well, 1 check or diff found something, find nobody, merge
conflicts, 2 trouble, and no file was written, 3 a file was written, but the
system could not confirm that it is safe on the disk.
)";
}

std::string CommandHelp(std::string_view command) {
  for (const Topic& topic : topics) {
    if (topic.command == command) return std::string(topic.text);
  }
  return ProgramHelp();
}

}  // namespace rostermill
