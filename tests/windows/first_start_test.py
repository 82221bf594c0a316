"""The way from an empty folder to the list of games, and the ends of the program."""

import os
import subprocess
import tempfile
import time
import unittest

import harness

TITLE = "Brindlemoor version Beta 1.0"
CHOOSER = "Choose a Player Profile"

RULES = """#GAMERULES, Pebbles, , #203040, pebbles, PebblesHelp.html
#RULESCARD
"""
OPPONENT = """#CARD, #PLAYERCARD, "Old Millstone", "P-Millstone", , , , #FFFFFF, "Grinds slowly."
"""
PAGE = "<HTML><body bgcolor=#000000 text=#FFFFFF>{}</body></HTML>"


class FirstStart(harness.WindowTest):
    def setUp(self):
        super().setUp()
        self.write("Pebbles.txt", RULES)
        self.write("pebbles/Millstone.txt", OPPONENT)
        self.write("blank.htm", PAGE.format(""))
        self.write("MainHelp.html", PAGE.format('<a href="More.html">More</a>'))
        self.write("More.html", PAGE.format('<a href="http://example.com/">Away</a>'))
        self.write("PebblesHelp.html", PAGE.format("Throw pebbles."))

    def make_ann(self):
        run = self.start()
        run.wait_for("window", "ProfileMenu", CHOOSER)
        run.click("control", text="New Player")
        run.answer("Ann")
        run.wait_for("window", "MainWindow", TITLE)
        return run

    def test_a_new_player_comes_to_the_list_of_games(self):
        run = self.make_ann()
        run.wait_for("link", text="Old Millstone")
        self.assertIn(TITLE, self.display.window_titles())
        self.assertIn("Pebbles", run.page())
        # Its first page made the window anew.
        self.assertIn("_NET_WM_STATE_MAXIMIZED_VERT", self.display.window_states(TITLE))
        self.assertIn('"#PLAYERPROFILE","Ann"', run.page("PlayerProfiles.txt"))
        self.close_and_check(TITLE)

    def test_a_known_player_is_chosen_by_keyboard_alone(self):
        self.write("PlayerProfiles.txt", '"#PLAYERPROFILE","Bo",":","","",""\r\n\r\n')
        run = self.start()
        run.wait_for("control", text="Bo")
        self.display.key("alt+b")
        run.wait_for("link", text="Old Millstone")
        self.close_and_check(TITLE)

    def test_closing_the_chooser_ends_the_program(self):
        run = self.start()
        run.wait_for("window", "ProfileMenu")
        self.close_and_check(CHOOSER)
        self.assertFalse((self.folder / "PlayerProfiles.txt").exists())

    def test_help_pages_lead_on_but_not_out_of_the_folder(self):
        run = self.make_ann()
        run.click("link", text="Click here for help on this game.")
        run.wait_for("window", "HelpForm", "Brindlemoor Help")
        self.display.ask_to_close("Brindlemoor Help")
        run.wait_gone("window", "HelpForm")
        run.choose("Help", "Help Pages")
        run.click("link", text="More")
        run.click("link", text="Away")
        time.sleep(1)
        self.assertIsNotNone(run.find("link", text="Away"), "the page was left")
        run.display.ask_to_close("Brindlemoor Help")
        run.wait_gone("window", "HelpForm")
        run.choose("Help", "Help Pages")  # the same window again, with the first page
        run.wait_for("link", text="More")
        self.close_and_check(TITLE)

    def test_without_a_folder_the_shipped_games_are_copied_once(self):
        home = {"XDG_DATA_HOME": str(self.folder / "data")}
        run = harness.Program(self.display, self.folder, environment=home)
        self.started = run
        self.addCleanup(run.stop)
        run.wait_for("window", "ProfileMenu")
        self.close_and_check(CHOOSER)
        games = list((self.folder / "data" / "brindlemoor").glob("*.txt"))
        self.assertTrue(any("#GAMERULES" in game.read_text(encoding="utf-8") for game in games))

    def test_a_first_start_that_fails_is_told_of_and_mended(self):
        data = self.folder / "data"
        home = {"XDG_DATA_HOME": str(data)}
        limited = harness.Program(self.display, self.folder, environment=home, file_size=20_000)
        self.addCleanup(limited.stop)
        message = limited.wait_for("dialog").text
        self.assertIn("The games can't be copied", message)
        self.assertIn("too large", message)
        limited.click("button", "OK")
        self.assertEqual(limited.wait_for_end(), 1)
        self.assertEqual([entry.name for entry in data.iterdir()], [], "something was left")
        self.started = harness.Program(self.display, self.folder, environment=home)
        self.addCleanup(self.started.stop)
        self.started.wait_for("window", "ProfileMenu")
        self.assertTrue((data / "brindlemoor" / "Wickwater.txt").exists())
        self.close_and_check(CHOOSER)

    def test_a_folder_that_cannot_be_used_is_named(self):
        run = self.start(self.folder / "nowhere")
        self.assertIn("nowhere", run.wait_for("dialog").text)
        run.click("button", "OK")
        self.assertEqual(run.wait_for_end(), 1)


class CommandLine(unittest.TestCase):
    def run_program(self, *arguments):
        variables = {name: value for name, value in os.environ.items()
                     if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        return subprocess.run([harness.program(), *arguments], env=variables, timeout=60,
                              capture_output=True, text=True, check=False)

    def test_what_needs_no_window_works_without_a_display(self):
        for arguments, code, stream, words in [
                (["--help"], 0, "stdout", "--seed"),
                (["--version"], 0, "stdout", "Beta 1.0"),
                (["--seed", "x"], 2, "stderr", "--seed needs a number"),
                (["--journal="], 2, "stderr", "--journal needs a file"),
                (["--open"], 2, "stderr", "--open needs an archive"),
                (["--open", "a.zip", "--journal", "b"], 2, "stderr", "--open goes neither"),
                (["--fast"], 2, "stderr", '"--fast"'),
                (["a", "b"], 2, "stderr", "More than one folder"),
                ([tempfile.gettempdir()], 1, "stderr", "no display")]:
            with self.subTest(arguments=arguments):
                result = self.run_program(*arguments)
                self.assertEqual(result.returncode, code)
                self.assertIn(words, getattr(result, stream))


if __name__ == "__main__":
    harness.main()
