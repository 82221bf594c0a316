"""A newer program finds the user's folder as an older one has filled it."""

import os
import shutil
import subprocess
import sys
import time
from pathlib import Path

import harness
from shipped_game import GAMES

ROOT = Path(__file__).resolve().parents[2]
CHOOSER = "Choose a Player Profile"
CARDS = "wickwater/WickwaterCards.txt"
HELP = "WickwaterHelp.html"


class GamesUpdate(harness.WindowTest):
    def setUp(self):
        super().setUp()
        self.mine = self.folder / "data" / "brindlemoor"
        shutil.copytree(GAMES, self.mine, ignore=shutil.ignore_patterns("*.py", "*.md"))
        # A program looks for its games in "share" beside its own folder first.
        self.installed = self.folder / "usr"
        shutil.copytree(GAMES, self.installed / "share" / "brindlemoor" / "games")
        (self.installed / "bin").mkdir()
        self.program = self.installed / "bin" / "brindlemoor"
        shutil.copy2(harness.program(), self.program)

    def ship_newer(self):
        games = self.installed / "share" / "brindlemoor" / "games"
        for name in (CARDS, HELP):
            path = games / name
            path.write_bytes(path.read_bytes() + b"\n<!-- newer -->\n")
        tools = self.installed / "share" / "brindlemoor" / "tools"
        tools.mkdir()
        shutil.copy2(ROOT / "tools" / "shipped_files.py", tools)
        subprocess.run([sys.executable, "-B", tools / "shipped_files.py"], check=True,
                       stdout=subprocess.DEVNULL)

    def start_installed(self):
        run = harness.Program(self.display, self.folder, program_file=self.program,
                              environment={"XDG_DATA_HOME": str(self.folder / "data")})
        self.started = run
        self.addCleanup(run.stop)
        self.addCleanup(self._keep_screenshot)
        return run

    def test_an_edit_is_kept_and_the_rest_is_updated_with_one_message(self):
        run = self.start_installed()
        run.wait_for("window", "ProfileMenu", CHOOSER)  # nothing is newer yet, nothing is told
        self.close_and_check(CHOOSER)

        self.ship_newer()
        edited = (self.mine / CARDS).read_bytes() + b"remark\n"
        (self.mine / CARDS).write_bytes(edited)
        run = self.start_installed()
        message = run.wait_for("dialog").text
        self.assertIn("have been updated: 1 file.", message)
        self.assertIn(CARDS, message)
        target = os.environ.get("BRINDLEMOOR_SCREENSHOTS", "")
        if target:
            time.sleep(0.5)
            self.display.screenshot(Path(target) / "games-update-message.png")
        run.dismiss("have been updated")
        run.wait_for("window", "ProfileMenu", CHOOSER)
        self.assertEqual((self.mine / CARDS).read_bytes(), edited)
        self.assertTrue((self.mine / HELP).read_bytes().endswith(b"<!-- newer -->\n"))
        self.close_and_check(CHOOSER)

        run = self.start_installed()
        run.wait_for("window", "ProfileMenu", CHOOSER)
        self.close_and_check(CHOOSER)


if __name__ == "__main__":
    harness.main()
