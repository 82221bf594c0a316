#!/usr/bin/env python3
"""Holds the program to its one door to files: platform/files.h, whose calls on the system lie in
platform/posix_file.cpp, platform/portable_file.cpp and platform/machine_folder.cpp. Prints what opens, moves or removes files
elsewhere; exit status 1 then."""

import re
import sys

sys.dont_write_bytecode = True
from check_layers import BOTTOM_UP, ROOT  # noqa: E402

# Those who test and measure the program have files of their own.
FOLDERS = [folder for folder in BOTTOM_UP if folder != "fuzz"] + ["apps"]
DOOR = {
    "platform/posix_file.cpp",
    "platform/portable_file.cpp",
    "platform/machine_folder.cpp",
    "platform/program_frame.cpp",       # opens closed standard streams on nothing
    "platform/qt/geometry_report.cpp",  # tells the window tests where things are
    "platform/qt/page_text.cpp",        # the page that a view was about to show
    "platform/qt/renderer_guard.cpp",   # what the system tells of a renderer's memory
}
CALL = re.compile(r"\b[io]?fstream\b|\bf(re)?open\b|::(open|creat|rename|unlink|remove|copy_file)\("
                  r"|\bfs::(rename|remove|remove_all|copy|copy_file|resize_file)\("
                  r"|\bQ(Save|Temporary)?File\b")


def main():
    found = 0
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*.[ch]*")):
            name = str(path.relative_to(ROOT))
            if name in DOOR:
                continue
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                call = CALL.search(line.split("//")[0])
                if call:
                    print(f"{name}:{number}: {call[0]} (files are opened by platform/files.h)")
                    found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
