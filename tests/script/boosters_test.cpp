// Boosters: how many cards they give, which, and how the page lists them.
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

  static void Stock(std::string_view name, int rarity,
                    const std::vector<std::string>& traits = {}) {
    Card card = MakeCard(name, 2, traits);
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

TEST_F(BoostersTest, AStoreWithoutFittingCardsEndsInOrder) {
  const Rows<const char*, const char*, int, std::multiset<std::string>> cases = {
      {"BOOSTERWITHREQS:1:REQTRAIT:OPEN", nullptr, 0, {}},
      {"BOOSTER:1", "", 0, {}},
      {"BOOSTER:1", "Never", 101, {"Never"}},
      {"BOOSTERWITHREQS:1:REQTRAIT:OPEN", "Imp", 0, {"Imp"}}};
  for (const auto& [script, stocked, rarity, owned] : cases) {
    State().Collection.Reset(1);
    State().Players[2].StartDeck.Reset(0);
    if (stocked != nullptr) Stock(stocked, rarity);
    RunScript(script);
    EXPECT_EQ(Count("Max attempts exceeded."), 1) << script;
    EXPECT_EQ(Owned(), owned) << script;
  }
}

TEST_F(BoostersTest, RequirementsChooseTheCardsAndThenTheRunsTarget) {
  Stock("Imp", 0, {"RED"});
  Stock("Elf", 0, {"GREEN"});
  Stock("Orc", 0, {"GREEN"});
  SetTrait(player_, "GREEN", 1, 0);
  RunScript("BOOSTERWITHREQS:20:REQTRAIT:GREEN:MODTRAIT:BOUGHT:1");
  const auto owned = Owned();
  EXPECT_EQ(owned.size(), 20U);
  EXPECT_EQ(std::set<std::string>(owned.begin(), owned.end()),
            (std::set<std::string>{"Elf", "Orc"}));
  EXPECT_EQ(TraitNumber(player_, "BOUGHT"), 1) << "the rest is walked on the run's target too";

  for (const Pile* pile : {&State().Collection, &State().Players[2].StartDeck}) {
    for (const Card& card : *pile) EXPECT_FALSE(HasTrait(card, "BOUGHT", ""));
  }
  RemoveTrait(player_, "GREEN");
  RunScript("BOOSTERWITHREQS:1:REQTRAIT:GREEN:MODTRAIT:BOUGHT:1");
  EXPECT_EQ(TraitNumber(player_, "BOUGHT"), 1);
}

TEST_F(BoostersTest, NamedCardsComeFromTheStore) {
  Stock("Imp", 101);
  Stock("Elf", 101);
  RunScript("BOOSTERCARD:Elf:3");
  EXPECT_EQ(Owned(), (std::multiset<std::string>{"Elf", "Elf", "Elf"}));
  RunScript("BOOSTERCARD:Dwarf:2");
  EXPECT_EQ(Owned().size(), 3U);
  EXPECT_EQ(Count("Non-existant card referenced."), 2);
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
