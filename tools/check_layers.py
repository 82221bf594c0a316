#!/usr/bin/env python3
"""Holds the folders' includes against docs/architecture.md: headers only look down, and a source
that looks up is in the table there. Prints what differs; exit status 1 then."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BELOW = {
    "core": set(),
    "data": {"core"},
    "script": {"core"},
    "reference": {"core", "data", "script"},
    "platform": {"core"},
    "images": {"core", "platform"},
    "game": {"core", "data", "script", "platform", "images"},
    "check": {"core", "data", "script", "platform", "game"},
    "ui": {"core", "data", "script", "reference", "platform", "images", "game", "check"},
    "simulation": {"core", "data", "script", "platform", "images", "game", "ui"},
    "journal": {"core", "data", "script", "platform", "images", "game", "ui", "simulation"},
    "editor": {"core", "data", "script", "platform", "images", "game", "check", "ui"},
    "scenario": {"core", "data", "script", "platform", "images", "game", "check", "ui", "editor"},
    "fuzz": {"core", "data", "script", "platform", "images", "game", "check", "ui", "editor",
             "scenario"},
}
INCLUDE = re.compile(r'^#include "([a-z]+)/([^"]+)"', re.MULTILINE)


def upward_includes(path):
    folder = path.relative_to(ROOT).parts[0]
    allowed = BELOW[folder] | {folder} | ({"platform"} if path.suffix == ".cpp" else set())
    for target, rest in INCLUDE.findall(path.read_text(encoding="utf-8")):
        if target in BELOW and target not in allowed:
            yield f"{target}/{rest}"


def listed():
    """The rows of the table: source -> headers."""
    rows = {}
    for line in (ROOT / "docs/architecture.md").read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        names = re.findall(r"`([^`]+)`", cells[0])
        if len(cells) == 3 and len(names) == 1 and names[0].endswith(".cpp"):
            rows[names[0]] = set(re.findall(r"`([^`]+\.h)`", cells[1]))
    return rows


def main():
    wrong = []
    rows = listed()
    for folder in BELOW:
        for path in sorted((ROOT / folder).rglob("*.[ch]*")):
            name = str(path.relative_to(ROOT))
            found = set(upward_includes(path))
            allowed = rows.pop(name, set())
            wrong += [f"{name} includes {header}: not listed" for header in sorted(found - allowed)]
            wrong += [f"{name} no longer includes {header}" for header in sorted(allowed - found)]
    wrong += [f"{name} is listed and is not there" for name in rows]
    for line in wrong:
        print(line)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
