#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "league/league_session.h"

namespace rostermill::test {

/// The folder of the program and its data files, with a separator at its end.
std::string BinFolder();

/// The bytes of the sample league, as the build made it.
std::vector<std::uint8_t> SampleBytes();

std::vector<std::uint8_t> FileBytes(const std::string& path);
void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes);
void WriteFile(const std::string& path, const std::string& text);

/// A new folder, which is removed with the object.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string Path(const std::string& name = {}) const { return (folder_ / name).string(); }

 private:
  std::filesystem::path folder_;
};

/// A session with the sample league loaded; ImagePath names the sample itself, so a test that
/// saves sets it to a copy first. The palette is read and AppDir is BinFolder().
std::unique_ptr<LeagueSession> SampleSession();

/// The session's league, to be changed past the steps and all who follow them. A session is never
/// const.
inline LeagueData& LeagueOf(LeagueSession& session) {
  return const_cast<LeagueData&>(session.League());
}

}  // namespace rostermill::test
