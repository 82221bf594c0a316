"""A game archive is opened by real clicks, by the keyboard alone and by the command line."""

import os
import shutil
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

import harness
from first_start_test import OPPONENT, PAGE, RULES, TITLE

FORM = "Open a Game Archive"
CARDS = "#CARDINDECK, Flint, , , #FFFFFF, , hard\n"


class OpenArchive(harness.WindowTest):
    def setUp(self):
        super().setUp()
        self.write("Elves.txt", RULES.replace("Pebbles", "Elves"))
        for page in ("blank.htm", "MainHelp.html"):
            self.write(page, PAGE.format(""))
        self.write("PlayerProfiles.txt", '"#PLAYERPROFILE","Bo",":","","",""\r\n\r\n')
        self.downloads = Path(tempfile.mkdtemp(prefix="brindlemoor-archives-"))
        self.addCleanup(shutil.rmtree, self.downloads, ignore_errors=True)
        self.archive = self.downloads / "Pebbles.zip"
        self.pack({"Pebbles.txt": RULES, "pebbles/Millstone.txt": OPPONENT,
                   "pebbles/Cards.txt": CARDS})

    def pack(self, files):
        with zipfile.ZipFile(self.archive, "w") as made:
            for name, text in files.items():
                made.writestr(name, text)

    def keep(self, name):
        target = os.environ.get("BRINDLEMOOR_SCREENSHOTS", "")
        if target:
            time.sleep(0.3)
            self.display.screenshot(Path(target) / f"open-archive-{self.screen}-{name}.png")

    def start_as_bo(self, *arguments):
        run = self.start(self.folder, *arguments)
        run.click("control", text="Bo")
        run.wait_for("window", "MainWindow", TITLE)
        return run

    def choose_archive(self, run):
        """The file dialog has the focus in the field for the name."""
        harness.wait_until("the file dialog", lambda: any(
            title not in (TITLE, "") for title in self.display.window_titles()))
        time.sleep(0.5)
        self.display.type(str(self.archive))
        self.display.key("Return")
        run.wait_for("window", "ArchiveForm", FORM)

    def test_a_new_game_comes_into_the_list_by_clicks(self):
        run = self.start_as_bo()
        run.choose("File", "Open a Game Archive...")
        self.choose_archive(run)
        self.assertEqual(run.find("control", "ArchiveHead").text[:16], "Pebbles: 3 files")
        self.keep("new")
        run.click("control", "PutThere")
        run.dismiss("3 files put into the folder")
        run.wait_for("link", text="Old Millstone")
        self.assertEqual((self.folder / "pebbles" / "Cards.txt").read_text(), CARDS)
        self.keep("list")
        self.close_and_check(TITLE)

    def test_mine_stay_or_are_kept_as_copies_by_the_keyboard_alone(self):
        self.write("pebbles/Cards.txt", "mine")
        run = self.start_as_bo()
        self.display.key("alt+f")
        run.wait_for("menu", text="Open a Game Archive...")
        self.display.key("o")
        self.choose_archive(run)
        self.keep("differing")
        self.display.key("Escape")
        run.wait_gone("window", "ArchiveForm")
        self.assertFalse((self.folder / "Pebbles.txt").exists())
        self.display.key("alt+f")
        run.wait_for("menu", text="Open a Game Archive...")
        self.display.key("o")
        self.choose_archive(run)
        self.display.key("alt+r")
        harness.wait_until("the message", lambda: run.find("dialog"))
        self.display.key("Return")
        run.wait_for("link", text="Old Millstone")
        self.assertEqual((self.folder / "pebbles" / "Cards.txt").read_text(), CARDS)
        self.assertEqual((self.folder / "pebbles" / "Cards.txt.old~").read_text(), "mine")
        self.close_and_check(TITLE)

    def test_the_command_line_opens_one_and_a_bad_one_is_told_of(self):
        run = self.start_as_bo("--open", self.archive)
        run.wait_for("window", "ArchiveForm", FORM)
        run.click("control", "CancelOpening")
        run.wait_gone("window", "ArchiveForm")
        self.close_and_check(TITLE)
        self.pack({"Pebbles.txt": RULES, "../evil.txt": "x"})
        run = self.start_as_bo("--open", self.archive)
        run.dismiss("leads to another folder")
        self.assertFalse((self.folder.parent / "evil.txt").exists())
        self.close_and_check(TITLE)


if __name__ == "__main__":
    harness.main()
