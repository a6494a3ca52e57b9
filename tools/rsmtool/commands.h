#pragma once

#include "tools/rsmtool/console.h"

namespace rostermill {

// One function a command, described by its help text. Each returns the exit code and throws
// ToolError where it can't do its work. The paths are as many as the command takes.

int RunCheck(const Arguments& arguments, Console& console);
int RunDump(const Arguments& arguments, Console& console);
int RunDiff(const Arguments& arguments, Console& console);
int RunResave(const Arguments& arguments, Console& console);
int RunExportPlayers(const Arguments& arguments, Console& console);
int RunImportPlayers(const Arguments& arguments, Console& console);
int RunExportTeams(const Arguments& arguments, Console& console);
int RunImportTeams(const Arguments& arguments, Console& console);
int RunExportSchedule(const Arguments& arguments, Console& console);
int RunImportSchedule(const Arguments& arguments, Console& console);
int RunFind(const Arguments& arguments, Console& console);
int RunApply(const Arguments& arguments, Console& console);
int RunMerge(const Arguments& arguments, Console& console);
int RunMakePatch(const Arguments& arguments, Console& console);
int RunApplyPatch(const Arguments& arguments, Console& console);
int RunVersions(const Arguments& arguments, Console& console);
int RunRestore(const Arguments& arguments, Console& console);

}  // namespace rostermill
