"""The shipped game in a folder whose name looks like parts of an address: clicks arrive, and the
pictures on the pages show."""

import os
import shutil
import time
import unittest

import harness
import shipped_game

CHEST = 2  # place in the list of games
NAME = "a b%20#c?d M\u00fchle"
PORTRAIT = 40  # pixels; less is the mark of a picture that is missing


class OddFolder(shipped_game.ShippedGameTest):
    pictures = "odd-folder"

    def setUp(self):
        super().setUp()
        shutil.rmtree(self.folder)
        self.folder = self.folder / NAME
        shutil.copytree(shipped_game.GAMES, self.folder)

    def portraits(self, view):
        """The links of a view that are pictures of the size of a card's."""
        return [place for place in self.run_.places()
                if place.kind == "link" and place.name.startswith(view + " ")
                and min(place.width, place.height) >= PORTRAIT]

    def card_page(self):
        return self.run_.page("CardDesc.html")

    def test_a_new_player_gets_cards_and_looks_at_them(self):
        self.new_player(7)
        harness.wait_until("the portraits", lambda: len(self.portraits("WB")) > CHEST)
        self.keep("list")
        self.run_.click("link", f"WB GAME:1:{CHEST}")
        self.run_.wait_gone("link", f"WB GAME:1:{CHEST}")
        self.assertIn("The chest is open.", self.report())
        harness.wait_until("the cards", lambda: self.portraits("WB"))
        name = self.portraits("WB")[0].name
        self.run_.click("link", name)
        harness.wait_until("the card", self.card_page)
        time.sleep(0.3)
        self.keep("card")
        self.back_to_the_list()
        self.run_.click("link", text="Click here for help on this game.")
        self.run_.wait_for("window", "HelpForm")
        self.keep("help")
        self.display.ask_to_close("Brindlemoor Help")
        self.run_.wait_gone("window", "HelpForm")
        self.close_and_check(shipped_game.TITLE)


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class OddFolderOnABigScreen(OddFolder):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
