#include "league/player_attributes.h"

#include "league/ratings.h"

namespace rostermill {

namespace {

constexpr int attributes_offset = 0x3010;
constexpr int block_size = 117;
constexpr int filler_offset = attributes_offset + TeamCount * block_size;
constexpr int filler = 0xFF;
constexpr int returners_offset = 0x239D3;
constexpr int returners_copy_offset = 0x328D3;
/// The table counts the skill players from 2, "RB 1", to 11, "TE 2".
constexpr int returner_base = 1;
/// The photo's byte comes after the shared ratings.
constexpr int place_before_face = SharedPlaceCount - 2;

template <typename Rec>
void ReadPlayer(OpenImage& image, Rec& rec, int& offset) {
  const auto& ratings = RatingsOf<Rec>;
  for (int place = 0; place < ratings.count; place += 2) {
    const int byte = image.ReadByteAt(offset++);
    rec.*ratings[place].Code = static_cast<std::int16_t>(HighNibble(byte));
    rec.*ratings[place + 1].Code = static_cast<std::int16_t>(LowNibble(byte));
    if (place == place_before_face) rec.Face = image.ReadByteAt(offset++);
  }
}

template <typename Rec>
void WritePlayer(OpenImage& image, const Rec& rec, int& offset) {
  const auto& ratings = RatingsOf<Rec>;
  for (int place = 0; place < ratings.count; place += 2) {
    image.WriteByteAt(offset++,
                      PackNibbles(rec.*ratings[place].Code, rec.*ratings[place + 1].Code));
    if (place == place_before_face) image.WriteByteAt(offset++, rec.Face);
  }
}

void ReadReturners(OpenImage& image, LeagueData& league) {
  for (int team = 1; team <= TeamCount; ++team) {
    const int byte = image.ReadByteAt(returners_offset + team - 1);
    const int kick = HighNibble(byte) - returner_base;
    const int punt = LowNibble(byte) - returner_base;
    auto& skill = league.SkillData[team];
    for (int index = skill.first; index <= skill.last; ++index) {
      skill[index].KickReturner = index == kick ? 1 : 0;
      skill[index].PuntReturner = index == punt ? 1 : 0;
    }
  }
}

}  // namespace

void ReadPlayerAttributes(OpenImage& image, LeagueData& league, const Yield& yield) {
  int offset = attributes_offset;
  for (int team = 1; team <= TeamCount; ++team) {
    yield();
    ForEachPlayerTable(league, team, [&](auto& table) {
      for (auto& rec : table) ReadPlayer(image, rec, offset);
    });
  }
  ReadReturners(image, league);
}

void WritePlayerAttributes(OpenImage& image, const LeagueData& league, const Yield& yield) {
  int offset = attributes_offset;
  for (int team = 1; team <= TeamCount; ++team) {
    yield();
    ForEachPlayerTable(league, team, [&](const auto& table) {
      for (const auto& rec : table) WritePlayer(image, rec, offset);
    });
  }
  image.WriteByteAt(filler_offset, filler);
}

void WriteReturners(OpenImage& image, const LeagueData& league) {
  for (int team = 1; team <= TeamCount; ++team) {
    const auto& skill = league.SkillData[team];
    int kick = skill.first;
    int punt = skill.first;
    for (int index = skill.first; index <= skill.last; ++index) {
      if (skill[index].KickReturner != 0) kick = index;
      if (skill[index].PuntReturner != 0) punt = index;
    }
    const int byte = PackNibbles(kick + returner_base, punt + returner_base);
    image.WriteByteAt(returners_offset + team - 1, byte);
    image.WriteByteAt(returners_copy_offset + team - 1, byte);
  }
}

void FindReturnerOddities(OpenImage& image, Oddities& found) {
  using Skill = std::decay_t<decltype(LeagueData{}.SkillData[1])>;
  for (int team = 1; team <= TeamCount; ++team) {
    const int byte = image.ReadByteAt(returners_offset + team - 1);
    const auto check = [&](std::string_view duty, int nibble) {
      const int index = nibble - returner_base;
      if (index >= Skill::first && index <= Skill::last) return;
      found.push_back({"returners", team, 0,
                       "no " + std::string(duty) + " returner: the value " +
                           std::to_string(nibble) + " names no player"});
    };
    check("kick", HighNibble(byte));
    check("punt", LowNibble(byte));
    const int copy = image.ReadByteAt(returners_copy_offset + team - 1);
    if (copy == byte) continue;
    found.push_back({"returners", team, 0,
                     "the two returner tables differ: " + HexText(byte) + ", which counts, and " +
                         HexText(copy)});
  }
}

}  // namespace rostermill
