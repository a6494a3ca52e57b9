#pragma once

#include <filesystem>
#include <functional>
#include <random>
#include <string>

namespace rostermill::test {

/// Where the writers and their observer meet: a folder, with one for the image in it.
struct Place {
  std::string Folder;  ///< with a separator at its end

  std::string File(const std::string& name) const { return Folder + name; }
  std::string ImageFolder() const { return File("league"); }
  std::string Image() const { return ImageFolder() + "/league.nes"; }
  std::string Log() const { return File("log"); }

  /// The writers end as soon as this file is there.
  std::string StopFile() const { return File("stop"); }
  bool Stopped() const { return std::filesystem::exists(StopFile()); }
};

/// Everything at random that a process decides comes from the seed and its name.
class Chances {
 public:
  Chances(unsigned seed, const std::string& name)
      : random_(seed + static_cast<unsigned>(std::hash<std::string>()(name))) {}
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool OneIn(int end) { return Below(end) == 0; }

 private:
  std::mt19937 random_;
};

// Both use the image at random until they are to stop, in a process of their own that has a
// QApplication: the program's main window, and rsmtool. "A03" is the name of A's third process.
void RunEditor(const Place& place, const std::string& name, unsigned seed);
void RunToolUser(const Place& place, const std::string& name, unsigned seed);

}  // namespace rostermill::test
