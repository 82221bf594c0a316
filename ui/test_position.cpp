// Laying out a test position and beginning its game.
#include "ui/test_position.h"

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/random.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "game/plans.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/traits.h"
#include "script/card_entry.h"
#include "script/card_setup.h"
#include "script/trait_actions.h"
#include "script/triggers.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

/// The path of the rules file, asked for until one is found; "" when that was cancelled.
std::string FindRulesFile() {
  Text& name = State().GameFileName;
  const Text before = name;
  while (true) {
    if (std::string path = ResolvePath(name, 0); !path.empty()) return path;
    Desktop().MessageBox("Please choose the rules file to use for this card set.");
    const auto chosen = Desktop().AskFile({.FileName = "*.txt"});
    if (!chosen) {
      name = before;
      return "";
    }
    name = FileNameOf(*chosen);
  }
}

void ReadRules(const std::string& path) {
  ForgetRules();
  PlayerState scratch;
  InitPlayer(scratch, kGameDeckState);
  ReadCards(path, scratch, 0, "", 0);
}

/// What lay there goes; the player cards with their ONDEATH.
void ClearTable() {
  Pile& table = State().CardTable;
  for (Card& card : table) {
    if (!IsFree(card) && !HasTrait(card, "PLAYER")) FreeCard(card);
  }
  for (int slot = 1; slot <= table.UpperBound(); ++slot) KillCard(table[slot]);
  ForgetWaitingCards();
}

/// A card may be chosen more than once: each is a card of its own.
void DealHand(PlayerState& player, const Pile& cards) {
  player.Hand.Reset(kHandPositions);
  player.Deck.Reset(1);
  for (int position = 1; position <= cards.UpperBound(); ++position) {
    if (IsFree(cards[position])) continue;
    Card card = cards[position];
    card.GlobalID = RollDie(kDuplicateId);
    if (position < kHandPositions) {
      ApplyTraitActions(card, "");
      player.Hand[position] = std::move(card);
    } else {
      player.Deck.Append(std::move(card));
    }
  }
}

void BringIntoPlay(const Pile& cards, int side) {
  for (const Card& card : cards) {
    if (IsFree(card)) continue;
    Card entering = card;
    entering.GlobalID = 0;
    SetOwner(entering, side);
    const int slot = AddToTable(entering);
    if (slot == 0 || !HasTrait(entering, "PLAYER")) continue;
    State().Players[side].Color = State().CardTable[slot].NameColor;
  }
}

void BeginTurns() {
  Session& state = State();
  state.GameOver = 0;
  state.TestFromEditor = 1;
  TheMainWindow().Command1.Caption = "Take Turn";
  Desktop().ShowForm(TheMainWindow(), false);
  // Before events run: a second click must not find the form.
  Desktop().HideForm(TheDeckManager());
  state.TurnRunning = 1;  // nor may a turn begin before the first one
  BlankSideViews();
  TakeTurn(1);
  state.TurnRunning = 0;
}

}  // namespace

void StartTestPosition() {
  const std::string rules = FindRulesFile();
  if (rules.empty()) return;
  Session& state = State();
  state.DeckManagerMode = 0;
  state.DebugMode = 1;
  TheMainWindow().ShowDebugMode();
  ForgetPlans();
  ClearTable();
  ReadRules(rules);
  DealHand(state.Players[1], state.Decks[1].Cards);
  for (int side = 1; side <= 2; ++side) state.Players[side].PlayerCard = 0;
  InitPlayer(state.Players[2], 2);  // the hand of an earlier match is no part of this one
  BringIntoPlay(state.Decks[2].Cards, 1);
  BringIntoPlay(state.Decks[3].Cards, 2);
  ReapplyTraitActions(1);
  BeginTurns();
}

}  // namespace brindlemoor
