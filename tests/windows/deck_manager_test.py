"""The road of a player from the starter chest to a deck that may be played, and on into a match."""

import os
import re
import time
import unittest

import harness
import shipped_game
from shipped_game import DECKS, TITLE

CHEST, OONA, SHOP = 2, 4, 9
LIMIT = 'You can only have 2 "Wick Mouse" cards in your deck.'
MINIMUM = "You must have at least 5 cards in your play deck."
POLISH = "Polish one of your cards"


class DeckManager(shipped_game.ShippedGameTest):
    pictures = "decks"

    def setUp(self):
        super().setUp()
        self.change("Wickwater.txt", "SAMENAMELIMIT:#ANY#:4", "SAMENAMELIMIT:#ANY#:2")
        self.change("Wickwater.txt", "TRAITMINIMUM:#ANY#:20:TRAITMINIMUM:PLAYER:1",
                    "TRAITMINIMUM:PLAYER:1:TRAITMINIMUM:#ANY#:5")
        # The lighthouse gets an action on the player's own cards.
        self.change("wickwater/WickwaterLamps.txt", "#EXTRADATA",
                    f'#EFFECT, COLLECTION, MENU:PHASE4:{POLISH}, '
                    '"SETTRAIT:POLISHED:1:SETTRAIT:NOMRP:1:ECHO:It shines."\n#EXTRADATA')
        self.new_player(7)

    def change(self, name, old, new):
        path = self.folder / name
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new), encoding="utf-8")

    def counts(self, text):
        harness.wait_until(text, lambda: self.run_.find("control", "Cardcount", text))

    def begin(self, opponent, wait_for_decks=False):
        self.run_.click("link", f"WB GAME:1:{opponent}")
        if wait_for_decks:
            self.run_.wait_for("window", "DeckManager")
            self.run_.fill_screen(DECKS)
        else:
            self.run_.wait_gone("link", f"WB GAME:1:{opponent}")

    def get_cards(self):
        self.begin(CHEST)
        self.back_to_the_list()
        self.begin(SHOP)
        self.click_card("Wick Shop")
        self.run_.click("link", text="A packet of 6 cards (50 tokens)")
        time.sleep(0.5)
        self.run_.click("control", "Command1")
        harness.wait_until("the booster", lambda: "#TOKENS, 450" in self.after_saving())
        self.back_to_the_list()
        self.assertEqual(self.saved().count("#CARD, COLLECTION"), 37)

    def after_saving(self):
        self.run_.choose("File", "Save Current Player")
        time.sleep(0.3)
        return self.saved()

    def search(self, text):
        self.run_.click("control", "SearchText")
        self.display.key("ctrl+a", "BackSpace")
        if text:
            self.display.type(text)

    def refuse_and_build(self):
        """A card too many and a deck too small are refused; then the deck is built."""
        self.search("wick mouse")
        self.run_.wait_for("control", "SearchCount", "3 found")
        self.keep("search")
        self.run_.click("control", "CollectPic(0)")
        self.run_.wait_for("control", "SearchCount", "2 found")
        picture = self.run_.at_rest("control", "CollectPic(0)")
        self.display.drag(picture.center, self.run_.find("control", "DeckPic(0)").center)
        self.counts("Cards: 2")
        self.run_.click("control", "CollectPic(0)")
        self.run_.dismiss(LIMIT)
        self.run_.click("control", "Command2")
        self.run_.dismiss(MINIMUM)
        self.search("PLAYER>=1")
        self.run_.wait_for("control", "SearchCount", "1 found")
        self.run_.click("control", "CollectPic(0)")
        self.counts("Cards: 3")
        self.search("")
        self.run_.wait_gone("control", "SearchCount")

    def previews(self, name):
        harness.wait_until(f"the preview of {name}", lambda: f">{name}</font>" in self.run_.page())

    def move_by_keyboard(self):
        """Two cards go into the deck by the keys; the one under the keyboard is previewed."""
        self.run_.click("control", "SearchText")
        self.display.key("Tab")
        self.previews("Bellows Toad")
        self.display.key("Right", "Left", "Down")
        self.previews("Brass Tortoise")
        self.display.key("Return")
        self.counts("Cards: 4")
        self.display.key("Up")
        self.previews("Bellows Toad")
        self.display.key("Return")
        self.counts("Cards: 5")

    def rename_and_sell(self):
        self.run_.click("control", "Command4(0)")
        self.run_.answer("Mice and lights")
        self.run_.wait_for("control", "Option1(0)", "Mice and lights")
        self.run_.click("control", "Command5")
        self.run_.dismiss("Click here to switch into sale mode.")
        tokens = int(self.run_.find("control", "Label1").text.split()[-1])
        self.sell(tokens)
        self.keep("sold")
        self.run_.click("control", "UndoSale")
        self.run_.wait_for("control", "Label1", f"Tokens: {tokens}")
        self.run_.wait_gone("control", "UndoSale")
        self.sell(tokens)
        self.run_.click("control", "Command5")

    def sell(self, tokens):
        """A double click asks for one card and sells no other."""
        place = self.run_.at_rest("control", "CollectPic(1)").center
        self.display.xdotool("mousemove", *place, "sleep", 0.1, "click", "--repeat", 2, "--delay",
                             60, 1)
        question = self.run_.wait_for("dialog").text
        price = int(re.fullmatch(r"Sell .+ for (\d+) tokens?\?", question)[1])
        self.keep("sale")
        self.run_.click("button", "Yes")
        self.run_.wait_gone("dialog")
        self.run_.wait_for("control", "Label1", f"Tokens: {tokens + price}")
        self.assertIn("It's mine now!", self.run_.page())

    def polish_a_card(self):
        """The menu action on an own card, picked in the deck manager."""
        self.click_card("Attic Light")
        self.run_.click("link", text=POLISH)
        self.run_.wait_for("window", "DeckManager")
        self.run_.fill_screen(DECKS)
        self.assertIsNone(self.run_.find("control", "Command2"))
        self.keep("pick")
        self.run_.click("control", "CollectPic(0)")
        self.run_.wait_gone("window", "DeckManager")
        harness.wait_until("the plan", lambda: "in their collection." in self.run_.page())
        self.run_.click("control", "Command1")
        harness.wait_until("the shine", lambda: "It shines." in self.run_.page("LastDiplayed.html"))

    def test_the_road_of_a_new_player(self):
        self.get_cards()
        self.begin(OONA, wait_for_decks=True)
        self.keep("first")
        self.refuse_and_build()
        self.move_by_keyboard()
        self.rename_and_sell()
        self.run_.click("control", "Command2")
        harness.wait_until("the first report", lambda: self.title_card("Attic Light"))
        self.assertEqual(self.saved().count("#CARD, INPLAYERDECK:1"), 5)

        self.run_.choose("File", "Deck Manager")
        self.run_.wait_for("window", "DeckManager")
        self.run_.fill_screen(DECKS)
        self.run_.click("control", "ClearDeck")
        self.counts("Cards: 0")
        self.display.ask_to_close(DECKS)  # in mid-game a deck may be empty
        self.run_.wait_gone("window", "DeckManager")
        self.assertEqual(self.saved().count("#CARD, INPLAYERDECK:1"), 0)

        self.polish_a_card()
        self.back_to_the_list()
        self.assertEqual(self.saved().count("#CARD, COLLECTION"), 36)
        self.assertEqual(self.saved().count('"POLISHED:1"'), 1)
        self.close_and_check(TITLE)


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class DeckManagerOnABigScreen(DeckManager):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
