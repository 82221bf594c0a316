"""The steps of the help page on the card editor, followed as they are written, and the links of all
help pages."""

import os
import re
import time
import unittest
from html.parser import HTMLParser

import harness
from card_editor_test import CardEditorTest
from shipped_game import GAMES, TITLE

PAGE = GAMES / "help/CardEditor.html"
HELP = "Brindlemoor Help"
BOXES = {"Name": "CardText(0)", "Card Description": "DescText"}
LISTS = {"Target Type": "TargetCombo(0)", "Trigger": "TriggerCombo(0)", "1": "Combo1(0)",
         "2": "Combo1(1)"}
BUTTONS = {"Add Effect": "EffButton(0)"}  # there is one in each row
PIECES = {"1": [(20, 30), (240, 360)], "2": [(60, 90), (210, 240)]}
WINDOWS = {"Card Editor": "CardEdit", "Add Effect": "EffectPicker", "Take Turn": "MainWindow"}


class Steps(HTMLParser):
    """What the page tells to do, in order: (order, text that the reader sees), and its pictures."""

    def __init__(self, page):
        super().__init__()
        self.steps = []
        self._order = None
        self._text = ""
        self.feed(page.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag == "li" and "data-do" in values:
            self._order, self._text = values["data-do"], ""
        if tag == "img":
            self.steps.append((f"picture: {values['src']}", values["src"]))

    def handle_data(self, data):
        self._text += data

    def handle_endtag(self, tag):
        if tag == "li" and self._order:
            self.steps.append((self._order, " ".join(self._text.split())))
            self._order = None


class HelpSteps(CardEditorTest):
    pictures = "steps"

    def setUp(self):
        super().setUp()
        self.new_player(7)

    def follow(self, order, text):
        """Does what a step says; every word of its order must stand in the step's text."""
        word, argument = order.split(": ", 1)
        if word != "picture":
            for part in re.split(r" / | = |/", argument) if word != "trait" else argument[4:].split():
                self.assertIn(part, text + " first second 1 2" if word == "list" else text, order)
        getattr(self, "do_" + word)(argument)

    def do_menu(self, argument):
        title, entry = argument.split(" / ", 1)
        self.run_.choose(title, entry)
        if entry in WINDOWS:
            self.run_.wait_for("window", WINDOWS[entry])
            self.run_.wait_gone("window", "MainWindow")
            self.run_.fill_screen(entry)

    def do_file(self, argument):
        self.name_file(self.folder / argument)
        time.sleep(0.5)

    def do_press(self, argument):
        before = self.report()
        if argument in BUTTONS:
            self.run_.click("control", BUTTONS[argument])
            self.run_.wait_for("window", WINDOWS[argument])
            return
        self.run_.click("control", text=argument)
        if argument == "Take Turn":
            harness.wait_until("the report", lambda: self.report() != before)

    def do_type(self, argument):
        box, text = argument.split(" = ")
        self.fill(BOXES[box], text)

    def do_trait(self, argument):
        row, content = argument.split(" = ")
        name, value = content.split()
        self.fill(f"TraitText({int(row) - 1})", name)
        self.fill(f"ValueText({int(row) - 1})", value)

    def do_list(self, argument):
        """A slow machine takes letters apart that belong together, and chooses another entry."""
        name, entry = argument.split(" = ")
        for _ in range(3):
            self.pick(LISTS[name], entry)
            time.sleep(1)
            if self.run_.find("field") or self.run_.find("control", LISTS[name], entry):
                return

    def do_answer(self, argument):
        self.run_.answer(argument)

    def do_message(self, argument):
        self.run_.dismiss(argument)
        if self.run_.find("window", "DeckManager"):
            self.run_.fill_screen("Deck Manager")

    def do_card(self, argument):
        def shown():
            return next((p for p in self.run_.places()
                         if p.name.startswith("CollectPic(") and p.text == argument), None)
        self.run_.click("control", harness.wait_until(argument, shown).name)
        self.run_.wait_for("control", text=argument)

    def do_table(self, argument):
        self.run_.wait_for("window", "MainWindow")
        self.run_.fill_screen(TITLE)
        harness.wait_until("the table", lambda: self.title_card(argument))
        self.click_card(argument)

    def do_link(self, argument):
        self.run_.click("link", text=argument)
        harness.wait_until("the plan", lambda: "uses special action" in self.run_.page())

    def do_image(self, argument):
        self.run_.click("control", "MainPic")
        self.run_.wait_for("window", "PicPick")

    def do_folder(self, argument):
        self.display.click(*self.run_.at_rest("control", "Dirbox").center)
        self.display.key("Home")
        self.display.type(argument)
        self.display.key("Return")

    def do_pick(self, argument):
        def picture():
            return next((p for p in self.run_.places()
                         if p.name.startswith("PicNameLabel") and p.text.endswith(".jpg")
                         and "-mini" not in p.text), None)
        label = harness.wait_until("a picture", picture)
        self.run_.click("control", label.name.replace("PicNameLabel", "Image1"))

    def do_piece(self, argument):
        """Two corners of the large picture."""
        box = self.run_.at_rest("control", "Image2")
        for x, y in PIECES[argument]:
            self.display.move(box.x + x - 5, box.y + y)
            self.display.click(box.x + x, box.y + y)
        if argument == "2":
            self.run_.wait_gone("window", "PicPick")

    def do_picture(self, argument):
        self.keep(argument.removesuffix(".jpg"))

    def test_the_steps_make_a_card_with_a_menu_action(self):
        steps = Steps(PAGE).steps
        self.assertGreater(len(steps), 40)
        for order, text in steps:
            self.follow(order, text)
            if order == "press: Done":
                script = re.search(r"It reads (.*)$", text)[1]
                self.shows("EffText(0)", script)
            if order == "press: Take Turn":
                told = re.search(r"The report says: (.*)$", text)[1]
                plain = " ".join(re.sub("<[^>]*>", "", self.report()).split())
                self.assertIn(told, plain)
                self.assertRegex(plain, r"Dormouse Watch has \+?19/18 HP left")
        self.run_.wait_for("window", "CardEdit")
        saved = (self.folder / "yawnwood/GlowCards.txt").read_text(encoding="utf-8")
        self.assertIn("#EFFECT, OWNER, MENU:PHASE1:Glow, "
                      '"MODTRAIT:HP:1:ECHO:$MYNAME glows. $TARGETNAME is wide awake.:"', saved)
        self.assertEqual(saved.count("#CARD, COLLECTION"), 2)


class HelpLinks(CardEditorTest):
    pictures = "help"

    def setUp(self):
        super().setUp()
        self.new_player(7)

    def links(self, page):
        text = (self.folder / page).read_text(encoding="utf-8")
        return re.findall(r'<a href="([^"#]+)(?:#[^"]*)?"', text)

    def test_every_link_of_every_page_leads_to_a_page(self):
        self.run_.choose("Help", "Help Pages")
        self.run_.wait_for("window", "HelpForm", HELP)
        waiting, seen = ["MainHelp.html"], set()
        while waiting:
            page = waiting.pop()
            if page in seen:
                continue
            seen.add(page)
            folder = os.path.dirname(page)
            waiting += [os.path.normpath(os.path.join(folder, link)) for link in self.links(page)]
            text = (self.folder / page).read_text(encoding="utf-8")
            for picture in re.findall(r'<img src="([^"]+)"|<link rel="stylesheet" href="([^"]+)"',
                                      text):
                part = self.folder / folder / (picture[0] or picture[1])
                self.assertTrue(part.exists(), f"{page}: {part}")
            for anchor in re.findall(r'<a href="#([^"]+)"', text):
                self.assertIn(f'id="{anchor}"', text, page)
        self.assertIn("ScriptReference.html", seen, "the program has written it")
        self.assertGreaterEqual(len(seen), 7)

    def test_the_links_of_the_first_page_are_followed(self):
        for text, back in [("Your first game in ten pictures", "Help"),
                           ("Your own game in eight steps", "Help"),
                           ("A card with a menu action in the card editor", "Help"),
                           ("Reference: every word, with an example", "Help"),
                           ("Wickwater", None), ("Yawnwood", None)]:
            self.run_.choose("Help", "Help Pages")
            self.run_.wait_for("window", "HelpForm", HELP)
            self.run_.fill_screen(HELP)
            time.sleep(1)  # links are reported a little after the window
            self.run_.click("link", text=text)
            self.run_.wait_gone("link", text=text)
            time.sleep(0.5)
            self.keep(text.split(":")[0].replace(" ", "-"))
            if back:
                self.run_.click("link", text=back)
                self.run_.wait_for("link", text=text)
            self.display.ask_to_close(HELP)
            self.run_.wait_gone("window", "HelpForm")


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class HelpStepsOnABigScreen(HelpSteps):
    screen = "1920x1080"


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class HelpLinksOnABigScreen(HelpLinks):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
