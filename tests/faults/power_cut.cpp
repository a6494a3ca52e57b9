#include "tests/faults/power_cut.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <utility>

#include "tests/support/sample.h"
#include <fcntl.h>

namespace rostermill::test {

namespace {

namespace fs = std::filesystem;

constexpr int none = -1;

std::string TextIn(const fs::path& path) {
  const auto bytes = FileBytes(path);
  return {bytes.begin(), bytes.end()};
}

Tree TreeAt(const std::string& root) {
  Tree tree;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    TreeItem& item = tree[entry.path().lexically_relative(root)];
    item.Kind = entry.is_symlink()     ? ItemKind::Link
                : entry.is_directory() ? ItemKind::Folder
                                       : ItemKind::File;
    if (item.Kind == ItemKind::Link) item.Bytes = fs::read_symlink(entry.path());
    if (item.Kind == ItemKind::File) item.Bytes = TextIn(entry.path());
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

}  // namespace

PowerCutDisk::PowerCutDisk(std::string root) : root_(std::move(root)) {
  Load(root_);
  now_ = disk_;
}

int PowerCutDisk::Load(const std::string& path) {
  const int node = static_cast<int>(disk_.size());
  disk_.emplace_back();
  if (fs::is_symlink(path)) {
    disk_[node] = {ItemKind::Link, fs::read_symlink(path)};
  } else if (!fs::is_directory(path)) {
    disk_[node] = {ItemKind::File, TextIn(path)};
  } else {
    for (const auto& entry : fs::directory_iterator(path)) {
      const int below = Load(entry.path());
      disk_[node].Entries[entry.path().filename()] = below;
    }
  }
  return node;
}

Tree PowerCutDisk::TreeOf(std::vector<Node> nodes) {
  Tree tree;
  const std::function<void(int, const std::string&)> add = [&](int folder,
                                                               const std::string& path) {
    for (const auto& [name, node] : nodes[folder].Entries) {
      if (node == 0) continue;
      tree[path + name] = {nodes[node].Kind, std::move(nodes[node].Bytes)};
      add(node, path + name + "/");
    }
  };
  add(0, "");
  return tree;
}

std::pair<int, std::string> PowerCutDisk::Place(const std::string& path) const {
  const fs::path below = fs::path(path).lexically_relative(root_);
  if (below.empty() || *below.begin() == "..") return {none, ""};
  int folder = 0;
  for (const fs::path& part : below.parent_path()) {
    const auto found = now_[folder].Entries.find(part);
    if (found == now_[folder].Entries.end() || found->second == 0) return {none, ""};
    folder = found->second;
  }
  return {folder, below.filename()};
}

int PowerCutDisk::Find(const std::string& path) const {
  const auto [folder, name] = Place(path);
  if (folder == none) return none;
  if (name == ".") return folder;
  const auto found = now_[folder].Entries.find(name);
  return found == now_[folder].Entries.end() || found->second == 0 ? none : found->second;
}

void PowerCutDisk::Apply(const Operation& operation, Outcome outcome, std::vector<Node>& nodes) {
  if (outcome == Missing) return;
  Node& node = nodes[operation.Node];
  const std::string& bytes = operation.Bytes;
  if (operation.Kind == Operation::What::Names) {
    for (const auto& [name, entry] : operation.Entries) node.Entries[name] = entry;
  } else if (operation.Kind == Operation::What::Length) {
    node.Bytes.resize(operation.Offset);
  } else {
    const std::size_t there = outcome == OnlyLength  ? 0
                              : outcome == FirstHalf ? bytes.size() / 2
                                                     : bytes.size();
    const std::size_t length = outcome == OnlyLength ? bytes.size() : there;
    node.Bytes.resize(std::max(node.Bytes.size(), operation.Offset + length));
    std::copy_n(bytes.begin(), there,
                node.Bytes.begin() + static_cast<std::ptrdiff_t>(operation.Offset));
  }
}

void PowerCutDisk::Change(Operation operation) {
  Apply(operation, Done, now_);
  operations_.push_back(std::move(operation));
}

int PowerCutDisk::Make(ItemKind kind, const std::string& path) {
  const auto [folder, name] = Place(path);
  if (folder == none) return none;
  const int node = static_cast<int>(now_.size());
  now_.push_back({kind});
  disk_.push_back({kind});
  Change({Operation::What::Names, folder, 0, {}, {{name, node}}, "new " + name});
  return node;
}

void PowerCutDisk::PutOnDisk(const std::function<bool(const Operation&)>& which) {
  for (Operation& operation : operations_) operation.OnDisk = operation.OnDisk || which(operation);
  const auto pending = std::ranges::find(operations_, false, &Operation::OnDisk);
  std::for_each(operations_.begin(), pending,
                [&](const Operation& operation) { Apply(operation, Done, disk_); });
  operations_.erase(operations_.begin(), pending);
}

bool PowerCutDisk::IsSync(const SystemCall& call) {
  return call.Result >= 0 && (call.Name == "fsync" || call.Name == "syncfs");
}

void PowerCutDisk::Open(const SystemCall& call) {
  int node = Find(call.Path);
  if (node == none && (call.Flags & O_CREAT) != 0) node = Make(ItemKind::File, call.Path);
  open_.erase(call.Handle);
  if (node == none) return;
  open_[call.Handle] = {node, 0};
  if ((call.Flags & O_TRUNC) != 0) {
    Change({Operation::What::Length, node, 0, {}, {}, "emptied " + call.Path});
  }
}

void PowerCutDisk::Follow(const SystemCall& call) {
  if (call.Result < 0) return;
  const auto file = open_.find(call.Handle);
  const int node = file == open_.end() ? none : file->second.Node;
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
    const int moved = now_[folder].Entries.at(from);
    Change({Operation::What::Names, folder, 0, {}, {{from, 0}, {to, moved}}, "renamed " + to});
  } else if (call.Name == "write" && node != none) {
    std::size_t& position = file->second.Position;
    const std::string text = "written at " + std::to_string(position);
    Change({Operation::What::Write, node, position, call.Bytes, {}, text});
    position += call.Bytes.size();
  } else if (IsSync(call)) {
    const bool all = call.Name == "syncfs";
    PutOnDisk([&](const Operation& operation) { return all || operation.Node == node; });
  }
}

void PowerCutDisk::ForEachCase(
    const std::function<void(const Tree&, const std::string&)>& use) const {
  using Outcomes = std::vector<Outcome>;

  std::vector<std::size_t> pending;
  for (std::size_t i = 0; i < operations_.size(); ++i) {
    if (!operations_[i].OnDisk) pending.push_back(i);
  }
  const std::size_t count = pending.size();
  const auto choices = [&](std::size_t i) {
    const bool is_write = operations_[pending[i]].Kind == Operation::What::Write;
    return is_write ? OutcomeCount : Outcome(2);
  };
  const auto one_case = [&](const Outcomes& outcomes) {
    std::vector<Node> nodes = disk_;
    std::string text;
    auto outcome = outcomes.begin();
    for (const Operation& operation : operations_) {
      const Outcome its = operation.OnDisk ? Done : *outcome++;
      Apply(operation, its, nodes);
      static const char* const words[] = {"not ", nullptr, "only the length of ", "half of "};
      if (its != Done) text += words[its] + operation.Text + "; ";
    }
    use(TreeOf(std::move(nodes)), text);
  };

  std::size_t cases = 1;
  constexpr std::size_t most = 4096;
  for (std::size_t i = 0; i < count && cases <= most; ++i) cases *= choices(i);
  if (cases > most) throw std::length_error("more cases than the walk has time for");
  for (std::size_t number = 0; number < cases; ++number) {
    Outcomes outcomes;
    std::size_t rest = number;
    for (std::size_t i = 0; i < count; ++i) {
      outcomes.push_back(Outcome(rest % choices(i)));
      rest /= choices(i);
    }
    one_case(outcomes);
  }
}

int WalkPowerCuts(const std::string& root, const std::function<void()>& act,
                  const std::function<void(bool done)>& check, std::vector<Fault> faults) {
  const std::vector<Fault> no_syncs{{"fsync", 1, true, Effect::Lie},
                                    {"syncfs", 1, true, Effect::Lie}};
  PowerCutDisk disk(root);
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
    if (PowerCutDisk::IsSync(call)) go_through(false);
    disk.Follow(call);
  }
  EXPECT_TRUE(disk.Now() == end) << "the trace doesn't have all that was done";
  seen.clear();
  go_through(true);
  PutTree(root, end);
  return cases;
}

}  // namespace rostermill::test
