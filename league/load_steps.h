#pragma once

#include <array>
#include <string>
#include <string_view>

namespace rostermill {

/// The steps of a load, in the order of the Loading screen's lines.
enum class LoadStep {
  Validating,
  PlayerAttributes,
  PlayerNames,
  TeamData,
  TeamColors,
  Playbooks,
  Schedule,
  GameSettings,
};

/// What the Loading screen shows for each step before it starts.
inline constexpr std::array<std::string_view, 8> LoadStepCaptions{
    "Validating...",  "Player Attributes...", "Player Names...", "Team Data...",
    "Team Colors...", "Default Playbooks...", "Schedule...",     "Game Settings..."};

/// The step's caption followed by its state: "Team Data...Done".
inline std::string LoadCaption(LoadStep step, std::string_view state) {
  return std::string(LoadStepCaptions[static_cast<std::size_t>(step)]).append(state);
}

}  // namespace rostermill
