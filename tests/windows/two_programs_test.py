"""Two programs on one folder, and a player file that changes under the one that plays."""

import unittest

import harness
import shipped_game
from shipped_game import TITLE

CHEST, SHOP = 2, 9
CHOOSER = "Choose a Player Profile"
PACKET = "A packet of 6 cards (50 tokens)"
CHANGED = "Ann_Wickwater.plr has changed since it was read"
NOT_SAVED = "The cards, decks and tokens of Ann have changed and are not saved.  Save them?"


class TwoPrograms(shipped_game.ShippedGameTest):
    pictures = "programs"

    def another(self):
        run = harness.Program(self.display, self.folder, self.folder)
        self.addCleanup(run.stop)
        run.wait_for("window", "ProfileMenu", CHOOSER)
        return run

    def test_a_player_is_one_programs_at_a_time(self):
        self.new_player(7)
        second = self.another()
        second.click("control", text="Ann")
        second.dismiss("Ann is playing in another window of the program on this folder.")
        self.assertIsNone(second.find("window", "MainWindow"))
        second.click("control", text="New Player")
        second.answer("Bo")
        second.wait_for("link", text="Oona Ebb")
        profiles = second.page("PlayerProfiles.txt")
        self.assertIn('"#PLAYERPROFILE","Ann"', profiles)
        self.assertIn('"#PLAYERPROFILE","Bo"', profiles)
        self.run_.stop()  # a killed program lets its player go
        third = self.another()
        third.click("control", text="Ann")
        third.wait_for("link", text="Oona Ebb")

    def saved_elsewhere(self):
        """Another program gives the player tokens."""
        path = self.folder / "Ann_Wickwater.plr"
        text = path.read_bytes().decode("utf-8").replace("#TOKENS, ", "#TOKENS, 9")
        path.write_bytes(text.encode("utf-8"))
        return self.saved()

    def buy(self):
        self.run_.click("link", f"WB GAME:1:{SHOP}")
        self.run_.wait_gone("link", f"WB GAME:1:{SHOP}")
        others = self.saved_elsewhere()
        self.click_card("Wick Shop")
        self.run_.click("link", text=PACKET)
        self.run_.click("control", "Command1")
        return others

    def wait_for_question(self, words):
        harness.wait_until(words, lambda: any(
            place.kind == "dialog" and words in place.text for place in self.run_.places()))

    def test_a_change_of_another_program_is_asked_about(self):
        self.new_player(7)
        self.run_.click("link", f"WB GAME:1:{CHEST}")
        self.run_.wait_gone("link", f"WB GAME:1:{CHEST}")
        harness.wait_until("the starter deck in the file", lambda: "#CARD" in self.saved())
        self.back_to_the_list()
        others = self.buy()
        self.wait_for_question(CHANGED)
        self.keep("changed")
        self.display.key("alt+n")
        self.run_.wait_gone("dialog")
        self.assertEqual(self.saved(), others)

        self.display.ask_to_close(TITLE)  # the question has its answer
        self.wait_for_question(NOT_SAVED)
        self.keep("leaving")
        self.display.key("Escape")
        self.run_.wait_gone("dialog")
        self.assertIsNone(self.run_.process.poll(), "cancelled")

        self.display.ask_to_close(TITLE)
        self.wait_for_question(NOT_SAVED)
        self.display.key("Return")  # "Save"
        self.wait_for_question(CHANGED)
        self.display.key("alt+y")
        self.assertEqual(self.run_.wait_for_end(), 0, self.run_.errors())
        self.assertEqual(self.run_.page("Ann_Wickwater.plr.other"), others)
        self.assertIn("#TOKENS, 450", self.saved())

    def test_debug_mode_says_that_nothing_is_saved(self):
        self.write("Debug.on", "")
        self.new_player(7)
        self.run_.wait_for("control", "NothingSaved", "Debug mode: nothing is saved.")
        self.keep("debug")
        self.display.key("alt+o", "d")
        self.run_.wait_gone("control", "NothingSaved")
        self.close_and_check(TITLE)


if __name__ == "__main__":
    harness.main()
