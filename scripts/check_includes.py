#!/usr/bin/env python3
"""Checks that each floor includes only the floors below it, and that no folder of screens
includes another folder's forms. Prints each include that breaks this rule and exits with 1."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
# From the lowest to the highest.
FLOORS = ["league", "rules", "exchange", "history", "toolkit", "screens", "shell"]
# Lower floors that a floor may not include either: the toolkit is independent of the league.
UNRELATED = {"toolkit": {"league", "rules", "exchange", "history"}}


def floor_of(path: str) -> str:
    return path.split("/")[0]


def allowed(source: str, target: str) -> bool:
    here, there = floor_of(source), floor_of(target)
    if here not in FLOORS or there not in FLOORS:
        return here not in FLOORS
    if here == there == "screens":
        return source.rsplit("/", 1)[0] == target.rsplit("/", 1)[0]
    return FLOORS.index(there) <= FLOORS.index(here) and there not in UNRELATED.get(here, set())


def main() -> int:
    broken = 0
    for folder in FLOORS:
        for file in sorted((ROOT / folder).rglob("*")):
            if file.suffix not in (".h", ".cpp"):
                continue
            source = file.relative_to(ROOT).as_posix()
            for number, line in enumerate(file.read_text().splitlines(), 1):
                include = re.match(r'#include "([^"]+)"', line)
                if include and not allowed(source, include[1]):
                    print(f"{source}:{number}: may not include {include[1]}")
                    broken += 1
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
