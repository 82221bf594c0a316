"""All cards of a game in the editor: opened, changed in a table and saved, by the keyboard alone."""

import time

import harness
import shipped_game
from shipped_game import TITLE

EDITOR = "Card Editor"
PICKER = "Choose"
TABLE = "All Cards"


class OpenGame(shipped_game.ShippedGameTest):
    pictures = "whole-game"

    def setUp(self):
        super().setUp()
        self.new_player(7)
        self.before = self.files()

    def files(self):
        return {path.relative_to(self.folder): path.read_bytes()
                for path in self.folder.rglob("*.txt") if path.name != "PlayerProfiles.txt"}

    def changed(self):
        now = self.files()
        self.assertEqual(now.keys(), self.before.keys())
        return [str(path) for path in sorted(now) if now[path] != self.before[path]]

    def key(self, *keys):
        self.display.key(*keys)
        time.sleep(0.15)

    def table_cell(self, down, right):
        """Goes to a cell from the first one."""
        self.key("ctrl+Home")
        for _ in range(down):
            self.key("Down")
        for _ in range(right):
            self.key("Right")

    def open_the_game(self):
        self.run_.choose("File", EDITOR)
        self.run_.wait_for("window", "CardEdit", EDITOR)
        self.run_.fill_screen(EDITOR)
        self.run_.choose("File", "Open Game...")
        self.run_.wait_for("window", "ChoiceForm", PICKER)
        self.keep("picker")
        self.key("Home")
        self.key("Return")
        self.run_.wait_gone("window", "ChoiceForm")
        self.run_.wait_for("control", "cardtotal")
        harness.wait_until("the cards", lambda: int(
            self.run_.find("control", "cardtotal").text.split()[-1]) > 100)

    def test_cells_are_copied_and_pasted(self):
        self.open_the_game()
        self.key("ctrl+t")
        self.run_.wait_for("window", "CardGrid", TABLE)
        self.run_.at_rest("control", "Cells")
        self.table_cell(15, 4)
        for _ in range(2):
            self.key("shift+Down")
        self.key("ctrl+c")
        self.table_cell(18, 4)
        self.key("ctrl+v")
        self.keep("pasted")
        self.key("alt+c")
        self.run_.wait_for("window", "CardEdit", EDITOR + " *")
        self.key("ctrl+s")
        harness.wait_until("the save", self.changed)
        self.assertEqual(self.changed(), ["wickwater/WickwaterCards.txt"])

    def test_a_card_is_tried(self):
        self.open_the_game()
        self.run_.click("control", "FindText")
        self.display.type("Matchbox Beetle")
        self.key("Return")
        self.run_.wait_for("control", "CardText(0)", "Matchbox Beetle")
        self.run_.click("control", "TryButton")
        self.run_.wait_for("window", "TrialForm", "Try This Card")
        self.run_.wait_for("control", "Outcome")
        self.keep("played")
        # The list of what can be done has the focus; its second entry is the card's action.
        self.key("Down")
        harness.wait_until("what the page says", lambda: "strikes one last match at" in
                           self.run_.find("control", "SaidText").text)
        self.keep("tried")
        self.key("Escape")
        self.run_.wait_gone("window", "TrialForm")
        self.assertTrue(self.run_.find("window", "CardEdit", EDITOR), "a trial changes nothing")

    def test_a_game_is_changed_in_a_table(self):
        self.open_the_game()
        self.keep("editor")
        self.key("ctrl+t")
        self.run_.wait_for("window", "CardGrid", TABLE)
        self.run_.at_rest("control", "Cells")
        self.keep("table")
        self.table_cell(15, 2)
        # One text for two cards, then taken back and done again.
        self.key("shift+Down")
        self.display.type("77")
        self.key("Return")
        self.keep("filled")
        self.key("ctrl+z")
        self.key("ctrl+y")
        self.key("alt+c")
        self.run_.wait_gone("window", "CardGrid")
        self.run_.wait_for("window", "CardEdit", EDITOR + " *")
        self.key("ctrl+s")
        self.run_.wait_for("window", "CardEdit", EDITOR)
        harness.wait_until("the save", self.changed)
        self.assertEqual(self.changed(), ["wickwater/WickwaterCards.txt"])
        path = next(path for path in self.before if str(path) == self.changed()[0])
        old, new = self.before[path].splitlines(), self.files()[path].splitlines()
        self.assertEqual(len(old), len(new))
        lines = [(a, b) for a, b in zip(old, new) if a != b]
        self.assertEqual(len(lines), 2, lines)
        for _, line in lines:
            self.assertIn(b"#EXTRADATA, 77,", line)


class LargeScreen(OpenGame):
    screen = "1920x1080"

    test_cells_are_copied_and_pasted = None
    test_a_game_is_changed_in_a_table = None


if __name__ == "__main__":
    harness.main()
