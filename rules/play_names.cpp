#include "rules/play_names.h"

#include "league/league_tables.h"

namespace rostermill {

namespace {

constexpr int run_slots = 4;

}  // namespace

std::string PlayFileName(int slot, int choice) {
  const bool run = slot <= run_slots;
  return (run ? "r" : "p") + std::to_string(run ? slot : slot - run_slots) + "-" +
         std::to_string(choice) + ".bmp";
}

std::string PlayPath(const std::string& app_dir, int slot, int choice) {
  return app_dir + PlayFileName(slot, choice);
}

std::string PlayName(int slot, int choice) {
  const auto& names = PlayNames[slot];
  if (choice < names.first || choice > names.last) {
    return "Unknown play " + std::to_string(choice);
  }
  return std::string(names[choice]);
}

}  // namespace rostermill
