"""What a screen reader finds: every control has a name, and the pages can be read."""

import json
import os
import subprocess
import unittest
from pathlib import Path

import harness
import shipped_game

LAUNCHER = Path("/usr/libexec/at-spi-bus-launcher")
PYTHON = "/usr/bin/python3"  # whose modules the packages are of
TREE = Path(__file__).with_name("accessible_tree.py")
CHEST, OONA = 2, 4  # places in the list of games


@unittest.skipUnless(LAUNCHER.exists(), "needs the bus of screen readers")
class Accessible(shipped_game.ShippedGameTest):
    pictures = "accessible"

    def start(self, *arguments, environment=None):
        daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.end_with_test(daemon)
        bus = {"DBUS_SESSION_BUS_ADDRESS": daemon.stdout.readline().strip(),
               "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        daemon.stdout.close()
        self.environment = {**os.environ, **bus, "DISPLAY": self.display.name}
        self.end_with_test(subprocess.Popen(
            [LAUNCHER, "--launch-immediately"], env=self.environment,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        return super().start(*arguments, environment={**(environment or {}), **bus})

    def end_with_test(self, process):
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)

    def tree(self, title):
        """The elements that are shown of a window."""
        lines = subprocess.run([PYTHON, "-W", "ignore", TREE], env=self.environment, timeout=60,
                               capture_output=True, text=True, check=True).stdout.splitlines()
        elements = [json.loads(line) for line in lines]
        return [e for e in elements if e["showing"] and title in e["window"]]

    @staticmethod
    def faults(elements):
        """What a reader's user could not make sense of. Entries and cells may be empty."""
        return [e for e in elements if "<qt>" in e["name"] + e["description"] or
                (e["focusable"] or e["role"] == "link") and not e["name"].strip() and
                e["role"] not in ("list item", "table cell")]

    def read(self, title, *words):
        """The elements of a window, once its pages hold the words and nothing is at fault."""
        found = []

        def is_well():
            found[:] = self.tree(title)
            text = " ".join(element["name"] for element in found)
            return all(word in text for word in words) and not self.faults(found)
        try:
            harness.wait_until(f"the words of {title}", is_well)
        except AssertionError:
            self.fail(f"{self.faults(found)} of {[e['name'] for e in found]}")
        return found

    def test_everything_has_a_name_and_pages_can_be_read(self):
        self.new_player(12)
        self.run_.wait_for("link", f"WB GAME:1:{CHEST}")
        self.read("Brindlemoor", "Wickwater", "Oona Ebb")
        self.run_.click("link", f"WB GAME:1:{CHEST}")
        self.read("Brindlemoor", "The chest is open.")
        self.back_to_the_list()
        self.run_.click("link", f"WB GAME:1:{OONA}")
        self.run_.wait_for("window", "DeckManager")
        decks = self.read("Deck Manager", "Attic Light")
        self.assertTrue(any(e["role"] == "push button" and e["name"] == "Attic Light" and
                            "in the collection, " in e["description"] for e in decks))
        self.run_.click("control", "AddAll")
        self.run_.click("control", "Command2")
        self.run_.wait_for("control", "Command1", "Take Turn")
        table = self.read("Brindlemoor", "Attic Light", "Oona Ebb", "HP: ")
        self.assertTrue(any(e["role"] == "push button" and "hand card 1, " in e["description"]
                            for e in table))
        self.back_to_the_list()
        self.read_the_choosers()

    def read_the_choosers(self):
        self.run_.choose("File", "Switch Player")
        self.run_.wait_for("window", "ProfileMenu")
        self.read("Choose a Player Profile", "New Player", "Ann")
        self.keep("chooser")
        self.run_.click("control", text="Rename a Player")
        self.run_.wait_for("window", "ChoiceForm")
        self.read("Choose", "Cancel", "Ann")
        self.keep("choice")

    def open_file(self, path):
        self.run_.choose("File", "Load Cards")
        self.run_.click("field")
        self.display.key("ctrl+a")
        self.display.type(str(path))
        self.display.key("Return")

    def test_the_editors_windows_and_the_help_can_be_read(self):
        self.new_player(12)
        self.run_.choose("Help", "Help Pages")
        self.run_.wait_for("window", "HelpForm")
        self.read("Help", "Your first game in ten pictures", "The window and the turn")
        self.run_.choose("File", "Card Editor")
        self.run_.wait_for("window", "CardEdit")
        self.run_.wait_gone("window", "MainWindow")  # which has a menu of the same title
        self.run_.fill_screen("Card Editor")
        self.open_file(self.folder / "wickwater/WickwaterCards.txt")
        self.read("Card Editor", "Total Cards: ", "Card Actions and Effects")
        self.display.key("ctrl+t")
        self.run_.wait_for("window", "CardGrid")
        self.read("All Cards", "Unique ID")
        self.run_.click("control", "EditButton")
        self.run_.wait_gone("window", "CardGrid")
        for button, form, title, words in (
                ("TryButton", "TrialForm", "Try This Card", "What the page says"),
                ("EffButton(0)", "EffectPicker", "Effect Picker", "Done")):
            self.run_.click("control", button)
            self.run_.wait_for("window", form)
            self.read(title, words)
            self.display.ask_to_close(title)
            self.run_.wait_gone("window", form)
        self.read_the_pickers()

    def read_the_pickers(self):
        self.run_.click("control", "EffButton(0)")
        self.pick("Combo1(0)", "Effect: Add to a trait in t")
        self.run_.wait_for("dialog", text="Which trait?")
        self.run_.answer("HP")
        self.run_.wait_for("window", "ValGen")
        self.read("Value Generator", "DONE", "Add an arbitrary amount")
        for title, form in (("Value Generator", "ValGen"), ("Effect Picker", "EffectPicker")):
            self.display.ask_to_close(title)
            self.run_.wait_gone("window", form)
        self.run_.choose("Graphic", "Load new Background Image")
        self.run_.wait_for("window", "PicPick")
        self.read("Picture Viewer", "Random Image", "Close")


if __name__ == "__main__":
    harness.main()
