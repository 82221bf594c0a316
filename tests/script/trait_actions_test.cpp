// Merging trait actions by the call; tests/scenarios/trait_actions.txt has what they do to cards.
#include "script/trait_actions.h"

#include "script/card_setup.h"
#include "script/triggers.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class TraitActionsTest : public SessionTest {
 protected:
  TraitActionsTest() {
    State().TraitActions.Reset(2);
    Card& flying = State().TraitActions[1] = MakeCard("FLYING", 1);
    AddEffect(flying, "MODTRAIT:ALTITUDE:1", kTargetSelf, "PHASE1", 1, "SELF");
    AddEffect(flying, "MODTRAIT:HP:1", kTargetSelf, "MENU:PHASE2:Rest", 1, "SELF");
    Card& all = State().TraitActions[2] = MakeCard("#ALL#", 1);
    AddEffect(all, "MODTRAIT:AGE:1", kTargetSelf, "TURNEND", 1, "SELF");
  }
  /// Scripts of a card that are not blank, each with its trigger.
  static std::string ActionsOf(const Card& card) {
    std::string text;
    for (const CardEffect& effect : card.Effects) {
      if (!effect.Script.empty()) text += Joined(effect.Trigger, "=", effect.Script, ";");
    }
    return text;
  }
  static constexpr const char* kFlying =
      "PHASE1=TRAIT:TRAITEFFECT:FLYING:MODTRAIT:ALTITUDE:1;"
      "PHASE2=TRAIT:TRAITEFFECT:FLYING:MODTRAIT:HP:1;";
  static constexpr const char* kAll = "TURNEND=TRAIT:TRAITEFFECT:#ALL#:MODTRAIT:AGE:1;";
};

TEST_F(TraitActionsTest, MergingCanBeNarrowedToOneTrait) {
  const Rows<const char*, const char*> cases = {
      {"FLYING", kFlying}, {"SWIMMING", ""}, {"flying", ""}};
  for (const auto& [only, expected] : cases) {
    Card card = MakeCard("Bird", 1, {"FLYING"});
    for (const char* time : {"once", "merged twice"}) {
      card.TraitActionsApplied = 0;
      ApplyTraitActions(card, only);
      EXPECT_EQ(ActionsOf(card), expected) << only << ", " << time;
      EXPECT_EQ(card.TraitActionsApplied, 1) << only;
    }
  }
}

TEST_F(TraitActionsTest, ReapplyingServesTableAndDrawPiles) {
  PutInPlay(MakeCard("In play", 1, {"FLYING"}));
  Card& done = PutInPlay(MakeCard("Done", 2, {"FLYING"}));
  done.TraitActionsApplied = 1;
  for (int side = 1; side <= 2; ++side) {
    State().Players[side].Deck.Append(MakeCard("In deck", side, {"FLYING"}));
  }
  ReapplyTraitActions(0);
  EXPECT_EQ(ActionsOf(State().CardTable[1]), std::string(kFlying) + kAll);
  EXPECT_EQ(ActionsOf(done), "");
  EXPECT_EQ(ActionsOf(State().Players[2].Deck[2]), std::string(kFlying) + kAll);
  ReapplyTraitActions(1);
  EXPECT_EQ(ActionsOf(done), std::string(kFlying) + kAll);
  EXPECT_EQ(State().HitTable[1].size(), 2U) << "the actions of both wait for their phase";
}

}  // namespace
}  // namespace brindlemoor
