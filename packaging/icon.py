#!/usr/bin/env python3
"""Draws the icon of the program: a lit flame on the front one of two cards.

    icon.py FILE.svg
"""

import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "games/art"))
from drawing.shapes import (AMBER, CREAM, DUSK, INK, LILAC, PLUM, box, disc, flame, glow, put)  # noqa: E402
from drawing.small import svg  # noqa: E402

SIDE = 256  # sizes below are in these units


def card(border, face, body=""):
    """Around the middle of the card, 130 wide and 186 high."""
    return box(-70, -98, 140, 196, INK, 20) + box(-64, -92, 128, 184, border, 15) + \
        box(-51, -79, 102, 158, face, 7) + body


def icon():
    light = glow(0, 4, 50, AMBER, 3, .16) + flame(0, 16, 2.6)
    corners = "".join(disc(x, y, 6, AMBER) for x in (-38, 38) for y in (-65, 65))
    return svg(SIDE, SIDE, f"0 0 {SIDE} {SIDE}",
               put(card(LILAC, PLUM), 106, 128, .98, -17) +
               put(card(CREAM, DUSK, corners + light), 150, 132, 1.08, 9))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    Path(sys.argv[1]).write_text(icon(), encoding="utf-8")


if __name__ == "__main__":
    main()
