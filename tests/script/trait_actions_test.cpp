// Trait actions: what a trait brings to a card, when it does not, and how it goes again.
#include "script/trait_actions.h"

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

TEST_F(TraitActionsTest, ActionsComeByTraitNameAndForAll) {
  const std::string both = std::string(kFlying) + kAll;
  const Rows<const char*, std::vector<std::string>, const char*, std::string> cases = {
      {"the trait and all", {"FLYING"}, "", both},
      {"only the general ones", {"SWIMMING"}, "", kAll},
      {"trait names fold case", {"flying:2"}, "", both},
      {"only one trait's", {"FLYING"}, "FLYING", kFlying},
      {"another trait's", {"FLYING"}, "SWIMMING", ""},
      {"the narrowing is exact", {"FLYING"}, "flying", ""}};
  for (const auto& [what, traits, only, expected] : cases) {
    Card card = MakeCard("Bird", 1, traits);
    for (const char* time : {"once", "merged twice"}) {
      card.TraitActionsApplied = 0;
      ApplyTraitActions(card, only);
      EXPECT_EQ(ActionsOf(card), expected) << what << ", " << time;
      EXPECT_EQ(card.TraitActionsApplied, 1) << what;
    }
  }
}

TEST_F(TraitActionsTest, ACaptionSwitchesATraitsActionsOffButNotTheGeneralOnes) {
  Card card = MakeCard("Penguin", 1, {"FLYING", "#ALL#"});
  for (int item = 1; item <= card.TraitCaptions.UpperBound(); ++item) {
    card.TraitCaptions.Edit(item) = "OVERRIDE";
  }
  for (int time = 1; time <= 2; ++time) {
    card.TraitActionsApplied = 0;
    ApplyTraitActions(card, "");
    EXPECT_EQ(ActionsOf(card), kAll) << "the caption stays";
  }
}

TEST_F(TraitActionsTest, ATraitGainedInPlayActsAtOnceAndGoesWithTheTrait) {
  Card& bird = PutInPlay(MakeCard("Bird", 1));
  for (int round = 1; round <= 3; ++round) {
    SetTrait(bird, "FLYING", round, 0);
    FireHit("PHASE1");
    EXPECT_EQ(TraitNumber(bird, "ALTITUDE"), round);
    RemoveTrait(bird, "FLYING");
    FireHit("PHASE1");
    EXPECT_EQ(TraitNumber(bird, "ALTITUDE"), round) << "the actions are gone";
  }
  EXPECT_LE(bird.Effects.UpperBound(), 3) << "blank records are used again";
  Card copy = bird;
  SetTrait(copy, "FLYING", 1, 0);
  FireHit("PHASE1");
  EXPECT_EQ(TraitNumber(bird, "ALTITUDE"), 3) << "a copy's trait acts for no card";
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
