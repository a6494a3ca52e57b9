#include "tests/faults/power_cut.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

#include "tests/support/sample.h"
#include <fcntl.h>

namespace rostermill::test {

namespace {

namespace fs = std::filesystem;

// Special node numbers.
constexpr std::size_t none = std::size_t(-1);
constexpr std::size_t every = std::size_t(-2);

enum class ItemKind { Folder, File, Link };

/// What a folder has below it, by path; a folder comes before what it has.
struct TreeItem {
  ItemKind Kind = ItemKind::Folder;
  std::string Bytes = {};  ///< of a file; what a link leads to
  bool operator==(const TreeItem&) const = default;
};
using Tree = std::map<std::string, TreeItem>;

TreeItem ItemAt(const fs::path& path) {
  if (fs::is_symlink(path)) return {ItemKind::Link, fs::read_symlink(path)};
  if (fs::is_directory(path)) return {};
  const auto bytes = FileBytes(path);
  return {ItemKind::File, {bytes.begin(), bytes.end()}};
}

Tree TreeAt(const std::string& root) {
  Tree tree;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    tree[entry.path().lexically_relative(root)] = ItemAt(entry.path());
  }
  return tree;
}

void PutTree(const std::string& root, const Tree& tree) {
  for (const auto& entry : fs::directory_iterator(root)) fs::remove_all(entry.path());
  for (const auto& [name, item] : tree) {
    const fs::path path = fs::path(root) / name;
    if (item.Kind == ItemKind::Folder) fs::create_directory(path);
    if (item.Kind == ItemKind::Link) fs::create_symlink(item.Bytes, path);
    if (item.Kind == ItemKind::File) WriteFile(path, item.Bytes);
  }
}

std::size_t HashOf(const Tree& tree) {
  std::string text;
  for (const auto& [path, item] : tree) {
    const std::size_t hash = std::hash<std::string>()(item.Bytes);
    text += path + '\0' + std::to_string(int(item.Kind)) + " " + std::to_string(hash) + '\0';
  }
  return std::hash<std::string>()(text);
}

/// Whether the call puts something on the disk for good. All that can be found after a cut earlier
/// on, since the last such call, can be found after a cut just before this one as well.
bool IsSync(const SystemCall& call) {
  return call.Result >= 0 && (call.Name == "fsync" || call.Name == "syncfs");
}

/// Begins as a folder of the real file system, all of it on the disk, and follows the calls that a
/// trace shows.
class Disk {
 public:
  explicit Disk(std::string root) : root_(std::move(root)) {
    Load(root_);
    now_ = disk_;
  }

  void Follow(const SystemCall& call) {
    if (call.Result < 0) return;
    const auto file = open_.find(call.Handle);
    const std::size_t node = file == open_.end() ? none : file->second.Node;
    if (call.Name == "open") {
      Open(call);
    } else if (call.Name == "close") {
      open_.erase(call.Handle);
    } else if (call.Name == "mkdir") {
      Make(ItemKind::Folder, call.Path);
    } else if ((call.Name == "unlink" || call.Name == "rmdir") && Find(call.Path) != none) {
      const auto [folder, name] = Place(call.Path);
      Change({Operation::What::Names, folder, 0, {}, {{name, 0}}, "removed " + name});
    } else if (call.Name == "rename" && Find(call.Path) != none) {
      const auto [folder, from] = Place(call.Path);
      const auto [to_folder, to] = Place(call.To);
      if (folder != to_folder) throw std::logic_error("a rename to another folder");
      const std::size_t moved = now_[folder].Entries.at(from);
      Change({Operation::What::Names, folder, 0, {}, {{from, 0}, {to, moved}}, "renamed " + to});
    } else if (call.Name == "write" && node != none) {
      std::size_t& position = file->second.Position;
      const std::string text = "written at " + std::to_string(position);
      Change({Operation::What::Write, node, position, call.Bytes, {}, text});
      position += call.Bytes.size();
    } else if (IsSync(call)) {
      PutOnDisk(call.Name == "syncfs" ? every : node);
    }
  }

  /// What programs see as long as the power is on.
  Tree Now() const { return TreeOf(now_); }

  /// Calls `use` with all that may be found after a power cut now, and a text that says what is
  /// missing.
  void ForEachCase(const std::function<void(const Tree&, const std::string&)>& use) const {
    const auto choices = [](const Operation& operation) -> std::size_t {
      if (operation.OnDisk) return 1;
      return operation.Kind == Operation::What::Write ? std::size_t{OutcomeCount} : 2;
    };
    std::size_t cases = 1;
    constexpr std::size_t most = 4096;
    for (const Operation& operation : operations_) {
      cases *= choices(operation);
      if (cases > most) throw std::length_error("more cases than the walk has time for");
    }
    static const char* const words[] = {"not ", "", "only the length of ", "half of "};
    for (std::size_t number = 0; number < cases; ++number) {
      std::vector<Node> nodes = disk_;
      std::string text;
      std::size_t rest = number;
      for (const Operation& operation : operations_) {
        const auto outcome = operation.OnDisk ? Done : Outcome(rest % choices(operation));
        rest /= choices(operation);
        Apply(operation, outcome, nodes);
        if (outcome != Done) text += words[outcome] + operation.Text + "; ";
      }
      use(TreeOf(std::move(nodes)), text);
    }
  }

 private:
  struct Node {
    TreeItem Item;
    /// Of a folder; 0 for a name that it doesn't have.
    std::map<std::string, std::size_t> Entries = {};
  };
  struct Operation {
    enum class What { Write, Length, Names };

    What Kind;
    std::size_t Node;        ///< the file or the folder that it changes
    std::size_t Offset = 0;  ///< of a Write; a Length's new one
    std::string Bytes = {};
    std::map<std::string, std::size_t> Entries = {};  ///< of Names; 0 for one that goes
    std::string Text = {};
    bool OnDisk = false;
  };
  struct OpenFile {
    std::size_t Node;
    std::size_t Position;
  };
  /// What became of an operation. All but a Write are missing or done.
  enum Outcome { Missing, Done, OnlyLength, FirstHalf, OutcomeCount };

  static void Apply(const Operation& operation, Outcome outcome, std::vector<Node>& nodes) {
    if (outcome == Missing) return;
    Node& node = nodes[operation.Node];
    const std::string& bytes = operation.Bytes;
    if (operation.Kind == Operation::What::Names) {
      for (const auto& [name, entry] : operation.Entries) node.Entries[name] = entry;
    } else if (operation.Kind == Operation::What::Length) {
      node.Item.Bytes.resize(operation.Offset);
    } else {
      const std::size_t there = outcome == OnlyLength  ? 0
                                : outcome == FirstHalf ? bytes.size() / 2
                                                       : bytes.size();
      const std::size_t length = outcome == OnlyLength ? bytes.size() : there;
      std::string& file = node.Item.Bytes;
      file.resize(std::max(file.size(), operation.Offset + length));
      file.replace(operation.Offset, there, bytes, 0, there);
    }
  }

  static Tree TreeOf(std::vector<Node> nodes) {
    Tree tree;
    const std::function<void(std::size_t, const std::string&)> add = [&](std::size_t folder,
                                                                         const std::string& path) {
      for (const auto& [name, node] : nodes[folder].Entries) {
        if (node == 0) continue;
        tree[path + name] = std::move(nodes[node].Item);
        add(node, path + name + "/");
      }
    };
    add(0, "");
    return tree;
  }

  std::size_t Load(const std::string& path) {
    const std::size_t node = disk_.size();
    disk_.push_back({ItemAt(path)});
    if (disk_[node].Item.Kind != ItemKind::Folder) return node;
    for (const auto& entry : fs::directory_iterator(path)) {
      const std::size_t below = Load(entry.path());
      disk_[node].Entries[entry.path().filename()] = below;
    }
    return node;
  }

  /// The folder's node and the name in it; a node of `none` for what isn't below the root.
  std::pair<std::size_t, std::string> Place(const std::string& path) const {
    const fs::path below = fs::path(path).lexically_relative(root_);
    if (below.empty() || *below.begin() == "..") return {none, ""};
    std::size_t folder = 0;
    for (const fs::path& part : below.parent_path()) {
      folder = Entry(folder, part);
      if (folder == none) return {none, ""};
    }
    return {folder, below.filename()};
  }

  std::size_t Entry(std::size_t folder, const std::string& name) const {
    const auto found = now_[folder].Entries.find(name);
    return found == now_[folder].Entries.end() || found->second == 0 ? none : found->second;
  }

  std::size_t Find(const std::string& path) const {
    const auto [folder, name] = Place(path);
    return folder == none || name == "." ? folder : Entry(folder, name);
  }

  std::size_t Make(ItemKind kind, const std::string& path) {
    const auto [folder, name] = Place(path);
    if (folder == none) return none;
    const std::size_t node = now_.size();
    now_.push_back({{kind}});
    disk_.push_back({{kind}});
    Change({Operation::What::Names, folder, 0, {}, {{name, node}}, "new " + name});
    return node;
  }

  void Change(Operation operation) {
    Apply(operation, Done, now_);
    operations_.push_back(std::move(operation));
  }

  void PutOnDisk(std::size_t node) {
    for (Operation& operation : operations_) {
      operation.OnDisk = operation.OnDisk || node == every || operation.Node == node;
    }
    const auto pending = std::ranges::find(operations_, false, &Operation::OnDisk);
    std::for_each(operations_.begin(), pending,
                  [&](const Operation& operation) { Apply(operation, Done, disk_); });
    operations_.erase(operations_.begin(), pending);
  }

  void Open(const SystemCall& call) {
    std::size_t node = Find(call.Path);
    if (node == none && (call.Flags & O_CREAT) != 0) node = Make(ItemKind::File, call.Path);
    open_.erase(call.Handle);
    if (node == none) return;
    open_[call.Handle] = {node, 0};
    if ((call.Flags & O_TRUNC) != 0) {
      Change({Operation::What::Length, node, 0, {}, {}, "emptied " + call.Path});
    }
  }

  std::string root_;
  std::vector<Node> disk_;             ///< what is certain; the root's node is 0
  std::vector<Operation> operations_;  ///< since then
  std::vector<Node> now_;
  std::map<int, OpenFile> open_;
};

}  // namespace

int WalkPowerCuts(const std::string& root, const std::function<void()>& act,
                  const std::function<void(bool done)>& check, std::vector<Fault> faults) {
  const std::vector<Fault> no_syncs{{"fsync", 1, true, Effect::Lie},
                                    {"syncfs", 1, true, Effect::Lie}};
  Disk disk(root);
  faults.insert(faults.end(), no_syncs.begin(), no_syncs.end());
  StartFaults(std::move(faults));
  act();
  const auto trace = StopFaults();
  const Tree end = TreeAt(root);

  std::set<std::size_t> seen;
  int cases = 0;
  const auto go_through = [&](bool done) {
    disk.ForEachCase([&](const Tree& tree, const std::string& missing) {
      if (!seen.insert(HashOf(tree)).second) return;
      SCOPED_TRACE((done ? "done, but " : "") + missing);
      PutTree(root, tree);
      StartFaults(no_syncs);
      check(done);
      StopFaults();
      ++cases;
    });
  };
  for (const SystemCall& call : trace) {
    if (IsSync(call)) go_through(false);
    disk.Follow(call);
  }
  EXPECT_TRUE(disk.Now() == end) << "the trace doesn't have all that was done";
  seen.clear();
  go_through(true);
  PutTree(root, end);
  return cases;
}

}  // namespace rostermill::test
