// Makes the seed inputs of the fuzz targets: make_seeds SAMPLE-FOLDER SEEDS-FOLDER

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>

#include "exchange/league_json.h"
#include "exchange/patch.h"
#include "fuzz/image_input.h"
#include "league/load_image.h"

namespace {

namespace fs = std::filesystem;
using namespace rostermill;
using Bytes = std::vector<std::uint8_t>;

Bytes Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool Write(const fs::path& path, const Bytes& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  return file.good();
}

Bytes SectionsOf(const Bytes& image) {
  Bytes input;
  for (const auto& section : fuzz::Sections) {
    const auto first = image.begin() + static_cast<std::ptrdiff_t>(section.first);
    input.insert(input.end(), first, first + static_cast<std::ptrdiff_t>(section.size));
  }
  return input;
}

/// The group and a heading, then each name as its length and its letters; see leader_lines.cpp.
Bytes NamesOf(const LeagueData& league, std::uint8_t group) {
  Bytes input{group, group};
  for (const auto& team : league.NameData) {
    input.push_back(static_cast<std::uint8_t>(group % 3));
    for (const NameRec& name : team) {
      for (const std::string& part : {name.FirstName, name.LastName}) {
        input.push_back(static_cast<std::uint8_t>(part.size()));
        input.insert(input.end(), part.begin(), part.end());
      }
    }
    for (int rating = 0; rating < 14; ++rating) {
      input.push_back(static_cast<std::uint8_t>(rating + group));
    }
  }
  return input;
}

/// A part of a league's JSON with something of everything, but short, so that it mutates quickly.
constexpr std::string_view league_json = R"({"rosterYear": "1995", "leagueText": [null, "AFC"],
"teams": [{"index": 3, "city": "PORT \u00e9", "nickname": "OTTERS", "abbreviation": "PT.",
"formation": 2, "colors": [1, 255], "divChampColors": [0], "confChampColors": [63], "plays": [9],
"players": [{"slot": 1, "label": "QB 1", "group": "QB", "firstName": "al", "lastName": "HERON",
"jerseyNumber": "7F", "face": 255, "ratings": {"accuracy": 15}},
{"slot": 12, "kickReturner": true, "puntReturner": false}]}],
"schedule": [[{"away": 28, "home": 29}], [], null], "probowl": [[{"team": 256, "slot": 1}]]})";

/// Short tables after the byte that says what they are; see tables.cpp.
constexpr std::string_view player_table =
    "PTeam,Team Name,Slot,Position,First Name,Last Name,Number,Face,Accuracy,Kick "
    "Returner,Notes\r\n"
    "1,,1,QB 1,al,HERON,7,255,60,no,\"a \"\"b\"\"\nc\"\r\n,T2,,RB 1,,,,,,yes\r\nT3,,4,,,,,,,no";
constexpr std::string_view team_table =
    "1team;city;name;abbreviation;formation;uniform color 1;uniform color 1 name;run 1;run 1 name\n"
    "t1;PORT \xE9;OTTERS;PT.;1RB 4WR;63;GRAY;;Toss Sweep Right\n2;;;;;0;;7;\n";
constexpr std::string_view schedule_table =
    "2Week\tVisitor\tHost\n1\tT1\tT2\n1\t29\t30\n2\t\t\n17\t5\tT28\n";

/// A piece of an image, and either the same with a run of X in it or the patch between the two; see
/// patches.cpp.
Bytes PatchInput(const Bytes& image, std::optional<PatchFormat> format) {
  const auto first = image.begin() + 0x6DA;
  const Bytes base(first, first + 300);
  Bytes other = base;
  if (format == PatchFormat::Ips) {
    std::fill_n(other.begin() + 100, 50, std::uint8_t{'X'});
  } else {
    other.insert(other.begin() + 100, 50, std::uint8_t{'X'});
  }
  if (format) other = MakePatch(*format, base, other);
  Bytes input{static_cast<std::uint8_t>(base.size()), static_cast<std::uint8_t>(base.size() >> 8)};
  input.insert(input.end(), base.begin(), base.end());
  input.insert(input.end(), other.begin(), other.end());
  return input;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_seeds SAMPLE-FOLDER SEEDS-FOLDER\n");
    return 2;
  }
  const fs::path sample(argv[1]);
  const fs::path seeds(argv[2]);
  const Bytes image = Read(sample / "sample.nes");
  if (image.size() < OpenImage::WholeSize) return 1;
  OpenImage open(image);
  const LeagueData league = ReadLeague(open);
  bool good = Write(seeds / "load_image/whole", image) &&
              Write(seeds / "load_image/sections", SectionsOf(image)) &&
              Write(seeds / "palette/colors", Read(sample / "colors.txt")) &&
              Write(seeds / "league_json/part", {league_json.begin(), league_json.end()}) &&
              Write(seeds / "tables/players", {player_table.begin(), player_table.end()}) &&
              Write(seeds / "tables/teams", {team_table.begin(), team_table.end()}) &&
              Write(seeds / "tables/schedule", {schedule_table.begin(), schedule_table.end()}) &&
              Write(seeds / "patches/pieces", PatchInput(image, std::nullopt)) &&
              Write(seeds / "patches/bps", PatchInput(image, PatchFormat::Bps)) &&
              Write(seeds / "patches/ips", PatchInput(image, PatchFormat::Ips));
  for (std::uint8_t group = 0; group < 10; ++group) {
    good = good && Write(seeds / "leader_lines" / std::to_string(group), NamesOf(league, group));
  }
  return good ? 0 : 1;
}
