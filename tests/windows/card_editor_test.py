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
SNAIL, LAMP = "Ember Snail", "Cinder Lamp"
GROWS = "MODTRAIT:HP:2:ECHO:$MYNAME grows.:"
SPITS = "SUBTRAIT:HP:1:ECHO:$MYNAME spits.:"
STARTER, STORE = "Ember Chest", "Ember Shop"
CHEST, OONA = 2, 4
FIRST_NEW = 11  # of the game's opponents
# The game's price of a creature before its further traits, in thirds of a crumb.
COST_SCRIPT = ("REQTRAIT:CREATURE:"
               "SETTRAIT:CRUMBS:TARGTRAIT/STRIKE/TRAITPLUS2/TARGTRAIT/HP/TRAITPLUS1")
SNAIL_COST = "2"  # for strike 2 and 3 HP


class CardEditorTest(shipped_game.ShippedGameTest):
    def setUp(self):
        super().setUp()
        self.file = self.folder / "wickwater/WickwaterCards.txt"
        self.saved_file = self.folder / "wickwater/Ember.txt"
        self.total = self.file.read_text(encoding="utf-8").count("#CARD,")

    def fill(self, name, text):
        self.run_.click("control", name)
        self.display.key("ctrl+a")
        self.display.type(text)

    def shows(self, name, text):
        self.run_.wait_for("control", name, text)

    def name_file(self, path, question=""):
        """Types a path into the file dialog, behind which a question may come."""
        self.run_.click("field")
        self.display.key("ctrl+a")
        self.display.type(str(path))
        self.display.key("Return")
        if question:
            self.run_.wait_for("dialog", text=question)
        else:
            self.run_.wait_gone("field")

    def open_the_editor(self):
        self.run_.choose("File", EDITOR)
        self.run_.wait_for("window", "CardEdit", EDITOR)
        self.run_.wait_gone("window", "MainWindow")
        self.run_.fill_screen(EDITOR)
        self.run_.choose("File", "Load Cards")
        self.name_file(self.file)
        self.shows("cardtotal", f"Total Cards: {self.total}")

    def new_card(self, name, template="New Card"):
        self.run_.click("control", text="New Card from Template")
        self.shows("CardText(0)", f"New {template}")
        self.fill("CardText(0)", name)

    def save(self):
        self.run_.choose("File", "Save Cards As...")
        self.name_file(self.saved_file)
        self.run_.wait_for("window", "CardEdit", EDITOR)
        return self.saved_file.read_text(encoding="utf-8")

    def leave(self):
        changed = self.run_.find("window", "CardEdit", EDITOR + " *")
        self.display.ask_to_close(EDITOR)
        if changed:
            self.run_.wait_for("dialog", text="Save cards now?")
            self.run_.click("button", "Discard")
        self.run_.wait_for("link", "WB GAME:1:2")


class CardEditor(CardEditorTest):
    pictures = "author"

    def setUp(self):
        super().setUp()
        self.new_player(7)

    def find_a_card(self):
        self.fill("FindText", "brass tortoise")
        self.display.key("Return")
        self.shows("CardText(0)", "Brass Tortoise")
        self.keep("found")
        self.assertTrue(self.run_.find("window", "CardEdit", EDITOR), "looking changes nothing")

    def choose_traits(self, *traits):
        for row, (trait, value) in enumerate(traits):
            self.pick(f"TraitCombo({row})", trait)
            self.shows(f"TraitText({row})", trait)
            self.fill(f"ValueText({row})", value)

    def make_action(self, row, effect, amount, message, script):
        """The wizards alone write the script."""
        self.run_.click("control", f"EffButton({row})")
        self.run_.wait_for("window", "EffectPicker")
        self.pick("Combo1(0)", effect)
        self.run_.wait_for("dialog", text="Which trait?")
        self.run_.answer("HP")
        self.run_.click("control", text="Add an arbitrary amount")
        self.run_.answer(amount)
        self.shows("Text1", amount)
        self.keep(f"value-{row}")
        self.run_.click("control", text="DONE")
        self.pick("Combo1(1)", "Display: Display text on the screen with t")
        self.run_.answer(message)
        self.shows("Label1(1)", f'Action displays "{message}" to the user.')
        self.keep(f"picker-{row}")
        self.run_.click("control", text="Done")
        self.shows(f"EffText({row})", script)

    def make_the_snail(self):
        self.shows("TemplateCombo", "Blank Card")
        self.new_card(SNAIL, "New Card")
        self.choose_traits(("CREATURE", "1"), ("HP", "3"), ("STRIKE", "2"))
        self.pick("TargetCombo(0)", "SELF")
        self.pick("TriggerCombo(0)", "ENTERPLAY")
        self.shows("TriggerCombo(0)", "ENTERPLAY")
        self.make_action(0, "Effect: Add to a trait in t", "2", "$MYNAME grows.", GROWS)
        self.pick("TargetCombo(1)", "ENEMYPLAYER")
        self.pick("TriggerCombo(1)", "MENU")
        self.run_.answer("PHASE4")
        self.run_.answer("Spit")
        self.shows("TriggerCombo(1)", "MENU:PHASE4:Spit")
        self.make_action(1, "Effect: Reduce a trait in t", "1", "$MYNAME spits.", SPITS)

    def calculate_the_cost(self):
        self.run_.click("control", "CostButton")
        self.keep("snail")
        self.run_.click("control", "TraitText(1)", button=5)  # the wheel
        self.shows("TraitText(0)", "CRUMBS")
        self.shows("ValueText(0)", SNAIL_COST)

    def make_the_lamp(self):
        """From the snail as a template."""
        self.run_.click("control", text="Save As Template")
        self.pick("TemplateCombo", SNAIL)
        self.shows("TemplateCombo", SNAIL)
        self.new_card(LAMP, SNAIL)
        self.shows("EffText(0)", GROWS)
        for row, (trait, value) in enumerate([("PLAYER", 1), ("HP", 40), ("MONSTERS", 8)]):
            self.fill(f"TraitText({row})", trait)
            self.fill(f"ValueText({row})", value)
        self.run_.click("control", text="Save Card")
        self.shows("CardCombo", LAMP)
        self.run_.wait_for("window", "CardEdit", EDITOR + " *")

    def check_the_file(self, saved):
        self.assertEqual(saved.count("#CARD, COLLECTION"), self.total + 2)
        self.assertEqual(saved.count("#CARD, #TEMPLATE"), 1)
        self.assertIn(f'"{COST_SCRIPT}"', saved)
        snail = saved.split(f'#CARD, COLLECTION, "{SNAIL}"')[1].split("#CARD")[0]
        self.assertIn('#TRAIT, "CREATURE:1", #TRAIT, "HP:3", #TRAIT, "STRIKE:2", '
                      f'#TRAIT, "CRUMBS:{SNAIL_COST}"', snail)
        self.assertIn(f'#EFFECT, SELF, ENTERPLAY, "{GROWS}"', snail)
        self.assertIn(f'#EFFECT, ENEMYPLAYER, MENU:PHASE4:Spit, "{SPITS}"', snail)

    def lay_out_cards(self):
        """One new card for the hand, the other for both sides."""
        self.run_.choose("File", "Test Cards")
        self.run_.dismiss(CHOOSE_CARDS)
        self.run_.fill_screen(DECKS)
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
        self.run_.fill_screen(TITLE)
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

    def test_the_road_of_a_card_author(self):
        self.open_the_editor()
        self.find_a_card()
        self.make_the_snail()
        self.calculate_the_cost()
        self.make_the_lamp()
        self.check_the_file(self.save())
        self.lay_out_cards()
        self.play_a_turn()
        self.go_back()
        self.leave()
        self.close_and_check(TITLE)


class FileOfAnAuthor(CardEditorTest):
    """What the author wrote with a text editor stays."""

    pictures = "file"

    def find(self, name):
        self.fill("FindText", name.lower())
        self.display.key("Return")
        self.shows("CardText(0)", name)

    def lines(self):
        return self.file.read_bytes().decode("utf-8").splitlines()

    def wait_for_save(self, words):
        harness.wait_until(words, lambda: any(words in line for line in self.lines()))
        self.run_.wait_for("window", "CardEdit", EDITOR)

    def test_only_the_card_that_changed_is_written(self):
        self.new_player(7)
        self.open_the_editor()
        before = self.lines()
        self.find("Brass Tortoise")
        self.fill("DescText", "Slow, and very sure.")
        self.display.key("alt+f")  # by the keyboard alone
        self.display.key("s")
        self.wait_for_save("very sure")
        gone = [line for line in before if line not in self.lines()]
        self.assertEqual(len(gone), 1, gone)
        self.assertIn("Brass Tortoise", gone[0])

        outside = self.file.read_bytes() + b"A remark of another editor\n"
        self.file.write_bytes(outside)
        self.fill("DescText", "Slow.")
        self.run_.choose("File", "Save Cards")
        self.run_.wait_for("dialog")
        self.keep("outside")
        self.run_.click("button", "No")
        self.run_.wait_gone("dialog")
        self.assertEqual(self.file.read_bytes(), outside)
        self.run_.choose("File", "Save Cards")
        self.run_.wait_for("dialog")
        self.run_.click("button", "Yes")
        self.wait_for_save("\"Slow.\"")
        self.assertEqual(self.file.with_name(self.file.name + ".other").read_bytes(), outside)
        self.leave()
        self.close_and_check(TITLE)


class CardsOfAnAuthor(CardEditorTest):
    """From the editor's files into a player's deck and onto the table."""

    pictures = "cards"

    def setUp(self):
        super().setUp()
        # A set of few cards, so that a chest of eighty surely holds several of the new one.
        cards = self.file.read_text(encoding="utf-8").split("#CARD,")
        self.total = 20
        self.file = self.folder / "wickwater/FewCards.txt"
        self.file.write_text("#CARD,".join(cards[:self.total + 1]), encoding="utf-8")
        rules = self.folder / "Wickwater.txt"
        text = rules.read_text(encoding="utf-8")
        self.assertIn("TRAITMINIMUM:#ANY#:20", text)
        rules.write_text(text.replace("TRAITMINIMUM:#ANY#:20", "TRAITMINIMUM:#ANY#:5"),
                         encoding="utf-8")
        self.new_player(7)

    def make_a_card(self):
        self.new_card(SNAIL)
        for row, (trait, value) in enumerate([("CREATURE", 1), ("HP", 3), ("CRUMBS", 2)]):
            self.fill(f"TraitText({row})", trait)
            self.fill(f"ValueText({row})", value)
        self.pick("TargetCombo(0)", "SELF")
        self.fill("TriggerCombo(0)", "ENTERPLAY")
        self.fill("EffText(0)", GROWS)
        self.save()

    def create(self, entry, file, question, name):
        self.run_.choose("File", entry)
        self.name_file(self.folder / "wickwater" / file, question)
        self.run_.answer(name)
        self.run_.wait_gone("field")

    def begin(self, opponent):
        self.run_.click("link", f"WB GAME:1:{opponent}")
        self.run_.wait_gone("link", f"WB GAME:1:{opponent}")

    def snails(self):
        """How many of them the player owns."""
        return self.saved().count(f'#CARD, COLLECTION, "{SNAIL}"')

    def open_the_starter(self):
        self.run_.wait_for("link", text=STORE)
        self.keep("list")
        self.begin(FIRST_NEW)
        harness.wait_until("the cards", lambda: "Your new starter deck" in self.report())
        self.keep("starter")
        self.back_to_the_list()
        self.assertEqual(self.saved().count("#CARD, COLLECTION"), 80)
        self.assertGreaterEqual(self.snails(), 4)

    def buy_a_booster(self):
        self.begin(FIRST_NEW + 1)
        self.run_.click("link", text=f"Purchase a booster of 8 new cards from the {STORE} set "
                                     "(5 tokens)")
        harness.wait_until("the purchase", lambda: "uses special action" in self.run_.page())
        self.keep("store")
        self.run_.click("control", "Command1")
        harness.wait_until("the booster", lambda: "You tear open a pack" in self.report())
        self.back_to_the_list()
        self.assertIn("#TOKENS, 495", self.saved())
        self.assertEqual(self.saved().count("#CARD, COLLECTION"), 88)

    def build_a_deck(self):
        """Four snails and a lighthouse, which comes with the game."""
        self.begin(CHEST)
        self.back_to_the_list()
        self.run_.click("link", f"WB GAME:1:{OONA}")
        self.run_.wait_for("window", "DeckManager")
        self.run_.fill_screen(DECKS)
        for words, copies in [("PLAYER>=1", 1), (SNAIL, 4)]:
            self.fill("SearchText", words)
            self.shows("SearchText", words)
            for copy in range(copies):
                self.run_.click("control", "CollectPic(0)")
        self.run_.wait_for("control", "Cardcount", "Cards: 5")
        self.keep("deck")

    def play_a_card(self):
        self.run_.click("control", "Command2")
        harness.wait_until("the lighthouse", lambda: self.title_card("Attic Light"))
        self.run_.click("control", "Picture2(1)")
        harness.wait_until("the plan", lambda: f">{SNAIL}</font>" in self.run_.page())
        self.keep("plan")
        self.run_.click("control", "Command1")
        harness.wait_until("the card in play", lambda: f"{SNAIL} grows" in
                           re.sub("<[^>]*>", "", self.report()))
        crumbs = re.search(r'monstercost.jpg"></img><font[^>]*>(\d+)<', self.report())
        self.assertEqual(crumbs[1], "3", "the three of the first night, less two, and two more")
        self.keep("played")

    def test_created_files_bring_the_cards_into_a_match(self):
        self.open_the_editor()
        self.make_a_card()
        self.create("Create Starter Deck Builder", "A_Ember_Chest.txt",
                    "Name of starter deck?", STARTER)
        self.create("Create Card Store", "B_Ember_Shop.txt", "Name of store?", STORE)
        self.leave()
        self.open_the_starter()
        self.buy_a_booster()
        self.build_a_deck()
        self.play_a_card()
        self.close_and_check(TITLE, gives_up_match=True)


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class CardEditorOnABigScreen(CardEditor):
    screen = "1920x1080"


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class CardsOfAnAuthorOnABigScreen(CardsOfAnAuthor):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
