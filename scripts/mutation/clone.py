"""A copy of the working tree with its own build, where faults are inserted and tests run."""

import contextlib
import fcntl
import itertools
import os
import re
import shutil
import signal
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path

PROGRAMS = ("core_tests", "window_tests", "fault_tests")
SUITE = re.compile(r"^TEST(?:_[FP])?\(\s*(\w+)", re.MULTILINE)
SYSTEM_HEADER = re.compile(r"^#include <(?:unistd|fcntl|sys/\w+)\.h>", re.MULTILINE)
# A fault may use up the machine: limits processor seconds, KiB of memory and blocks per file.
LIMITED = 'ulimit -S -t "$1"; shift; ulimit -v 8000000; ulimit -f 4000000; ulimit -c 0; exec "$@"'


@dataclass(frozen=True)
class Limit:
    """Seconds until a program counts as hanging. The clock allows more than the processor time,
    since other programs use the processors too."""

    processor: int
    clock: int


# Only a tool with a fault loops in a build, but a header that is included everywhere takes long.
BUILD_LIMIT = Limit(processor=120, clock=7200)


class Stopped(Exception):
    """The run has been interrupted."""


class Processes:
    """Starts programs and can end all of them at once, including their child processes."""

    def __init__(self):
        self._running = set()
        self.stopped = False

    def run(self, command, limit, cwd, environment):
        """The exit code, None for a program that hangs, and the output."""
        process = subprocess.Popen(
            ["sh", "-c", LIMITED, "sh", str(limit.processor), *map(str, command)],
            cwd=cwd, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, text=True, errors="replace", start_new_session=True)
        self._running.add(process)
        try:
            # Checked after the process is registered, so that a stop at any moment reaches it.
            if self.stopped:
                self._end(process)
            output, code = process.communicate(timeout=limit.clock)[0], process.returncode
        except subprocess.TimeoutExpired:
            output, code = self._ended(process), None
        self._running.discard(process)
        if self.stopped:
            raise Stopped
        return None if code == -signal.SIGXCPU else code, output

    def _ended(self, process):
        """Ends a process, first with a signal that ninja passes on, and returns its output."""
        self._end(process)
        with contextlib.suppress(subprocess.TimeoutExpired):
            return process.communicate(timeout=5)[0]
        self._end(process, signal.SIGKILL)
        return process.communicate()[0]

    def stop(self):
        self.stopped = True
        for process in list(self._running):
            self._end(process)

    @staticmethod
    def _end(process, how=signal.SIGTERM):
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, how)


def tracked_files(root):
    """The names of the files in the working tree now, including new ones but not ignored ones."""
    names = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=root, check=True, capture_output=True, text=True).stdout.split("\0")
    return sorted({name for name in names if name and (root / name).is_file()})


class Clone:
    """Stays under `build/mutate` after a run, so that the next one builds only what has changed."""

    def __init__(self, root, processes, jobs):
        """Takes the first clone that no other run uses."""
        self.root, self._processes, self._jobs = root, processes, jobs
        for number in itertools.count(1):
            self.home = root / "build" / "mutate" / str(number)
            self.home.mkdir(parents=True, exist_ok=True)
            self._lock = open(self.home / "lock", "w")
            with contextlib.suppress(BlockingIOError):
                fcntl.flock(self._lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
                break
        self.tree, self.build_folder = self.home / "tree", self.home / "build"
        # Short, since some texts on the screen are cut to fit their width.
        self._scratch = Path(tempfile.gettempdir()) / f"m{os.getpid()}-{number}"
        self._copy_tree()

    def close(self):
        """Removes the temporary folder and releases the clone for other runs."""
        shutil.rmtree(self._scratch, ignore_errors=True)
        self._lock.close()

    def prepare(self):
        """Builds all test programs and learns from the build which of them sees which file."""
        configure = ["cmake", "-G", "Ninja", "-S", self.tree, "-B", self.build_folder,
                     # This build type adds no flags: neither optimization nor debug information.
                     "-DCMAKE_BUILD_TYPE=None", "-DROSTERMILL_TESTS=ON",
                     # A dropped statement may leave a variable unused. The assertions stand for the
                     # sanitizers, under which ./test runs but which take longer to build.
                     "-DCMAKE_CXX_FLAGS=-w -DQT_FORCE_ASSERTS -D_GLIBCXX_ASSERTIONS"]
        if shutil.which("ccache"):
            configure.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        if shutil.which("ld.lld"):
            configure.append("-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld")
        code, output = self._processes.run(
            configure, BUILD_LIMIT, self.home, self._build_environment())
        if code == 0:
            code, output = self._ninja("-j", os.cpu_count(), *PROGRAMS)
        if code != 0:
            raise SystemExit(f"The clone doesn't build:\n{output[-4000:]}")
        self._read_plan()

    def _copy_tree(self):
        names = tracked_files(self.root)
        for name in names:
            source, target = self.root / name, self.tree / name
            if target.is_file() and target.read_bytes() == source.read_bytes():
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
        for path in sorted(self.tree.rglob("*")):
            if path.is_file() and str(path.relative_to(self.tree)) not in names:
                path.unlink()

    def _build_environment(self):
        # ccache shares the objects among all clones, also those that use precompiled headers.
        return os.environ | {
            "CCACHE_BASEDIR": str(self.home), "CCACHE_NOHASHDIR": "1",
            "CCACHE_SLOPPINESS": "pch_defines,time_macros,include_file_mtime,include_file_ctime"}

    def _ninja(self, *arguments):
        return self._processes.run(
            ["ninja", *arguments], BUILD_LIMIT, self.build_folder, self._build_environment())

    @contextlib.contextmanager
    def fault(self, fault):
        """Inserts a fault and removes it again, whatever happens in between."""
        path = self.tree / fault.file
        whole = path.read_bytes()
        try:
            path.write_text(fault.applied(whole.decode()))
            yield
        finally:
            path.write_bytes(whole)

    def build(self, program):
        """How the build takes a fault: "" if it succeeds, "void" if the compiler rejects the fault,
        "found" if a tool that the build runs fails."""
        code, output = self._ninja("-j", self._jobs, program)
        if code == 0:
            return ""
        made_by_tools = re.search(r"^FAILED: .*\.(?:nes|stamp)\b", output, re.MULTILINE)
        return "found" if made_by_tools else "void"

    def test(self, program, tests, limit):
        """Runs a program's tests up to the first that fails and returns its name, or "" if all
        pass."""
        shutil.rmtree(self._scratch, ignore_errors=True)
        self._scratch.mkdir()
        environment = os.environ | {
            "HOME": str(self._scratch), "TMPDIR": str(self._scratch),
            "XDG_CACHE_HOME": str(self.home / "cache"), "QT_QPA_PLATFORM": "offscreen",
            "GTEST_FAIL_FAST": "1", "ROSTERMILL_LEAGUES": "5"}
        code, output = self._processes.run(
            [self.build_folder / "tests" / program, f"--gtest_filter={tests}"], limit,
            self._scratch, environment)
        if code == 0:
            return ""
        failed = re.findall(r"^\[  FAILED  \] (\S+)", output, re.MULTILINE)
        begun = re.findall(r"^\[ RUN      \] (\S+)", output, re.MULTILINE)
        name = failed[0] if failed else begun[-1] if begun else "at its start"
        return f"{program} {name}" + (", which hangs" if code is None else "")

    def _read_plan(self):
        self._sources = {program: self._inputs_of(program) for program in PROGRAMS}
        self._objects_with = {}
        _, output = self._ninja("-t", "deps")
        for line in output.splitlines():
            if not line.startswith(" "):
                compiled = line.split(":")[0]
            elif not line.lstrip().startswith("/usr/"):
                path = os.path.normpath(self.build_folder / line.strip())
                self._objects_with.setdefault(path, set()).add(compiled)

    def _inputs_of(self, program):
        _, output = self._ninja("-t", "inputs", program)
        return set(output.splitlines())

    def plan_for(self, file):
        """(program, filter) of the test runs that can notice a fault in a file, the likeliest to
        fail and the cheapest first."""
        path = str(self.tree / file)
        seen_through = self._objects_with.get(path, set()) | {path}
        plan = []
        for program in PROGRAMS:
            if seen_through.isdisjoint(self._sources[program]):
                continue
            near = self._near_suites(program, Path(file))
            patterns = ":".join(f"{suite}.*:*/{suite}.*" for suite in near)
            if near:
                plan.append((program, patterns))
            # fault_tests takes long, and few files make system calls.
            calls_system = SYSTEM_HEADER.search((self.tree / file).read_text())
            if program == "fault_tests" and not calls_system:
                continue
            plan.append((program, f"-{patterns}" if near else "*"))
        return plan

    def _near_suites(self, program, file):
        """The suites in test sources that have the unit's name, mirror its folder or include it."""
        folder = Path("tests") / file.parent
        if not (self.tree / folder).is_dir():
            folder = folder.parent
        include = f'#include "{file.with_suffix(".h")}"'
        suites = set()
        for path in map(Path, self._sources[program]):
            if not path.is_relative_to(self.tree / "tests") or not path.is_file():
                continue
            text = path.read_text()
            if (file.stem in path.stem or path.parent == self.tree / folder or include in text):
                suites.update(SUITE.findall(text))
        return sorted(suites)
