// The search box: which cards a player's text finds.
#include "ui/card_search.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class CardSearchTest : public SessionTest {
 protected:
  static bool Finds(std::string_view text, const Card& card) {
    return CardSearch(text).Matches(card);
  }
};

TEST_F(CardSearchTest, WordsArePlainTextInNameTraitsAndDescription) {
  Card card = MakeCard("Iron Buoy", 1, {"FITTING", "TRIBE:Squall"});
  card.Description =
      "Break<b>water</b>: enemies strike it first.<br>Costs <i class=\"small\">3</i> "
      "if HP < 4 or <5 \xC3\xA9t\xC3\xA9. <unclosed";
  const std::pair<const char*, bool> cases[] = {
      {"iron", true},
      {"BUOY", true},
      {"on bu", true},  // two words, each somewhere
      {"iron gull", false},
      {"\"iron buoy\"", true},
      {"\"buoy iron\"", false},
      {"\"iron buoy", true},
      {"  fitt\tstrike\r\n", true},
      {"\"\"", true},
      {"squall", false},  // the value of a trait is no word
      {"breakwater", true},
      {"br", true},
      {"<br>", false},
      {"class", false},
      {"\"costs 3\"", true},
      {"\"hp < 4 or <5\"", true},
      {"unclosed", false},
      {"\xC3\x89T\xC3\x89", true},
      {"\"strike it\"\"iron\"", true},
      {"iron\"", false},
      {"=", false},
  };
  for (const auto& [text, matches] : cases) EXPECT_EQ(Finds(text, card), matches) << text;
  for (const char* nothing : {"", "  \t ", "\"\"", "\""}) {
    EXPECT_TRUE(CardSearch(nothing).Empty()) << nothing;
    EXPECT_TRUE(Finds(nothing, card)) << nothing;
  }
  EXPECT_FALSE(CardSearch("x").Empty());
  EXPECT_FALSE(CardSearch("hp=3").Empty());
  EXPECT_FALSE(Finds("", Card{})) << "a free place is no card";
}

TEST_F(CardSearchTest, ConditionsAskForTheValueOfATrait) {
  const Card card = MakeCard(
      "Crab", 1, {"HP:5", "BONUSHP:2", "COST:1.5", "FLYING", "TRIBE:Sea Folk", "RANK:3rd"});
  const std::pair<const char*, bool> cases[] = {
      {"hp>=7", true},
      {"hp>=8", false},
      {"HP<=7", true},
      {"HP<=6", false},
      {"HP>6", true},
      {"HP>7", false},
      {"HP<8", true},
      {"HP<7", false},
      {"HP=7", true},
      {"HP=+7.0", true},
      {"HP=5", false},
      {"Hp>=7x", true},
      {"cost>1 cost<2 crab", true},
      {"cost>1 cost<1 crab", false},
      {"cost=1.5", true},
      {"flying=1", true},
      {"mana<9", false},
      {"mana>=0", false},
      {"mana=", false},
      {"hp=", true},  // the player is still typing
      {"hp>=", true},
      {"tribe=\"sea FOLK\" crab", true},
      {"tribe=\"sea FOLK\"hp=6", false},
      {"tribe=sea", false},
      {"rank=3rd", true},
      {"rank=3RDS", false},
      {"rank=3", true},
      {"tribe>0", false},
      {"tribe>=none", true},
      {">=3", false},
      {"\"hp>=1\"", false},
  };
  for (const auto& [text, matches] : cases) EXPECT_EQ(Finds(text, card), matches) << text;
}

}  // namespace
}  // namespace brindlemoor
