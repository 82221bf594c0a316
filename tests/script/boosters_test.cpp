// Boosters: their panels, how rarity thins cards out, and bounds; the rest is in
// tests/scenarios/boosters.txt.
#include <set>

#include "core/limits.h"
#include "core/random.h"
#include "script/run_action.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class BoostersTest : public SessionTest {
 protected:
  BoostersTest() : player_(PutPlayerCard(1)), shop_(PutInPlay(MakeCard("Shop", 0, {"OPEN"}))) {}

  static void Stock(std::string_view name, int rarity) {
    Card card = MakeCard(name, 2);
    card.Rarity = static_cast<std::uint8_t>(rarity);
    card.Picture = "card.jpg";
    State().Players[2].StartDeck.Append(card);
    State().Players[2].Deck.Append(card);
  }
  int RunScript(const Text& script) {
    State().PhaseBanner.clear();
    return RunAction(shop_, player_, 1, RunOptions{.ScriptOverride = script});
  }
  static std::multiset<std::string> Owned() {
    std::multiset<std::string> names;
    for (const Card& card : State().Collection) {
      if (!IsFree(card)) names.insert(card.Name.Str());
    }
    return names;
  }
  static int Count(std::string_view piece) {
    const std::string& text = State().PhaseBanner;
    int count = 0;
    for (auto at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) {
      ++count;
    }
    return count;
  }

  Card& player_;
  Card& shop_;
};

TEST_F(BoostersTest, PanelsStandInRowsOfFour) {
  Stock("Imp", 0);
  const std::string panel = "</td></tr></table><br>";  // end of a panel, with a break of its own
  for (const auto& [cards, breaks] : {std::pair{8, 3}, {3, 1}, {4, 2}, {5, 2}}) {
    State().Collection.Reset(1);
    RunScript(Joined("BOOSTER:", cards));
    EXPECT_EQ(Owned().count("Imp"), static_cast<std::size_t>(cards));
    EXPECT_EQ(Count(panel), cards);
    EXPECT_EQ(Count("<br>") - cards, breaks) << cards << " cards";
  }
}

TEST_F(BoostersTest, RarityThinsCardsOut) {
  Stock("Common", 0);
  Stock("Rare", 80);
  Stock("Never", 101);
  SeedFromText("BOOSTER", 1);
  RunScript("BOOSTER:400");
  const auto owned = Owned();
  EXPECT_EQ(owned.count("Never"), 0U);
  // Of 100 draws of each kind 100 common and 21 rare ones stay.
  EXPECT_GT(owned.count("Rare"), 40U);
  EXPECT_LT(owned.count("Rare"), 100U);
}

TEST_F(BoostersTest, AnEmptyStoreEndsInOrder) {
  for (const bool holdsFreeRecord : {false, true}) {
    State().Players[2].StartDeck.Reset(0);
    if (holdsFreeRecord) Stock("", 0);
    for (const char* script : {"BOOSTER:1", "BOOSTERWITHREQS:1:REQTRAIT:OPEN"}) {
      RunScript(script);
      EXPECT_EQ(Count("Max attempts exceeded."), 1) << script;
      EXPECT_TRUE(Owned().empty()) << script;
    }
  }
}

TEST_F(BoostersTest, EndlessBoostersStopAtTheBound) {
  Stock("Imp", 0);
  for (const char* script : {"BOOSTER:1000000", "BOOSTERCARD:Imp:1000000"}) {
    State().Collection.Reset(1);
    State().LimitsReported.clear();
    RunScript(script);
    EXPECT_EQ(Owned().size(), static_cast<std::size_t>(limits::kBoosterCards)) << script;
    EXPECT_EQ(Count("A booster had too many cards"), 1) << script;
  }
  State().Players[2].StartDeck.Reset(1);
  State().LimitsReported.clear();
  RunScript("BOOSTERWITHREQS:1000000:REQTRAIT:ABSENT");
  EXPECT_EQ(Count("A booster had too many cards"), 1);
}

}  // namespace
}  // namespace brindlemoor
