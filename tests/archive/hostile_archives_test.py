"""Archives of strangers on the terminal: each kind that is refused, and nothing written for any."""

import io
import os
import pathlib
import subprocess
import tarfile
import tempfile
import unittest
import warnings
import zipfile

BRINDLE = os.environ.get("BRINDLE_PROGRAM", "")
RULES = "#GAMERULES, Goblins, , #102030, goblins, \n"
UNIX = 3
LINK, DEVICE = 0o120777, 0o020666


def entry(name, mode=0o100644, system=UNIX):
    info = zipfile.ZipInfo("placeholder")
    info.filename = name  # as it is, without what the constructor makes of it
    info.create_system = system
    info.external_attr = mode << 16
    info.compress_type = zipfile.ZIP_DEFLATED
    return info


def archive(*entries):
    """A zip archive with a game and entries of (info or name, bytes)."""
    buffer = io.BytesIO()
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")  # of names that are there twice
        with zipfile.ZipFile(buffer, "w") as made:
            made.writestr(entry("Goblins.txt"), RULES)
            for info, content in entries:
                made.writestr(entry(info) if isinstance(info, str) else info, content)
    return buffer.getvalue()


def renamed(name, raw):
    """An archive whose second entry has a name of any bytes."""
    made = archive((name, "x"))
    assert len(name) == len(raw)
    return made.replace(name.encode(), raw)


def encrypted():
    made = bytearray(archive(("art/a.png", "x")))
    for mark, flags in ((b"PK\x03\x04", 6), (b"PK\x01\x02", 8)):
        at = made.rfind(mark)
        made[at + flags] |= 1
    return bytes(made)


def lying_size():
    """Headers say of a file of zeros that it unpacks to ten bytes."""
    size = 64 << 20
    made = archive(("art/a.png", bytes(size)))
    return made.replace(size.to_bytes(4, "little"), (10).to_bytes(4, "little"))


def tar(compression=""):
    buffer = io.BytesIO()
    with tarfile.open(fileobj=buffer, mode="w:" + compression) as made:
        info = tarfile.TarInfo("Goblins.txt")
        info.size = len(RULES)
        made.addfile(info, io.BytesIO(RULES.encode()))
    return buffer.getvalue()


CASES = [
    ("link", archive((entry("art/a.png", LINK), "/etc/passwd")), "is a link"),
    ("device", archive((entry("art/a.png", DEVICE), "")), "neither a file nor a folder"),
    ("absolute", archive(("/tmp/a.txt", "x")), "is absolute"),
    ("upwards", archive(("../a.txt", "x")), "leads to another folder"),
    ("upwards inside", archive(("art/../../a.txt", "x")), "leads to another folder"),
    ("drive", archive(("C:/a.txt", "x")), "has a drive letter"),
    ("backslash", archive(("..\\a.txt", "x")), "has a backslash"),
    ("backslash of another system", archive((entry("art\\a.png", system=0), "x")),
     "\"art\\a.png\", which has a backslash"),
    ("no UTF-8", renamed("art/xxxx.png", b"art/\xff\xfe\xfd\xfc.png"), "is no UTF-8"),
    ("cut off by a zero", renamed("a.pngxxx.png", b"../a\0xxx.png"), "leads to another folder"),
    ("twice", archive(("art/a.png", "1"), ("art/a.png", "2")), "is there twice"),
    ("twice, other letters", archive(("goblins.TXT", "x")), "is there twice"),
    ("folder of a folder", archive(("a/b/c.png", "x")), "in a folder of a folder"),
    ("program", archive(("run.sh", "x")), "of no kind"),
    ("player", archive(("Ann_Goblins.plr", "x")), "or a player has"),
    ("list of players", archive(("PlayerProfiles.txt", "x")), "or a player has"),
    ("page of the program", archive(("Display.html", "x")), "or a player has"),
    ("stage", archive((".brindlemoor-opening/list", "x")), "is hidden"),
    ("encrypted", encrypted(), "is encrypted"),
    ("bomb", archive(("art/a.png", bytes(64 << 20))), "times its own size"),
    ("bomb that lies", lying_size(), ""),
    ("crowd", archive(*((f"art/{n}.png", "") for n in range(10_001))), "more than 10000 entries"),
    ("no entries", b"PK\x05\x06" + bytes(18), "no zip archive"),
    ("cut off", archive(("art/a.png", os.urandom(4000)))[:-30], "archive"),
    ("tar", tar(), "no zip archive"),
    ("packed tar", tar("gz"), "no zip archive"),
    ("nothing", b"", "no zip archive"),
]


@unittest.skipUnless(BRINDLE, "BRINDLE_PROGRAM is not set")
class HostileArchives(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.top = pathlib.Path(folder.name)
        self.archive = self.top / "game.zip"
        self.games = self.top / "games"
        self.games.mkdir()

    def files(self):
        return {str(path.relative_to(self.top)): path.read_bytes()
                for path in self.top.rglob("*") if path.is_file() and path != self.archive}

    def unpack(self, content, *options):
        self.archive.write_bytes(content)
        return subprocess.run([BRINDLE, "unpack", self.archive, self.games, *options],
                              capture_output=True, text=True, timeout=120, cwd=self.top)

    def test_each_is_refused_with_its_reason(self):
        for name, content, reason in CASES:
            with self.subTest(name):
                result = self.unpack(content)
                self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
                self.assertIn(reason, result.stderr)
                self.assertEqual(self.files(), {})

    def test_a_link_of_the_folder_is_not_followed(self):
        outside = self.top / "outside"
        outside.mkdir()
        (self.games / "art").symlink_to(outside)
        result = self.unpack(archive(("art/a.png", "x")))
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertEqual(list(outside.iterdir()), [])

    def test_an_honest_one_is_unpacked_and_nothing_replaced_unasked(self):
        made = archive(("goblins/Cards.txt", "cards"), ("art/M\u00f6we.png", "gull"))
        self.assertEqual(self.unpack(made, "--list").returncode, 0)
        self.assertEqual(self.files(), {})
        result = self.unpack(made)
        self.assertEqual(result.returncode, 0, result.stderr)
        opened = {"games/Goblins.txt": RULES.encode(), "games/goblins/Cards.txt": b"cards",
                  "games/art/M\u00f6we.png": b"gull"}
        self.assertEqual(self.files(), opened)
        (self.games / "goblins" / "Cards.txt").write_text("mine")
        result = self.unpack(made)
        self.assertEqual(result.returncode, 1)
        self.assertIn("differs: goblins/Cards.txt", result.stdout)
        self.assertEqual(self.unpack(made, "--keep").returncode, 0)
        self.assertEqual(self.files(), {**opened, "games/goblins/Cards.txt": b"mine"})
        self.assertEqual(self.unpack(made, "--replace").returncode, 0)
        self.assertEqual(self.files(), {**opened, "games/goblins/Cards.txt.old~": b"mine"})


if __name__ == "__main__":
    unittest.main()
