#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tools/portraits/canvas.h"

namespace rostermill {

// The most drawings of a kind that the recipes can choose from.
inline constexpr std::size_t MostOfAKind = 32;

class ArtError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The drawings of one file of data/portraits; face.txt there explains the format. Every failure
// throws ArtError, whose message begins with the file and the line.
class ArtFile {
 public:
  // Reads the file. Its drawings may have these kinds, and these letters in addition to '.'.
  ArtFile(std::string file_name, std::string_view letters, std::vector<std::string_view> kinds);

  // The drawings of a kind in the order of the file: at least `fewest`, at most MostOfAKind.
  std::vector<Art> All(std::string_view kind, std::size_t fewest = 1) const;

  // One drawing; an empty name gives an empty one.
  Art Named(std::string_view kind, std::string_view name) const;

  // Throws ArtError with the number of the last line read.
  [[noreturn]] void Fail(const std::string& message) const;

 private:
  struct Drawing {
    std::string kind;
    std::string name;
    Art art;
  };

  void BeginDrawing(const std::string& line);
  void AddRow(std::string row);
  void EndDrawing() const;
  int ParseNumber(std::string_view text) const;

  const std::string file_name_;
  const std::string letters_;
  const std::vector<std::string_view> kinds_;
  int line_number_ = 0;
  std::vector<Drawing> drawings_;
};

}  // namespace rostermill
