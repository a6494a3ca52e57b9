#include "league/player_attributes.h"

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

/// The two fields that share a byte of a record, the high nibble's first.
template <typename Rec>
struct NibbleFields {
  std::int16_t Rec::*high;
  std::int16_t Rec::*low;
};

/// The packed bytes behind Face; those before it are the same for all groups.
constexpr std::array<NibbleFields<QBRec>, 2> TailOf(const QBRec*) {
  return {
      {{&QBRec::PassingSpeed, &QBRec::PassControl}, {&QBRec::Accuracy, &QBRec::AvoidPassBlock}}};
}
constexpr std::array<NibbleFields<SkillRec>, 1> TailOf(const SkillRec*) {
  return {{{&SkillRec::BallControl, &SkillRec::Receptions}}};
}
constexpr std::array<NibbleFields<LineRec>, 0> TailOf(const LineRec*) {
  return {};
}
constexpr std::array<NibbleFields<DefenseRec>, 1> TailOf(const DefenseRec*) {
  return {{{&DefenseRec::PassInterception, &DefenseRec::Quickness}}};
}
constexpr std::array<NibbleFields<KickRec>, 1> TailOf(const KickRec*) {
  return {{{&KickRec::KickingAbility, &KickRec::AvoidKickBlock}}};
}

template <typename Rec>
void ReadNibbles(OpenImage& image, Rec& rec, NibbleFields<Rec> fields, int& offset) {
  const int byte = image.ReadByteAt(offset++);
  rec.*fields.high = static_cast<std::int16_t>(HighNibble(byte));
  rec.*fields.low = static_cast<std::int16_t>(LowNibble(byte));
}

template <typename Rec>
void WriteNibbles(OpenImage& image, const Rec& rec, NibbleFields<Rec> fields, int& offset) {
  image.WriteByteAt(offset++, PackNibbles(rec.*fields.high, rec.*fields.low));
}

template <typename Group>
void ReadGroup(OpenImage& image, Group& group, int& offset) {
  for (auto& rec : group) {
    using Rec = std::decay_t<decltype(rec)>;
    ReadNibbles<Rec>(image, rec, {&Rec::RushingPower, &Rec::RunningSpeed}, offset);
    ReadNibbles<Rec>(image, rec, {&Rec::MaximumSpeed, &Rec::HittingPower}, offset);
    rec.Face = image.ReadByteAt(offset++);
    for (const auto& fields : TailOf(&rec)) ReadNibbles<Rec>(image, rec, fields, offset);
  }
}

template <typename Group>
void WriteGroup(OpenImage& image, const Group& group, int& offset) {
  for (const auto& rec : group) {
    using Rec = std::decay_t<decltype(rec)>;
    WriteNibbles<Rec>(image, rec, {&Rec::RushingPower, &Rec::RunningSpeed}, offset);
    WriteNibbles<Rec>(image, rec, {&Rec::MaximumSpeed, &Rec::HittingPower}, offset);
    image.WriteByteAt(offset++, rec.Face);
    for (const auto& fields : TailOf(&rec)) WriteNibbles<Rec>(image, rec, fields, offset);
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
    ReadGroup(image, league.QBData[team], offset);
    ReadGroup(image, league.SkillData[team], offset);
    ReadGroup(image, league.LineData[team], offset);
    ReadGroup(image, league.DefenseData[team], offset);
    ReadGroup(image, league.KickData[team], offset);
  }
  ReadReturners(image, league);
}

void WritePlayerAttributes(OpenImage& image, const LeagueData& league, const Yield& yield) {
  int offset = attributes_offset;
  for (int team = 1; team <= TeamCount; ++team) {
    yield();
    WriteGroup(image, league.QBData[team], offset);
    WriteGroup(image, league.SkillData[team], offset);
    WriteGroup(image, league.LineData[team], offset);
    WriteGroup(image, league.DefenseData[team], offset);
    WriteGroup(image, league.KickData[team], offset);
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
