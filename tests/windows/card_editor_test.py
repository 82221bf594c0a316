"""The road of a card author: cards are loaded, made, saved and tried out in a game of their own."""

import os
import re
import time
import unittest

import harness
import shipped_game
from shipped_game import DECKS, TITLE

EDITOR = "Card Editor"
CHOOSE_CARDS = "Choose the cards you would like to test."
CHOOSE_RULES = "Please choose the rules file to use for this card set."
SNAIL, LAMP = "Ember Snail", "Ember Lamp"
SCRIPT = "MODTRAIT:HP:2:ECHO:$MYNAME grows.:"


class CardEditor(shipped_game.ShippedGameTest):
    pictures = "author"

    def setUp(self):
        super().setUp()
        self.file = self.folder / "wickwater/WickwaterCards.txt"
        self.total = self.file.read_text(encoding="utf-8").count("#CARD,")
        self.new_player(7)

    def fill(self, name, text):
        self.run_.click("control", name)
        self.display.key("ctrl+a")
        self.display.type(text)

    def shows(self, name, text):
        self.run_.wait_for("control", name, text)

    def name_file(self, path):
        """Types a path into the file dialog."""
        self.run_.click("field")
        self.display.key("ctrl+a")
        self.display.type(str(path))
        self.display.key("Return")
        self.run_.wait_gone("field")

    def pick(self, name, beginning):
        """Opens a list and goes to an entry by its first letters."""
        self.run_.click("control", name)
        time.sleep(0.3)
        self.display.xdotool("type", "--delay", 20, beginning)
        self.display.xdotool("key", "Return")

    def open_the_editor(self):
        self.run_.choose("File", EDITOR)
        self.run_.wait_for("window", "CardEdit", EDITOR)
        self.run_.wait_gone("window", "MainWindow")
        self.display.fill_screen(EDITOR)
        self.run_.choose("File", "Load Cards")
        self.name_file(self.file)
        self.shows("cardtotal", f"Total Cards: {self.total}")

    def find_a_card(self):
        self.fill("FindText", "brass tortoise")
        self.display.key("Return")
        self.shows("CardText(0)", "Brass Tortoise")
        self.keep("found")
        self.assertTrue(self.run_.find("window", "CardEdit", EDITOR), "looking changes nothing")

    def new_card(self, name, *traits):
        self.shows("TemplateCombo", "Blank Card")
        self.run_.click("control", text="New Card from Template")
        self.shows("CardText(0)", "New New Card")
        self.fill("CardText(0)", name)
        for row, (trait, value) in enumerate(traits):
            self.fill(f"TraitText({row})", trait)
            self.fill(f"ValueText({row})", value)

    def make_an_action(self):
        """The wizard alone writes the script."""
        self.pick("TargetCombo(0)", "SELF")
        self.shows("TargetCombo(0)", "SELF")
        self.fill("TriggerCombo(0)", "ENTERPLAY")
        self.run_.click("control", "EffButton(0)")
        self.run_.wait_for("window", "EffectPicker")
        self.pick("Combo1(0)", "Effect: Add to a trait in t")
        self.run_.wait_for("dialog", text="Which trait?")
        self.run_.answer("HP")
        self.run_.click("control", text="Add an arbitrary amount")
        self.run_.answer("2")
        self.shows("Text1", "2")
        self.keep("value")
        self.run_.click("control", text="DONE")
        self.pick("Combo1(1)", "Display: Display text on the screen with t")
        self.run_.answer("$MYNAME grows.")
        self.shows("Label1(1)", 'Action displays "$MYNAME grows." to the user.')
        self.keep("picker")
        self.run_.click("control", text="Done")
        self.shows("EffText(0)", SCRIPT)

    def save(self):
        self.run_.click("control", text="Save Card")
        self.shows("CardCombo", LAMP)
        self.run_.wait_for("window", "CardEdit", EDITOR + " *")
        path = self.folder / "wickwater/Ember.txt"
        self.run_.choose("File", "Save Cards As...")
        self.name_file(path)
        self.run_.wait_for("window", "CardEdit", EDITOR)
        saved = path.read_text(encoding="utf-8")
        self.assertEqual(saved.count("#CARD, COLLECTION"), self.total + 2)
        snail = saved.split(f'"{SNAIL}"')[1].split("#CARD")[0]
        self.assertIn('#TRAIT, "CREATURE:1", #TRAIT, "HP:3", #TRAIT, "STRIKE:2"', snail)
        self.assertIn(f'#EFFECT, SELF, ENTERPLAY, "{SCRIPT}"', snail)

    def lay_out_cards(self):
        """One new card for the hand, the other for both sides."""
        self.run_.choose("File", "Test Cards")
        self.run_.dismiss(CHOOSE_CARDS)
        self.display.fill_screen(DECKS)
        for place, card in enumerate([SNAIL, LAMP, LAMP]):
            self.run_.click("control", f"Option1({place})")
            self.fill("SearchText", card)
            self.run_.wait_for("control", "SearchCount", "1 found")
            self.run_.click("control", "CollectPic(0)")
            self.shows("DeckPic(0)", card)
        self.keep("position")

    def play_a_turn(self):
        self.run_.click("control", text="PLAY!")
        self.run_.dismiss(CHOOSE_RULES)
        self.name_file(self.folder / "Wickwater.txt")
        self.run_.wait_for("window", "MainWindow")
        self.display.fill_screen(TITLE)
        harness.wait_until("both sides", lambda: self.report().count(f">{LAMP}</font><br>") == 2)
        self.run_.click("control", "Picture2(1)")
        harness.wait_until("the plan", lambda: "Play " in self.run_.page())
        self.keep("plan")
        self.run_.click("control", "Command1")
        effect = re.compile(f"{SNAIL} grows.*has +5/5 HP left")
        harness.wait_until("the action",
                           lambda: effect.search(re.sub("<[^>]*>", "", self.report())))
        self.keep("turn")

    def go_back(self):
        self.run_.choose("File", "Quit / New Game")
        self.shows("cardtotal", f"Total Cards: {self.total + 2}")
        self.shows("CardText(0)", LAMP)
        self.run_.wait_gone("window", "MainWindow")
        self.keep("back")
        self.display.ask_to_close(EDITOR)
        self.run_.wait_for("dialog", text="Save cards now?")
        self.run_.click("button", "No")
        self.run_.click("link", "WB GAME:1:2")
        harness.wait_until("the chest", lambda: "The chest is open." in self.report())
        self.back_to_the_list()

    def test_the_road_of_a_card_author(self):
        self.open_the_editor()
        self.find_a_card()
        self.new_card(SNAIL, ("CREATURE", 1), ("HP", 3), ("STRIKE", 2))
        self.make_an_action()
        self.keep("snail")
        self.new_card(LAMP, ("PLAYER", 1), ("HP", 40))
        self.save()
        self.lay_out_cards()
        self.play_a_turn()
        self.go_back()
        self.close_and_check(TITLE)


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class CardEditorOnABigScreen(CardEditor):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
