// What the deck manager makes of decks: opponents, starter decks, and files that it reads.
#include "game/game_list.h"
#include "game/match_start.h"
#include "game/player_saving.h"
#include "script/trait_changes.h"
#include "tests/ui/deck_manager_session.h"

namespace brindlemoor {
namespace {

class DeckFilesTest : public DeckManagerSession {};

TEST_F(DeckFilesTest, AnOpponentMadeFromADeckIsListedAndPlayed) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n#RULESCARD\n");
  WriteFile("goblins/readme.txt", "nothing");
  Own({"Elf", "King"});
  SetTrait(State().Collection[2], "PLAYER", "1", 1);
  Open();
  desktop_->ExpectedMessages = {"There are no cards in this deck."};
  form_.saveasopponent.Click();
  ClickCollection(0);
  desktop_->ExpectedMessages = {
      "The name is empty.",
      "The name holds one of the characters / \\ : * ? \" < > |, which no file name can hold."};
  desktop_->YesNoAnswers = {true, true, true, false};  // it has no player card
  desktop_->TextAnswers = {"", "my/../King", std::nullopt};
  for (int again = 0; again < 4; ++again) form_.saveasopponent.Click();
  ClickCollection(0);
  desktop_->TextAnswers = {"", "Rex", "Rex", "Rex"};
  desktop_->YesNoAnswers = {false, true};
  desktop_->ExpectedMessages = {"Enemy saved.", "Enemy saved.", "Enemy saved."};
  for (int again = 0; again < 4; ++again) form_.saveasopponent.Click();
  form_.Command2.Click();

  State().Games.Reset(1);
  DiscoverGames();
  const GameRec& game = State().Games[1];
  ASSERT_EQ(Names(game.Opponents), "- King Rex ");
  desktop_->ModalForms.emplace_back([this](Form&) { form_.Command2_Click(); });
  ChooseGame(1, 3);
  EXPECT_EQ(State().CardTable[State().Players[2].PlayerCard].Name, "King");
  EXPECT_NE(Names(State().Players[2].Deck).find("Elf"), std::string::npos);
}

TEST_F(DeckFilesTest, WhichGameListsANewOpponentIsAskedWhereItIsUnclear) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n");
  WriteFile("swamp.txt", "#GAMERULES, Swamp, , , swamp,\n");
  WriteFile("goblins/readme.txt", "nothing");
  WriteFile("swamp/readme.txt", "nothing");
  State().CurrentGame = 0;
  State().Games.Reset(1);
  DiscoverGames();
  Own({"King"});
  SetTrait(State().Collection[1], "PLAYER", "1", 1);
  Open(kNewOpponent);
  ClickCollection(0);
  desktop_->ModalForms.emplace_back([](Form&) { TheChoiceForm().Command2.Click(); });
  desktop_->ModalForms.emplace_back([](Form&) {
    TheChoiceForm().List1.Selected = 2;
    TheChoiceForm().List1.Open();
  });
  desktop_->TextAnswers = {"Rex", "Rex"};
  desktop_->ExpectedMessages = {"Enemy saved."};
  for (int again = 0; again < 2; ++again) form_.saveasopponent.Click();
  EXPECT_NE(ReadFile("swamp/Rex_Enemy.txt"), "");
}

TEST_F(DeckFilesTest, AStarterDeckGivesTheCardsOfTheDeckToANewPlayer) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n#RULESCARD\n");
  WriteFile("goblins/readme.txt", "nothing");
  Own({"Elf", "Elf", "Orc, the big"});
  Open();
  for (int card = 0; card < 3; ++card) ClickCollection(0);
  desktop_->TextAnswers = {"First Steps"};
  desktop_->ExpectedMessages = {"Starter deck saved."};
  form_.savestarterdeckmen.Click();
  State().Profile.PlayerName = "Bea";
  State().Games.Reset(1);
  DiscoverGames();
  ASSERT_EQ(Names(State().Games[1].Opponents), "- First Steps ");
  ChooseGame(1, 2);
  form_.Command1[1]->Click();
  EXPECT_EQ(Collection(), "Elf Elf Orc, the big ");
}

TEST_F(DeckFilesTest, WrongFilesChangeNothingAndRightOnesAreRead) {
  WriteFile("picture.plr", "\xFF\xD8\xFF\xE0 JFIF");
  WriteFile("friend.plr",
            "#PLAYERDECK\n#TOKENS, 7\n#CARD, COLLECTION, Gift, , , , , , \n"
            "#DECKRULES, \"TRAITLIMIT:#ANY#:1\"\n");
  WriteFile("army.txt",
            "#CARD, INDECK, Wolf, , , , , , \n#CARD, COLLECTION, Fox, , , , , , \n"
            "#TEMPLATE, Beast, , , , , \n#GAMEFILE, wolves.txt\n#STARTERDECK\n"
            "#DECKRULES, \"TRAITLIMIT:#ANY#:1\"\n");
  Own({"Elf"});
  State().Decks[1].Cards[1] = MakeCard("Bat", 1);
  const int templates = State().Templates.UpperBound();
  Open();
  desktop_->FileAnswers = {"/game/picture.plr", "/game/none.plr", std::nullopt, "/game/picture.plr",
                           "/game/army.txt"};
  desktop_->ExpectedMessages = {"There are no cards in picture.plr.", "Can't read none.plr.",
                                "There are no cards in picture.plr.",
                                "A player can't be loaded over the cards of the editor.",
                                "These are the cards of the editor."};
  for (int file = 0; file < 3; ++file) form_.loadplrmen.Click();
  Open(kNewOpponent);
  form_.loadoppmen.Click();
  form_.loadplrmen.Click();
  form_.savedeckmen.Click();
  EXPECT_EQ(Deck(1) + "| " + Collection(), "Bat | Elf ");
  form_.loadoppmen.Click();
  EXPECT_EQ(Shown(form_.DeckPic), "Wolf Fox ") << "every card of the file, wherever it would go";
  EXPECT_EQ(Collection(), "Elf ");
  EXPECT_EQ(Joined(State().GameFileName, int{State().StarterDeckFlag}, State().DeckRules,
                   State().Templates.UpperBound()),
            Joined("0", templates))
      << "and nothing else of it";

  WriteFile("Ann_Goblins.plr", "the player's own");
  Open();
  desktop_->FileAnswers = {"/game/friend.plr", "/game/copy.plr"};
  desktop_->YesNoAnswers = {false};
  desktop_->SaveAnswers = {SaveAnswer::kDiscard};
  form_.loadplrmen.Click();
  EXPECT_EQ(Collection() + form_.Label1.Caption.Get(), "Gift Tokens: 7");
  EXPECT_EQ(ReadFile("Ann_Goblins.plr.before"), "the player's own");
  EXPECT_EQ(State().DeckRules, "") << "the match that waits has rules of its own";
  EXPECT_TRUE(PlayerIsUnsaved());
  form_.savedeckmen.Click();
  EXPECT_NE(ReadFile("copy.plr").find("Gift"), std::string::npos);
  const Pile gift = std::exchange(State().Collection, Pile(1));
  desktop_->FileAnswers = {"/game/empty.plr"};
  desktop_->ExpectedMessages = {"There are no cards to save."};
  form_.savedeckmen.Click();
  State().Collection = gift;
  State().DebugMode = 1;
  desktop_->ExpectedMessages = {"Players are not saved in debug mode."};
  form_.savedeckmen.Click();
  files_->WriteError = "No space left on device";
  State().DebugMode = 0;
  desktop_->ExpectedMessages = {"Can't save Ann_Goblins.plr: No space left on device"};
  form_.Command2.Click();
  EXPECT_EQ(Collection(), "Gift ");
}

}  // namespace
}  // namespace brindlemoor
