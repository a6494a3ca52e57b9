#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include "league/ratings.h"
#include "tools/make_sample_image/sample_league.h"

namespace rostermill {

namespace {

constexpr std::array<std::string_view, 60> first_names{
    "sam",  "abe",  "eli",   "gus",  "ike",  "jed",  "lou",   "mel",  "ned",  "otis",
    "pip",  "rex",  "sid",   "tad",  "vern", "walt", "zeb",   "amos", "bert", "cale",
    "dov",  "ezra", "finn",  "gil",  "hal",  "ivo",  "jon",   "kip",  "lars", "milo",
    "nils", "orin", "perry", "quin", "rolf", "si",   "toby",  "ugo",  "vito", "wes",
    "yan",  "zane", "arlo",  "boyd", "clem", "dirk", "emil",  "fitz", "gage", "hugo",
    "izzy", "j.t.", "knut",  "leif", "mack", "noel", "odell", "paul", "remy", "sven"};

constexpr std::array<std::string_view, 140> last_names{
    "PLOVER",    "ASPEN",     "BIRCH",     "CLOVER",    "DUNLIN",    "EIDER",     "FINCH",
    "GANNET",    "HAZELWOOD", "IBISON",    "JUNIPER",   "KESTREL",   "LARCH",     "MALLOW",
    "NETTLE",    "ORIOLE",    "PETREL",    "QUAIL",     "ROWAN",     "SORREL",    "THISTLE",
    "UMBER",     "VERBENA",   "WILLET",    "YARROW",    "ZINNIA",    "ALDER",     "BRACKEN",
    "CEDARS",    "DOVECOTE",  "ELDER",     "FENNEL",    "GORSE",     "HEMLOCK",   "IVYLEAF",
    "JACKDAW",   "KITEWELL",  "LINDEN",    "MARTEN",    "NUTHATCH",  "OSPREY",    "PIPIT",
    "QUINCE",    "REDWING",   "SEDGE",     "TEASEL",    "URCHIN",    "VETCH",     "WAXWING",
    "YEWDALE",   "ACORN",     "BITTERN",   "CURLEW",    "DAMSON",    "ERMINE",    "FIELDER",
    "GROUSE",    "HORNBEAM",  "INGLE",     "JUNCO",     "KELP",      "LAPWING",   "MERLIN",
    "NIGHTJAR",  "OATES",     "PARTRIDGE", "QUILL",     "RUSHES",    "SKYLARK",   "TANAGER",
    "UPLAND",    "VIREO",     "WARBLER",   "YUCCA",     "ASHLAR",    "BUNTING",   "CHERVIL",
    "DUNE",      "EGRET",     "FLAX",      "GOSHAWK",   "HOLLIN",    "IRISH",     "JASPER",
    "KNAPWEED",  "LOVAGE",    "MULLEIN",   "NEWTON",    "OAKENFULL", "PEAR",      "QUARRY",
    "RAVENEL",   "SPRUCE",    "THRUSH",    "UNDERHILL", "VOLE",      "WREN",      "YARDLEY",
    "AVENS",     "BRAMBLE",   "COWSLIP",   "DOTTEREL",  "ELMORE",    "FERNLEY",   "GODWIT",
    "HEATHER",   "IRONBARK",  "JESSAMY",   "KINGLET",   "LUPIN",     "MEADOWS",   "NODDY",
    "ORCHARD",   "PINTAIL",   "QUERCUS",   "ROSEHIP",   "SANDPIPER", "TURNSTONE", "UMBRAGE",
    "VINE",      "WOODCOCK",  "YELLAND",   "ARNICA",    "BURDOCK",   "CAMPION",   "DUNNOCK",
    "EVERGREEN", "FULMAR",    "GARGANEY",  "HARRIER",   "IXIA",      "JARRAH",    "KNOTT",
    "LOBELIA",   "MUDLARK",   "NIGELLA",   "OXLIP",     "PUFFIN",    "ROBINIA",   "SAGE"};

/// What is typical of a position: jersey numbers, and the rating codes of places 0 to 7 (rushing
/// power, running speed, maximum speed, hitting power, then the group's own).
struct Typical {
  int last_slot;
  int low_number;
  int high_number;
  std::array<int, 8> codes;
};
constexpr std::array typical{
    Typical{2, 1, 19, {10, 4, 3, 2, 8, 8, 8, 7}},  // quarterbacks
    Typical{6, 20, 49, {11, 6, 8, 4, 8, 6}},       // running backs
    Typical{10, 80, 89, {11, 6, 10, 2, 8, 10}},    // wide receivers
    Typical{12, 80, 99, {10, 4, 5, 8, 7, 8}},      // tight ends
    Typical{17, 50, 79, {11, 4, 3, 9}},            // offensive line
    Typical{20, 60, 99, {6, 6, 6, 9, 3, 6}},       // defensive line
    Typical{24, 50, 99, {6, 6, 7, 8, 5, 7}},       // linebackers
    Typical{28, 20, 49, {6, 7, 9, 5, 9, 8}},       // defensive backs
    Typical{30, 1, 19, {8, 3, 3, 2, 9, 9}},        // kickers
};

const Typical& TypicalAt(int slot) {
  return *std::find_if(typical.begin(), typical.end(),
                       [slot](const Typical& row) { return slot <= row.last_slot; });
}

/// Each last name appears six times in the league, each time with a different first name, and never
/// twice on a team, since 37 and 140 have no common factor.
void FillName(NameRec& name, int player) {
  const int count = static_cast<int>(last_names.size());
  const int round = player / count;
  name.LastName = last_names[static_cast<std::size_t>(player * 37 % count)];
  name.FirstName =
      first_names[static_cast<std::size_t>(player * 13 + round * 11) % first_names.size()];
}

std::string FreeNumber(int slot, std::set<int>& taken, NumberStream& numbers) {
  const Typical& row = TypicalAt(slot);
  int number = numbers.Between(row.low_number, row.high_number);
  while (!taken.insert(number).second) {
    number = number == row.high_number ? row.low_number : number + 1;
  }
  return std::to_string(number / 10) + std::to_string(number % 10);
}

void FillRatings(LeagueData& league, int team, int slot, int team_strength, NumberStream& numbers) {
  const Typical& row = TypicalAt(slot);
  for (int place = 0; place < PlacesInUse(GroupOfSlot(slot)); ++place) {
    const int code = row.codes[static_cast<std::size_t>(place)] + team_strength +
                     numbers.Between(-2, 2) + numbers.Between(-1, 1);
    SetPlaceCode(league, team, slot, place, std::clamp(code, 0, 15));
  }
  SetFace(league, team, slot, numbers.Between(0, 255));
}

}  // namespace

void FillPlayers(LeagueData& league, NumberStream& numbers) {
  int player = 0;
  for (int team = 1; team <= TeamCount; ++team) {
    const int strength = numbers.Between(-1, 1);
    std::set<int> taken;
    for (int slot = 1; slot <= SlotCount; ++slot) {
      NameRec& name = league.NameData[team][slot];
      FillName(name, player++);
      name.JerseyNumber = FreeNumber(slot, taken, numbers);
      FillRatings(league, team, slot, strength, numbers);
    }
    league.SkillData[team][numbers.Between(1, 8)].KickReturner = 1;
    league.SkillData[team][numbers.Between(3, 8)].PuntReturner = 1;
  }
}

}  // namespace rostermill
