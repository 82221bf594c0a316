// A deck saved as an opponent.
#include "data/opponent_files.h"

#include "core/strings.h"
#include "game/game_list.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kStars = "*****************************************";

class OpponentFilesTest : public SessionTest {
 protected:
  OpponentFilesTest() { State().CurrentDeck = 3; }
  static Pile& Deck() { return State().Decks[3].Cards; }
};

TEST_F(OpponentFilesTest, WritesThePortraitAndTheDrawPileToTheByte) {
  Deck().Append(MakeCard("Orc", 1));
  Card duke = MakeCard("Duke", 1, {"PLAYER", "HP:20"});
  duke.UniqueID = "Duke7";
  duke.Thumb = "duke-mini.jpg";
  Deck().Append(duke);
  Deck().Append(MakeCard("Duchess", 1, {"PLAYER"}));
  const std::string cards =
      Joined(kStars,
             " Orc\r\n#CARD, INDECK, \"Orc\", \"\", , , , #FFFFFF, \"\"\r\n#EXTRADATA, 0, , , , "
             "\r\n\r\n\r\n",
             kStars,
             " Duke\r\n#CARD, INDECK, \"Duke\", \"Duke7\", , , duke-mini.jpg, #FFFFFF, \"\"\r\n"
             "#TRAIT, \"PLAYER\", #TRAIT, \"HP:20\", \r\n#EXTRADATA, 0, , , , \r\n\r\n\r\n",
             kStars,
             " Duchess\r\n#CARD, INDECK, \"Duchess\", \"\", , , , #FFFFFF, \"\"\r\n"
             "#TRAIT, \"PLAYER\", \r\n#EXTRADATA, 0, , , , \r\n\r\n\r\n");
  for (const std::string_view name : {"", "Gorm, the Old"}) {
    const std::string_view shown = name.empty() ? "Duke" : name;
    EXPECT_TRUE(WriteOpponentFile("/game/goblins/x_Enemy.txt", name));
    EXPECT_EQ(files_->Contents["/game/goblins/x_Enemy.txt"],
              Joined(kStars, " ", shown, "\r\n#CARD, #PLAYERCARD, \"", shown,
                     "\", \"Duke7\", , , duke-mini.jpg, #FFFFFF, \"\"\r\n\r\n", cards));
  }
  EXPECT_EQ(Deck()[3].Name, "Duke") << "only the portrait has the given name";
}

TEST_F(OpponentFilesTest, WithoutAPlayerCardThePortraitIsEmpty) {
  Deck().Append(MakeCard("Orc", 1));
  WriteOpponentFile("x_Enemy.txt", "Gorm");
  EXPECT_EQ(ReadFile("x_Enemy.txt"),
            Joined(kStars,
                   " Orc\r\n#CARD, INDECK, \"Orc\", \"\", , , , #FFFFFF, \"\"\r\n"
                   "#EXTRADATA, 0, , , , \r\n\r\n\r\n",
                   kStars, " Gorm\r\n#CARD, #PLAYERCARD, \"Gorm\", \"\", , , , , \"\"\r\n\r\n"));
}

TEST_F(OpponentFilesTest, TheGameListFindsItAndTheReaderItsDeck) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , #000000, goblins, \n");
  Card duke = MakeCard("Duke", 1, {"PLAYER"});
  duke.Thumb = "duke, small.jpg";
  duke.Description = "A #PLAYERCARD,\n#GAMERULES of his own";
  Deck().Append(duke);
  Deck().Append(MakeCard("Orc, #GAMERULES", 1));
  for (const std::string_view name : {"Gorm \"the\" Old", "Gorm, #RULESCARD", "Gorm,\"x"}) {
    State().Games.Reset(1);
    WriteOpponentFile("/game/goblins/x_Enemy.txt", name);
    DiscoverGames();
    ASSERT_EQ(State().Games[1].Opponents.UpperBound(), 2) << name;
    EXPECT_EQ(State().Games[1].Opponents[2].Name, ReplacedCopy(name, ",\"", ",&quot"));
    EXPECT_EQ(State().Games[1].Opponents[2].Thumb, "duke, small.jpg");
  }
  ReadInOrder("/game/goblins/x_Enemy.txt", State().Players[2]);
  EXPECT_EQ(Described(State().Players[2].Deck), Described(Deck()));
}

TEST_F(OpponentFilesTest, AFailedSaveSaysWhy) {
  WriteFile("x_Enemy.txt", "old");
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {"Can't save x_Enemy.txt: no space"};
  EXPECT_FALSE(WriteOpponentFile("x_Enemy.txt", "Gorm"));
  EXPECT_EQ(ReadFile("x_Enemy.txt"), "old");
}

}  // namespace
}  // namespace brindlemoor
