#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/pairs.h"
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Small and without Qt, so that its own memory doesn't mask that of the programs it starts.

namespace rostermill::bench {

namespace {

namespace fs = std::filesystem;

constexpr int start_pairs = 60;
constexpr int memory_pairs = 15;
constexpr int history_pairs = 5;
constexpr int different_images = 100;

using Command = std::vector<std::string>;

struct ProcessCost {
  double milliseconds = 0;
  double megabytes = 0;  ///< peak resident set size
};

/// Runs the command and discards its output. Exits if the command fails.
ProcessCost Run(const Command& command) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&quiet, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  int status = 0;
  rusage use{};
  ProcessCost cost;
  cost.milliseconds = Milliseconds([&] {
    pid_t child = 0;
    if (posix_spawnp(&child, words[0], &quiet, nullptr, words.data(), environ) != 0) status = 1;
    if (status == 0) wait4(child, &status, 0, &use);
  });
  posix_spawn_file_actions_destroy(&quiet);
  if (status != 0) {
    std::fprintf(stderr, "%s failed\n", words[0]);
    std::exit(1);
  }
  cost.megabytes = static_cast<double>(use.ru_maxrss) / 1024;
  return cost;
}

double TimeOf(const Command& command) {
  return Run(command).milliseconds;
}

double MemoryOf(const Command& command) {
  return Run(command).megabytes;
}

void CompareStarts(const std::string& bench, const std::string& bin) {
  const Command smallest{bench + "bench_smallest"};
  const char* platform = std::getenv("QT_QPA_PLATFORM");
  const std::string where = std::string(", ") + (platform != nullptr ? platform : "default");
  Compare(
      {"start until painted" + where, 1.15, start_pairs},
      [&] { return TimeOf({bench + "bench_start"}); }, [&] { return TimeOf(smallest); });
  Compare(
      {"peak memory, image and a form, MB" + where, 1.25, memory_pairs},
      [&] {
        return MemoryOf({bench + "bench_player_open", bin});
      },
      [&] { return MemoryOf(smallest); });
  Compare(
      {"the same after 200 steps, kept, MB" + where, 1.3, history_pairs},
      [&] {
        return MemoryOf({bench + "bench_player_open", bin, "200"});
      },
      [&] { return MemoryOf(smallest); });
}

/// Hard links to a hundred different copies of the sample, so that many images take little space.
std::vector<std::string> ManyImages(const std::string& bin, const std::string& work, int count) {
  std::vector<std::string> paths;
  for (int number = 0; number < count; ++number) {
    const std::string path = work + "image" + std::to_string(number) + ".nes";
    if (!fs::exists(path)) {
      if (number < different_images) {
        fs::copy_file(bin + "/sample.nes", path);
      } else {
        fs::create_hard_link(paths[static_cast<std::size_t>(number % different_images)], path);
      }
    }
    paths.push_back(path);
  }
  return paths;
}

/// One call of the program with all of the images.
Command OnImages(Command command, const std::vector<std::string>& images) {
  command.insert(command.end(), images.begin(), images.end());
  return command;
}

void CompareTool(const std::string& bin, const std::string& work) {
  const std::string tool = bin + "/rsmtool";
  if (!fs::exists(tool)) return Skip("rsmtool check", "not built");
  for (const int count : {1, 10, 100, 1000, 10000}) {
    const std::vector<std::string> images = ManyImages(bin, work, count);
    const std::string what = "rsmtool check, images: " + std::to_string(count);
    const Command check = OnImages({tool, "check"}, images);
    const Command cat = OnImages({"cat"}, images);
    Compare(
        {what, count == 1000 ? 1.0 : 0.0, count > 1000 ? 5 : 25}, [&] { return TimeOf(check); },
        [&] { return TimeOf(cat); });
    Compare(
        {what + ", MB", 0, 3}, [&] { return MemoryOf(check); }, [&] { return MemoryOf(cat); });
  }
}

void CompareWithCat(const std::string& what, const Command& command,
                    const std::vector<std::string>& files) {
  const Command cat = OnImages({"cat"}, files);
  Compare(
      {"rsmtool " + what, 0, 50}, [&] { return TimeOf(command); }, [&] { return TimeOf(cat); });
}

/// Two images that differ from a third in a number each, merged and as JSON and patch.
void CompareExchange(const std::string& bin, const std::string& work) {
  const std::string tool = bin + "/rsmtool";
  if (!fs::exists(tool)) return Skip("rsmtool merge", "not built");
  const std::string base = work + "base.nes", ours = work + "ours.nes",
                    theirs = work + "theirs.nes";
  const std::string json = work + "theirs.json", patch = work + "theirs.bps";
  fs::copy_file(bin + "/sample.nes", base, fs::copy_options::overwrite_existing);
  const auto number = [&](const std::string& slot, const std::string& to) {
    Run({"sh", "-c",
         "printf 'Team,Slot,Number\\n1," + slot + ",77\\n' | " + tool +
             " import-players --no-version " + base + " - " + to});
  };
  number("1", ours);
  number("2", theirs);
  Run({"sh", "-c", tool + " dump " + theirs + " > " + json});
  CompareWithCat("merge", {tool, "merge", "--no-version", base, ours, theirs, "-"},
                 {base, ours, theirs});
  const std::string all = work + "all.nes";
  Run({"sh", "-c",
       tool + " export-players " + base + " | awk -F, -v OFS=, 'NR > 1 { $7 = 98 } 1' | " + tool +
           " import-players --no-version " + base + " - " + all});
  const Command merge{tool, "merge", "--no-version", base, base};
  Compare(
      {"rsmtool merge of 840 changes, against one", 1.3, 50},
      [&] {
        return TimeOf(OnImages(merge, {all, "-"}));
      },
      [&] {
        return TimeOf(OnImages(merge, {theirs, "-"}));
      });
  CompareWithCat("apply", {tool, "apply", "--no-version", ours, json, "-"}, {ours, json});
  CompareWithCat("make-patch", {tool, "make-patch", base, theirs, patch}, {base, theirs});
  for (const std::string table : {"players", "teams", "schedule"}) {
    const std::string csv = work + table + ".csv";
    CompareWithCat("export-" + table, {tool, "export-" + table, theirs}, {theirs});
    Run({tool, "export-" + table, theirs, csv});
    CompareWithCat("import-" + table, {tool, "import-" + table, "--no-version", base, csv, "-"},
                   {base, csv});
  }
  CompareWithCat("find", {tool, "find", base, "SPARROWS"}, {base});
  CompareWithCat("dump", {tool, "dump", base}, {base});
  CompareWithCat("apply-patch", {tool, "apply-patch", "--no-version", base, patch, "-"},
                 {base, patch});
}

}  // namespace

}  // namespace rostermill::bench

/// bench_process start BENCH-FOLDER BIN-FOLDER, on the platform in QT_QPA_PLATFORM, or
/// bench_process tool BIN-FOLDER WORK-FOLDER.
int main(int argc, char** argv) {
  using namespace rostermill::bench;
  if (argc != 4) return 2;
  if (std::string(argv[1]) == "start") {
    CompareStarts(std::string(argv[2]) + "/", argv[3]);
  } else {
    const std::string images = std::string(argv[3]) + "/images/";
    std::filesystem::create_directories(images);
    CompareTool(argv[2], images);
    CompareExchange(argv[2], std::string(argv[3]) + "/");
  }
}
