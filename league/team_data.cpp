#include "league/team_data.h"

#include <algorithm>
#include <array>
#include <span>

namespace rostermill {

namespace {

constexpr int address_to_offset = 0x14010;
constexpr int block_address = 0xBD6C;
constexpr int abbreviations_offset = 0x1FD00;

// TeamTextPointers, in table order.
constexpr int city_pointers = 0x1FC50;
constexpr int blank_pointers = 0x1FC88;  // two blanks, then two entries of no length
constexpr int nickname_pointers = 0x1FC90;
constexpr int tail_pointers = 0x1FCC8;
/// Lengths of the 27 entries from tail_pointers on.
constexpr std::string_view tail_lengths = "330033333333774743333333000";
constexpr int tail_size = 80;

// FormationPatchA sets Y from FormationTableA, indexed by the team in 0x6E; FormationPatchB
// branches on FormationTableB.
constexpr int patch_a_offset = 0x21642;
constexpr std::array<std::uint8_t, 10> patch_a{0x8A, 0xA6, 0x6E, 0xBC, 0xD0,
                                               0x9F, 0xAA, 0x4C, 0x50, 0x96};
constexpr int patch_b_offset = 0x30FF8;
constexpr std::array<std::uint8_t, 18> patch_b{0x8A, 0xA6, 0x6E, 0xBC, 0x70, 0x9E,
                                               0xAA, 0xC0, 0x01, 0xF0, 0x11, 0xC0,
                                               0x02, 0xF0, 0x13, 0x4C, 0xFE, 0x8F};
constexpr int formation_table_a = 0x21FE0;
constexpr int formation_table_b = 0x31E80;
constexpr int last_formation = 2;

/// The formations that the stock cartridge's own code gives six of its teams.
struct StockFormation {
  int team;
  std::uint8_t formation;
};
constexpr std::array<StockFormation, 6> stock_formations{
    {{13, 2}, {15, 2}, {18, 2}, {8, 1}, {21, 1}, {28, 1}}};

std::string_view ReadPointedText(OpenImage& image, int pointer) {
  const int start = image.ReadWordAt(pointer) + address_to_offset;
  const int end = image.ReadWordAt(pointer + 2) + address_to_offset;
  return image.ReadTextAt(start, end);
}

void ReadFormations(OpenImage& image, LeagueData& league) {
  const int mark = FormationMark(image);
  if (mark == StockFormationMark) {
    for (const auto& [team, formation] : stock_formations) {
      league.TeamData[team].Formation = formation;
    }
  } else if (mark == PatchedFormationMark) {
    for (int team = 1; team <= TeamCount; ++team) {
      const std::uint8_t formation = image.ReadByteAt(formation_table_a + team - 1);
      league.TeamData[team].Formation = formation > last_formation ? std::uint8_t{0} : formation;
    }
  }
}

std::string TeamTextTail(const LeagueData& league) {
  const auto& text = league.LeagueText;
  return text[2].str() + text[3].str() + "1ST2ND3RD4TH" +
         "\xD6\xD7\xB8\xD4\xD5\xD7\xD8\xD9\xDA\xDB\xDC\xDD" + "OFFENSEDEFENSEEAST" + "CENTRALWEST" +
         text[1].str() + text[2].str() + text[3].str() + "MANCOACOMSKP";
}

void WriteAbbreviations(OpenImage& image, const LeagueData& league) {
  std::string slots;
  for (const TeamRec& team : league.TeamData) {
    slots += PaddedText(team.Abbreviation, AbbreviationLength);
  }
  slots += league.LeagueText[2].str() + " " + league.LeagueText[3].str() + " ";
  image.WriteTextAt(abbreviations_offset, slots);
}

/// Writes the text at the running address and its pointer at `pointer`, and advances both.
void WritePointedText(OpenImage& image, std::string_view text, int& pointer, int& address) {
  image.WriteWordAt(pointer, address);
  image.WriteTextAt(address + address_to_offset, text);
  pointer += 2;
  address += static_cast<int>(text.size());
}

void FindPointerOddities(OpenImage& image, std::string_view what, int pointers, Oddities& found) {
  constexpr int block_start = block_address + address_to_offset;
  for (int team = 1; team <= TeamCount; ++team) {
    const int start = image.ReadWordAt(pointers + 2 * (team - 1)) + address_to_offset;
    const int end = image.ReadWordAt(pointers + 2 * team) + address_to_offset;
    std::string text;
    if (start == end) text = "no " + std::string(what);
    if (start > end) text = std::string(what) + " pointers are out of order; it is read as empty";
    if (start < end && (start < block_start || end > block_start + TeamTextCapacity)) {
      text = std::string(what) + " is at " + HexText(start) + ", outside the space for team texts";
    }
    if (!text.empty()) found.push_back({"team texts", team, 0, std::move(text)});
  }
}

bool Holds(const OpenImage& image, int offset, std::span<const std::uint8_t> bytes) {
  const auto there = image.Bytes().subspan(static_cast<std::size_t>(offset), bytes.size());
  return std::equal(bytes.begin(), bytes.end(), there.begin());
}

void FindFormationOddities(OpenImage& image, Oddities& found) {
  const int mark = FormationMark(image);
  if (mark == StockFormationMark) return;
  if (mark != PatchedFormationMark) {
    found.push_back(
        {"formations", 0, 0,
         "the formation mark " + HexText(mark) +
             " is neither that of a stock image nor of a saved one; all formations are read "
             "as 0"});
    return;
  }
  if (!Holds(image, patch_a_offset, patch_a) || !Holds(image, patch_b_offset, patch_b)) {
    found.push_back({"formations", 0, 0, "the formation code is damaged"});
  }
  for (int team = 1; team <= TeamCount; ++team) {
    const int a = image.ReadByteAt(formation_table_a + team - 1);
    const int b = image.ReadByteAt(formation_table_b + team - 1);
    if (a > last_formation) {
      found.push_back({"formations", team, 0, "formation " + std::to_string(a) + " is read as 0"});
    }
    if (a != b) {
      found.push_back({"formations", team, 0,
                       "the two formation tables differ: " + std::to_string(a) +
                           ", which counts, and " + std::to_string(b)});
    }
  }
}

}  // namespace

int FormationMark(OpenImage& image) {
  return image.ReadWordAt(patch_a_offset);
}

void ReadTeamData(OpenImage& image, LeagueData& league, const Yield& yield) {
  for (int team = 1; team <= TeamCount; ++team) {
    yield();
    league.TeamData[team].City = ReadPointedText(image, city_pointers + 2 * (team - 1));
  }
  for (int team = 1; team <= TeamCount; ++team) {
    yield();
    league.TeamData[team].Nickname = ReadPointedText(image, nickname_pointers + 2 * (team - 1));
  }
  for (int team = 1; team <= TeamCount; ++team) {
    const int slot = abbreviations_offset + AbbreviationLength * (team - 1);
    league.TeamData[team].Abbreviation = image.ReadTextAt(slot, slot + AbbreviationLength);
  }
  ReadFormations(image, league);
}

int TeamTextBytesNeeded(const LeagueData& league) {
  std::size_t needed = 2 + tail_size;
  for (const TeamRec& team : league.TeamData) needed += team.City.size() + team.Nickname.size();
  return static_cast<int>(needed);
}

void WriteTeamText(OpenImage& image, const LeagueData& league, const Yield& yield) {
  WriteAbbreviations(image, league);
  int address = block_address;
  int pointer = city_pointers;
  for (const TeamRec& team : league.TeamData) {
    yield();
    WritePointedText(image, UpperText(team.City), pointer, address);
  }
  pointer = blank_pointers;
  for (const std::string_view blank : {" ", " ", "", ""}) {
    WritePointedText(image, blank, pointer, address);
  }
  pointer = nickname_pointers;
  for (const TeamRec& team : league.TeamData) {
    yield();
    WritePointedText(image, UpperText(team.Nickname), pointer, address);
  }
  image.WriteTextAt(address + address_to_offset, TeamTextTail(league));
  pointer = tail_pointers;
  image.WriteWordAt(pointer, address);
  for (const char length : tail_lengths) {
    pointer += 2;
    address += length - '0';
    image.WriteWordAt(pointer, address);
  }
}

void WriteFormations(OpenImage& image, const LeagueData& league) {
  image.WriteBytesAt(patch_a_offset, patch_a);
  image.WriteBytesAt(patch_b_offset, patch_b);
  for (int team = 1; team <= TeamCount; ++team) {
    image.WriteByteAt(formation_table_a + team - 1, league.TeamData[team].Formation);
    image.WriteByteAt(formation_table_b + team - 1, league.TeamData[team].Formation);
  }
}

void FindTeamDataOddities(OpenImage& image, Oddities& found) {
  const int first = image.ReadWordAt(city_pointers);
  if (first != block_address) {
    found.push_back(
        {"team texts", 0, 0,
         "the first text pointer is " + HexText(first) + ", not " + HexText(block_address)});
  }
  FindPointerOddities(image, "city", city_pointers, found);
  FindPointerOddities(image, "nickname", nickname_pointers, found);
  FindFormationOddities(image, found);
}

}  // namespace rostermill
