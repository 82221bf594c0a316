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
        self.pick("TargetCombo(0)", "SELF")
        self.pick("TriggerCombo(0)", "TURNEND")
        self.run_.click("control", "EffText(0)")
        self.display.type("REQTR")
        self.keep("suggested")
        self.display.key("Return")
        self.display.type("CREA")  # a name: the list chooses none by itself
        self.display.key("Down", "Tab")
        self.display.type(":sub")
        self.display.key("Down", "Down", "Return")
        self.display.type("HP:2")
        self.shows("EffText(0)", "REQTRAIT:CREATURE:SUBTRAIT:HP:2")
        self.shows("ScriptHint(0)", "If the target has CREATURE: takes 2 from the target's HP.")
        self.keep("sentence")
        self.display.type(":EKHO:Ouch")
        self.display.key("Escape")
        self.shows("ScriptHint(0)", "\"EKHO\" is no command. Did you mean ECHO?")
        self.keep("wrong")
        self.display.key("ctrl+z")
        self.shows("EffText(0)", "")
        self.display.key("ctrl+y", "Home", "F1")
        self.run_.wait_for("window", "HelpForm", HELP)
        self.keep("reference")

    def test_a_name_that_no_card_has_yet_can_be_typed(self):
        self.open_the_editor()
        self.new_card("Ember Snail")
        self.run_.click("control", "EffText(0)")
        self.display.type("REMOVETRAIT:CREA")
        self.display.key("Tab")  # leaves the box
        self.display.type("x")
        self.shows("EffText(0)", "REMOVETRAIT:CREA")


if __name__ == "__main__":
    harness.main()
