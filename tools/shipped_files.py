#!/usr/bin/env python3
"""Keeps games/ShippedFiles.list, by which the program knows which of the shipped files a user has
changed: what has changed in games/ since it was last written is added as a new edition, and what
earlier editions shipped stays known.

    tools/shipped_files.py
"""

import sys
from pathlib import Path

GAMES = Path(__file__).resolve().parent.parent / "games"
LIST = GAMES / "ShippedFiles.list"
HEAD = ("The files that came with Brindlemoor: since which edition, hash, name.  An update tells by "
        "them what you have changed.\n")
NOT_SHIPPED = (".py", ".pyc", ".md", ".list")
GONE = "-"


def hash_of(data):
    """As text/hash.h has it."""
    state = 0xCBF29CE484222325
    for value in (*data, 256):
        state = (state ^ value) * 0x100000001B3 & 0xFFFFFFFFFFFFFFFF
    return f"{state:016x}"


def shipped():
    files = (path for path in GAMES.rglob("*") if path.is_file() and path.suffix not in NOT_SHIPPED)
    return {path.relative_to(GAMES).as_posix(): hash_of(path.read_bytes()) for path in files}


def main():
    lines = LIST.read_text(encoding="utf-8").splitlines()[1:] if LIST.exists() else []
    edition, latest = 0, {}
    for line in lines:
        number, digits, name = line.split(" ", 2)
        edition, latest[name] = int(number), digits
    present = shipped()
    gone = {name: GONE for name in latest if name not in present}
    changed = {name: digits for name, digits in sorted({**present, **gone}.items())
               if latest.get(name) != digits}
    lines += [f"{edition + 1} {digits} {name}" for name, digits in changed.items()]
    LIST.write_text(HEAD + "".join(line + "\n" for line in lines), encoding="utf-8")
    print(f"{len(changed)} changed files" if changed else "nothing has changed")


if __name__ == "__main__":
    sys.exit(main())
