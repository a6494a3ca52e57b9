#include "tests/support/sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>

#include "league/load_image.h"
#include "league/palette.h"

namespace rostermill::test {

std::string BinFolder() {
  return BIN_DIR "/";
}

std::vector<std::uint8_t> FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  EXPECT_TRUE(file.good()) << path;
  const std::streamoff size = std::max<std::streamoff>(file.tellg(), 0);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  file.seekg(0);
  file.read(reinterpret_cast<char*>(bytes.data()), size);
  return bytes;
}

std::vector<std::uint8_t> SampleBytes() {
  return FileBytes(SAMPLE_IMAGE);
}

void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  WriteFile(path, std::string(bytes.begin(), bytes.end()));
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  ASSERT_TRUE(file.good()) << path;
}

TempFolder::TempFolder() {
  const auto base = std::filesystem::temp_directory_path();
  std::random_device random;
  do {
    folder_ = base / ("rostermill-test-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(folder_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::unique_ptr<LeagueSession> SampleSession() {
  auto session = std::make_unique<LeagueSession>();
  OpenImage image(SampleBytes());
  LeagueOf(*session) = ReadLeague(image);
  session->AppDir = BinFolder();
  LeagueOf(*session).PaletteData = ReadPalette(session->AppDir);
  session->ImagePath = SAMPLE_IMAGE;
  session->ImageLoaded = 1;
  return session;
}

}  // namespace rostermill::test
