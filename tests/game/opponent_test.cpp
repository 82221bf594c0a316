// What the computer opponent's cards are worth, and what it plays.
#include "game/opponent.h"

#include "script/trait_changes.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr const char* kClean = "MODTRAIT:HP:1";
constexpr const char* kPartial = "AIREQTRAIT:ABSENT:MODTRAIT:HP:1";
constexpr const char* kNever = "REQTRAIT:ABSENT:MODTRAIT:HP:1";

class OpponentTest : public SessionTest {
 protected:
  /// The target, the script, and when it runs.
  struct Action {
    const char *Target, *Script, *Trigger = "PHASE1";
  };

  OpponentTest() {
    PutPlayerCard(1, {"HP:10"});
    PutPlayerCard(2, {"HP:10", "MANA:5"});
    PutInPlay(MakeCard("Goblin", 1, {"HP:3"}));
    first_ = State().CardTable.UpperBound() + 1;
  }
  static Card HandCard(std::string_view name, const std::vector<Action>& actions,
                       std::string_view priority = "") {
    Card card = MakeCard(name, 2);
    if (!priority.empty()) SetTrait(card, Joined("PRIORITY", priority), "", 1);
    for (const auto& [target, script, trigger] : actions) GiveAction(card, trigger, target, script);
    return card;
  }
  static Pile& Hand() { return State().Players[2].Hand; }
  static double Mana() {
    return TraitNumber(State().CardTable[State().Players[2].PlayerCard], "MANA");
  }
  /// Names of the cards that came into the table and of those still in hand: "A B | C".
  std::string PlayedAndKept() const {
    std::string names;
    for (int slot = first_; slot <= State().CardTable.UpperBound(); ++slot) {
      names += State().CardTable[slot].Name.Str() + " ";
    }
    names += "|";
    for (const Card& card : Hand()) names += IsFree(card) ? "" : " " + card.Name.Str();
    return names;
  }

  int first_;
};

TEST_F(OpponentTest, CardsAreWorthWhatTheirActionsCanDo) {
  const struct {
    const char* What;
    std::vector<Action> Actions;
    const char* Priority;
    int Worth;
    const char* Love;
  } cases[] = {
      {"nothing to try", {}, "", 0, "0"},
      {"a priority", {}, ":1", 0, "1"},
      {"a priority that is no number", {}, ":high", 0, "0"},
      {"a priority below 0", {{"RANDOM", kClean}}, ":-25", 20, "-5"},
      {"a price out of reach", {{"OWNER", "SUBTRAIT:MANA:6", "COST"}}, "", -100, "-100"},
      {"the same, but dear", {{"OWNER", kNever, "COST"}}, ":150", -100, "50"},
      {"a price within reach", {{"OWNER", "SUBTRAIT:MANA:5", "COST"}}, "", 0, "0"},
      {"a price modifier", {{"ALL", kNever, "COSTMOD"}}, "", 10, "10"},
      {"an eye on others", {{"SELF", kNever, "OTHERENTERSPLAY"}}, "", 10, "10"},
      {"a reaction", {{"ENEMYPLAYER", kClean, "TARGETED"}}, "", 0, "0"},
      {"a change", {{"ENEMYPLAYER", kClean, "TRAITCHANGE:HP"}}, "", 0, "0"},
      {"a coming change", {{"ENEMYPLAYER", kNever, "BEFORETRAITCHANGE:HP"}}, "", 0, "0"},
      {"a death", {{"ENEMYPLAYER", kClean, "ONDEATH"}}, "", 0, "0"},
      {"for itself", {{"SELF", kClean}, {"SELF", kNever, "AIREQ"}}, "", 0, "0"},
      {"a clean run", {{"ENEMYPLAYER", kClean}}, "", 20, "20"},
      {"a failing run", {{"OWNER", kNever}}, "", -10, "-10"},
      {"a partial run", {{"RANDOM", kPartial, "ENTERPLAY"}}, "", -10, "-10"},
      {"no target counts for nothing", {{"RANDOM", kNever}, {"RANDOM", kClean}}, "", 10, "10"},
      {"rounded down",
       {{"ALL", kClean, "COSTMOD"}, {"OWNER", kNever}, {"OWNER", kNever}},
       "",
       -4,
       "-4"},
      {"a menu action", {{"RANDOM", kClean, "MENU:PHASE1:Zap"}}, "", 20, "20"},
      {"any other word", {{"RANDOM", kClean, "MYACTION"}}, "", 20, "20"},
      {"advice that fits", {{"RANDOM", kClean, "AIREQ"}}, "", 60, "60"},
      {"advice that half fits", {{"RANDOM", kPartial, "AIREQ"}}, "", -30, "-30"},
      {"advice that does not fit", {{"OWNER", kNever, "AIREQ"}}, "", -30, "-30"},
      {"advice without a target", {{"RANDOM", kNever, "AIREQ"}}, "", -10, "-10"},
      {"advice and action", {{"OWNER", kNever, "AIREQ"}, {"RANDOM", kClean}}, ":7", -5, "2"},
  };
  for (const auto& row : cases) {
    Card card = HandCard("Card", row.Actions, row.Priority);
    EXPECT_EQ(ValueCardForAI(card).OfActions, row.Worth) << row.What;
    EXPECT_EQ(GetTrait(card, "AILOVE").Str(), row.Love) << row.What;
    EXPECT_EQ(card.InPlay, 0) << row.What;
  }
}

TEST_F(OpponentTest, AWorthIsToldByItsParts) {
  Card card = HandCard("Card",
                       {{"ENEMYPLAYER", kClean},
                        {"OWNER", kNever, "AIREQ"},
                        {"RANDOM", kNever, "AIREQ"},
                        {"ALL", kClean, "COSTMOD"}},
                       ":7");
  EXPECT_EQ(
      WorthText(card, ValueCardForAI(card, WorthDetail::kTrials)),
      "3: -4 of its actions, PRIORITY 7; action 1 PHASE1 at Player 1: 2; action 2 AIREQ at Player "
      "2: -3; action 3 AIREQ without a target: -1; action 4 COSTMOD untried: 1");
  card = HandCard("Dear", {{"OWNER", kNever, "COST"}, {"RANDOM", kClean}}, ":150");
  EXPECT_EQ(WorthText(card, ValueCardForAI(card, WorthDetail::kTrials)),
            "50: -100 as it can't be paid, PRIORITY 150");
}

TEST_F(OpponentTest, PlaysTheBestFirst) {
  EXPECT_EQ(PlayEnemyHand().Thoughts, "") << "an empty hand leaves no line";
  Hand()[2] = HandCard("Ten", {}, ":10");
  Hand()[3] = HandCard("Unpayable", {{"OWNER", kNever, "COST"}}, ":150");
  Hand()[5] = HandCard("Zero", {});
  Hand()[6] = HandCard("AlsoTen", {{"ALL", kClean, "COSTMOD"}});
  Hand()[9] = HandCard("Twenty", {{"RANDOM", kClean}});
  std::string thoughts, cells;
  for (const auto& [position, love] : {std::pair{3, 50}, {9, 20}, {2, 10}, {6, 10}, {5, 0}}) {
    Card& card = Hand()[position];
    card.Thumb = "t.bmp";
    card.GlobalID = position;
    thoughts += Joined("<br>AI thinking of playing <font color=\"#FFFFFF\">", card.Name,
                       "</font>.  Priority level is ", love, ".");
    if (position == 3 || position == 5) continue;
    cells += Joined("<td><center><a href=\"CARD", position,
                    "\"><img  border = \"0\" src=\"\"></img></a></td>");
  }
  const EnemyPlays plays = PlayEnemyHand();
  EXPECT_EQ(PlayedAndKept(), "Twenty Ten AlsoTen | Unpayable Zero");
  EXPECT_EQ(plays.Thoughts, thoughts);
  EXPECT_EQ(plays.Cells, cells);
  EXPECT_EQ(TraitNumber(State().CardTable[first_], "AILOVE"), 20);
  EXPECT_EQ(State().CardTable[first_].InPlay, 1);
}

// Values are those of before the first play; only the price is looked at again.
TEST_F(OpponentTest, EarlierPlaysSpendTheResources) {
  for (int position = 1; position <= 4; ++position) {
    Hand()[position] = HandCard(Joined("C", position), {{"OWNER", "SUBTRAIT:MANA:2", "COST"}},
                                Joined(":", position));
  }
  PlayEnemyHand();
  EXPECT_EQ(PlayedAndKept(), "C4 C3 | C2 C1");
  EXPECT_EQ(Mana(), 1);
}

TEST_F(OpponentTest, CardsDrawnMeanwhileWait) {
  Hand()[1] = HandCard("Reader", {{"OWNER", "DRAWCARDS:2", "ENTERPLAY"}}, ":90");
  Hand()[2] = HandCard("Other", {}, ":1");
  for (const char* name : {"Old", "New"}) {
    State().Players[2].Deck.Append(HandCard(name, {}, ":99"));
  }
  const EnemyPlays plays = PlayEnemyHand();
  EXPECT_EQ(PlayedAndKept(), "Reader Other | New Old");
  EXPECT_NE(plays.Thoughts.find("New</font>.  Priority level is ."), std::string::npos);
  PlayEnemyHand();
  EXPECT_EQ(PlayedAndKept(), "Reader Other New Old |");
}

}  // namespace
}  // namespace brindlemoor
