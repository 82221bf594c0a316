"""The box of an action script: colours, suggestions, its sentence, and help on a word."""

import unittest

import harness
from card_editor_test import EDITOR, CardEditorTest

HELP = "Brindlemoor Help"


class ScriptBox(CardEditorTest):
    pictures = "script"

    def setUp(self):
        super().setUp()
        self.new_player(7)

    def test_a_script_is_typed_with_what_the_box_suggests(self):
        self.open_the_editor()
        self.new_card("Ember Snail")
        self.run_.click("control", "EffText(0)")
        self.display.type("REQTR")
        self.keep("suggested")
        self.display.key("Return")
        self.display.type("CREA")
        self.display.key("Tab")
        self.display.type(":sub")
        self.display.key("Down", "Down", "Return")
        self.display.type("HP:")
        self.display.key("ctrl+space")
        self.keep("values")
        self.display.key("Escape")
        self.display.type("2:EKHO:Ouch")
        self.display.key("Escape")
        self.keep("wrong")
        self.assertEqual("REQTRAIT:CREATURE:SUBTRAIT:HP:2:EKHO:Ouch",
                         self.run_.find("control", "EffText(0)").text)
        self.display.key("F1")
        self.run_.wait_for("window", "HelpForm", HELP)
        self.keep("scripts")
        for word in ("REQTRAIT", "SUBTRAIT"):
            self.display.xdotool("search", "--name", EDITOR, "windowraise", "windowfocus")
            self.run_.click("control", "EffText(0)")
            self.display.key("Home", *["ctrl+Right"] * (0 if word == "REQTRAIT" else 4))
            self.display.key("F1")
            self.keep(word)


if __name__ == "__main__":
    harness.main()
