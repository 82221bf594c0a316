"""The road of a card's picture: from a photo over the picture picker and the card's files to the
table."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import harness
from card_editor_test import CHOOSE_CARDS, CHOOSE_RULES, EDITOR, CardEditorTest
from shipped_game import DECKS, TITLE

PICKER = "Picture Viewer"
COMPOSE = "Compose 2 images anew?  The present ones are replaced."
PARTS = ("Take the background sea.bmp and the thumbnail border (none) for all of them, in place of "
         "each one's own?")
COPIED = "Copied beside the cards, where the game finds it: "
HARBOUR, REEF = "Ember Harbour", "Ember Reef"
QUARTERS = {"red": (220, 40, 40), "green": (40, 180, 60), "blue": (50, 70, 220),
            "yellow": (240, 220, 60)}
SEA = (20, 120, 130)
FRAME = (128, 64, 192)
LIGHT = tuple(min(255, part * 5 // 4) for part in FRAME)
DARK = tuple(part // 2 for part in FRAME)
# Corners of the two pieces, in pixels of the large picture, one of which is eight of the photo. The
# first piece is the photo's middle.
PIECES = [(160, 50), (340, 330), (10, 10), (110, 110)]


def colour(rgb):
    return f"rgb{rgb}"


def distance(one, other):
    return max(abs(a - b) for a, b in zip(one, other))


class Picture:
    """A picture file that can be asked for its pixels."""

    def __init__(self, *source):
        header = subprocess.run(["convert", *map(str, source), "-depth", "8", "ppm:-"],
                                capture_output=True, check=True, timeout=60).stdout
        _, size, _, self._pixels = header.split(b"\n", 3)
        self.size = tuple(int(part) for part in size.split())

    def at(self, x, y):
        start = 3 * (y * self.size[0] + x)
        return tuple(self._pixels[start:start + 3])

    def area(self, rgb):
        """About how many pixels have a colour; every fourth of every fourth row is looked at."""
        width, height = self.size
        return 16 * sum(distance(self.at(x, y), rgb) < 24
                        for y in range(0, height, 4) for x in range(0, width, 4))


@unittest.skipUnless(shutil.which("convert") and shutil.which("import"), "needs ImageMagick")
class CardImages(CardEditorTest):
    pictures = "image"

    def setUp(self):
        super().setUp()
        self.photos = Path(tempfile.mkdtemp(prefix="photos-")) / "harbour"
        self.addCleanup(shutil.rmtree, self.photos.parent, ignore_errors=True)
        self.photos.mkdir()
        self.take_photos()
        self.new_player(7)

    def take_photos(self):
        """One large photo of four colours, small ones around it, and the plain sea."""
        red, green, blue, yellow = (f"xc:{colour(rgb)}" for rgb in QUARTERS.values())
        quarter = ["-size", "2000x1500"]
        self.convert("(", *quarter, red, green, "+append", ")", "(", blue, yellow, "+append", ")",
                     "-append", "-quality", "92", self.photos / "harbour.jpg")
        small = []
        for number in range(27):
            size = "90x160" if number % 3 == 0 else "200x120"
            small += ["-size", size, f"gradient:hsl({number * 13},60%,50%)-black"]
        self.convert(*small, self.photos / "pic%02d.jpg")
        self.convert("-size", "300x450", f"xc:{colour(SEA)}", self.photos / "sea.bmp")

    @staticmethod
    def convert(*arguments):
        subprocess.run(["convert", *map(str, arguments)], check=True, timeout=60)

    def near(self, picture, place, expected, what, most=24):
        seen = picture.at(*place)
        self.assertLess(distance(seen, expected), most,
                        f"{what} at {place} is {seen}, not about {expected}")

    def screen_picture(self, name, kind="control"):
        """What is seen of a control."""
        box = self.run_.at_rest(kind, name)
        whole = self.folder / "screen.png"
        self.display.screenshot(whole)
        return Picture(whole, "-crop", f"{box.width}x{box.height}+{box.x}+{box.y}", "+repage")

    def make_a_card(self, name):
        self.new_card(name)
        for row, (trait, value) in enumerate([("PLAYER", 1), ("HP", 40), ("MONSTERS", 8)]):
            self.fill(f"TraitText({row})", trait)
            self.fill(f"ValueText({row})", value)

    def go_to_the_photos(self):
        """Over the drive and its folders, by the first letters of their names."""
        self.run_.wait_for("window", "PicPick", PICKER)
        drive = self.run_.at_rest("control", "Drive1").text
        self.run_.click("control", "Drive1")
        self.display.xdotool("sleep", 0.3, "key", "Return")
        self.run_.wait_for("control", "CountLabel", "No pictures in this folder")
        for part in self.photos.relative_to(drive).parts:
            self.display.click(*self.run_.at_rest("control", "Dirbox").center)
            self.display.key("Home")
            self.display.type(part)
            self.display.key("Return")
            # A click or a letter too soon would be the second of a double click, or of one search.
            self.display.xdotool("sleep", 0.6)
        self.run_.wait_for("control", "CountLabel", "Pictures 1 to 20 of 30")
        self.keep("folder")

    def click_photo(self, name):
        self.run_.click("control", self.cell_of(name))

    def cell_of(self, name):
        label = self.run_.wait_for("control", text=name)
        return label.name.replace("PicNameLabel", "Image1")

    def crop(self):
        corner = self.run_.at_rest("control", "Image2")
        for step, (x, y) in enumerate(PIECES):
            self.display.move(corner.x + x - 20, corner.y + y - 15)
            if step % 2 == 1:
                self.keep(f"guide-{step}")
            self.display.click(corner.x + x, corner.y + y)
        self.run_.wait_gone("window", "PicPick")

    def compose(self):
        self.run_.click("control", "MainPic")
        self.go_to_the_photos()
        self.click_photo("harbour.jpg")
        self.run_.wait_for("control", "Label1",
                           "Choose Upper Left Coordinates of Main Card Picture")
        self.crop()
        self.check_large(self.screen_picture("MainPic"))
        self.keep("composed")

    def check_large(self, picture, frame=None, back=None):
        self.assertEqual(picture.size, (300, 450))
        for place, rgb in zip([(80, 120), (220, 120), (80, 330), (220, 330)], QUARTERS.values()):
            self.near(picture, place, rgb, "the photo")
        if frame:
            self.near(picture, (17, 120), LIGHT, "the frame's left side", 60)
            self.near(picture, (283, 300), DARK, "the frame's right side", 60)
        if back:
            self.near(picture, (5, 5), back, "the background")

    def choose_the_colour(self):
        self.run_.click("control", "ColorLabel")
        field = harness.wait_until("the colour's name", lambda: next(
            (p for p in self.run_.places() if p.kind == "field" and p.text.startswith("#")), None))
        self.display.click(*field.center)
        self.display.key("ctrl+a")
        self.display.type("#{:02x}{:02x}{:02x}".format(*FRAME))
        self.run_.click("button", "OK")
        self.run_.wait_gone("field")
        self.keep("coloured")
        self.check_large(self.screen_picture("MainPic"), frame=True)

    def take_the_sea_behind(self):
        self.run_.choose("Graphic", "Load new Background Image")
        self.run_.wait_for("window", "PicPick", PICKER)
        close = self.run_.at_rest("control", "CloseButton")
        window = self.run_.find("window", "PicPick")
        self.assertLess(close.y + close.height, window.y + window.height)
        self.keep("again")
        self.click_photo("sea.bmp")
        self.run_.wait_gone("window", "PicPick")
        self.check_large(self.screen_picture("MainPic"), frame=True, back=SEA)

    def images_of(self, name):
        """The two files of a card as the card file names them."""
        card = self.saved_file.read_text(encoding="utf-8").split(f'#CARD, COLLECTION, "{name}"')[1]
        large, mini = re.findall(r'Card-[^,"]*', card.split("\n")[0])
        self.assertEqual(mini, large.replace(".jpg", "-mini.jpg"))
        return large, mini

    def save_the_card(self):
        self.run_.click("control", text="Save Card")
        self.shows("CardCombo", HARBOUR)
        self.shows("FindNote", COPIED + "harbour.jpg, sea.bmp.")
        self.save()
        self.large, self.mini = self.images_of(HARBOUR)
        self.check_files()

    def check_files(self):
        folder = self.file.parent
        self.check_large(Picture(folder / self.large), frame=True, back=SEA)
        mini = Picture(folder / self.mini)
        self.assertEqual(mini.size, (65, 65))
        self.near(mini, (32, 32), QUARTERS["red"], "the thumbnail")
        self.near(mini, (1, 32), FRAME, "the thumbnail's frame", 60)

    def take_any_photo(self):
        """The second card's image is made of a photo by chance."""
        self.make_a_card(REEF)
        self.run_.click("control", "Command3")
        self.run_.click("control", text="Save Card")
        self.shows("CardCombo", REEF)
        self.keep("random")
        self.run_.choose("File", "Save Cards")
        self.run_.wait_for("window", "CardEdit", EDITOR)
        self.assertEqual(Picture(self.file.parent / self.images_of(REEF)[0]).size, (300, 450))

    def compose_all(self):
        """With the files gone there is proof that they are made again, and of what is the game's."""
        shutil.rmtree(self.photos)
        for image in (self.large, self.mini):
            (self.file.parent / image).unlink()
        self.run_.choose("Graphic", "Compose All Images")
        for question, answer in [(COMPOSE, "Yes"), (PARTS, "No")]:
            self.run_.wait_for("dialog", text=question)
            self.keep(f"compose-{answer}")
            self.run_.click("button", answer)
        self.run_.dismiss("2 images composed.  No parts are recorded for "
                          f"{self.total} cards.")
        self.check_files()

    def print_the_cards(self):
        self.run_.choose("File", "Print Cards")
        self.run_.click("menu", text="A4...")
        document = self.folder / "cards.pdf"
        self.name_file(document)
        sheets = (self.total + 2 + 8) // 9
        self.run_.dismiss(f"{self.total + 2} cards on {sheets} sheets.")
        pages = document.read_bytes()
        self.assertTrue(pages.startswith(b"%PDF-") and pages.rstrip().endswith(b"%%EOF"))
        self.assertEqual(len(re.findall(rb"/Type\s*/Page\b", pages)), sheets)

    def play(self):
        """The card stands on both sides, and one lies in the hand."""
        self.run_.choose("File", "Test Cards")
        self.run_.dismiss(CHOOSE_CARDS)
        self.run_.fill_screen(DECKS)
        for place in range(3):
            self.run_.click("control", f"Option1({place})")
            self.fill("SearchText", HARBOUR)
            self.run_.wait_for("control", "SearchCount", "1 found")
            self.run_.click("control", "CollectPic(0)")
            self.shows("DeckPic(0)", HARBOUR)
        self.keep("position")
        self.run_.click("control", text="PLAY!")
        self.run_.dismiss(CHOOSE_RULES)
        self.name_file(self.folder / "Wickwater.txt")
        self.run_.wait_for("window", "MainWindow")
        self.run_.fill_screen(TITLE)
        harness.wait_until("both sides", lambda: self.report().count(self.mini) == 2)
        self.keep("table")

    def look_at_the_table(self):
        """Both thumbnails are on the page, and the pointer over a card shows its large image."""
        harness.wait_until("the thumbnails", lambda:
                           self.screen_picture("WB", "view").area(QUARTERS["red"]) > 2 * 40 * 40)
        hand = self.run_.at_rest("control", "Picture2(1)")
        self.display.move(*hand.center)
        self.keep("closely")
        seen = self.screen_picture("MainWindow", "window")
        self.near(seen, hand.center, QUARTERS["red"], "the card in the hand")
        for name, rgb in QUARTERS.items():
            self.assertGreater(seen.area(rgb), 90 * 140, f"{name} of the large image")

    def test_the_road_of_a_picture(self):
        self.open_the_editor()
        self.make_a_card(HARBOUR)
        self.compose()
        self.choose_the_colour()
        self.take_the_sea_behind()
        self.save_the_card()
        self.take_any_photo()
        self.compose_all()
        self.print_the_cards()
        self.play()
        self.look_at_the_table()
        self.run_.choose("File", "Quit / New Game")
        self.shows("cardtotal", f"Total Cards: {self.total + 2}")
        self.leave()
        self.close_and_check(TITLE)


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class CardImagesOnABigScreen(CardImages):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
