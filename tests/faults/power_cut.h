#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/faults/system_calls.h"

namespace rostermill::test {

enum class ItemKind { Folder, File, Link };

/// What a folder has below it, by path; a folder comes before what it has.
struct TreeItem {
  ItemKind Kind = ItemKind::Folder;
  std::string Bytes = {};  ///< of a file; what a link leads to
  bool operator==(const TreeItem&) const = default;
};
using Tree = std::map<std::string, TreeItem>;

/// A file system that puts nothing on the disk before it has to, and then in any order. It begins
/// as a folder of the real one, all of it on the disk, and follows the calls that a trace shows:
///
/// - What was written to a file, and its length, is on the disk once the file is synced; its name
///   is not.
/// - What became of names in a folder, new, renamed or removed, is on the disk once the folder is
///   synced. A rename is there with both its names or not at all.
/// - Anything else may be on the disk or not at a power cut, each by itself. Of a piece that was
///   written there may be nothing, only the length, the first half, or all.
///
/// Permissions and attributes are left out. Knows no rename from one folder to another.
class PowerCutDisk {
 public:
  explicit PowerCutDisk(std::string root);

  /// Whether the next call puts something on the disk for good. All that can be found after a cut
  /// earlier on, since the last such call, can be found after a cut just before this one as well.
  static bool IsSync(const SystemCall& call);
  void Follow(const SystemCall& call);

  /// What programs see as long as the power is on.
  Tree Now() const { return TreeOf(now_); }

  /// Calls `use` with all that may be found after a power cut now, and a text that says what is
  /// missing. Throws std::length_error for more than 4096 cases.
  void ForEachCase(const std::function<void(const Tree&, const std::string&)>& use) const;

 private:
  struct Node {
    ItemKind Kind = ItemKind::Folder;
    std::string Bytes = {};
    std::map<std::string, int> Entries = {};  ///< of a folder; 0 for a name that it doesn't have
  };
  struct Operation {
    enum class What { Write, Length, Names };

    What Kind;
    int Node;                ///< the file or the folder that it changes
    std::size_t Offset = 0;  ///< of a Write; a Length's new one
    std::string Bytes = {};
    std::map<std::string, int> Entries = {};  ///< of Names; 0 for one that goes
    std::string Text = {};
    bool OnDisk = false;
  };
  struct OpenFile {
    int Node;
    std::size_t Position;
  };
  /// What became of an operation. All but a Write are missing or done.
  enum Outcome { Missing, Done, OnlyLength, FirstHalf, OutcomeCount };

  static void Apply(const Operation& operation, Outcome outcome, std::vector<Node>& nodes);
  static Tree TreeOf(std::vector<Node> nodes);

  int Load(const std::string& path);
  /// The folder's node and the name in it; a node of -1 for what isn't below the root.
  std::pair<int, std::string> Place(const std::string& path) const;
  int Find(const std::string& path) const;
  int Make(ItemKind kind, const std::string& path);
  void Change(Operation operation);
  void PutOnDisk(const std::function<bool(const Operation&)>& which);
  void Open(const SystemCall& call);

  std::string root_;
  std::vector<Node> disk_;             ///< what is certain; the root's node is 0
  std::vector<Operation> operations_;  ///< since then
  std::vector<Node> now_;
  std::map<int, OpenFile> open_;
};

/// Calls `act` under these faults, then `check` for everything that a power cut meanwhile, or
/// `done`, at any time after it, may leave of the folder `root`, which is then just that. Equal
/// cases are checked once. Leaves the folder as `act` did and returns the number of cases. Syncs
/// are not waited for.
int WalkPowerCuts(const std::string& root, const std::function<void()>& act,
                  const std::function<void(bool done)>& check, std::vector<Fault> faults = {});

}  // namespace rostermill::test
