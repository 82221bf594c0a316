// From the game list to the first turn.
#include "game/match_start.h"

#include "data/card_reader.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class MatchStartTest : public SessionTest {
 protected:
  MatchStartTest() {
    State().Profile.PlayerName = "Ann";
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
  void OwnDeck() {
    WriteFile("Ann_Goblins.plr",
              "#PLAYERDECK\n#TOKENS, 42\n#CARD, INPLAYERDECK:1, Elf, , , , , , \n"
              "#CARD, INPLAYERDECK:1, Hero, , , , , #0000FF, \n#TRAIT, PLAYER\n"
              "#CARD, COLLECTION, Spare, , , , , , \n");
  }
  static const Card* InTable(std::string_view name) {
    for (const Card& card : State().CardTable) {
      if (card.Name == name) return &card;
    }
    return nullptr;
  }
  static int Copies(const Pile& pile, std::string_view name) {
    int count = 0;
    for (const Card& card : pile) count += card.Name == name ? 1 : 0;
    return count;
  }
};

TEST_F(MatchStartTest, AMatchBringsBothDecksAndTheStartingCards) {
  OwnDeck();
  ChooseGame(1, 2);
  Session& session = State();
  EXPECT_EQ(session.Profile.RulesFile, "goblins.txt");
  EXPECT_EQ(session.CurrentGame, 1);
  EXPECT_EQ(session.Players[1].Tokens, 42);
  EXPECT_EQ(session.CurrentFolder, kFolder);
  ASSERT_NE(InTable("King"), nullptr);
  ASSERT_NE(InTable("Hero"), nullptr);
  ASSERT_NE(InTable("Wall"), nullptr);
  EXPECT_NE(InTable("Moat"), nullptr);
  EXPECT_EQ(InTable("Wall")->Effects[1].Script, "TRAIT:TRAITEFFECT:FLYING:ECHO:fly");
  EXPECT_EQ(session.Players[2].PlayerCard, InTable("King")->Slot);
  EXPECT_EQ(session.Players[2].Color, "#00FF00");
  EXPECT_EQ(session.Players[1].PlayerCard, InTable("Hero")->Slot);
  EXPECT_EQ(session.Players[1].Color, "#0000FF");
  EXPECT_EQ(Copies(session.Players[2].Deck, "Guard"), 1);
  EXPECT_EQ(Copies(session.Players[2].Deck, "Wall"), 0);
  EXPECT_EQ(Copies(session.Players[1].Deck, "Elf"), 1);
  EXPECT_EQ(Copies(session.Players[1].Deck, "Hero"), 0);
  EXPECT_EQ(Copies(session.Decks[1].Cards, "Hero"), 1) << "the stored deck keeps its cards";
  EXPECT_EQ(session.Collection[1].Name, "Spare");
}

TEST_F(MatchStartTest, TheRulesOfAnotherGameDoNotStayOn) {
  OwnDeck();
  WriteFile("pirates.txt",
            "#DECKRULES, TRAITLIMIT:#ANY#:5\n#CUSTOMSTRING, SEA, wet\n#RULESCARD\n"
            "#TRAIT, TRAITGRAPHIC:FLYING::label:#FFFFFF:1:1\n#EFFECT, SELF, TURNSTART, ECHO:ahoy\n"
            "#TRAITACTION, FLYING\n#EFFECT, SELF, PHASE9, ECHO:plank\n");
  ReadCards("pirates.txt", State().GameDeck, 0, "", 0);
  ChooseGame(1, 2);
  ASSERT_NE(InTable("Wall"), nullptr);
  for (const CardEffect& effect : InTable("Wall")->Effects) {
    EXPECT_NE(effect.Script, "TRAIT:TRAITEFFECT:FLYING:ECHO:plank");
  }
  EXPECT_EQ(State().DeckRules, "");
  EXPECT_EQ(State().CustomStrings.UpperBound(), 0);
  EXPECT_EQ(State().TraitGraphics[1].TraitName, "");
  EXPECT_EQ(desktop_->Pages["WB"].find("ahoy"), std::string::npos);
}

TEST_F(MatchStartTest, WithoutAPlayerFileTheListComesBack) {
  desktop_->ExpectedMessages = {
      "You do not have a deck for this game!\nPlease choose a starter deck or a card store."};
  const int tableCards = State().CardTable.UpperBound();
  ChooseGame(1, 2);
  EXPECT_EQ(State().CardTable.UpperBound(), tableCards);
  EXPECT_EQ(State().Players[2].Deck.UpperBound(), 1) << "the next choice starts clean";
  EXPECT_EQ(State().TraitActions.UpperBound(), 1);
  EXPECT_EQ(State().PageText, "");
  EXPECT_EQ(ReadFile("Display.html").find("Loading"), std::string::npos);
}

TEST_F(MatchStartTest, AStarterDeckNeedsNoPlayerFile) {
  ChooseGame(1, 3);
  EXPECT_EQ(State().Players[1].Tokens, 500);
  EXPECT_NE(InTable("Store"), nullptr);
  EXPECT_EQ(Copies(State().Players[2].Deck, "Reward"), 1);
  EXPECT_EQ(State().StarterDeckFlag, 0);
}

TEST_F(MatchStartTest, AStoreReadsThePlayerFileThatIsThere) {
  OwnDeck();
  ChooseGame(1, 3);
  EXPECT_EQ(State().Players[1].Tokens, 42);
  EXPECT_EQ(State().Collection[1].Name, "Spare");
  EXPECT_EQ(Copies(State().Players[1].Deck, "Elf"), 0) << "no deck is played in a store";
}

TEST_F(MatchStartTest, AVanishedFileLeadsBackToTheList) {
  desktop_->ExpectedMessages = {"Can't read /game/Goblins/gone.txt.", "Can't read goblins.txt."};
  ChooseGame(1, 4);
  files_->Contents.erase("/game/goblins.txt");
  ChooseGame(1, 2);
  EXPECT_EQ(State().Profile.RulesFile, "");
  EXPECT_EQ(State().Players[2].Deck.UpperBound(), 1);
}

TEST_F(MatchStartTest, NumbersOutsideTheListAreIgnored) {
  for (const auto& [game, opponent] : {std::pair{0, 2}, {2, 2}, {-1, 2}, {1, 0}, {1, 1}, {1, 9}}) {
    ChooseGame(game, opponent);
  }
  EXPECT_TRUE(desktop_->Navigations.empty());
  // The list changes while the page is shown.
  desktop_->OnPump = [] { State().Games.Reset(1); };
  ChooseGame(1, 2);
  EXPECT_EQ(State().Profile.RulesFile, "");
}

TEST_F(MatchStartTest, ADeckIsCopiedAndShuffled) {
  Pile& deck = State().Decks[2].Cards;
  for (int i = 0; i < 20; ++i) deck.Append(MakeCard(Joined("C", i), 1));
  PlayerState& player = State().Players[1];
  LoadDeckIntoPlayer(player, 2);
  ASSERT_EQ(player.Deck.UpperBound(), 21);
  int moved = 0;
  for (int i = 1; i <= 21; ++i) moved += player.Deck[i].Name == deck[i].Name ? 0 : 1;
  EXPECT_GT(moved, 0);
  LoadDeckIntoPlayer(player, 4);
  EXPECT_EQ(player.Deck.UpperBound(), 21);
}

}  // namespace
}  // namespace brindlemoor
