#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace rostermill::test {

/// Where the writers and their observer meet: a folder, with one for the image in it.
struct Place {
  std::string Folder;  ///< with a separator at its end

  std::string File(const std::string& name) const { return Folder + name; }
  std::string ImageFolder() const { return File("league"); }
  std::string Image() const { return ImageFolder() + "/league.nes"; }
  std::string Log(const std::string& writer) const { return File(writer + ".log"); }

  /// The writers end as soon as this file is there.
  std::string StopFile() const { return File("stop"); }
  bool Stopped() const { return std::filesystem::exists(StopFile()); }
};

/// One process that saves: "A03" is the third one of the letter A.
struct Writer {
  char Letter = 'A';
  int Start = 1;

  std::string Name() const {
    return std::string(1, Letter) + (Start < 10 ? "0" : "") + std::to_string(Start);
  }
};

/// Everything at random that a process decides comes from the seed and its name.
class Chances {
 public:
  Chances(unsigned seed, const Writer& writer) {
    std::seed_seq start{seed, static_cast<unsigned>(writer.Letter),
                        static_cast<unsigned>(writer.Start)};
    random_.seed(start);
  }
  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool OneIn(int end) { return Below(end) == 0; }

 private:
  std::mt19937 random_;
};

// Both use the image at random until they are to stop, in a process of their own that has a
// QApplication: the program's main window, and rsmtool.
void RunEditor(const Place& place, const Writer& writer, unsigned seed);
void RunToolUser(const Place& place, const Writer& writer, unsigned seed);

}  // namespace rostermill::test
