#!/usr/bin/env python3
"""Holds the includes against the order of the folders: every include, in headers as in sources,
goes down or stays in its folder. Prints those that don't; exit status 1 then."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BOTTOM_UP = ["text", "platform", "core", "language", "pages", "script", "data", "saving", "images",
             "lint", "reference", "game", "check", "sharing", "ui", "simulation", "mind", "scenario",
             "editor", "journal", "server", "archive", "fuzz"]
INCLUDE = re.compile(r'^#include "([a-z]+)/([^"]+)"', re.MULTILINE)


def upward_includes(path, floor):
    for folder, rest in INCLUDE.findall(path.read_text(encoding="utf-8")):
        if folder in BOTTOM_UP and BOTTOM_UP.index(folder) > floor:
            yield f"{folder}/{rest}"


def main():
    found = 0
    for floor, folder in enumerate(BOTTOM_UP):
        for path in sorted((ROOT / folder).rglob("*.[ch]*")):
            for header in upward_includes(path, floor):
                print(f"{path.relative_to(ROOT)} includes {header}")
                found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
