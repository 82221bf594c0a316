"""A whole match of the shipped game, played with the pointer: from a new player to the victory and
on to the next game."""

import os
import re
import shutil
import time
import unittest
from pathlib import Path

import harness

TITLE = "Brindlemoor version Beta 1.0"
GAMES = Path(__file__).resolve().parents[2] / "games"
LAMP = "Turn the lamp on an enemy (2 oil)"
TURNS = 40
VICTORY = "The water is yours tonight!"
MATCHES = 4
PRIZE = 40  # tokens for a victory over the first opponent
CONSOLATION = 10  # and for a loss
CHEST_CARDS = 31


class Match(harness.WindowTest):
    def setUp(self):
        super().setUp()
        shutil.rmtree(self.folder)
        shutil.copytree(GAMES, self.folder)

    def start(self, *arguments, environment=None):
        run = super().start(*arguments, environment=environment)
        run.wait_for("window", "ProfileMenu")
        return run

    def keep(self, name):
        """A picture of the screen for people to look at, where a folder is given."""
        target = os.environ.get("BRINDLEMOOR_SCREENSHOTS", "")
        if target:
            self.display.screenshot(Path(target) / f"match-{self.screen}-{name}.png")

    def report(self):
        return self.run_.page("LastDiplayed.html")

    def plan(self):
        """What the play menu lists."""
        return self.run_.page()

    def title_card(self, name):
        """The card links of the report whose picture belongs to a card with this name."""
        links = re.findall(r'<a href="(CARD\d+)"><img[^>]*></img></a><br><font[^>]*>([^<]*)</font>',
                           self.report())
        return [link for link, title in links if title == name]

    def click_card(self, name):
        link = self.title_card(name)[0]
        self.run_.click("link", f"WB {link}")

    def choose_opponent(self, number):
        before = self.report()
        self.run_.click("link", f"WB GAME:1:{number}")
        harness.wait_until("the first report", lambda: self.report() != before)
        self.run_.wait_gone("link", f"WB GAME:1:{number}")

    def take_turn(self):
        before = self.report()
        self.run_.click("control", "Command1")
        harness.wait_until("the next report", lambda: self.report() != before)
        time.sleep(0.3)

    def new_player(self):
        self.run_ = self.start(self.folder, "--seed", "12")
        self.run_.click("control", text="New Player")
        self.run_.answer("Ann")
        self.run_.wait_for("link", text="Oona Ebb")
        self.display.fill_screen(TITLE)

    def open_chest(self):
        self.choose_opponent(2)
        self.assertIn("The chest is open.", self.report())
        self.keep("chest")
        self.run_.choose("File", "Quit / New Game")
        self.run_.wait_for("link", text="Oona Ebb")
        self.assertIn("#CARD", self.run_.page("Ann_Wickwater.plr"))

    def aim_the_lamp(self):
        """The menu action of the player's own card, aimed at the other lighthouse."""
        self.click_card("Attic Light")
        self.run_.wait_for("link", text=LAMP)
        self.keep("description")
        self.run_.click("link", text=LAMP)
        time.sleep(0.3)
        self.click_card("Oona Ebb")
        harness.wait_until("the lamp in the plan", lambda: "uses special action" in self.plan())
        self.assertIn('on "Oona Ebb".<br>', self.plan())

    def queue_hand(self, target=None):
        """Queues every card of the hand; the first one is aimed at a card if one is named."""
        pictures = [place for place in self.run_.places() if place.name.startswith("Picture2(")]
        for number, picture in enumerate(pictures):
            self.run_.click("control", picture.name)
            harness.wait_until(picture.name + " in the plan",
                               lambda wanted=number + 1: self.plan().count("Play ") == wanted)
            if number == 0 and target:
                self.click_card(target)
                harness.wait_until("the target", lambda: " on <font" in self.plan())

    def play_match(self):
        """Plays to the end; true for a victory."""
        self.choose_opponent(3)
        self.assertTrue(self.title_card("Oona Ebb"))
        self.assertNotIn("Your Card Plays", self.report())
        for turn in range(TURNS):
            if turn == 0:
                self.aim_the_lamp()
            self.queue_hand("Oona Ebb" if turn == 0 else None)
            self.keep(f"plan-{turn}")
            self.take_turn()
            self.keep(f"report-{turn}")
            if turn == 0:
                self.assertIn("Your Card Plays", self.report())
                self.assertIn("blinks", self.report(), "the lamp was used")
            if self.run_.find("control", "Command1", "End Game"):
                return VICTORY in self.report()
        raise AssertionError("no end in sight")

    def back_to_the_list(self):
        self.run_.click("control", "Command1")
        self.run_.wait_for("control", "Command1", "Take Turn")
        self.assertFalse(any(p.name.startswith("Picture2(") for p in self.run_.places()))

    def test_a_match_is_won_with_the_pointer(self):
        self.new_player()
        self.keep("list")
        self.open_chest()
        losses = 0
        while not self.play_match():
            losses += 1
            self.assertLess(losses, MATCHES, "the opponent won every time")
            self.back_to_the_list()
        self.keep("victory")
        self.back_to_the_list()
        self.close_and_check(TITLE)
        self.come_back(500 + PRIZE + losses * CONSOLATION)

    def come_back(self, tokens):
        """What the player owns is there at the next start, and the next match uses it."""
        saved = self.run_.page("Ann_Wickwater.plr")
        self.assertTrue(f"#TOKENS, {tokens}\n" in saved, "the prize was kept")
        self.assertEqual(saved.count("#CARD, INPLAYERDECK:1"), CHEST_CARDS)
        self.run_ = self.start(self.folder, "--seed", "2")
        self.run_.click("control", text="Ann")
        self.choose_opponent(3)
        self.assertTrue(self.title_card("Oona Ebb"), "the next match has begun")
        self.assertTrue(self.title_card("Attic Light"), "with the player's own deck")
        self.run_.choose("File", "Quit / New Game")
        self.run_.wait_for("link", text="Oona Ebb")
        self.assertTrue(self.run_.page("Ann_Wickwater.plr") == saved, "nothing was lost")
        self.close_and_check(TITLE)


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class MatchOnABigScreen(Match):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
