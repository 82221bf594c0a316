// Triggers: stored targets, one roll for a firing, and deaths; tests/scenarios/triggers.txt has the
// rest.
#include "script/triggers.h"

#include <map>

#include "core/limits.h"
#include "core/random.h"
#include "script/trait_changes.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class TriggersTest : public SessionTest {
 protected:
  /// Two players, and for each side a card that is no player: slots 1 to 5.
  TriggersTest() {
    PutPlayerCard(1);
    PutPlayerCard(2);
    PutInPlay(MakeCard("Ally", 1, {"SMALL"}));
    PutInPlay(MakeCard("Enemy", 2, {"SMALL"}));
    PutInPlay(MakeCard("Stone", 0));
  }
  static Card& Slot(int slot) { return State().CardTable[slot]; }
  /// A card in play with one action that marks its target.
  static Card& PutMarker(std::string_view target, int owner = 1,
                         std::string_view script = "MODTRAIT:HIT:1") {
    Card card = MakeCard("Marker", owner);
    GiveAction(card, "PHASE1", target, script);
    return PutInPlay(card);
  }
  /// Names of the cards that were hit, and no marks for the next time.
  static std::string TakeHits() {
    const std::string names = NamesWith("HIT");
    for (Card& card : State().CardTable) RemoveTrait(card, "HIT");
    return names;
  }
};

TEST_F(TriggersTest, AStoredTargetOutsideThePilesIsNone) {
  const Card& stored = State().Collection[1] = MakeCard("Stored", 1);
  const Card& packed = State().Decks[2].Cards[1] = MakeCard("Packed", 1);
  Card& marker = PutMarker("COLLECTION");
  const Rows<int, std::uint8_t> cases = {{2, 2}, {1, 9}};
  for (const auto& [chosen, pile] : cases) {
    marker.Effects.Edit(1).ChosenTarget = chosen;
    marker.Effects.Edit(1).PickedPile = pile;
    FireTrigger(marker, "PHASE1");
    EXPECT_FALSE(HasTrait(stored, "HIT") || HasTrait(packed, "HIT")) << chosen;
  }
}

TEST_F(TriggersTest, OneChanceRollsOnceForAllCardsOfAFiring) {
  Card& marker = PutMarker("ALL", 1, "ONECHANCE:50:SETTRAIT:HIT:1");
  std::map<std::string, int> times;
  for (int seed = 1; seed <= 60; ++seed) {
    SeedFromText("ROLL", seed);
    FireTrigger(marker, "PHASE1");
    ++times[TakeHits()];
  }
  EXPECT_EQ(times.size(), 2U);
  EXPECT_GT(times[""], 10);
  EXPECT_GT(times["Player 1 Player 2 Ally Enemy Stone Marker"], 10);
}

TEST_F(TriggersTest, TheActionsOfATriggerAreBounded) {
  Card& card = Slot(3);
  card.Effects.Resize(limits::kCardItems);
  for (int effect = 1; effect <= limits::kCardItems; ++effect) {
    card.Effects.Edit(effect).Trigger = "PHASE1";
    card.Effects.Edit(effect).Script = "ECHO:x";
  }
  std::vector<Hit>& hits = State().HitTable[static_cast<std::size_t>(TriggerCode("PHASE1"))];
  hits.assign(limits::kHits - 5, Hit{1, 1});
  RegisterAllHits(card);
  EXPECT_EQ(static_cast<int>(hits.size()), limits::kHits);
  EXPECT_NE(State().PhaseBanner.find("some were left out"), std::string::npos);
}

TEST_F(TriggersTest, DyingFiresOnTheLivingCardAndFreesItsSlotAndHits) {
  Card& card = PutMarker("ALL");
  GiveAction(card, "ONDEATH", "SELF", "SETOWNERTRAIT:LASTWORDS:1");
  GiveAction(card, "ONDEATH", "SELF", "DESTROYME");
  RegisterAllHits(card);
  const Card heir = card;
  Card copy = card;
  KillCard(copy);
  FireHit("PHASE1");
  EXPECT_NE(TakeHits(), "") << "a copy that dies leaves the card its phases";
  RemoveTrait(Slot(1), "LASTWORDS");
  KillCard(card);
  EXPECT_EQ(NamesWith("LASTWORDS"), "Player 1");
  EXPECT_TRUE(IsFree(card));
  EXPECT_EQ(card.InPlay, 0);
  card = heir;
  FireHit("PHASE1");
  EXPECT_EQ(TakeHits(), "") << "the next card of the slot does not inherit its phases";
  KillCard(State().RulesCard);
  EXPECT_TRUE(IsFree(State().RulesCard));
}

}  // namespace
}  // namespace brindlemoor
