#include "tools/play_pictures/play_parser.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <set>
#include <sstream>
#include <string_view>

namespace rostermill {
namespace {

using Words = std::vector<std::string>;

constexpr std::size_t men_in_a_formation = 11;
constexpr int men_on_the_line = 7;

struct StepWord {
  std::string_view word;
  StepKind kind;
  bool has_man;
  std::size_t fewest_points;
};

constexpr StepWord step_words[] = {
    {"block", StepKind::Block, true, 1},  {"route", StepKind::Route, true, 1},
    {"fake", StepKind::Fake, true, 1},    {"drop", StepKind::Drop, true, 1},
    {"carry", StepKind::Carry, true, 1},  {"throw", StepKind::Throw, false, 2},
    {"pitch", StepKind::Pitch, false, 2}, {"give", StepKind::Give, false, 1},
};

constexpr std::string_view men[] = {"LT", "LG", "CE", "RG", "RT", "QB", "X",
                                    "Y",  "Z",  "A",  "B",  "C",  "D",  "E"};

Words SplitWords(const std::string& line) {
  std::istringstream stream(line.substr(0, line.find('#')));
  Words words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::string JoinWords(const Words& words, std::size_t first) {
  std::string text;
  for (std::size_t i = first; i < words.size(); ++i) text += (i == first ? "" : " ") + words[i];
  return text;
}

std::set<std::string> AllKeys() {
  std::set<std::string> keys;
  for (char kind : {'r', 'p'})
    for (char slot = '1'; slot <= '4'; ++slot)
      for (char choice = '0'; choice <= '7'; ++choice) keys.insert({kind, slot, '-', choice});
  return keys;
}

class PlayTextReader {
 public:
  explicit PlayTextReader(std::string file_name) : file_name_(std::move(file_name)) {}

  std::vector<Play> Read() {
    std::ifstream file(file_name_);
    if (!file) throw PlayTextError(file_name_ + ": can't be opened");
    for (std::string line; std::getline(file, line);) {
      ++line_number_;
      if (const Words words = SplitWords(line); !words.empty()) ReadLine(words);
    }
    if (file.bad()) throw PlayTextError(file_name_ + ": can't be read");
    EndSection();
    if (!missing_keys_.empty()) Fail("play " + *missing_keys_.begin() + " is missing");
    return std::move(plays_);
  }

 private:
  [[noreturn]] void Fail(const std::string& message) const { FailAt(line_number_, message); }

  [[noreturn]] void FailAt(int line, const std::string& message) const {
    throw PlayTextError(file_name_ + ":" + std::to_string(line) + ": " + message);
  }

  void ReadLine(const Words& words) {
    const std::string& word = words.front();
    if (word == "formation") return BeginFormation(words);
    if (word == "scheme") return BeginScheme(words);
    if (word == "play") return BeginPlay(words);
    if (formation_) return PlaceMen(words);
    if (word == "from") return ChooseFormation(words);
    if (word == "with") return UseScheme(words);
    AddStep(words);
  }

  void BeginFormation(const Words& words) {
    EndSection();
    if (words.size() != 2) Fail("a formation needs one word as its name");
    if (formations_.count(words[1])) Fail("formation " + words[1] + " appears twice");
    formation_ = &formations_[words[1]];
  }

  void BeginScheme(const Words& words) {
    EndSection();
    if (words.size() != 2) Fail("a scheme needs one word as its name");
    if (schemes_.count(words[1])) Fail("scheme " + words[1] + " appears twice");
    steps_ = &schemes_[words[1]];
  }

  void BeginPlay(const Words& words) {
    EndSection();
    if (words.size() < 3) Fail("a play needs its key and its name");
    if (!missing_keys_.erase(words[1]))
      Fail("play key " + words[1] + " appears twice or is not one of r1-0 to r4-7, p1-0 to p4-7");
    plays_.push_back({words[1], JoinWords(words, 2), {}, {}});
    in_play_ = true;
    steps_ = &plays_.back().steps;
  }

  void EndSection() {
    if (formation_) CheckFormation(*formation_);
    if (in_play_) CheckPlay(plays_.back());
    section_line_ = line_number_;
    men_moved_.clear();
    formation_ = nullptr;
    steps_ = nullptr;
    in_play_ = false;
  }

  void CheckFormation(const Formation& formation) const {
    if (formation.size() != men_in_a_formation)
      FailAt(section_line_, "this formation does not have eleven men");
    const auto on_the_line = std::count_if(formation.begin(), formation.end(), [](const auto& man) {
      return man.second.y == OnTheLine;
    });
    if (on_the_line != men_on_the_line)
      FailAt(section_line_, "this formation does not have seven men on the line");
  }

  void CheckPlay(const Play& play) const {
    if (play.formation.empty()) FailAt(section_line_, "this play has no formation");
    bool has_carry = false;
    for (const Step& step : play.steps) {
      has_carry = has_carry || step.kind == StepKind::Carry;
      if (!step.man.empty() && !play.formation.count(step.man))
        FailAt(section_line_, "this play moves " + step.man + ", who is not in its formation");
    }
    if (!has_carry) FailAt(section_line_, "nobody ends up with the ball in this play");
  }

  void PlaceMen(const Words& words) {
    if (words.size() % 2 != 0) Fail("every man needs his letters and one point");
    for (std::size_t i = 0; i < words.size(); i += 2) {
      CheckMan(words[i]);
      const PathPoint place = ParsePoint(words[i + 1]);
      if (place.bends) Fail("a man's place can't be a bend");
      if (!formation_->emplace(words[i], place.at).second) Fail(words[i] + " is placed twice");
    }
  }

  void ChooseFormation(const Words& words) {
    if (!in_play_) Fail("'from' belongs in a play");
    if (words.size() != 2 || !formations_.count(words[1])) Fail("no such formation");
    plays_.back().formation = formations_[words[1]];
  }

  void UseScheme(const Words& words) {
    if (!in_play_) Fail("'with' belongs in a play");
    if (words.size() != 2 || !schemes_.count(words[1])) Fail("no such scheme");
    if (!steps_->empty()) Fail("'with' may appear only once, before the steps");
    *steps_ = schemes_[words[1]];
  }

  void AddStep(const Words& words) {
    const auto known = std::find_if(std::begin(step_words), std::end(step_words),
                                    [&](const StepWord& w) { return w.word == words[0]; });
    if (known == std::end(step_words)) Fail("unknown word '" + words[0] + "'");
    if (!steps_) Fail("'" + words[0] + "' belongs in a play or a scheme");
    Step step{known->kind, {}, {}};
    std::size_t next = 1;
    if (known->has_man) {
      if (words.size() < 2) Fail("'" + words[0] + "' needs a man");
      step.man = words[next++];
      CheckMan(step.man);
    }
    while (next < words.size()) step.path.push_back(ParsePoint(words[next++]));
    CheckPath(step.path, known->fewest_points);
    PutStep(std::move(step));
  }

  // A man's step in a play replaces the one that the play's scheme has for him.
  void PutStep(Step step) {
    if (step.man.empty()) return steps_->push_back(std::move(step));
    if (!men_moved_.insert(step.man).second) Fail(step.man + " moves twice");
    std::erase_if(*steps_, [&](const Step& other) { return other.man == step.man; });
    steps_->push_back(std::move(step));
  }

  void CheckMan(const std::string& man) const {
    if (std::find(std::begin(men), std::end(men), man) == std::end(men))
      Fail("unknown man '" + man + "'");
  }

  void CheckPath(const std::vector<PathPoint>& path, std::size_t fewest_points) const {
    if (path.size() < fewest_points) Fail("too few points");
    if (path.back().bends) Fail("a path can't end in a bend");
  }

  PathPoint ParsePoint(const std::string& word) const {
    const bool bends = word.front() == '~';
    const std::size_t comma = word.find(',');
    if (comma == std::string::npos) Fail("'" + word + "' is not a point");
    const std::string_view text = word;
    const GridPoint at{ParseNumber(text.substr(bends, comma - bends)),
                       ParseNumber(text.substr(comma + 1))};
    if (at.x < GridLeft || at.x > GridRight || at.y < GridBottom || at.y > GridTop)
      Fail("point " + word + " is outside the picture");
    return {at, bends};
  }

  int ParseNumber(std::string_view text) const {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
      Fail("'" + std::string(text) + "' is not a whole number");
    return number;
  }

  const std::string file_name_;
  int line_number_ = 0;
  int section_line_ = 0;
  std::map<std::string, Formation> formations_;
  std::map<std::string, std::vector<Step>> schemes_;
  std::vector<Play> plays_;
  std::set<std::string> missing_keys_ = AllKeys();
  // The section being read: a formation, or the steps of a scheme or a play.
  Formation* formation_ = nullptr;
  std::vector<Step>* steps_ = nullptr;
  std::set<std::string> men_moved_;
  bool in_play_ = false;
};

}  // namespace

std::vector<Play> ReadPlays(const std::string& file_name) {
  return PlayTextReader(file_name).Read();
}

}  // namespace rostermill
