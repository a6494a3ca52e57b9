#include <array>
#include <filesystem>
#include <random>

#include "tests/support/damage.h"
#include "tests/support/expected_text.h"
#include "tests/tools/rsmtool_fixture.h"
#include "toolkit/qt_strings.h"

namespace rostermill::test {
namespace {

/// Gives rsmtool images and tables that are damaged at random, from one seed, and records what it
/// makes of them.
class Damage : public RsmtoolTest {
 protected:
  Damage() { std::filesystem::current_path(folder_.Path()); }
  ~Damage() override { std::filesystem::current_path(before_); }

  std::size_t Below(std::size_t end) { return random_() % end; }
  template <typename Items>
  auto AnyOf(const Items& items) {
    return items[Below(items.size())];
  }

  /// Replaces a few random bytes of the league. In a wild image, some pointers also lead to the
  /// limits of their banks.
  void MakeImage(const char* file, bool wild) {
    Bytes bytes = DamagedImage(random_, 4);
    constexpr std::array words{0x7FF0, 0x7FF1, 0x8000, 0x86CA, 0x86CB, 0xBFFF, 0xC000, 0xFFFF};
    constexpr std::array pointers{0x48, 0x6D8, 0x1FC50, 0x1FC52, 0x1FCFE, 0x329A7, 0x329C9};
    for (std::size_t hits = wild ? 3 : 0; hits > 0; --hits) {
      // Two statements, since compilers differ in which operand of + they evaluate first.
      auto at = static_cast<std::size_t>(AnyOf(pointers));
      at += 2 * Below(20);
      const int word = AnyOf(words);
      bytes[at] = static_cast<std::uint8_t>(word);
      bytes[at + 1] = static_cast<std::uint8_t>(word >> 8);
    }
    WriteFile(file, bytes);
  }

  /// The first line of a table and about one in `lines_in_one` of the others, with random mistakes
  /// in cells, separators and line ends.
  std::string Mangled(const Bytes& table, std::size_t lines_in_one) {
    std::istringstream lines({table.begin(), table.end()});
    std::string text, line;
    std::getline(lines, text);
    while (std::getline(lines, line)) {
      if (Below(lines_in_one) == 0) text += "\n" + line;
    }
    static const std::vector<std::string> cells{
        "",   "0",  "1",   "2",  "6",   "15",  "16", "28", "29",   "30",  "100",  "101",   "255",
        "-1", "99", "yes", "no", "bye", "QB1", "k",  "x",  "AB C", "$0F", "\xE9", "\"a\"", "1.5"};
    for (std::size_t edits = 1 + Below(5); edits > 0 && !text.empty(); --edits) {
      // An unknown heading keeps the rest of the table from being read.
      const std::size_t first = Below(6) == 0 ? 0 : std::min(text.find('\n') + 1, text.size() - 1);
      const std::size_t at = first + Below(text.size() - first);
      const std::size_t end = std::min(text.find_first_of(",\n", at), text.size());
      const std::size_t begin = end == at ? at : text.find_last_of(",\n", end - 1) + 1;
      switch (Below(6)) {
        case 0:
          text.erase(at, 1);
          break;
        case 1:
          text.insert(at, 1, AnyOf(std::string(",\"\n\r\t ;x0-\x81")));
          break;
        case 2:
          text.erase(begin, std::min(text.find('\n', begin), text.size()) - begin);
          break;
        default:
          text.replace(begin, end - begin, AnyOf(cells));
      }
    }
    return text;
  }

  /// Runs a command and records its exit code, the start of its output, and a hash of the whole
  /// output and of the file that it writes.
  void Tell(const QStringList& arguments, const char* written = nullptr) {
    const Result result = Run(arguments);
    std::string all = result.Out + "\n" + result.Err;
    const std::string first = result.Err.empty() ? result.Out : result.Err;
    if (written != nullptr && std::filesystem::exists(written)) {
      for (const std::uint8_t byte : FileBytes(written)) all += static_cast<char>(byte);
      if (std::string(written).ends_with(".nes")) std::filesystem::remove(written);
    }
    const QString shown = FromUtf8(first.substr(0, first.find('\n'))).left(100);
    told_ << QString("%1: %2, %3 #%4")
                 .arg(arguments.join(' '))
                 .arg(result.Code)
                 .arg(shown, ShortHash(FromLatin1(all)));
  }

  const std::filesystem::path before_ = std::filesystem::current_path();
  std::mt19937 random_{11};
  QStringList told_;
};

TEST_F(Damage, EveryCommandHandlesItAsRecorded) {
  WriteFile("stock.nes", SampleBytes());
  QStringList rounds;
  for (int round = 0; round < 25; ++round) {
    MakeImage("a.nes", round % 3 == 0);
    for (const char* file : {"b.nes", "c.nes"}) MakeImage(file, false);
    Tell({"check", "a.nes"});
    Tell({"diff", "a.nes", "b.nes"});
    Tell({"resave", "a.nes", "saved.nes"}, "saved.nes");
    Tell({"merge", "stock.nes", "b.nes", "c.nes", "merged.nes"}, "merged.nes");
    Tell({"find", "b.nes", QString::number(Below(100))});
    using Table = std::pair<QString, std::size_t>;
    for (const auto& [kind, most] :
         {Table("players", 200), Table("teams", 8), Table("schedule", 40)}) {
      Tell({"export-" + kind, "a.nes", "a.csv"}, "a.csv");
      WriteFile("b.csv", Mangled(FileBytes("a.csv"), 1 + Below(most)));
      Tell({"import-" + kind, "b.nes", "b.csv", "imported.nes"}, "imported.nes");
    }
    const char* patch = round % 2 == 0 ? "a.ips" : "a.bps";
    Tell({"make-patch", "a.nes", "b.nes", patch}, patch);
    Bytes damaged = FileBytes(patch);
    if (!damaged.empty())
      damaged[Below(damaged.size())] ^= static_cast<std::uint8_t>(1U << Below(8));
    WriteFile(patch, damaged);
    Tell({"apply-patch", "a.nes", patch, "patched.nes"}, "patched.nes");
    if (round % 4 == 0) {
      const std::string dump = Run({"dump", "b.nes"}).Out;
      WriteFile("b.json", Mangled({dump.begin(), dump.end()}, 1));
      Tell({"apply", "a.nes", "b.json", "applied.nes"}, "applied.nes");
    }
    rounds << told_.join('\n');
    told_.clear();
  }
  std::filesystem::current_path(before_);
  ExpectTextOfFile("tools/damage.txt", rounds);
}

}  // namespace
}  // namespace rostermill::test
