"""Composing the card images of a folder on the command line, without a display."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import harness

SHIPPED = Path(__file__).resolve().parents[2] / "games"
CARD = '#CARD, COLLECTION, "Ape", "Ape1", , {0}.jpg, {0}-mini.jpg, #00FF00, ""\n'
RECIPE = "ape.jpg\tspark.jpg\tbacks-generic.bmp\t\t0\t270\t0\t400\t0\t200\t0\t200\n"


class Compose(unittest.TestCase):
    def setUp(self):
        if not harness.program():
            self.skipTest("BRINDLEMOOR_PROGRAM is not set")
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.folder = Path(place.name)
        (self.folder / "art").mkdir()
        (self.folder / "Cards.txt").write_text(CARD.format("ape"), encoding="utf-8")
        for name in ("spark.jpg", "backs-generic.bmp"):
            shutil.copy(SHIPPED / "art" / name, self.folder / "art")
        (self.folder / "art" / "CardImages.list").write_text(RECIPE, encoding="utf-8")

    def run_program(self, *arguments):
        bare = {key: value for key, value in os.environ.items()
                if key not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        return subprocess.run([harness.program(), *map(str, arguments)], env=bare, check=False,
                              capture_output=True, text=True, timeout=120)

    def test_images_are_written_without_a_display(self):
        large, mini = self.folder / "art" / "ape.jpg", self.folder / "art" / "ape-mini.jpg"
        result = self.run_program(self.folder, "--compose")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("1 image composed.", result.stdout)
        for file in (large, mini):
            self.assertEqual(file.read_bytes()[:3], b"\xff\xd8\xff")
        whole = large.stat().st_size
        self.assertEqual(self.run_program(self.folder, "--compose", "--quality=50").returncode, 0)
        self.assertLess(large.stat().st_size, whole / 2)

    def test_what_is_missing_is_told_and_the_old_image_stays(self):
        large = self.folder / "art" / "ape.jpg"
        large.write_text("old", encoding="utf-8")
        (self.folder / "art" / "spark.jpg").unlink()
        result = self.run_program(self.folder, "--compose")
        self.assertEqual(result.returncode, 1)
        self.assertIn("not read or written: spark.jpg", result.stderr)
        self.assertEqual(large.read_text(encoding="utf-8"), "old")

    def test_a_wrong_command_line_is_refused(self):
        for words in (["--compose"], [self.folder, "--quality", "50"],
                      [self.folder, "--compose", "--quality", "101"],
                      [self.folder, "--compose", "--quality"]):
            result = self.run_program(*words)
            self.assertEqual(result.returncode, 2, words)
            self.assertIn("Usage: brindlemoor", result.stderr)
        self.assertEqual(self.run_program(self.folder / "nowhere", "--compose").returncode, 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)
