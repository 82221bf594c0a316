"""Sessions in real windows that are noted in a journal and played again on the terminal."""

import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import card_editor_test
import harness
from shipped_game import DECKS, TITLE

CHEST, OONA = 2, 4
CARDS = 31


class Replay(card_editor_test.CardEditorTest):
    pictures = "replay"

    def setUp(self):
        super().setUp()
        self.notes = Path(tempfile.mkdtemp(prefix="brindlemoor-notes-"))
        self.addCleanup(shutil.rmtree, self.notes, ignore_errors=True)
        self.journal = self.notes / "session.journal"

    def start(self, *arguments, environment=None):
        return super().start(*arguments, "--journal", self.journal, environment=environment)

    def replay(self, journal, code, *words):
        """What brindle replay says of a journal."""
        brindle = Path(harness.program()).with_name("brindle")
        result = subprocess.run([brindle, "replay", journal, "--pages", self.notes / "pages"],
                                capture_output=True, text=True, timeout=60, check=False)
        said = result.stdout + result.stderr
        self.assertEqual(result.returncode, code, said)
        for word in words:
            self.assertIn(word, said)
        return said

    def changed(self, old, new):
        """The journal with something else in place of what the user did."""
        text = self.journal.read_text(encoding="utf-8")
        self.assertIn(old, text)
        other = self.notes / "other.journal"
        other.write_text(text.replace(old, new, 1), encoding="utf-8")
        return other

    def files(self):
        return {path: path.read_bytes() for path in self.folder.rglob("*") if path.is_file()}

    def open_chest(self):
        self.run_.click("link", f"WB GAME:1:{CHEST}")
        self.run_.wait_gone("link", f"WB GAME:1:{CHEST}")
        self.back_to_the_list()

    def fill_deck(self):
        self.run_.click("link", f"WB GAME:1:{OONA}")
        self.run_.wait_for("window", "DeckManager")
        self.run_.fill_screen(DECKS)
        self.run_.click("control", "Command4(0)")
        self.run_.answer("Mice and lights")
        self.run_.wait_for("control", "Option1(0)", "Mice and lights")
        self.run_.click("control", "SearchText")
        self.display.type("wick mouse")
        self.run_.wait_for("control", "SearchCount", "3 found")
        self.display.key("ctrl+a", "BackSpace")
        self.run_.wait_gone("control", "SearchCount")
        self.run_.click("control", "AddAll")
        self.run_.wait_for("control", "Cardcount", f"Cards: {CARDS}")

    def plan(self, text):
        harness.wait_until(text, lambda: text in self.run_.page())

    def play_turns(self):
        self.run_.click("control", "Command2")
        harness.wait_until("the first report", lambda: self.title_card("Attic Light"))
        self.run_.click("control", "Picture2(1)")
        self.plan("Play ")
        self.click_card("Oona Ebb")
        self.plan(" on <font")
        self.run_.click("control", "Picture2(2)", button=3)
        self.plan("Discard ")
        for _ in range(2):
            before = self.report()
            self.run_.click("control", "Command1")
            harness.wait_until("the next report", lambda old=before: self.report() != old)
            time.sleep(0.3)
        self.back_to_the_list()

    def make_a_card(self):
        self.open_the_editor()
        self.new_card("Ember Snail")
        self.pick("TraitCombo(0)", "HP")
        self.shows("TraitText(0)", "HP")
        self.fill("ValueText(0)", "3")
        self.assertIn("Ember Snail", self.save())
        self.leave()

    def test_a_session_replays_without_a_difference(self):
        self.new_player(12)
        self.open_chest()
        self.fill_deck()
        self.play_turns()
        self.make_a_card()
        self.close_and_check(TITLE)
        before = self.files()
        said = self.replay(self.journal, 0, "Equal: ")
        self.assertNotIn("not those of the journal", said, "what was saved is set back")
        self.assertGreater(int(re.search(r"(\d+) events", said).group(1)), 40)
        self.assertEqual(self.files(), before, "a replay changes nothing")
        pages = "".join(page.read_text(encoding="utf-8")
                        for page in sorted((self.notes / "pages").glob("*-Display.html")))
        self.assertIn("Your Card Plays", pages)
        self.tell_what_differs()

    def tell_what_differs(self):
        self.replay(self.changed('input "New Player Name?" Ann', 'input "New Player Name?" Bob'), 1,
                    "event 1 (click ProfileMenu", "PlayerProfiles.txt differs in line 1, byte ",
                    "Ann", "Bob")
        self.replay(self.changed("press MainWindow Picture2(2) 1", "press MainWindow Picture2(2) 0"),
                    1, "(press MainWindow Picture2(2))", "Display.html differs", "Discard ")
        cards = self.file.read_text(encoding="utf-8")
        self.file.write_text(cards.replace("Wick Mouse", "Tea Mouse"), encoding="utf-8")
        self.replay(self.journal, 1, "not those of the journal",
                    "wickwater/WickwaterCards.txt has changed")

    def test_a_program_that_was_killed_leaves_its_journal(self):
        self.new_player(12)
        self.open_chest()
        self.fill_deck()  # and the deck manager is still open
        self.started.process.kill()
        self.started.process.wait(timeout=10)
        said = self.replay(self.journal, 0, "no end", "Equal: ")
        self.assertGreater(int(re.search(r"(\d+) events", said).group(1)), 10)

    def test_a_journal_that_is_there_is_not_written_over(self):
        self.journal.write_text("kept", encoding="utf-8")
        self.run_ = self.start(self.folder)
        self.run_.wait_for("button", "OK")
        self.assertIn("is there already", self.run_.find("dialog").text)
        self.run_.click("button", "OK")
        self.assertEqual(self.started.wait_for_end(), 1)
        self.assertEqual(self.journal.read_text(encoding="utf-8"), "kept")


if __name__ == "__main__":
    harness.main()
