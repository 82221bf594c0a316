"""A whole match of the shipped game, played with the pointer: from a new player to the victory and
on to the next game."""

import os
import time
import unittest

import harness
import shipped_game

LAMP = "Turn the lamp on an enemy (2 oil)"
CHEST, OONA = 2, 4  # places in the list of games
TURNS = 40
LEFT_IN = 5  # the turn in which the program is closed
VICTORY = "The water is yours tonight!"
MATCHES = 4
PRIZE = 40  # tokens for a victory over the first opponent
CONSOLATION = 10  # and for a loss
CHEST_CARDS = 31


class Match(shipped_game.ShippedGameTest):
    pictures = "match"
    came_back = False

    def start(self, *arguments, environment=None):
        run = super().start(*arguments, environment=environment)
        run.wait_for("window", "ProfileMenu")
        return run

    def plan(self):
        """What the play menu lists."""
        return self.run_.page()

    def choose_opponent(self, number, deck=None):
        """Begins a match; deck is what to do in the deck manager, if it comes."""
        before = self.report()
        self.run_.click("link", f"WB GAME:1:{number}")
        if deck:
            self.run_.wait_for("window", "DeckManager")
            deck()
            self.run_.click("control", "Command2")
        harness.wait_until("the first report", lambda: self.report() != before)
        self.run_.wait_gone("link", f"WB GAME:1:{number}")

    def take_turn(self):
        before = self.report()
        self.run_.click("control", "Command1")
        harness.wait_until("the next report", lambda: self.report() != before)
        time.sleep(0.3)

    def open_chest(self):
        self.choose_opponent(CHEST)
        self.assertIn("The chest is open.", self.report())
        self.keep("chest")
        self.back_to_the_list()
        self.assertIn("#CARD", self.saved())

    def aim_the_lamp(self):
        """The menu action of the player's own card, aimed at the other lighthouse."""
        self.click_card("Attic Light")
        self.run_.wait_for("link", text=LAMP)
        self.keep("description")
        self.go_on_to_the_hand()
        self.click_card("Attic Light")
        self.run_.at_rest("link", text=LAMP)
        self.display.key("Return")  # the keyboard is on the link
        said = f"Choose a target for Attic Light: {LAMP}.  Esc stops."
        self.run_.wait_for("control", "AimWords", said)
        self.display.key("Escape")
        self.run_.wait_gone("control", "AimWords", said)
        self.run_.click("link", text=LAMP)
        self.run_.wait_for("control", "AimWords", said)
        self.keep("aiming")
        self.click_card("Oona Ebb")
        harness.wait_until("the lamp in the plan", lambda: "uses special action" in self.plan())
        self.assertIn('on "Oona Ebb.<br>', self.plan())

    def go_on_to_the_hand(self):
        """The keyboard leaves a page for a card of the hand, which is shown without a wait."""
        self.display.key("Tab")
        harness.wait_until("a card of the hand beside the report",
                           lambda: LAMP not in self.run_.page("CardDesc.html"), 5)
        self.run_.at_rest("control", "Command1")
        self.run_.wait_gone("work", seconds=5)

    def ask_for_a_hint(self):
        plan = self.plan()
        self.run_.choose("Help", "Hint")
        harness.wait_until("the hint", lambda: "the best card first" in self.run_.page("CardDesc.html"))
        self.keep("hint")
        self.assertEqual(self.plan(), plan)

    def queue_hand(self, target=None):
        """Queues every card of the hand; the first one is aimed at a card if one is named."""
        pictures = [place for place in self.run_.places() if place.name.startswith("Picture2(")]
        for number, picture in enumerate(pictures):
            self.run_.click("control", picture.name)
            harness.wait_until(picture.name + " in the plan",
                               lambda wanted=number + 1: self.plan().count("Play ") == wanted)
            if number == 0 and target:
                self.click_card(target)
                harness.wait_until("the target", lambda: " on <font" in self.plan())

    def fill_deck(self):
        """Every card of the chest goes into the deck."""
        self.run_.fill_screen(shipped_game.DECKS)
        self.run_.click("control", "AddAll")
        self.run_.wait_for("control", "Cardcount", f"Cards: {CHEST_CARDS}")
        self.keep("deck")

    def play_match(self, deck):
        """Plays to the end; true for a victory."""
        self.choose_opponent(OONA, deck)
        self.assertTrue(self.title_card("Oona Ebb"))
        self.assertNotIn("Your Card Plays", self.report())
        for turn in range(TURNS):
            if turn == 0:
                self.ask_for_a_hint()
                self.aim_the_lamp()
            self.queue_hand("Oona Ebb" if turn == 0 else None)
            self.keep(f"plan-{turn}")
            if turn == LEFT_IN - 1:
                self.leave_and_come_back(turn)
            self.take_turn()
            self.keep(f"report-{turn}")
            if turn == 0:
                self.assertIn("Your Card Plays", self.report())
                self.assertIn("blinks", self.report(), "the lamp was used")
                self.assertRegex(self.run_.wait_for("control", "TurnStory").text,
                                 r"The other side: .*Oona Ebb -\d+ HP")
            if self.run_.find("control", "Command1", "End Game"):
                return self.told_of_the_end(turn + 1)
        raise AssertionError("no end in sight")

    def leave_and_come_back(self, turns):
        """Closes the program in a match, and goes on with it in the next one."""
        report, plan = self.report(), self.plan()
        self.assertIn("Play ", plan)
        self.display.ask_to_close(shipped_game.TITLE)
        self.run_.wait_for("button", "Save and Leave")
        self.keep("leaving")
        self.run_.click("button", "Save and Leave")
        self.assertEqual(self.run_.wait_for_end(), 0)
        self.run_ = self.start(self.folder, "--seed", "99")
        self.run_.click("control", text="Ann")
        goes_on = f"Continue: Oona Ebb, turn {turns}"
        self.run_.wait_for("control", text=goes_on)
        self.run_.fill_screen(shipped_game.TITLE)
        self.keep("continue")
        self.run_.click("control", text=goes_on)
        harness.wait_until("the plan", lambda: self.plan() == plan)
        self.assertEqual(self.report(), report)
        self.run_.wait_gone("control", text=goes_on)
        self.came_back = True

    def told_of_the_end(self, turns):
        """True for a victory, as the panel above the report says it."""
        won = VICTORY in self.report()
        self.run_.wait_for("control", "MatchVerdict", "You won!" if won else "You lost.")
        self.assertFalse((self.folder / "Ann_Wickwater.match").exists())
        facts = self.run_.find("control", "MatchFacts").text
        self.assertRegex(facts, f"Against Oona Ebb.  {turns} turns.  "
                                f"{PRIZE if won else CONSOLATION} tokens earned.")
        return won

    def play_again_by_keyboard(self):
        self.display.key("Return")
        self.run_.wait_for("window", "DeckManager")
        self.run_.click("control", "Command2")
        self.run_.wait_gone("control", "MatchVerdict")
        self.assertTrue(self.title_card("Oona Ebb"), "the same opponent")
        self.back_to_the_list()

    def leave_the_ended_game(self):
        self.run_.click("control", "GameList")
        self.run_.wait_gone("control", "Command1")  # the list has no turn to take
        self.assertFalse(any(p.name.startswith("Picture2(") for p in self.run_.places()))

    def test_a_match_is_won_with_the_pointer(self):
        self.new_player(12)
        self.keep("list")
        self.open_chest()
        losses = 0
        deck = self.fill_deck
        while not self.play_match(deck):
            deck = self.run_.places
            losses += 1
            self.assertLess(losses, MATCHES, "the opponent won every time")
            self.leave_the_ended_game()
        self.assertTrue(self.came_back)
        self.keep("victory")
        self.play_again_by_keyboard()
        self.close_and_check(shipped_game.TITLE)
        self.come_back(500 + PRIZE + losses * CONSOLATION)

    def look_at_the_opponent(self):
        """The side view tells of whoever is pointed at in the list."""
        self.display.move(*self.run_.at_rest("link", f"WB GAME:1:{OONA}").center)
        harness.wait_until("words of the opponent", lambda: all(
            words in self.run_.page("FirstSteps.html")
            for words in ("She keeps crabs", "Beaten: you won 1 of ", "match</b> for your deck")))

    def come_back(self, tokens):
        """What the player owns is there at the next start, and the next match uses it."""
        saved = self.saved()
        self.assertTrue(f"#TOKENS, {tokens}\n" in saved, "the prize was kept")
        self.assertEqual(saved.count("#CARD, INPLAYERDECK:1"), CHEST_CARDS)
        self.run_ = self.start(self.folder, "--seed", "2")
        self.run_.click("control", text="Ann")
        self.look_at_the_opponent()
        self.choose_opponent(OONA, self.run_.places)
        self.assertTrue(self.title_card("Oona Ebb"), "the next match has begun")
        self.assertTrue(self.title_card("Attic Light"), "with the player's own deck")
        self.back_to_the_list()
        self.assertTrue(self.saved() == saved, "nothing was lost")
        self.close_and_check(shipped_game.TITLE)


@unittest.skipUnless(os.environ.get("BRINDLEMOOR_BIG_SCREEN"), "only to look at")
class MatchOnABigScreen(Match):
    screen = "1920x1080"


if __name__ == "__main__":
    harness.main()
