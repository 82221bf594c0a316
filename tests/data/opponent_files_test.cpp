// A deck saved as an opponent.
#include "data/opponent_files.h"

#include "core/replacing.h"
#include "core/strings.h"
#include "game/game_list.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class OpponentFilesTest : public SessionTest {
 protected:
  OpponentFilesTest() {
    State().CurrentDeck = 3;
    Deck().Append(MakeCard("Orc", 1));
  }
  static Pile& Deck() { return State().Decks[3].Cards; }
};

TEST_F(OpponentFilesTest, WritesThePortraitAndTheDrawPileToTheByte) {
  const auto portrait = [](std::string_view name, std::string_view fields) {
    return Joined(kStars, " ", name, "\r\n#CARD, #PLAYERCARD, \"", name, fields, "\"\"\r\n\r\n");
  };
  WriteOpponentFile("x_Enemy.txt", "Gorm");
  EXPECT_EQ(ReadFile("x_Enemy.txt"),
            CardLines("INDECK", "Orc") + portrait("Gorm", "\", \"\", , , , , "))
      << "without a player card the portrait is empty";
  Card duke = MakeCard("Duke", 1, {"PLAYER", "HP:20"});
  duke.Thumb = "duke-mini.jpg";
  Deck().Append(duke);
  Deck().Append(MakeCard("Duchess", 1, {"PLAYER"}));
  const std::string cards =
      Joined(CardLines("INDECK", "Orc"), kStars,
             " Duke\r\n#CARD, INDECK, \"Duke\", \"\", , , duke-mini.jpg, #FFFFFF, \"\"\r\n"
             "#TRAIT, \"PLAYER\", #TRAIT, \"HP:20\", \r\n#EXTRADATA, 0, , , , \r\n\r\n\r\n",
             CardLines("INDECK", "Duchess", "#TRAIT, \"PLAYER\", \r\n"));
  for (const std::string_view name : {"", "Gorm, the Old"}) {
    EXPECT_TRUE(WriteOpponentFile("/game/goblins/x_Enemy.txt", name));
    EXPECT_EQ(
        ReadFile("goblins/x_Enemy.txt"),
        portrait(name.empty() ? "Duke" : name, "\", \"\", , , duke-mini.jpg, #FFFFFF, ") + cards);
  }
  EXPECT_EQ(Deck()[3].Name, "Duke") << "only the portrait has the given name";
}

TEST_F(OpponentFilesTest, TheGameListFindsItAndTheReaderItsDeck) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , #000000, goblins, \n");
  Card duke = MakeCard("Duke, #GAMERULES", 1, {"PLAYER"});
  duke.Thumb = "duke, small.jpg";
  duke.Description = "A #PLAYERCARD,\n#GAMERULES of his own";
  Deck().Append(duke);
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

}  // namespace
}  // namespace brindlemoor
