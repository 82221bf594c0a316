"""A turn that takes long: the window opens its menus and answers to its X meanwhile, and both wait
for the end of the turn."""

import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import harness
import shipped_game

CHEST, OONA = 2, 4  # places in the list of games
MILL = ('\n#CARD, INDECK, "Mill", "WW-Mill", , , , #62D9CF, "Grinds."\n'
        "#TRAIT, STARTSINPLAY:1, #TRAIT, HP:9\n"
        + '#EFFECT, ALL, PHASE3, "MODTRAIT:GRIST:1:REPEAT:ALL:1000"\n' * 20
        + "#EXTRADATA, 101, , , ,\n#DUPLICATE, 40\n")
TURN_CLICK = " click MainWindow Command1"


class LongTurn(shipped_game.ShippedGameTest):
    pictures = "long-turn"

    def setUp(self):
        super().setUp()
        with open(self.folder / "wickwater/3_Oona_Ebb.txt", "a", encoding="utf-8") as file:
            file.write(MILL)
        self.notes = Path(tempfile.mkdtemp(prefix="brindlemoor-notes-"))
        self.addCleanup(shutil.rmtree, self.notes, ignore_errors=True)
        self.journal = self.notes / "session.journal"

    def start(self, *arguments, environment=None):
        return super().start(*arguments, "--journal", self.journal, environment=environment)

    def begin_match(self):
        self.new_player(12)
        self.run_.click("link", f"WB GAME:1:{CHEST}")
        self.run_.wait_gone("link", f"WB GAME:1:{CHEST}")
        self.back_to_the_list()
        self.run_.click("link", f"WB GAME:1:{OONA}")
        self.run_.wait_for("window", "DeckManager")
        self.run_.fill_screen(shipped_game.DECKS)
        self.run_.click("control", "AddAll")
        self.run_.click("control", "Command2")
        harness.wait_until("the first report", lambda: self.title_card("Oona Ebb"), 60)

    def noted(self):
        return self.journal.read_text(encoding="utf-8", errors="replace")

    def begin_turn(self):
        turns = self.noted().count(TURN_CLICK)
        self.run_.click("control", "Command1")
        harness.wait_until("the turn", lambda: self.noted().count(TURN_CLICK) > turns)
        return time.monotonic()

    def told(self, what, begin):
        print(f"{what}: {time.monotonic() - begin:.2f} s", flush=True)

    def test_the_window_stays_alive(self):
        self.begin_match()
        menu = self.run_.at_rest("menu", text="Options").center
        turn = self.run_.at_rest("control", "Command1").center
        before = self.report()
        begin = self.begin_turn()
        self.display.click(*turn)
        clicked = time.monotonic()
        self.display.click(*menu)
        entry = self.run_.wait_for("menu", text="Debug Mode")
        self.told("the menu opens", clicked)
        self.assertEqual(self.report(), before, "the turn goes on behind the menu")
        self.keep("menu")
        self.display.click(*entry.center)
        harness.wait_until("the report", lambda: "Mill" in self.report() != before, 60)
        self.told("the turn", begin)
        harness.wait_until("the choice", lambda: " menu MainWindow debugmen" in self.noted())
        self.assertRegex(self.noted().split(TURN_CLICK, 1)[1],
                         r"(?s)write LastDiplayed.*\nevent \d+ - menu MainWindow debugmen",
                         "what was chosen waited for the turn")
        self.assertEqual(self.noted().count(TURN_CLICK), 1, "a click for the old page is dropped")
        self.begin_turn()
        clicked = time.monotonic()
        self.display.ask_to_close(shipped_game.TITLE)
        self.run_.wait_for("window", "MainWindow", "Closing: " + shipped_game.TITLE)
        self.told("the X is answered", clicked)
        self.keep("closing")
        self.run_.click("button", "Yes")  # the match is given up once the turn is over
        self.assertEqual(self.run_.wait_for_end(), 0, self.run_.errors())
        self.told("the program ends", clicked)
        self.assertRegex(self.noted().split(TURN_CLICK)[2], r"(?s)write LastDiplayed.*\nevent ",
                         "the turn was played to its end")
        self.replay()

    def replay(self):
        brindle = Path(harness.program()).with_name("brindle")
        said = subprocess.run([brindle, "replay", self.journal], capture_output=True, text=True,
                              timeout=120, check=False)
        self.assertEqual(said.returncode, 0, said.stdout + said.stderr)
        self.assertIn("Equal: ", said.stdout)


if __name__ == "__main__":
    harness.main()
