#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/faults/system_calls.h"

namespace rostermill::test {

/// Calls `act` under these faults, then `check` for everything that a power cut meanwhile, or
/// `done`, at any time after it, may leave of the folder `root`, which is then just that. Equal
/// cases are checked once. Leaves the folder as `act` did and returns the number of cases. Syncs
/// are not waited for.
///
/// The disk is one that puts nothing on it before it has to, and then in any order:
///
/// - What was written to a file, and its length, is on the disk once the file is synced; its name
///   is not.
/// - What became of names in a folder, new, renamed or removed, is on the disk once the folder is
///   synced. A rename is there with both its names or not at all.
/// - Anything else may be on the disk or not at a power cut, each by itself. Of a piece that was
///   written there may be nothing, only the length, the first half, or all.
///
/// Permissions and attributes are left out. Knows no rename from one folder to another. Throws
/// std::length_error for more than 4096 cases at one time.
int WalkPowerCuts(const std::string& root, const std::function<void()>& act,
                  const std::function<void(bool done)>& check, std::vector<Fault> faults = {});

}  // namespace rostermill::test
