#!/usr/bin/env python3
"""Makes the film of a turn again: the real program is played under a virtual display, and what it
shows between two turns becomes docs/turn.gif, with a pointer drawn where the real one is.

    tools/film_of_a_turn.py [PROGRAM]    the desktop program, build/release by default

Needs what the window tests need, and ImageMagick.
"""

import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FILM = ROOT / "docs/turn.gif"
sys.path.insert(0, str(ROOT / "tests/windows"))

import harness  # noqa: E402
import shipped_game  # noqa: E402

SEED = 21
CHEST, OPPONENT = "Starter Chest", "Oona Ebb"
# The cards of each turn, and the card that one is aimed at. The last turn is the film.
TURNS = [
    [("Post Pigeon", ""), ("Pot of Tea", ""), ("Bright Beam", "")],
    [("Soot Cat", ""), ("Bright Beam", "Crab Pot")],
]
COLOURS = 128
MOST_BYTES = 1_000_000
SCROLLS = 4
POINTER = [(0, 0), (0, 21), (5, 16), (9, 25), (13, 23), (9, 15), (16, 15)]  # its outline from the tip

# In hundredths of a second.
GLIDE, GLIDE_STEPS = 4, 7
LOOK, READ = 90, 220


class Film:
    """Stills of a display, how long each is shown, and where the pointer is in it."""

    def __init__(self, display, folder):
        self._display = display
        self._folder = Path(folder)
        self._still = None
        self._pointer = (display.width // 2, display.height // 2)
        self._frames = []  # still, pointer, duration
        display.move(*self._pointer)

    def look(self, duration):
        """What the display shows now."""
        self._still = self._folder / f"{len(self._frames):03}.png"
        self._display.screenshot(self._still)
        self._frames.append((self._still, self._pointer, duration))

    def move_to(self, place):
        """The pointer glides there over the last still."""
        start = self._pointer
        for step in range(1, GLIDE_STEPS + 1):
            way = step / GLIDE_STEPS
            way = way * way * (3 - 2 * way)
            self._pointer = tuple(round(a + (b - a) * way) for a, b in zip(start, place.center))
            self._frames.append((self._still, self._pointer, GLIDE))
        self._display.move(*self._pointer)

    def write(self, target):
        command = ["convert", "-loop", "0"]
        for still, (x, y), duration in self._frames:
            outline = " ".join(f"{x + right},{y + down}" for right, down in POINTER)
            command += ["(", str(still), "-fill", "white", "-stroke", "black", "-strokewidth", "1.5",
                        "-draw", f"polygon {outline}", "-set", "delay", str(duration), ")"]
        # One palette without a pattern of dots: what stands still takes no room then.
        command += ["+dither", "-colors", str(COLOURS), "+map", "-layers", "OptimizeFrame",
                    "-layers", "OptimizeTransparency", str(target)]
        subprocess.run(command, check=True, timeout=300)


class Turn(shipped_game.ShippedGameTest):
    screen = "1100x760"

    def begin(self, name):
        before = self.report()
        self.run_.click("link", text=name)
        return before

    def in_hand(self, name):
        """The first picture in the hand that belongs to a card with this name."""
        pictures = [p.name for p in self.run_.places() if p.name.startswith("Picture2(") and p.text == name]
        self.assertTrue(pictures, f"{name} is not in the hand")
        return self.run_.at_rest("control", pictures[0])

    def plan(self, name, target, click):
        click(self.in_hand(name))
        harness.wait_until(f"{name} in the plan", lambda: name in self.planned())
        if target:
            link = self.title_card(target)[0]
            click(self.run_.at_rest("link", f"WB {link}"))
            harness.wait_until("the target", lambda: target in self.planned())

    def planned(self):
        return self.run_.page().rsplit("Play ", 1)[-1]

    def take_turn(self, click):
        before = self.report()
        click(self.run_.at_rest("control", "Command1"))
        harness.wait_until("the next report", lambda: self.report() != before, 180)
        time.sleep(1.5)  # until the views show their pages

    def begin_match(self):
        self.new_player(SEED)
        before = self.begin(CHEST)
        harness.wait_until("the cards", lambda: self.report() != before)
        time.sleep(2)  # a page that comes up closes the menu
        self.back_to_the_list()
        before = self.begin(OPPONENT)
        self.run_.click("control", "AddAll")
        self.run_.click("control", text="PLAY!")
        harness.wait_until("the first report", lambda: self.report() != before)
        time.sleep(1.5)

    def click(self, place):
        self.display.click(*place.center)

    def test_film(self):
        self.begin_match()
        *before, turn = TURNS
        for cards in before:
            for name, target in cards:
                self.plan(name, target, self.click)
            self.take_turn(self.click)
        with tempfile.TemporaryDirectory() as folder:
            self.shoot(Film(self.display, folder), turn)

    def shoot(self, film, cards):
        def filmed(place):
            film.move_to(place)
            time.sleep(0.7)  # until what the pointer is on is shown beside the report
            film.look(LOOK)
            self.click(place)
            time.sleep(0.7)
            film.look(LOOK)

        film.look(LOOK)
        for name, target in cards:
            self.plan(name, target, filmed)
        self.take_turn(filmed)
        film.look(READ)
        film.move_to(self.run_.at_rest("view", "WB"))
        for _ in range(SCROLLS):
            self.display.xdotool("click", "--repeat", 4, "--delay", 20, 5)
            time.sleep(0.7)
            film.look(READ)
        film.write(FILM)
        size = FILM.stat().st_size
        self.assertLess(size, MOST_BYTES)
        print(f"{FILM.relative_to(ROOT)}: {size} bytes")


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release/apps/brindlemoor"
    os.environ["BRINDLEMOOR_PROGRAM"] = str(Path(program).resolve())
    suite = unittest.defaultTestLoader.loadTestsFromTestCase(Turn)
    result = unittest.TextTestRunner(verbosity=2).run(suite)
    sys.exit(0 if result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
