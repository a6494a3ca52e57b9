#include "tools/rsmtool/save_effects.h"

#include <algorithm>
#include <array>

#include "exchange/changes.h"
#include "exchange/wording.h"
#include "league/game_settings.h"
#include "league/load_image.h"
#include "league/oddities.h"
#include "league/playbooks.h"
#include "league/player_attributes.h"
#include "league/player_names.h"
#include "league/probowl.h"
#include "league/quantity_text.h"
#include "league/save_image.h"
#include "league/schedule.h"
#include "league/team_colors.h"
#include "league/team_data.h"

namespace rostermill {

namespace {

using Lines = std::vector<std::string>;

struct Section {
  std::string_view name;
  void (*write)(OpenImage&, const LeagueData&);
};

constexpr auto no_yield = [] {};

/// The last one writes whatever the others don't.
constexpr std::array<Section, 11> sections{{
    {"ratings", [](auto& image, auto& league) { WritePlayerAttributes(image, league, no_yield); }},
    {"returners", WriteReturners},
    {"names", [](auto& image, auto& league) { WritePlayerNames(image, league, no_yield); }},
    {"team texts", [](auto& image, auto& league) { WriteTeamText(image, league, no_yield); }},
    {"colors", WriteTeamColors},
    {"formations", WriteFormations},
    {"pro bowl", WriteProbowl},
    {"playbooks", WritePlaybooks},
    {"schedule", WriteSchedule},
    {"game settings", WriteGameSettings},
    {"other", [](auto& image, auto& league) { WriteLeague(image, league, no_yield); }},
}};

/// Oddities of the image that a save of its own league removes.
void AddOddities(OpenImage image, const LeagueData& before, OpenImage saved, Lines& lines) {
  const Oddities left = FindOddities(saved, ReadLeague(saved));
  for (const Oddity& oddity : FindOddities(image, before)) {
    const bool stays = std::any_of(left.begin(), left.end(), [&](const Oddity& other) {
      return oddity.Section == other.Section && oddity.Team == other.Team &&
             oddity.Slot == other.Slot && oddity.Text == other.Text;
    });
    if (stays) continue;
    const std::string subject = SubjectTitle(before, oddity.Team, oddity.Slot);
    lines.push_back("put in order, " + OddityText(oddity, subject) + "\n");
  }
}

/// How many bytes differ between the two images and are in `now` as the save leaves them.
std::size_t CountChanged(const OpenImage& old, const OpenImage& now, const OpenImage& saved) {
  const auto from = old.Bytes();
  const auto to = now.Bytes();
  if (std::equal(from.begin(), from.end(), to.begin())) return 0;
  std::size_t count = 0;
  for (std::size_t at = 0; at < to.size(); ++at) {
    if (to[at] != from[at] && to[at] == saved.Bytes()[at]) ++count;
  }
  return count;
}

/// Bytes that a save of the image's own league changes, section by section: copies of a value,
/// pointers, code, and what is left over between them. Gives the image as that save leaves it.
OpenImage AddBytes(OpenImage image, const LeagueData& before, const OpenImage& saved,
                   Lines& lines) {
  const bool stock = FormationMark(image) == StockFormationMark;
  for (const Section& section : sections) {
    const OpenImage old = image;
    section.write(image, before);
    const std::size_t count = CountChanged(old, image, saved);
    if (count == 0) continue;
    if (stock && section.name == "formations") {
      lines.push_back("the formation code is added, which a stock image does not have\n");
    } else {
      lines.push_back("rewritten, " + std::string(section.name) + ": " +
                      QuantityText(count, "byte") + "\n");
    }
  }
  return image;
}

}  // namespace

std::vector<std::string> FindSaveEffects(const OpenImage& image, const LeagueData& before,
                                         const LeagueData& league) {
  OpenImage saved = image;
  WriteLeague(saved, league, no_yield);
  Lines lines;
  for (const Change& change : FindChanges(league, ReadLeague(saved))) {
    lines.push_back(ChangeLine(change));
  }
  // Texts with wild pointers may not fit; then what they become counts as the save's doing.
  const LeagueData& own = TextOverflow(before) ? league : before;
  Lines bytes;
  const OpenImage resaved = AddBytes(image, own, saved, bytes);
  AddOddities(image, before, resaved, lines);
  lines.insert(lines.end(), bytes.begin(), bytes.end());
  return lines;
}

}  // namespace rostermill
