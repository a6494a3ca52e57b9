#!/usr/bin/env python3
"""Inserts small faults into the code, one at a time, and lists those that no test notices.

The tree itself stays unchanged: the faults go into clones under build/mutate. The clones have the
tree's current state, including changes that are not committed.
"""

import argparse
import contextlib
import json
import os
import signal
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from mutation.clone import Clone, Limit, Processes, Stopped, tracked_files
from mutation.faults import Fault, find_faults, found_again, in_drawn_order

ROOT = Path(__file__).resolve().parent.parent


class Draw:
    """Hands out faults in order, with another one for each that does not compile, so that the same
    seed tries the same faults with any number of workers."""

    def __init__(self, faults, count):
        self._faults, self._count = faults, count
        self._next = self._busy = self._tried = 0
        self._changed = threading.Condition()
        self._results = {}
        self._began = time.monotonic()

    def take(self):
        """A fault with its place in the order, or None when there are no more."""
        with self._changed:
            while self._tried + self._busy >= self._count and self._busy > 0:
                self._changed.wait()
            if self._tried + self._busy >= self._count or self._next == len(self._faults):
                return None
            self._busy += 1
            self._next += 1
            return self._next - 1, self._faults[self._next - 1]

    def put(self, place, result):
        """The result is None for a fault whose try was interrupted."""
        with self._changed:
            self._busy -= 1
            if result is not None:
                self._results[place] = result
                if result["outcome"] != "void":
                    self._tried += 1
                self._show(result)
            self._changed.notify_all()

    def results(self):
        """The results so far, in the order of the draw."""
        return [self._results[place] for place in sorted(self._results)]

    def seconds(self):
        return time.monotonic() - self._began

    def _show(self, result):
        by = f"  by {result['by']}" if result["by"] else ""
        print(f"[{self._tried}/{self._count}] {result['outcome']:5} {result['fault']}{by}"
              f"  ({result['seconds']:.1f} s)", flush=True)


class Run:
    """The clones and their workers, and how long each test program may take."""

    def __init__(self, jobs):
        self.draw, self.processes = None, Processes()
        ninja_jobs = max(1, (os.cpu_count() or 1) // jobs)
        self._clones = [Clone(ROOT, self.processes, ninja_jobs) for _ in range(jobs)]
        self._limits = {}

    def go(self, faults, count):
        for clone in self._clones:
            print(f"Building {clone.home.relative_to(ROOT)}", flush=True)
            clone.prepare()
        plans = {file: self._clones[0].plan_for(file) for file in {fault.file for fault in faults}}
        unseen = sorted(file for file in plans if not plans[file])
        if unseen:
            print("Left out, as no test program links them:", *unseen)
        self._measure({program for plan in plans.values() for program, _ in plan})
        self.draw = Draw([fault for fault in faults if plans[fault.file]], count)
        with ThreadPoolExecutor() as workers:
            for done in [workers.submit(self._work, clone, plans) for clone in self._clones]:
                done.result()

    def close(self):
        for clone in self._clones:
            clone.close()

    def _measure(self, programs):
        """Times the programs without a fault; one that takes much longer with a fault hangs."""
        for program in sorted(programs):
            start = time.monotonic()
            failed = self._clones[0].test(program, "*", Limit(600, 1200))
            if failed:
                raise SystemExit(f"Fails without any fault: {failed}")
            seconds = 10 + 3 * int(time.monotonic() - start)
            self._limits[program] = Limit(processor=seconds, clock=2 * seconds)

    def _work(self, clone, plans):
        while (taken := self.draw.take()) is not None:
            place, fault = taken
            start, result = time.monotonic(), None
            try:
                with clone.fault(fault):
                    outcome, by = self._try(clone, plans[fault.file])
                result = {"outcome": outcome, "by": by, "seconds": time.monotonic() - start,
                          "fault": fault}
            finally:
                self.draw.put(place, result)

    def _try(self, clone, plan):
        for program, tests in plan:
            answer = clone.build(program)
            if answer:
                return answer, "the build" if answer == "found" else ""
            failed = clone.test(program, tests, self._limits[program])
            if failed:
                return "found", failed
        return "lived", ""


def sources(paths):
    """The C++ sources of the tree at or below the paths."""
    wanted = [Path(path).resolve() for path in paths]
    for path in wanted:
        if not path.exists() or not path.is_relative_to(ROOT):
            raise SystemExit(f"{path} is not in the tree.")
    return [name for name in tracked_files(ROOT) if name.endswith((".cpp", ".h")) and
            any((ROOT / name).is_relative_to(path) for path in wanted)]


def lived_in(report):
    """The faults that lived in an earlier run, as they are in the tree now."""
    earlier = [Fault(**entry["fault"]) for entry in json.loads(Path(report).read_text())["results"]
               if entry["outcome"] == "lived"]
    now = [fault for file in sorted({fault.file for fault in earlier}) if (ROOT / file).is_file()
           for fault in find_faults(file, (ROOT / file).read_text())]
    again = found_again(now, earlier)
    for fault, same in zip(earlier, again):
        if same is None:
            print(f"no longer there: {fault}")
    return [fault for fault in again if fault is not None]


def write_report(options, results):
    rows = [result | {"fault": vars(result["fault"])} for result in results]
    content = {"seed": options.seed, "paths": options.paths, "results": rows}
    Path(options.report).write_text(json.dumps(content, indent=1) + "\n")


def print_summary(draw):
    seconds = draw.seconds()
    of = {kind: [result for result in draw.results() if result["outcome"] == kind]
          for kind in ("found", "lived", "void")}
    tried = len(of["found"]) + len(of["lived"])
    print(f"\n{tried} faults in {seconds / 60:.1f} min, {seconds / max(tried, 1):.1f} s each: "
          f"{len(of['found'])} found, {len(of['lived'])} lived; "
          f"{len(of['void'])} more did not compile")
    for result in of["lived"]:
        print(f"lived {result['fault']}\n      {result['fault'].text}")


def parsed_options():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("paths", nargs="*", help="folders and files to insert faults into")
    parser.add_argument("--seed", type=int, default=1, help="draws other faults")
    parser.add_argument("--count", type=int, default=100, help="faults to try (100)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 1,
                        help="clones that work at the same time (one per processor)")
    parser.add_argument("--list", action="store_true", help="only print the faults drawn")
    parser.add_argument("--report", metavar="FILE", help="write the results to FILE as JSON")
    parser.add_argument("--only-lived-from", metavar="REPORT",
                        help="try again the faults that lived in an earlier run")
    options = parser.parse_args()
    if bool(options.paths) == bool(options.only_lived_from):
        parser.error("either paths or --only-lived-from")
    if options.jobs < 1 or options.count < 1:
        parser.error("--jobs and --count start at 1")
    return options


def main():
    options = parsed_options()
    if options.only_lived_from:
        faults = lived_in(options.only_lived_from)
        options.count = len(faults)
        if not faults:
            raise SystemExit("None of them to try.")
    else:
        faults = in_drawn_order([fault for file in sources(options.paths)
                                 for fault in find_faults(file, (ROOT / file).read_text())],
                                options.seed)
    if options.list:
        for fault in faults[: options.count]:
            print(fault)
        return 0
    if options.report:
        Path(options.report).touch()  # Fails now if it can't be written, not at the end.
    run = Run(min(options.jobs, options.count))
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        if signal.getsignal(number) != signal.SIG_IGN:
            signal.signal(number, lambda *_: run.processes.stop())
    with contextlib.closing(run), contextlib.suppress(Stopped):
        run.go(faults, options.count)
    if run.draw:
        print_summary(run.draw)
        if options.report:
            write_report(options, run.draw.results())
    return 130 if run.processes.stopped else 0


if __name__ == "__main__":
    sys.exit(main())
