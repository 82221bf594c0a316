"""An opponent that looks ahead: chosen by pointer and keyboard, kept for the player, and the windows
live while it thinks."""

import time

import harness
import shipped_game

CHEST, OONA = 2, 4  # places in the list of games
THINKS = "The opponent thinks..."


class OpponentMenu(shipped_game.ShippedGameTest):
    pictures = "opponent"

    def chosen(self):
        return self.run_.page("Ann_Opponent.settings").strip()

    def wait_for_choice(self, word):
        harness.wait_until(f"the choice {word}", lambda: self.chosen() == word)

    def choose_by_pointer(self, level):
        self.run_.choose("Options", "Opponent")
        self.run_.at_rest("menu", text=level)
        self.keep("menu-" + level)
        self.run_.click("menu", text=level)

    def choose_by_keyboard(self, downs):
        """The menu is the last of the options; the keyboard begins at its first level."""
        self.display.key("alt+o", "Up", "Right", *["Down"] * downs)
        time.sleep(0.3)
        self.keep(f"keyboard-{downs}")
        self.display.key("Return")

    def begin_match(self):
        self.run_.click("link", f"WB GAME:1:{CHEST}")
        harness.wait_until("the chest", lambda: "The chest is open." in self.report())
        self.back_to_the_list()
        self.run_.click("link", f"WB GAME:1:{OONA}")
        self.run_.wait_for("window", "DeckManager")
        self.run_.fill_screen(shipped_game.DECKS)
        self.run_.click("control", "AddAll")
        self.run_.wait_for("control", "Cardcount", "Cards: 31")
        self.run_.click("control", "Command2")
        harness.wait_until("the table", lambda: self.title_card("Oona Ebb"))
        self.run_.at_rest("control", "Command1")

    def ask_for_a_hint(self):
        self.display.key("F2")
        harness.wait_until("the hint", lambda: "Looking some turns ahead, the thoughtful computer "
                                               in self.run_.page("CardDesc.html"), 60)
        self.keep("hint")

    def take_turn(self):
        before = self.report()
        self.run_.click("control", "Command1")
        self.run_.wait_for("control", "Command1", THINKS)  # as a window tells that lives
        self.run_.click("menu", text="Help")
        self.run_.wait_for("menu", text="Hint")
        self.keep("thinking")
        self.display.key("Escape")
        harness.wait_until("the report", lambda: self.report() != before, 120)
        self.run_.wait_for("control", "Command1", "Take Turn")
        self.assertIn("Enemy Card Plays", self.report())

    def test_it_is_chosen_and_thinks(self):
        self.new_player(12)
        self.choose_by_pointer("Deep")
        self.wait_for_choice("deep")
        self.choose_by_pointer("Thoughtful")
        self.wait_for_choice("thoughtful")
        self.begin_match()
        self.ask_for_a_hint()
        self.take_turn()
        self.keep("report")
        self.write("Ann_Wickwater.results", '#RESULT, "wickwater/3_Oona_Ebb.txt", 2, 1, 0\n'
                                            '#RESULTTHOUGHTFUL, "wickwater/3_Oona_Ebb.txt", 1, 3, 0\n'
                                            '#RESULT, "wickwater/4_Bram_Sallow.txt", 1, 0, 0\n')
        self.back_to_the_list()
        self.display.move(*self.run_.at_rest("link", f"WB GAME:1:{OONA}").center)
        harness.wait_until("both counts", lambda: all(
            words in self.run_.page("FirstSteps.html")
            for words in ("Beaten: you won 2 of 3 matches.",
                          "Thoughtful. Beaten: you won 1 of 4 matches.")))
        self.keep("marks")
        self.choose_by_keyboard(2)
        self.wait_for_choice("deep")
        self.close_and_check(shipped_game.TITLE)
        self.run_ = self.start(self.folder)
        self.run_.click("control", text="Ann")
        self.run_.wait_for("link", text="Oona Ebb")
        self.choose_by_keyboard(0)
        self.wait_for_choice("plain")
        self.close_and_check(shipped_game.TITLE)


if __name__ == "__main__":
    harness.main()
