"""What cmake --install lays down: every file that a package promises, papers that name what the programs
know, and completion as a shell asks for it."""

import gzip
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

BUILD = os.environ.get("BRINDLEMOOR_BUILD", "")

# Component, program and what belongs to it beside the papers that every program has.
PROGRAMS = {
    "brindle": ("terminal", ["share/brindle/games/Wickwater.txt", "share/brindle/games/art/spark.jpg"]),
    "brindlemoor": ("desktop", [
        "share/brindlemoor/games/Wickwater.txt", "share/brindlemoor/games/MainHelp.html",
        "share/applications/brindlemoor.desktop",
        "share/metainfo/org.example.brindlemoor.metainfo.xml",
        "share/icons/hicolor/scalable/apps/brindlemoor.svg",
        *(f"share/icons/hicolor/{size}x{size}/apps/brindlemoor.png"
          for size in (16, 22, 24, 32, 48, 64, 128, 256, 512))]),
}
PAPERS = ["bin/{0}", "share/man/man1/{0}.1.gz", "share/bash-completion/completions/{0}",
          "share/doc/{0}/changelog.gz", "share/doc/{0}/copyright"]


def output(*command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, text=True,
                          timeout=120).stdout


def names(text):
    """The options in a text, and the commands of a help."""
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", text)) | \
        set(re.findall(r"^  brindle ([a-z]+)", text, re.MULTILINE))


@unittest.skipUnless(BUILD, "BRINDLEMOOR_BUILD is not set")
class InstalledFiles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.top = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.top)
        for component, _ in PROGRAMS.values():
            output("cmake", "--install", BUILD, "--component", component,
                   "--prefix", cls.top / component)

    def place(self, program, *parts):
        return self.top.joinpath(PROGRAMS[program][0], *parts)

    def files(self, component):
        return {str(path.relative_to(self.top / component))
                for path in (self.top / component).rglob("*") if path.is_file()}

    def test_each_component_holds_its_files_and_none_of_the_other(self):
        found = {component: self.files(component) for component, _ in PROGRAMS.values()}
        for program, (component, files) in PROGRAMS.items():
            wanted = {file.format(program) for file in PAPERS} | set(files)
            self.assertEqual(wanted - found[component], set())
            for file in found[component]:
                self.assertNotRegex(file, r"\.(py|md|pyc)$|/drawing/")
        self.assertEqual(found["terminal"] & found["desktop"], set())

    def test_papers_name_what_the_help_names(self):
        for program in PROGRAMS:
            told = names(output(self.place(program, "bin", program), "--help"))
            self.assertGreater(len(told), 5)
            page = gzip.decompress(self.place(program, "share/man/man1", program + ".1.gz").read_bytes())
            page = page.decode().replace("\\-", "-")
            bash = self.place(program, "share/bash-completion/completions", program).read_text()
            [zsh] = self.place(program, "share/zsh").rglob("_" + program)
            for paper in (re.sub(r"\\f[BIR]", "", page), bash, zsh.read_text()):
                missing = {name for name in told if not re.search(rf"(?<![\w-]){name}(?![\w-])", paper)}
                self.assertEqual(missing, set(), program)
                self.assertEqual(names(paper) - told, set(), program)

    def test_manual_pages_are_formatted_without_a_warning(self):
        for program in PROGRAMS:
            page = self.place(program, "share/man/man1", program + ".1.gz")
            shown = subprocess.run(["man", "--warnings", "-l", page], capture_output=True, text=True, timeout=60,
                                   env={**os.environ, "MANWIDTH": "80", "LC_ALL": "C.UTF-8"}, check=True)
            self.assertEqual(shown.stderr, "")
            self.assertLessEqual(max(map(len, shown.stdout.splitlines())), 80)

    def completed(self, program, *words):
        """What bash offers for the last word; it takes "=" for a word."""
        script = self.place(program, "share/bash-completion/completions", program)
        quoted = " ".join(f"'{word}'" for word in (program, *words))
        told = output("bash", "-c", f"cd '{self.place(program, 'share')}'; . '{script}'; COMP_WORDS=({quoted}); "
                                    f"COMP_CWORD={len(words)}; _{program}; printf '%s\\n' \"${{COMPREPLY[@]}}\"")
        return set(told.split())

    def test_bash_completes_commands_options_and_files(self):
        games = "brindle/games"
        for program, words, wanted in (
                ("brindle", ["s"], {"scenario", "serve", "sim"}),
                ("brindle", ["--"], {"--help", "--version"}),
                ("brindle", ["sim", "--se"], {"--seed"}),
                ("brindle", ["pack", "--"], {"--game", "--out"}),
                ("brindle", ["sim", "--seed", ""], set()),
                ("brindle", ["auto", "bri"], {"brindle"}),
                ("brindle", ["auto", games + "/Wick"], set()),
                ("brindle", ["auto", games + "/wick"], {games + "/wickwater"}),
                ("brindle", ["check", games + "/Wick"],
                 {games + "/Wickwater.txt", games + "/WickwaterHelp.html"}),
                ("brindle", ["merge", "--csv", "=", games + "/Yawnwood."], {games + "/Yawnwood.txt"}),
                ("brindlemoor", ["--se"], {"--seed"}),
                ("brindlemoor", ["--open", "appl"], {"applications"})):
            with self.subTest(words=words):
                self.assertEqual(self.completed(program, *words), wanted)

    def test_desktops_take_the_entry_and_the_metadata(self):
        entry = self.place("brindlemoor", "share/applications/brindlemoor.desktop")
        self.assertEqual(output("desktop-file-validate", entry), "")
        [metadata] = self.place("brindlemoor", "share/metainfo").iterdir()
        output("appstreamcli", "validate", "--no-net", metadata)


if __name__ == "__main__":
    unittest.main()
