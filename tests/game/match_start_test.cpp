// From the game list to the first turn.
#include "game/match_start.h"

#include "data/card_reader.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class MatchStartTest : public SessionTest {
 protected:
  MatchStartTest() {
    State().Profile.PlayerName = "Ann";
    desktop_->ModalForms.emplace_back([](Form&) { TheDeckManager().Command2_Click(); });
    ListGames();
    WriteFile("goblins.txt",
              "#GAMERULES, Goblins, , , Goblins,\n#RULESCARD\n#EFFECT, SELF, GAMESTART, ECHO:go\n"
              "#TRAITACTION, FLYING\n#EFFECT, SELF, PHASE9, ECHO:fly\n");
    WriteFile("Goblins/king_Enemy.txt",
              "#CARDINDECK, King, , , #00FF00, ,\n#TRAIT, PLAYER\n"
              "#CARDINDECK, Wall, , , , ,\n#TRAIT, STARTSINPLAY\n#TRAIT, FLYING\n"
              "#CARDINDECK, Guard, , , , ,\n#CARDINPLAY, Moat, , , , ,\n");
    WriteFile("Goblins/starter.txt",
              "#STARTERDECK\n#NEUTRALCARD, Store, , , , ,\n#CARDINDECK, Reward, , , , ,\n");
  }
  static void ListGames() {
    State().Games.Reset(1);
    GameRec& game = State().Games[1];
    game.Name = "Goblins";
    game.RulesFile = "goblins.txt";
    game.Folder = "Goblins";
    game.Opponents.Reset(4);
    game.OpponentFiles.Reset(4);
    game.OpponentFiles[2] = "/game/Goblins/king_Enemy.txt";
    game.OpponentFiles[3] = "/game/Goblins/starter.txt";
    game.OpponentFiles[4] = "/game/Goblins/gone.txt";
  }
  void OwnDeck() {
    WriteFile("Ann_Goblins.plr",
              "#PLAYERDECK\n#TOKENS, 42\n#CARD, INPLAYERDECK:1, Elf, , , , , , \n"
              "#CARD, INPLAYERDECK:1, Hero, , , , , #0000FF, \n#TRAIT, PLAYER\n"
              "#CARD, COLLECTION, Spare, , , , , , \n");
  }
  /// The last card of a name, nullptr for none.
  static const Card* In(const Pile& pile, std::string_view name) {
    const Card* found = nullptr;
    for (const Card& card : pile) found = card.Name == name ? &card : found;
    return found;
  }
};

TEST_F(MatchStartTest, AMatchBringsBothDecksAndTheStartingCards) {
  OwnDeck();
  // The rules of another game do not stay on.
  WriteFile("pirates.txt",
            "#DECKRULES, TRAITLIMIT:#ANY#:5\n#CUSTOMSTRING, SEA, wet\n#RULESCARD\n"
            "#TRAIT, TRAITGRAPHIC:FLYING::label:#FFFFFF:1:1\n#EFFECT, SELF, TURNSTART, ECHO:ahoy\n"
            "#TRAITACTION, FLYING\n#EFFECT, SELF, PHASE9, ECHO:plank\n");
  ReadCards("pirates.txt", State().GameDeck, 0, "", 0);
  ChooseGame(1, 2);
  const Session& session = State();
  EXPECT_EQ(Joined(session.Profile.RulesFile, "|", session.CurrentGame, "|", session.CurrentFolder,
                   "|", session.Players[1].Tokens),
            "goblins.txt|1|/game|42");
  const Card* const king = In(session.CardTable, "King");
  const Card* const hero = In(session.CardTable, "Hero");
  const Card* const wall = In(session.CardTable, "Wall");
  ASSERT_TRUE(king != nullptr && hero != nullptr && wall != nullptr);
  EXPECT_NE(In(session.CardTable, "Moat"), nullptr);
  ASSERT_EQ(wall->Effects.UpperBound(), 1);
  EXPECT_EQ(wall->Effects[1].Script, "TRAIT:TRAITEFFECT:FLYING:ECHO:fly");
  EXPECT_EQ(session.Players[2].PlayerCard, king->Slot);
  EXPECT_EQ(session.Players[2].Color, "#00FF00");
  EXPECT_EQ(session.Players[1].PlayerCard, hero->Slot);
  EXPECT_EQ(session.Players[1].Color, "#0000FF");
  EXPECT_NE(In(session.Players[2].Deck, "Guard"), nullptr);
  EXPECT_EQ(In(session.Players[2].Deck, "Wall"), nullptr);
  EXPECT_NE(In(session.Players[1].Deck, "Elf"), nullptr);
  EXPECT_EQ(In(session.Players[1].Deck, "Hero"), nullptr);
  EXPECT_NE(In(session.Decks[1].Cards, "Hero"), nullptr) << "the stored deck keeps its cards";
  EXPECT_EQ(In(session.Decks[1].Cards, "Hero")->GlobalID, hero->GlobalID)
      << "lasting changes find the stored twin";
  EXPECT_EQ(session.Collection[1].Name, "Spare");
  EXPECT_EQ(session.DeckRules, "");
  EXPECT_EQ(session.CustomStrings.UpperBound(), 0);
  EXPECT_EQ(session.TraitGraphics[1].TraitName, "");
  EXPECT_EQ(desktop_->Pages["WB"].find("ahoy"), std::string::npos);
}

TEST_F(MatchStartTest, AStarterDeckNeedsNoPlayerFileButAStoreReadsIt) {
  ChooseGame(1, 3);
  EXPECT_EQ(State().Players[1].Tokens, 500);
  EXPECT_NE(In(State().CardTable, "Store"), nullptr);
  EXPECT_NE(In(State().Players[2].Deck, "Reward"), nullptr);
  OwnDeck();
  ChooseGame(1, 3);
  EXPECT_EQ(State().Players[1].Tokens, 42);
  EXPECT_EQ(State().Collection[1].Name, "Spare");
  EXPECT_EQ(In(State().Players[1].Deck, "Elf"), nullptr) << "no deck is played in a store";
}

TEST_F(MatchStartTest, OneGameTakesNothingFromAnother) {
  State().Games.Append(State().Games[1]);
  State().Games[2].Name = "Elves";
  State().CurrentGame = 1;
  State().Profile.RulesFile = "other.txt";
  State().Collection[1] = MakeCard("Goblin of the other game", 1);
  State().Decks[2].Cards[1] = MakeCard("Goblin of the other game", 1);
  desktop_->ExpectedMessages = {
      "You do not have a deck for this game!\nPlease choose a starter deck or a card store."};
  State().DeckRules = "TRAITLIMIT:#ANY#:5";
  AddCustomString("SEA", "wet");
  State().Players[1].Tokens = 30;
  SetTrait(State().RulesCard, "ROUND", 3, 1);
  WriteFile("Ann_Elves.plr", "#TOKENS, 7\n#CARD, COLLECTION, Elf, , , , , , \n");
  WriteFile("goblins.txt",
            ReadFile("goblins.txt") + "#DECKRULES, none\n#CUSTOMSTRING, SKY, blue\n");
  ChooseGame(2, 2);
  EXPECT_EQ(State().CurrentGame, 1) << "a save after the refusal is not one of that game";
  EXPECT_EQ(State().Profile.RulesFile, "other.txt");
  EXPECT_EQ(State().DeckRules, "TRAITLIMIT:#ANY#:5");
  EXPECT_EQ(State().CustomStrings[1].Key, "SEA");
  EXPECT_EQ(State().CustomStrings.UpperBound(), 1);
  EXPECT_EQ(State().Collection[1].Name, "Goblin of the other game");
  EXPECT_EQ(State().Decks[2].Cards[1].Name, "Goblin of the other game");
  EXPECT_EQ(State().Players[1].Tokens, 30);
  EXPECT_EQ(TraitNumber(State().RulesCard, "ROUND"), 3);
  EXPECT_EQ(State().RulesCard.Effects[1].Script, "");
  files_->Contents.erase("/game/Ann_Elves.plr");

  ChooseGame(2, 3);
  EXPECT_TRUE(IsFree(State().Collection[1]));
  EXPECT_TRUE(IsFree(State().Decks[2].Cards[1]));
}

TEST_F(MatchStartTest, EveryCardOfADeckCanBeDrawn) {
  std::string enemy;
  std::string own = "#PLAYERDECK\n";
  for (int card = 1; card <= 6; ++card) {
    enemy += Joined("#CARDINDECK, Enemy ", card, ", , , , ,\n");
    own += Joined("#CARD, INPLAYERDECK:1, Own ", card, ", , , , , , \n");
  }
  WriteFile("Goblins/king_Enemy.txt", enemy);
  WriteFile("Ann_Goblins.plr", own);
  for (int match = 0; match < 20; ++match) {
    desktop_->ModalForms.emplace_back([](Form&) { TheDeckManager().Command2_Click(); });
    InitPlayer(State().Players[2], 2);
    ChooseGame(1, 2);
    for (int side = 1; side <= 2; ++side) {
      const Pile& deck = State().Players[side].Deck;
      EXPECT_TRUE(IsFree(deck[1])) << "match " << match << ", side " << side;
      EXPECT_EQ(deck.UpperBound(), 7);
    }
  }
}

TEST(DrawPileTest, APileWithoutAFreeElementGetsOneInFront) {
  State() = Session{};
  Pile pile(3);
  for (int card = 1; card <= 3; ++card) pile[card].Name = Joined("Card ", card);
  PutFreeElementFirst(pile);
  EXPECT_EQ(Joined(pile.UpperBound(), "|", pile[1].Name, "|", pile[2].Name, "|", pile[3].Name, "|",
                   pile[4].Name),
            "4||Card 2|Card 3|Card 1");
}

TEST_F(MatchStartTest, APlayerFileWithoutCardsIsNoDeck) {
  WriteFile("Ann_Goblins.plr", "something else altogether");
  desktop_->ExpectedMessages = {
      "You do not have a deck for this game!\nPlease choose a starter deck or a card store."};
  ChooseGame(1, 2);
  EXPECT_EQ(State().CurrentGame, 0);
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), "something else altogether");
}

TEST_F(MatchStartTest, TheDeckIsChosenInTheDeckManager) {
  WriteFile("goblins.txt", ReadFile("goblins.txt") + "#DECKRULES, TRAITMINIMUM:#ANY#:2,\n");
  OwnDeck();
  DeckManager& manager = TheDeckManager();
  desktop_->ModalForms.clear();
  desktop_->ModalForms.emplace_back([&](Form& form) {
    manager.Option1[1]->Click();
    manager.CollectPic[0]->MouseUp(MouseButton::kLeft);
    manager.Command2.Click();
    EXPECT_TRUE(form.Shown) << "one card is not enough";
    EXPECT_TRUE(manager.QueryClose());
    manager.backmen.Click();
    EXPECT_FALSE(form.Shown);
  });
  desktop_->ExpectedMessages = {"You must have at least 2 cards in your play deck."};
  desktop_->ChoiceAnswers = {"Stay and Mend"};
  ChooseGame(1, 2);
  EXPECT_EQ(State().CurrentGame, 0) << "the player went back to the list";
  ListGames();
  EXPECT_NE(ReadFile("Ann_Goblins.plr").find("INPLAYERDECK:2, \"Spare\""), std::string::npos);

  desktop_->ModalForms.emplace_back([&](Form&) {
    manager.Option1[1]->Click();
    manager.DeckPic[0]->MouseUp(MouseButton::kLeft);  // Spare goes back
    manager.Option1[0]->Click();
    manager.CollectPic[0]->MouseUp(MouseButton::kLeft);
    manager.Command2.Click();
  });
  ChooseGame(1, 2);
  EXPECT_EQ(State().CurrentGame, 1);
  EXPECT_NE(In(State().Players[1].Deck, "Spare"), nullptr);
}

TEST_F(MatchStartTest, CardsThatTheRulesFilePutsOnTheTableAreThereOnce) {
  WriteFile("goblins.txt", ReadFile("goblins.txt") + "#NEUTRALCARD, Altar, , , , ,\n");
  OwnDeck();
  for (int side = 1; side <= 2; ++side) PutPlayerCard(side);
  ReadCards("goblins.txt", State().GameDeck, 0, "", 0);
  ChooseGame(1, 2);
  int altars = 0;
  for (const Card& card : State().CardTable) altars += card.Name == "Altar" ? 1 : 0;
  EXPECT_EQ(altars, 1);
}

TEST_F(MatchStartTest, ReferencedCardsFollowTheTraitNumbersOfTheirGame) {
  WriteFile("ref.txt",
            "#CARDINDECK, Imp, , , , ,\n#TRAIT, A\n#TRAIT, B\n#EFFECT, SELF, PHASE1, REQTRAIT:B\n");
  GetRefCard("Imp", "ref.txt");
  State().TraitBitNames.Reset(1);  // another game begins
  const TraitBit first = TraitBitFor("B");
  const Card card = GetRefCard("Imp", "ref.txt");
  EXPECT_EQ(card.TraitBits[first.Word] & first.BitValue, first.BitValue);
  EXPECT_EQ(card.Effects[1].NeedTargetBits[first.Word], first.BitValue);
}

TEST_F(MatchStartTest, ADamagedPlayerFileIsToldOfOnceAndKept) {
  OwnDeck();
  const std::string damaged = ReadFile("Ann_Goblins.plr") + "#CARD, COLLECTION, \"Cut";
  WriteFile("Ann_Goblins.plr", damaged);
  desktop_->AcceptMessages = true;
  ChooseGame(1, 2);
  EXPECT_EQ(desktop_->Messages.size(), 1U);
  EXPECT_NE(desktop_->Messages[0].find("Ann_Goblins.plr is damaged.  Line 7: "), std::string::npos)
      << desktop_->Messages[0];
  EXPECT_EQ(ReadFile("Ann_Goblins.plr.damaged"), damaged);
}

TEST_F(MatchStartTest, WhatIsNotThereLeadsBackToTheList) {
  for (const auto& [game, opponent] : {std::pair{0, 2}, {2, 2}, {-1, 2}, {1, 0}, {1, 1}, {1, 9}}) {
    ChooseGame(game, opponent);
  }
  EXPECT_TRUE(desktop_->Navigations.empty());
  desktop_->ExpectedMessages = {"Can't read /game/Goblins/gone.txt.", "Can't read goblins.txt."};
  ChooseGame(1, 4);
  files_->Contents.erase("/game/goblins.txt");
  ChooseGame(1, 2);
  EXPECT_EQ(State().Players[2].Deck.UpperBound(), 1);
  // The list changes while the page is shown.
  desktop_->OnPump = [] { State().Games.Reset(1); };
  ChooseGame(1, 2);
  EXPECT_EQ(State().Profile.RulesFile, "");
}

}  // namespace
}  // namespace brindlemoor
