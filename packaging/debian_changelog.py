#!/usr/bin/env python3
"""Writes the changelog of a Debian package, compressed, from CHANGELOG.md.

    debian_changelog.py CHANGELOG.md PACKAGE MAINTAINER CHANGELOG.gz
"""

import datetime
import gzip
import re
import sys
import textwrap

VERSION = re.compile(r"^## (\d+\.\d+\.\d+) \((\d{4}-\d\d-\d\d)\)$", re.MULTILINE)


def entries(text):
    """Version, date and the lines of a list of each entry, the newest first."""
    parts = VERSION.split(text)[1:]
    for version, date, body in zip(parts[::3], parts[1::3], parts[2::3]):
        items = [" ".join(item.split()) for item in re.split(r"^- ", body, flags=re.MULTILINE)[1:]]
        yield version, datetime.date.fromisoformat(date), items


def changelog(text, package, maintainer):
    result = []
    for version, date, items in entries(text):
        lines = [f"{package} ({version}) stable; urgency=medium", ""]
        for item in items:
            lines += textwrap.wrap(item.replace("`", ""), 76, initial_indent="  * ",
                                   subsequent_indent="    ")
        stamp = date.strftime("%a, %d %b %Y 00:00:00 +0000")
        result.append("\n".join([*lines, "", f" -- {maintainer}  {stamp}", ""]))
    if not result:
        raise ValueError("CHANGELOG.md has no entry of the form \"## 1.2.3 (2026-01-31)\"")
    return "\n".join(result)


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    source, package, maintainer, target = sys.argv[1:]
    with open(source, encoding="utf-8") as file:
        text = changelog(file.read(), package, maintainer)
    with open(target, "wb") as file:
        file.write(gzip.compress(text.encode(), 9, mtime=0))


if __name__ == "__main__":
    main()
