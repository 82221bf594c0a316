"""What tests of the shipped game share: a folder with the games, a new player, cards on the page."""

import os
import re
import shutil
import time
from pathlib import Path

import harness

TITLE = "Brindlemoor version Beta 1.0"
DECKS = "Deck Manager"
GAMES = Path(__file__).resolve().parents[2] / "games"


class ShippedGameTest(harness.WindowTest):
    pictures = "game"  # the names of the pictures that are kept begin so

    def setUp(self):
        super().setUp()
        shutil.rmtree(self.folder)
        shutil.copytree(GAMES, self.folder)

    def new_player(self, seed):
        self.run_ = self.start(self.folder, "--seed", seed)
        self.run_.click("control", text="New Player")
        self.run_.answer("Ann")
        self.run_.wait_for("link", text="Oona Ebb")
        self.run_.fill_screen(TITLE)

    def keep(self, name):
        """A picture of the screen for people to look at, where a folder is given."""
        target = os.environ.get("BRINDLEMOOR_SCREENSHOTS", "")
        if target:
            time.sleep(0.3)  # until the views show their pages
            self.display.screenshot(Path(target) / f"{self.pictures}-{self.screen}-{name}.png")

    def report(self):
        return self.run_.page("LastDiplayed.html")

    def saved(self):
        return self.run_.page("Ann_Wickwater.plr")

    def title_card(self, name):
        """The card links of the report whose picture belongs to a card with this name."""
        links = re.findall(r'<a href="(CARD\d+)"><img[^>]*></img></a><br><font[^>]*>([^<]*)</font>',
                           self.report())
        return [link for link, title in links if title == name]

    def click_card(self, name):
        # Behind the list of games comes a page that says "Loading...", then the report.
        harness.wait_until(name, lambda: self.title_card(name))
        link = self.title_card(name)[0]
        self.run_.click("link", f"WB {link}")

    def back_to_the_list(self):
        """A match that goes on is given up by an answer; a visit or one that has ended is just left."""
        self.run_.choose("File", "Quit / New Game")
        harness.wait_until("the list or its question", lambda: self.asked_to_give_up() or
                           self.run_.find("link", text="Oona Ebb"))
        if self.asked_to_give_up():
            self.run_.click("button", "Give Up")
        self.run_.wait_for("link", text="Oona Ebb")

    def pick(self, name, beginning):
        """Opens a list by its arrow and goes to an entry by its first letters."""
        box = self.run_.at_rest("control", name)
        self.display.click(box.x + box.width - 8, box.center[1])
        time.sleep(0.3)
        self.display.xdotool("type", "--delay", 20, beginning)
        self.display.xdotool("key", "Return")

    def asked_to_give_up(self):
        return any(place.kind == "dialog" and place.text.startswith("Leave the match against")
                   for place in self.run_.places())
