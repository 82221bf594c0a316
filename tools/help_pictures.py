#!/usr/bin/env python3
"""Makes the screenshots of the help pages again: the real program is played under a virtual display,
and what it shows is cropped, marked and written to games/help.

    tools/help_pictures.py [PROGRAM]     the desktop program, build/release by default

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
HELP = ROOT / "games/help"
sys.path.insert(0, str(ROOT / "tests/windows"))

import harness  # noqa: E402
import help_steps_test  # noqa: E402
import shipped_game  # noqa: E402

WIDTH = 960
QUALITY = 82
MARK = "#FF8A3C"
PAGE_VIEW = ("view", "WB")


def marked(screenshot, target, marks, crop):
    """Draws a frame around each place and its number beside it, and keeps the part in the crop."""
    draw = ["-fill", "none", "-stroke", MARK, "-strokewidth", "4"]
    for _, place in marks:
        left, top = place.x - 6, place.y - 6
        right, bottom = place.x + place.width + 6, place.y + place.height + 6
        draw += ["-draw", f"roundrectangle {left},{top} {right},{bottom} 12,12"]
    for number, place in marks:
        if not number:
            continue
        # Outside the corner where there is room: small places must not vanish behind their number.
        x = place.x - 16 if place.x - 34 > crop[0] else place.x + place.width + 16
        y = max(place.y - 4, crop[1] + 18)
        draw += ["-fill", MARK, "-stroke", "#0B1524", "-strokewidth", "2",
                 "-draw", f"circle {x},{y} {x + 16},{y}", "-fill", "#0B1524", "-stroke", "none",
                 "-font", "DejaVu-Sans-Bold", "-pointsize", "22", "-gravity", "NorthWest", "-annotate",
                 f"+{x - 6}+{y - 13}", str(number)]
    x, y, width, height = crop
    subprocess.run(["convert", str(screenshot), *draw, "-gravity", "NorthWest", "-crop",
                    f"{width}x{height}+{x}+{y}", "+repage", "-resize", f"{WIDTH}x>", "-strip",
                    "-quality", str(QUALITY), str(target)], check=True, timeout=60)


class Photographer:
    """Mixed into window tests: takes the pictures."""

    def picture(self, name, marks, crop=None, pointer_stays=False):
        """marks: what is numbered, in order; a single one only gets a frame."""
        if not pointer_stays:
            self.display.move(self.display.width - 1, self.display.height - 1)
        time.sleep(1)  # until the views show their pages
        numbered = [(number if len(marks) > 1 else None, place)
                    for number, place in enumerate(marks, 1)]
        with tempfile.TemporaryDirectory() as folder:
            screenshot = Path(folder) / "screen.png"
            self.display.screenshot(screenshot)
            marked(screenshot, HELP / f"{name}.jpg", numbered,
                   crop or (0, 0, self.display.width, self.display.height))

    def place(self, kind, name=None, text=None):
        return self.run_.at_rest(kind, name, text)

    @staticmethod
    def around(*places):
        """One place that holds all of them."""
        left, top = min(p.x for p in places), min(p.y for p in places)
        right = max(p.x + p.width for p in places)
        bottom = max(p.y + p.height for p in places)
        return harness.Place("", "", left, top, right - left, bottom - top, "")

    def window_crop(self, name, margin=12):
        window = self.place("window", name)
        return (max(window.x - margin, 0), max(window.y - margin, 0), window.width + 2 * margin,
                window.height + 2 * margin)


class FirstGame(Photographer, shipped_game.ShippedGameTest):
    """The first game of a new player, up to its end."""

    turns = 60
    matches = 4  # at most, until one is won

    def opponents(self):
        """The links of the first game's opponents: starter decks and shops, and the others."""
        files = sorted((self.folder / "wickwater").glob("*.txt"))
        gifts, enemies = [], []
        for file in files:
            text = file.read_text(encoding="utf-8")
            if "#CARD, #PLAYERCARD" in text:
                name = text.split("#CARD, #PLAYERCARD, \"")[1].split('"')[0]
                (gifts if "\n#STARTERDECK" in text else enemies).append(name)
        return gifts[0], enemies[0]

    def portrait(self, name):
        """The picture of an opponent and the name below it."""
        link = self.place("link", text=name)
        both = [p for p in self.run_.places() if p.kind == "link" and p.name == link.name]
        return self.around(*both)

    def begin(self, name):
        before = self.report()
        self.run_.click("link", text=name)
        return before

    def take_turn(self):
        before = self.report()
        self.run_.click("control", "Command1")
        harness.wait_until("the next report", lambda: self.report() != before, 180)

    def hand(self):
        return [p for p in self.run_.places() if p.name.startswith("Picture2(")]

    def test_pictures(self):
        self.run_ = self.start(self.folder, "--seed", 12)
        self.run_.wait_for("window", "ProfileMenu")
        chooser = self.window_crop("ProfileMenu")
        self.picture("first-01", [self.place("control", text="New Player")],
                     (*chooser[:3], chooser[3] // 2))
        self.run_.click("control", text="New Player")
        self.run_.answer("Ann")
        gift, enemy = self.opponents()
        self.run_.wait_for("link", text=gift)
        self.run_.fill_screen(shipped_game.TITLE)
        self.picture("first-02", [self.portrait(gift)])
        before = self.begin(gift)
        harness.wait_until("the cards", lambda: self.report() != before)
        time.sleep(2)  # a page that comes up closes the menu
        self.run_.click("menu", text="File")
        self.picture("first-03", [self.place("menu", text="Quit / New Game")], pointer_stays=True)
        self.run_.click("menu", text="Quit / New Game")
        self.run_.wait_for("link", text=enemy)
        self.picture("first-04", [self.portrait(enemy)])
        before = self.begin(enemy)
        self.run_.wait_for("window", "DeckManager")
        self.run_.fill_screen(shipped_game.DECKS)
        self.picture("first-05", [self.place("control", "AddAll"),
                                  self.place("control", text="PLAY!")])
        self.run_.click("control", "AddAll")
        self.run_.click("control", text="PLAY!")
        harness.wait_until("the first report", lambda: self.report() != before)
        self.match(enemy)

    def match(self, enemy):
        self.click_card(self.own_player_card())
        self.picture("first-06", [self.place(*PAGE_VIEW), self.around(*self.hand()),
                                  self.place("view", "InPlayWB"),
                                  self.around(self.place("control", "Picture1"),
                                              self.place("view", "CardDescWB"))])
        self.aim(enemy)
        first = self.hand()[0]
        self.run_.click("control", first.name)
        harness.wait_until("the plan", lambda: "Play " in self.run_.page())
        self.picture("first-08", [first, self.place("view", "InPlayWB")])
        self.take_turn()
        self.picture("first-09", [self.place("control", "Command1"), self.place(*PAGE_VIEW)])
        self.play_on()
        for _ in range(self.matches):
            if "tokens wash up" in self.report():
                break
            self.run_.click("control", "Command1", "End Game")
            self.run_.wait_for("control", "Command1", "Take Turn", 60)
            self.run_.wait_for("link", text=enemy, seconds=60)
            before = self.begin(enemy)
            self.run_.wait_for("window", "DeckManager")
            self.run_.click("control", text="PLAY!")
            harness.wait_until("the first report", lambda old=before: self.report() != old, 180)
            self.play_on()
        view = self.place(*PAGE_VIEW)
        self.display.xdotool("mousemove", *view.center, "click", "--repeat", 60, "--delay", 20, 5)
        self.picture("first-10", [self.place("control", "Command1", "End Game")])

    def play_on(self):
        """Every card of the hand is played, turn by turn, to the end of the match."""
        for _ in range(self.turns):
            time.sleep(0.5)  # until the hand is drawn anew
            self.place("control", "Command1")
            for card in self.hand():
                self.queue(card)
            self.take_turn()
            time.sleep(0.5)
            if self.place("control", "Command1").text == "End Game":
                return

    def queue(self, card):
        """Plans a card. A click that comes while the plan is being shown counts for nothing."""
        before = self.run_.page().count("Play ")
        for _ in range(5):
            if not self.run_.find("control", card.name):
                return  # it was of the hand before
            self.run_.click("control", card.name)
            try:
                harness.wait_until("the card in the plan",
                                   lambda: self.run_.page().count("Play ") == before + 1, 5)
                return
            except AssertionError:
                continue

    def own_player_card(self):
        """The card of the player that carries the lamp: the first of the report."""
        files = (self.folder / "wickwater/1_Starter_Chest.txt").read_text(encoding="utf-8")
        return files.split("BOOSTERCARD:")[1].split(":")[0]

    def aim(self, enemy):
        own = self.own_player_card()
        self.click_card(own)
        link = next(p for p in self.wait_for_menu() if "MENUACTION" in p.name)
        card = self.place("link", f"WB {self.title_card(own)[0]}")
        target = self.place("link", f"WB {self.title_card(enemy)[0]}")
        self.picture("first-07", [card, link, target])
        self.display.click(*link.center)
        time.sleep(0.5)
        self.click_card(enemy)
        harness.wait_until("the lamp in the plan",
                           lambda: "uses special action" in self.run_.page())

    def wait_for_menu(self):
        return harness.wait_until("the menu action", lambda: [
            p for p in self.run_.places() if p.kind == "link" and "MENUACTION" in p.name])


class EditorSteps(Photographer, help_steps_test.HelpSteps):
    """The steps of the page on the card editor; each picture shows what the step before made."""

    def marks_of(self, name):
        def control(*names):
            return self.around(*(self.place("control", n) for n in names))
        return {
            "editor-1": lambda: [control("CardText(0)"), control("TraitText(0)", "ValueText(2)"),
                                 control("DescText")],
            "editor-2": lambda: [control("Combo1(0)", "Label1(0)"),
                                 control("Combo1(1)", "Label1(1)")],
            "editor-3": lambda: [control("TargetCombo(0)"), control("TriggerCombo(0)"),
                                 control("EffText(0)")],
            "editor-4": lambda: [control("Option1(0)", "Option1(2)"),
                                 control("CollectPic(0)", "CollectPic(1)")],
            "editor-5": lambda: [self.card_place("Glowworm"), self.place("link", text="Glow"),
                                 self.place("view", "InPlayWB")],
            "editor-6": lambda: [self.place("view", "WB"), self.card_place("Dormouse Watch")],
        }[name]()

    def card_place(self, name):
        return self.place("link", f"WB {self.title_card(name)[0]}")

    def do_picture(self, argument):
        name = argument.removesuffix(".jpg")
        self.picture(name, self.marks_of(name))


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release/apps/brindlemoor"
    os.environ["BRINDLEMOOR_PROGRAM"] = str(Path(program).resolve())
    loader = unittest.TestLoader()
    suite = unittest.TestSuite([loader.loadTestsFromTestCase(FirstGame),
                                loader.loadTestsFromTestCase(EditorSteps)])
    result = unittest.TextTestRunner(verbosity=2).run(suite)
    sys.exit(0 if result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
