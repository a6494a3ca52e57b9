"""The tools in scripts/mutation: what counts as a fault, and that nothing of it stays."""

import json
import os
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))
from mutation.clone import Clone, Limit, Processes, Stopped
from mutation.faults import find_faults, found_again, in_drawn_order

SOURCE = """\
#include "a/b.h"  // 1 == 2
#define LONGER(x) \\
  ((x) + 1)
namespace rows {
using Row = std::array<int, 3>;
template <int N = 4>
static_assert(sizeof(Row) == 12);
[[deprecated("1 < 2")]] virtual int Last(Row& row) const = 0;
const char* text = "a && b; f();";
constexpr int room = 10'550;
Form::Form(Area* area) : area_(area), kept_{} {
  auto* button = new Button(area, "Go");
  if (room > 0x0F && !area->Empty()) button->Show("; 1 + 1");
  connect(button, [this] { Go(); });
  switch (room) {
    case 3:
      mode[room + 1].flag |= true;
      break;
    default: emit Changed(R"(
      x = 1;)");
  }
  for (const char c : text) ++count;
  label = "a" + name + (room < 0 ? left : right);
  return;
}
}  // namespace rows
"""
FOUND = {
    10: ["10'550 -> 10551", "10'550 -> 10549"],
    13: ['room > 0x0F && !area->Empty() -> !(room > 0x0F && !area->Empty())', "> -> >=",
         "0x0F -> 0x10", "0x0F -> 0x0E", "&& -> ||", "! dropped",
         'button->Show("; 1 + 1"); dropped'],
    14: ["connect(button, [this] { Go(); }); dropped", "Go(); dropped"],
    16: ["3 -> 4", "3 -> 2"],
    17: ["mode[room + 1].flag |= true; dropped", "+ -> -", "1 -> 2", "1 -> 0", "true -> false"],
    18: ["break; dropped"],
    19: ['emit Changed(R"( x = 1;)"); dropped'],
    22: ["++count; dropped", "++ -> --"],
    23: ['label = "a" + name + (room < 0 ? left : right); dropped', "+ -> -",
         "room < 0 -> !(room < 0)", "< -> <=", "0 -> 1"],
    24: ["return; dropped"],
}


# A project whose "compiler" rejects one fault, and whose tests notice all others in the first line.
PROJECT = {
    ".gitignore": "/build/\n/temporary/\n",
    "rows.cpp": "void Go() {\n  if (room == 1) Stop();\n  Rest();\n}\n",
    "compile.sh": """\
mkdir -p tests && ! grep -q "== 0" "$1" || exit 1
printf '#!/bin/sh\\ngrep -q "room == 1) Stop" %s\\n' "$1" >"tests/$2"
chmod +x "tests/$2" && touch "$2.built"
""",
    "CMakeLists.txt": """\
cmake_minimum_required(VERSION 3.22)
project(Rows NONE)
foreach(program core_tests window_tests fault_tests)
  add_custom_command(
    OUTPUT ${program}.built DEPENDS ${CMAKE_SOURCE_DIR}/rows.cpp
    COMMAND sh ${CMAKE_SOURCE_DIR}/compile.sh ${CMAKE_SOURCE_DIR}/rows.cpp ${program})
  add_custom_target(${program} DEPENDS ${program}.built)
endforeach()
"""}


class Faults(unittest.TestCase):
    def test_are_found_in_what_is_done_and_nowhere_else(self):
        found = {}
        for fault in find_faults("rows.cpp", SOURCE):
            found.setdefault(fault.line, []).append(str(fault).split(": ", 2)[2])
            if fault.line == 19:
                self.assertEqual(fault.applied(SOURCE),
                                 SOURCE.replace('emit Changed(R"(\n      x = 1;)");', "{}"))
        self.assertEqual({line: sorted(changes) for line, changes in found.items()},
                         {line: sorted(changes) for line, changes in FOUND.items()})

    def test_are_drawn_by_seed_every_line_once_before_any_twice(self):
        faults = find_faults("rows.cpp", SOURCE)
        drawn = in_drawn_order(faults, 3)
        self.assertEqual(drawn, in_drawn_order(faults, 3))
        self.assertNotEqual(drawn, in_drawn_order(faults, 4))
        self.assertCountEqual(drawn, faults)
        self.assertEqual({fault.line for fault in drawn[: len(FOUND)]}, set(FOUND))

    def test_are_found_again_where_their_line_has_moved(self):
        earlier = find_faults("rows.cpp", SOURCE)
        moved = find_faults("rows.cpp", "\n\n" + SOURCE.replace("  return;\n", ""))
        again = found_again(moved, earlier)
        self.assertEqual([same and same.line for same in again],
                         [fault.line + 2 if fault.line < 24 else None for fault in earlier])


class Clones(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)

    def fill_repository(self, files):
        subprocess.run(["git", "init", "-q", self.root], check=True)
        for name, content in files.items():
            (self.root / name).write_text(content)

    @unittest.skipUnless(shutil.which("git"), "needs git")
    def test_are_whole_again_after_a_fault(self):
        self.fill_repository({".gitignore": "/build/\n", "rows.cpp": SOURCE})
        clone = Clone(self.root, Processes(), 1)
        copy = clone.tree / "rows.cpp"
        fault = find_faults("rows.cpp", SOURCE)[0]
        with self.assertRaises(Stopped), clone.fault(fault):
            self.assertEqual(copy.read_text(), fault.applied(SOURCE))
            raise Stopped
        self.assertEqual(copy.read_text(), SOURCE)
        self.assertEqual((self.root / "rows.cpp").read_text(), SOURCE)
        copy.write_text("left by a kill")
        (clone.tree / "gone.cpp").write_text("no longer in the tree")
        clone.close()
        Clone(self.root, Processes(), 1).close()
        self.assertEqual([path.name for path in copy.parent.glob("*.cpp")], ["rows.cpp"])
        self.assertEqual(copy.read_text(), SOURCE)

    def test_end_what_hangs_or_is_stopped(self):
        processes = Processes()
        run = lambda *command: processes.run(command, Limit(1, 2), self.root, None)
        self.assertEqual(run("echo", "done"), (0, "done\n"))
        self.assertIsNone(run("sh", "-c", "while :; do :; done")[0])
        self.assertIsNone(run("sleep", "60")[0])
        threading.Timer(0.2, processes.stop).start()
        start = time.monotonic()
        self.assertRaises(Stopped, run, "sleep", "60")
        self.assertLess(time.monotonic() - start, 1.9)

    @unittest.skipUnless(shutil.which("git") and shutil.which("ninja"), "needs git and ninja")
    def test_show_what_lived_and_leave_nothing_in_the_temporary_folder(self):
        self.fill_repository(PROJECT)
        shutil.copytree(SCRIPTS, self.root / "scripts")
        temporary = self.root / "temporary"
        temporary.mkdir()

        def outcomes(*arguments):
            subprocess.run([sys.executable, "-B", "scripts/mutate.py", *arguments, "--report",
                            "build/report"], cwd=self.root, check=True, capture_output=True,
                           env=os.environ | {"TMPDIR": str(temporary)})
            self.assertEqual(list(temporary.iterdir()), [])
            results = json.loads((self.root / "build/report").read_text())["results"]
            return {(entry["outcome"], entry["fault"]["before"], entry["fault"]["after"])
                    for entry in results}

        (self.root / "build").mkdir()
        lived = ("lived", "Rest();", "{}")
        self.assertEqual(outcomes("rows.cpp", "--jobs", "2"), {
            ("found", "==", "!="), ("found", "1", "2"), ("void", "1", "0"),
            ("found", "Stop();", "{}"), lived})
        self.assertEqual(outcomes("--only-lived-from", "build/report"), {lived})


if __name__ == "__main__":
    unittest.main()
