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
  struct Case {
    const char* What;
    std::vector<std::string> Traits;
    const char* Only;
    std::string Expected;
  };
  const Case cases[] = {
      {"the trait and all", {"FLYING"}, "", std::string(kFlying) + kAll},
      {"only the general ones", {"SWIMMING"}, "", kAll},
      {"trait names fold case", {"flying:2"}, "", std::string(kFlying) + kAll},
      {"only one trait's", {"FLYING"}, "FLYING", kFlying},
      {"another trait's", {"FLYING"}, "SWIMMING", ""},
      {"the narrowing is exact", {"FLYING"}, "flying", ""},
  };
  for (const Case& row : cases) {
    Card card = MakeCard("Bird", 1, row.Traits);
    ApplyTraitActions(card, row.Only);
    EXPECT_EQ(ActionsOf(card), row.Expected) << row.What;
    EXPECT_EQ(card.TraitActionsApplied, 1) << row.What;
    card.TraitActionsApplied = 0;
    ApplyTraitActions(card, row.Only);
    EXPECT_EQ(ActionsOf(card), row.Expected) << "merged twice: " << row.What;
  }
}

TEST_F(TraitActionsTest, MenuActionsOfATraitAreTakenApart) {
  Card card = MakeCard("Bird", 1, {"FLYING"});
  ApplyTraitActions(card, "");
  EXPECT_EQ(card.Effects[2].MenuState, kMenuAction);
  EXPECT_EQ(card.Effects[2].MenuCaption, "Rest");
  EXPECT_EQ(State().TraitActions[1].Effects[2].Trigger, "MENU:PHASE2:Rest");
}

TEST_F(TraitActionsTest, ACaptionSwitchesATraitsActionsOffButNotTheGeneralOnes) {
  Card card = MakeCard("Penguin", 1, {"FLYING", "#ALL#"});
  for (int item = 1; item <= card.TraitCaptions.UpperBound(); ++item) {
    card.TraitCaptions.Edit(item) = "OVERRIDE";
  }
  ApplyTraitActions(card, "");
  EXPECT_EQ(ActionsOf(card), kAll);
  card.TraitActionsApplied = 0;
  ApplyTraitActions(card, "");
  EXPECT_EQ(ActionsOf(card), kAll) << "the caption stays";
}

TEST_F(TraitActionsTest, NothingOnAFreeCardOrOneThatHasThem) {
  Card free = MakeCard("", 1, {"FLYING"});
  ApplyTraitActions(free, "");
  EXPECT_EQ(ActionsOf(free) + std::to_string(free.TraitActionsApplied), "0");
  Card done = MakeCard("Bird", 1, {"FLYING"});
  done.TraitActionsApplied = 1;
  ApplyTraitActions(done, "");
  EXPECT_EQ(ActionsOf(done), "");
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
}

TEST_F(TraitActionsTest, RemovedActionsAreBlank) {
  Card card = MakeCard("Bird", 1, {"FLYING"});
  GiveAction(card, "PHASE3", "ALL", "MODTRAIT:HP:2");
  ApplyTraitActions(card, "");
  RemoveTraitEffects(card, "NONE");
  RemoveTraitEffects(card, "");
  EXPECT_EQ(ActionsOf(card), Joined("PHASE3=MODTRAIT:HP:2;", kFlying, kAll));
  RemoveTraitEffects(card, "FLYING");
  EXPECT_EQ(ActionsOf(card), Joined("PHASE3=MODTRAIT:HP:2;", kAll));
  EXPECT_EQ(card.Effects[3].Trigger, "0");
  EXPECT_EQ(card.Effects[3].TargetType, 0);
  EXPECT_EQ(card.Effects[3].MenuState, kOrdinaryAction) << "no link to a menu action that is gone";
  StripTraitEffects(card);
  EXPECT_EQ(ActionsOf(card), "PHASE3=MODTRAIT:HP:2;");
}

TEST_F(TraitActionsTest, ATestCopyLeavesNoHits) {
  Card& bird = PutInPlay(MakeCard("Bird", 1));
  GiveAction(bird, "PHASE1", "SELF", "MODTRAIT:X:1");
  Card copy = bird;
  SetTrait(copy, "FLYING", 1, 0);
  EXPECT_EQ(copy.Effects.UpperBound(), 3);
  EXPECT_TRUE(State().HitTable[1].empty());
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
  EXPECT_EQ(State().HitTable[1].size(), 1U);
  ReapplyTraitActions(1);
  EXPECT_EQ(ActionsOf(done), std::string(kFlying) + kAll);
  EXPECT_EQ(State().HitTable[1].size(), 2U);
  EXPECT_EQ(State().HitTable[11].size(), 2U);
}

}  // namespace
}  // namespace brindlemoor
