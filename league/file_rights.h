#pragma once

#include <string>

#include "league/file_handle.h"

namespace rostermill {

/// Gives the fresh file `to` owner, group, permissions, access list and extended attributes of the
/// file at `from`, which it is to replace. What the system refuses never makes anybody's rights
/// wider. Only root can give a file away: saved by anybody else, it becomes theirs, and its former
/// owner gets an entry in the access list if there is one. Throws FileError, and where the group
/// can't be kept and has other rights than everybody else.
void CarryOverRights(const std::string& from, const FileHandle& to);

}  // namespace rostermill
