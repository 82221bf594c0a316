"""The shipped games packed, unpacked into a fresh folder and played there as where they came from."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

BRINDLE = os.environ.get("BRINDLE_PROGRAM", "")
GAMES = pathlib.Path(__file__).resolve().parents[2] / "games"


def brindle(*arguments, folder, zone="UTC"):
    return subprocess.run([BRINDLE, *map(str, arguments)], capture_output=True, text=True,
                          timeout=200, cwd=folder, env={**os.environ, "TZ": zone})


@unittest.skipUnless(BRINDLE, "BRINDLE_PROGRAM is not set")
class ShippedArchives(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.top = pathlib.Path(folder.name)
        self.games = self.top / "games"
        shutil.copytree(GAMES, self.games)
        (self.games / "Ann_Wickwater.plr").write_text("owned")

    def run_well(self, *arguments, **options):
        result = brindle(*arguments, folder=self.top, **options)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        return result.stdout

    def pages(self, game, name):
        """Those of a match, by file."""
        folder = self.top / name
        folder.mkdir()
        self.run_well("auto", self.games, "--game", game, "--seed", 5, "--pages", folder)
        pages = {page.name: page.read_bytes() for page in folder.iterdir()}
        self.assertGreater(len(pages), 3)
        return pages

    def unpack_alone(self, archive):
        """Into a folder of the same name: pages hold it."""
        shutil.rmtree(self.games)
        self.run_well("unpack", archive, self.games)

    def test_a_packed_game_plays_as_before(self):
        for game, other in (("Wickwater", "Yawnwood"), ("Yawnwood", "Wickwater")):
            with self.subTest(game):
                self.setUp()
                before = self.pages(game, "before")
                archive = self.top / f"{game}.zip"
                told = self.run_well("pack", self.games, "--game", game, "--out", archive)
                self.assertIn("left out: art/draw.py\n", told)
                self.assertIn(f"left out: {other}.txt\n", told)
                self.unpack_alone(archive)
                names = {path.name for path in self.games.rglob("*")}
                self.assertNotIn("Ann_Wickwater.plr", names)
                self.assertNotIn(f"{other}.txt", names)
                self.assertEqual(self.pages(game, "after"), before)
                self.run_well("check", self.games)

    def test_the_same_game_gives_the_same_bytes(self):
        made = []
        for zone in ("Pacific/Kiritimati", "America/Los_Angeles"):
            os.utime(self.games / "Yawnwood.txt", (len(made) * 86400, len(made) * 86400))
            (self.games / "Yawnwood.txt").chmod(0o600 if made else 0o644)
            self.run_well("pack", self.games, "--game", "yawnwood", "--out", "a.zip", zone=zone)
            made.append((self.top / "a.zip").read_bytes())
        self.assertEqual(made[0], made[1])

    def test_a_game_with_errors_is_not_packed(self):
        result = brindle("pack", self.games, folder=self.top)
        self.assertEqual(result.returncode, 2)
        self.assertIn("Wickwater, Yawnwood", result.stderr)
        (self.games / "art" / "yawnwood-banner.jpg").unlink()
        cards = self.games / "wickwater" / "WickwaterCards.txt"
        cards.write_text(cards.read_text().replace("STRIKE", "STRIKE, ,", 1))
        for game in ("Yawnwood", "Wickwater"):
            result = brindle("pack", self.games, "--game", game, folder=self.top)
            self.assertEqual(result.returncode, 1, game)
            self.assertIn(f"{game} is not packed", result.stderr)
            self.assertEqual(list(self.top.glob("*.zip")), [])
        self.assertIn("yawnwood-banner.jpg",
                      brindle("pack", self.games, "--game", "Yawnwood", folder=self.top).stderr)


if __name__ == "__main__":
    unittest.main()
