// What the computer opponent's cards are worth, and what it plays.
#include "game/opponent.h"

#include <gtest/gtest.h>

#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr const char* kClean = "MODTRAIT:HP:1";
constexpr const char* kPartial = "AIREQTRAIT:ABSENT:MODTRAIT:HP:1";
constexpr const char* kNever = "REQTRAIT:ABSENT:MODTRAIT:HP:1";

struct Action {
  const char* Trigger;
  const char* Target;
  const char* Script;
};

class OpponentTest : public SessionTest {
 protected:
  OpponentTest() {
    PutPlayerCard(1, {"HP:10"});
    PutPlayerCard(2, {"HP:10", "MANA:5"});
    PutInPlay(MakeCard("Goblin", 1, {"HP:3"}));
    first_ = State().CardTable.UpperBound() + 1;
  }
  static Card HandCard(std::string_view name, const std::vector<Action>& actions,
                       const std::vector<std::string>& traits = {}) {
    Card card = MakeCard(name, 2, traits);
    for (const Action& action : actions) {
      GiveAction(card, action.Trigger, action.Target, action.Script);
    }
    return card;
  }
  static Pile& Hand() { return State().Players[2].Hand; }
  static double Mana() {
    return TraitNumber(State().CardTable[State().Players[2].PlayerCard], "MANA");
  }
  /// Names of the cards that came into the table, in order.
  std::string Played() const {
    std::string names;
    for (int slot = first_; slot <= State().CardTable.UpperBound(); ++slot) {
      names += (names.empty() ? "" : " ") + State().CardTable[slot].Name.Str();
    }
    return names;
  }
  static std::string Kept() {
    std::string names;
    for (const Card& card : Hand()) {
      if (!IsFree(card)) names += (names.empty() ? "" : " ") + card.Name.Str();
    }
    return names;
  }

  int first_;
};

TEST_F(OpponentTest, CardsAreWorthWhatTheirActionsCanDo) {
  struct {
    const char* What;
    std::vector<Action> Actions;
    std::vector<std::string> Traits;
    int Worth;
    const char* Love;
  } const cases[] = {
      {"nothing to try", {}, {}, 0, "0"},
      {"a priority", {}, {"PRIORITY:1"}, 0, "1"},
      {"a priority without a value", {}, {"PRIORITY"}, 0, "1"},
      {"a priority that is no number", {}, {"PRIORITY:high"}, 0, "0"},
      {"a priority below 0", {{"PHASE1", "RANDOM", kClean}}, {"PRIORITY:-25"}, 20, "-5"},
      {"a price out of reach", {{"COST", "OWNER", "SUBTRAIT:MANA:6"}}, {}, -100, "-100"},
      {"the same, but dear", {{"COST", "OWNER", kNever}}, {"PRIORITY:150"}, -100, "50"},
      {"a price within reach", {{"COST", "OWNER", "SUBTRAIT:MANA:5"}}, {}, 0, "0"},
      {"a price modifier", {{"COSTMOD", "ALL", kNever}}, {}, 10, "10"},
      {"an eye on others", {{"OTHERENTERSPLAY", "SELF", kNever}}, {}, 10, "10"},
      {"reactions and deaths",
       {{"TARGETED", "ENEMYPLAYER", kClean},
        {"TRAITCHANGE:HP", "ENEMYPLAYER", kClean},
        {"BEFORETRAITCHANGE:HP", "ENEMYPLAYER", kNever},
        {"ONDEATH", "ENEMYPLAYER", kClean}},
       {},
       0,
       "0"},
      {"for itself", {{"PHASE1", "SELF", kClean}, {"AIREQ", "SELF", kNever}}, {}, 0, "0"},
      {"a clean run", {{"PHASE1", "ENEMYPLAYER", kClean}}, {}, 20, "20"},
      {"a failing run", {{"PHASE1", "OWNER", kNever}}, {}, -10, "-10"},
      {"a partial run", {{"ENTERPLAY", "RANDOM", kPartial}}, {}, -10, "-10"},
      {"no target", {{"PHASE1", "RANDOM", kNever}}, {}, -10, "-10"},
      {"no target counts for nothing",
       {{"PHASE1", "RANDOM", kNever}, {"PHASE2", "RANDOMENEMY", kClean}},
       {},
       10,
       "10"},
      {"rounded down",
       {{"COSTMOD", "ALL", kClean}, {"PHASE1", "OWNER", kNever}, {"PHASE2", "OWNER", kNever}},
       {},
       -4,
       "-4"},
      {"a chosen card", {{"ENTERPLAY", "TARGETCARD", kClean}}, {}, 20, "20"},
      {"a menu action", {{"MENU:PHASE1:Zap", "RANDOM", kClean}}, {}, 20, "20"},
      {"any other word", {{"MYACTION", "RANDOM", kClean}}, {}, 20, "20"},
      {"advice that fits", {{"AIREQ", "RANDOM", kClean}}, {}, 60, "60"},
      {"advice that half fits", {{"AIREQ", "RANDOM", kPartial}}, {}, -30, "-30"},
      {"advice that does not fit", {{"AIREQ", "OWNER", kNever}}, {}, -30, "-30"},
      {"advice without a target", {{"AIREQ", "RANDOM", kNever}}, {}, -10, "-10"},
      {"advice and action",
       {{"AIREQ", "OWNER", kNever}, {"PHASE1", "RANDOM", kClean}},
       {"PRIORITY:7"},
       -5,
       "2"},
  };
  for (const auto& row : cases) {
    Card card = HandCard("Card", row.Actions, row.Traits);
    EXPECT_EQ(ValueCardForAI(card), row.Worth) << row.What;
    EXPECT_EQ(GetTrait(card, "AILOVE").Str(), row.Love) << row.What;
    EXPECT_EQ(card.InPlay, 0) << row.What;
  }
  Card expired = HandCard("Card", {{"PHASE1", "RANDOM", kClean}});
  expired.Effects.Edit(1).Script = Text();
  EXPECT_EQ(ValueCardForAI(expired), 0);
  Card free;
  EXPECT_EQ(ValueCardForAI(free), -100);
  EXPECT_FALSE(HasTrait(free, "AILOVE", ""));
}

TEST_F(OpponentTest, PlaysTheBestFirst) {
  Hand()[2] = HandCard("Ten", {}, {"PRIORITY:10"});
  Hand()[3] = HandCard("Unpayable", {{"COST", "OWNER", kNever}}, {"PRIORITY:150"});
  Hand()[5] = HandCard("Zero", {});
  Hand()[6] = HandCard("AlsoTen", {{"COSTMOD", "ALL", kClean}});
  Hand()[9] = HandCard("Twenty", {{"PHASE1", "RANDOM", kClean}});
  for (const int position : {2, 6, 9}) {
    Hand()[position].Thumb = "t.bmp";
    Hand()[position].GlobalID = position;
  }
  const EnemyPlays plays = PlayEnemyHand();
  EXPECT_EQ(Played(), "Twenty Ten AlsoTen");
  EXPECT_EQ(Kept(), "Unpayable Zero");
  std::string thoughts;
  for (const auto& [name, love] :
       std::vector<std::pair<const char*, const char*>>{{"Unpayable", "50"},
                                                        {"Twenty", "20"},
                                                        {"Ten", "10"},
                                                        {"AlsoTen", "10"},
                                                        {"Zero", "0"}}) {
    thoughts += Joined("<br>AI thinking of playing <font color=\"#FFFFFF\">", name,
                       "</font>.  Priority level is ", love, ".");
  }
  EXPECT_EQ(plays.Thoughts, thoughts);
  std::string cells;
  for (const int id : {9, 2, 6}) {
    cells += Joined("<td><center><a href=\"CARD", id,
                    "\"><img  border = \"0\" src=\"\"></img></a></td>");
  }
  EXPECT_EQ(plays.Cells, cells);
  EXPECT_EQ(TraitNumber(State().CardTable[first_], "AILOVE"), 20);
  EXPECT_EQ(State().CardTable[first_].InPlay, 1);
}

TEST_F(OpponentTest, AnEmptyHandLeavesNoLine) {
  const EnemyPlays plays = PlayEnemyHand();
  EXPECT_EQ(plays.Cells, "");
  EXPECT_EQ(plays.Thoughts, "");
  EXPECT_EQ(Played(), "");
}

// Values are those of before the first play; only the price is looked at again.
TEST_F(OpponentTest, EarlierPlaysSpendTheResources) {
  const std::vector<Action> price = {{"COST", "OWNER", "SUBTRAIT:MANA:2"}};
  for (int position = 1; position <= 4; ++position) {
    Hand()[position] = HandCard(Joined("C", position), price, {Joined("PRIORITY:", position)});
  }
  PlayEnemyHand();
  EXPECT_EQ(Played(), "C4 C3");
  EXPECT_EQ(Kept(), "C2 C1");
  EXPECT_EQ(Mana(), 1);
}

TEST_F(OpponentTest, AModifierCanPutAPriceOutOfReach) {
  const std::vector<Action> price = {{"COST", "OWNER", "SUBTRAIT:MANA:SRCTRAIT/PRICE"}};
  Hand()[1] = HandCard("Dear", price, {"PRICE:2", "DEAR", "PRIORITY:9"});
  Hand()[2] = HandCard("Cheap", price, {"PRICE:2", "PRIORITY:9"});
  GiveAction(State().RulesCard, "COSTMOD", "SELF", "REQTRAIT:DEAR:MODTRAIT:PRICE:9");
  PlayEnemyHand();
  EXPECT_EQ(Played(), "Cheap");
  EXPECT_EQ(GetTrait(Hand()[2], "AILOVE").Str(), "-91");
}

// A modifier that only works when it is meant seriously makes the payment fail behind its test.
TEST_F(OpponentTest, ACardWhosePaymentFailsIsPlayedAllTheSame) {
  Hand()[1] =
      HandCard("Penny", {{"COST", "SELF", "REQNAME:Penny"}, {"COST", "OWNER", "SUBTRAIT:MANA:1"}},
               {"PRIORITY:9"});
  GiveAction(State().RulesCard, "COSTMOD", "SELF", "CHANGENAME:Pound");
  PlayEnemyHand();
  EXPECT_EQ(Played(), "Penny");
  EXPECT_EQ(Mana(), 5);
}

TEST_F(OpponentTest, CardsDrawnMeanwhileWait) {
  Hand()[1] = HandCard("Reader", {{"ENTERPLAY", "OWNER", "DRAWCARDS:2"}}, {"PRIORITY:90"});
  Hand()[2] = HandCard("Other", {}, {"PRIORITY:1"});
  for (const char* name : {"Old", "New"}) {
    State().Players[2].Deck.Append(HandCard(name, {}, {"PRIORITY:99"}));
  }
  const EnemyPlays plays = PlayEnemyHand();
  EXPECT_EQ(Played(), "Reader Other");
  EXPECT_EQ(Kept(), "New Old");
  EXPECT_NE(plays.Thoughts.find("New</font>.  Priority level is ."), std::string::npos);
  PlayEnemyHand();
  EXPECT_EQ(Played(), "Reader Other New Old");
}

TEST_F(OpponentTest, CardsAreFreeInDebugMode) {
  State().DebugMode = 1;
  Hand()[1] = HandCard("Castle", {{"COST", "OWNER", kNever}}, {"PRIORITY:1"});
  PlayEnemyHand();
  EXPECT_EQ(Played(), "Castle");
}

}  // namespace
}  // namespace brindlemoor
