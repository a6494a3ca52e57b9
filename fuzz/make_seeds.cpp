// Makes the seed inputs of the fuzz targets: make_seeds SAMPLE-FOLDER SEEDS-FOLDER

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

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
  for (const auto& section : fuzz::sections) {
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
              Write(seeds / "palette/colors", Read(sample / "colors.txt"));
  for (std::uint8_t group = 0; group < 10; ++group) {
    good = good && Write(seeds / "leader_lines" / std::to_string(group), NamesOf(league, group));
  }
  return good ? 0 : 1;
}
