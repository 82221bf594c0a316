// Triggers: whom an action reaches, when it is passed over, and how cards enter and leave play.
#include "script/triggers.h"

#include "core/random.h"
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
                         std::string_view script = "SETTRAIT:HIT:1") {
    Card card = MakeCard("Marker", owner);
    GiveAction(card, "PHASE1", target, script);
    return PutInPlay(card);
  }
  static std::string TraitOf(const Card& card, std::string_view name) {
    return GetTrait(card, name).Str();
  }
};

TEST_F(TriggersTest, EachTargetTypeReachesItsCards) {
  struct Case {
    const char* Target;
    int Owner;
    const char* Script;
    const char* Hit;
  };
  const Case cases[] = {
      {"SELF", 1, "SETTRAIT:HIT:1", "Marker"},
      {"OWNER", 1, "SETTRAIT:HIT:1", "Player 1"},
      {"OWNER", 2, "SETTRAIT:HIT:1", "Player 2"},
      {"OWNER", 0, "SETTRAIT:HIT:1", ""},
      {"OWNER", 3, "SETTRAIT:HIT:1", ""},
      {"ENEMYPLAYER", 1, "SETTRAIT:HIT:1", "Player 2"},
      {"ENEMYPLAYER", 2, "SETTRAIT:HIT:1", "Player 1"},
      {"ENEMYPLAYER", 0, "SETTRAIT:HIT:1", "Player 1"},
      {"ALL", 1, "SETTRAIT:HIT:1", "Player 1 Player 2 Ally Enemy Stone Marker"},
      {"ALL", 1, "REQTRAIT:SMALL:SETTRAIT:HIT:1", "Ally Enemy"},
      {"RANDOM", 1, "REQNAME:Stone:SETTRAIT:HIT:1", "Stone"},
      {"RANDOMENEMY", 1, "REQTRAIT:SMALL:SETTRAIT:HIT:1", "Enemy"},
      {"RANDOMALLY", 1, "REQTRAIT:SMALL:SETTRAIT:HIT:1", "Ally"},
      {"RANDOMENEMY", 2, "REQTRAIT:SMALL:SETTRAIT:HIT:1", "Ally"},
      {"RANDOMENEMY", 1, "REQTRAIT:ABSENT:SETTRAIT:HIT:1", ""},
      {"TRIGGERINGCARD", 1, "SETTRAIT:HIT:1", "Enemy"},
      {"TARGETCARD", 1, "REQNAME:Ally:SETTRAIT:HIT:1", "Ally"},
      {"NOSUCHWORD", 1, "REQNAME:Ally:SETTRAIT:HIT:1", "Ally"},
      {"COUNTER", 1, "SETTRAIT:HIT:1", ""},
      {"GIDCARD:4711", 1, "SETTRAIT:HIT:1", "Stone"},
      {"GIDCARD:4712", 1, "SETTRAIT:HIT:1", ""},
  };
  for (const Case& row : cases) {
    Slot(5).GlobalID = 4711;
    Card& marker = PutMarker(row.Target, row.Owner, row.Script);
    FireTrigger(marker, "PHASE1", 4);
    EXPECT_EQ(NamesWith("HIT"), row.Hit) << row.Target << " of owner " << row.Owner;
    for (Card& card : State().CardTable) RemoveTrait(card, "HIT");
    FreeCard(marker);
  }
}

TEST_F(TriggersTest, TriggeringCardWithoutOneIsTheNewestCard) {
  Card& marker = PutMarker("NEWESTCARD", 1, "SETTRAIT:HIT:1");
  State().LastEntered = 0;
  EXPECT_EQ(FireTrigger(marker, "PHASE1", 0), 0);
  EXPECT_EQ(NamesWith("HIT"), "");
  State().LastEntered = 5;
  FireTrigger(marker, "PHASE1", 0);
  EXPECT_EQ(NamesWith("HIT"), "Stone");
}

TEST_F(TriggersTest, OnlyMatchingActionsOfLivingCardsInPlayRun) {
  Card& card = PutInPlay(MakeCard("Many", 1));
  const int first = GiveAction(card, "PHASE1", "SELF", "SETTRAIT:FIRST:1");
  const int second = GiveAction(card, "PHASE1", "SELF", "SETTRAIT:SECOND:1");
  GiveAction(card, "phase1", "SELF", "SETTRAIT:LOWER:1");
  GiveAction(card, "ENTERPLAY", "SELF", "SETTRAIT:ENTERED:1");
  GiveAction(card, "TRAITCHANGE:HP", "SELF", "SETTRAIT:CHANGED:1");
  ASSERT_NE(first, second);

  FireTrigger(card, "PHASE1", -1, second);
  EXPECT_FALSE(HasTrait(card, "FIRST", ""));
  EXPECT_TRUE(HasTrait(card, "SECOND", ""));
  EXPECT_EQ(FireTrigger(card, "PHASE1", -1, 99), 0);
  FireTrigger(card, "PHASE1");
  EXPECT_TRUE(HasTrait(card, "FIRST", ""));
  EXPECT_FALSE(HasTrait(card, "LOWER", ""));
  FireTrigger(card, "ENTERSPLAY");
  EXPECT_TRUE(HasTrait(card, "ENTERED", "")) << "ENTERSPLAY is a second word for ENTERPLAY";
  EXPECT_FALSE(HasTrait(card, "CHANGED", ""));

  Card& dead = PutMarker("ALL", 1, "SETTRAIT:DEAD:1");
  FreeCard(dead);
  FireTrigger(dead, "PHASE1");
  Card& waiting = PutMarker("SELF", 1, "SETTRAIT:WAITED:1");
  waiting.InPlay = 0;
  FireTrigger(waiting, "PHASE1");
  EXPECT_EQ(NamesWith("DEAD") + NamesWith("WAITED"), "");
  EXPECT_EQ(waiting.InPlay, 0);
}

TEST_F(TriggersTest, ActivationTriggerBringsACardIntoPlayAndItsActionsRunInTheSameFiring) {
  Card& waiting = PutMarker("SELF", 1, "SETTRAIT:HIT:1");
  waiting.InPlay = 0;
  waiting.ActivateOn = "phase1";
  GiveAction(waiting, "ENTERPLAY", "SELF", "SETTRAIT:ENTERED:1");
  State().WaitingSlots[1] = waiting.Slot;

  FireHit("PHASE2");
  EXPECT_EQ(waiting.InPlay, 0);
  FireHit("PHASE1");
  EXPECT_EQ(waiting.InPlay, 1);
  EXPECT_TRUE(HasTrait(waiting, "ENTERED", ""));
  EXPECT_TRUE(HasTrait(waiting, "HIT", ""));
  EXPECT_EQ(State().WaitingSlots[1], 0);
}

TEST_F(TriggersTest, FiringOnACardDirectlyActivatesItToo) {
  Card& waiting = PutMarker("SELF", 1, "MODTRAIT:HIT:1");
  waiting.InPlay = 0;
  waiting.ActivateOn = "Phase1";
  FireTrigger(waiting, "PHASE1");
  EXPECT_EQ(waiting.InPlay, 1);
  EXPECT_EQ(TraitOf(waiting, "HIT"), "1");
}

TEST_F(TriggersTest, CostActionsRunOnACardThatIsNotInPlay) {
  Card card = MakeCard("Priced", 1);
  GiveAction(card, "COST", "OWNER", "REQTRAIT:RICH");
  EXPECT_EQ(FireTrigger(card, "COST", -1, 0, 1), 1);
  SetTrait(Slot(1), "RICH", 1, 0);
  EXPECT_EQ(FireTrigger(card, "COST", -1, 0, 1), 0);
}

TEST_F(TriggersTest, FailuresCountEffectsThatFailed) {
  struct Case {
    const char* What;
    std::vector<std::pair<const char*, const char*>> Actions;
    int Failures;
  };
  const Case cases[] = {
      {"none", {{"SELF", "SETTRAIT:A:1"}}, 0},
      {"a soft failure is none", {{"SELF", "CHANCE:0:SETTRAIT:A:1"}}, 0},
      {"two of three",
       {{"SELF", "REQTRAIT:X"}, {"SELF", "SETTRAIT:A:1"}, {"SELF", "REQTRAIT:Y"}},
       2},
      {"no fitting card is no failure",
       {{"RANDOM", "REQTRAIT:X"}, {"TARGETCARD", "REQTRAIT:X"}},
       0},
      {"an earlier result stands", {{"SELF", "REQTRAIT:X"}, {"RANDOM", "REQTRAIT:X"}}, 2},
      {"every card of ALL, and its last once more", {{"ALL", "REQNAME:Ally"}}, 6},
  };
  for (const Case& row : cases) {
    Card& card = PutInPlay(MakeCard("Tester", 1));
    for (const auto& [target, script] : row.Actions) GiveAction(card, "PHASE1", target, script);
    EXPECT_EQ(FireTrigger(card, "PHASE1"), row.Failures) << row.What;
    FreeCard(card);
  }
}

TEST_F(TriggersTest, AChosenTargetStaysUntilItNoLongerSuits) {
  Card& marker = PutMarker("TARGETCARD", 1, "REQTRAIT:SMALL:MODTRAIT:HIT:1");
  marker.Effects.Edit(1).ChosenTarget = 4;
  for (int turn = 0; turn < 10; ++turn) FireTrigger(marker, "PHASE1");
  EXPECT_EQ(TraitOf(Slot(4), "HIT"), "10");
  EXPECT_EQ(NamesWith("HIT"), "Enemy");

  RemoveTrait(Slot(4), "SMALL");
  FireTrigger(marker, "PHASE1");
  EXPECT_EQ(TraitOf(Slot(3), "HIT"), "1") << "the only other card that suits";
  EXPECT_EQ(marker.Effects[1].ChosenTarget, 3);

  RemoveTrait(Slot(3), "SMALL");
  FireTrigger(marker, "PHASE1");
  EXPECT_EQ(marker.Effects[1].ChosenTarget, 0);
  EXPECT_EQ(TraitOf(Slot(3), "HIT"), "1");
}

TEST_F(TriggersTest, TargetsComeFromTheCardWhenTheActionHasNone) {
  struct Case {
    const char* What;
    std::int16_t TargetSlot, StoredTarget;
    int Chosen;
    const char* Hit;
  };
  const Case cases[] = {
      {"the queued target", 4, 0, 0, "Enemy"},
      {"the action's own target first", 4, 0, 3, "Ally"},
      {"a stored target replaces the queued one", 4, 3, 0, "Ally"},
      {"a slot outside the table is none", 4, 0, 900, "Enemy"},
      {"a queued target that does not suit", 5, 0, 0, "Ally"},
      {"a target outside the table", 900, 0, 0, "Ally"},
      {"a freed slot", 0, 0, 6, "Ally"},
  };
  Card& gone = PutInPlay(MakeCard("Gone", 1, {"SMALL"}));
  Card& actor = PutMarker("TARGETCARD", 1, "REQTRAIT:SMALL:AIREQTRAIT:FIRST:SETTRAIT:HIT:1");
  ASSERT_EQ(gone.Slot, 6);
  FreeCard(gone);
  SetTrait(Slot(3), "FIRST", 1, 0);
  for (const Case& row : cases) {
    actor.TargetSlot = row.TargetSlot;
    actor.StoredTarget = row.StoredTarget;
    actor.Effects.Edit(1).ChosenTarget = row.Chosen;
    FireTrigger(actor, "PHASE1");
    EXPECT_EQ(NamesWith("HIT"), row.Hit) << row.What;
    for (Card& card : State().CardTable) RemoveTrait(card, "HIT");
  }
}

TEST_F(TriggersTest, MenuActionsRunOnceWhenArmed) {
  Card& card = PutInPlay(MakeCard("Menu", 1));
  GiveAction(card, "MENU:PHASE1:Heal", "SELF", "MODTRAIT:HIT:1");
  ASSERT_EQ(card.Effects[1].Trigger, "PHASE1");
  FireTrigger(card, "PHASE1");
  EXPECT_FALSE(HasTrait(card, "HIT", "")) << "a waiting menu action is passed over";

  card.Effects.Edit(1).MenuState = kArmedMenuAction;
  FireTrigger(card, "PHASE2");
  EXPECT_EQ(card.Effects[1].MenuState, kArmedMenuAction) << "its trigger has not come";
  FireTrigger(card, "PHASE1");
  FireTrigger(card, "PHASE1");
  EXPECT_EQ(TraitOf(card, "HIT"), "1");
  EXPECT_EQ(card.Effects[1].MenuState, kMenuAction);

  card.Effects.Edit(1).MenuState = kArmedMenuAction;
  GiveAction(card, "PHASE2", "SELF", "SETTRAIT:X:1");
  ResetMenuState(card);
  EXPECT_EQ(card.Effects[1].MenuState, kMenuAction);
  EXPECT_EQ(card.Effects[2].MenuState, kOrdinaryAction);
}

TEST_F(TriggersTest, CollectionActionsChangeTheStoredCard) {
  State().TraitActions[1] = MakeCard("STRONG", 1);
  GiveAction(State().TraitActions[1], "PHASE9", "SELF", "MODTRAIT:HP:1");
  State().Collection[1] = MakeCard("Stored", 1);
  State().Decks[2].Cards[1] = MakeCard("In deck", 1);
  Card& marker = PutMarker("COLLECTION", 1, "SETTRAIT:STRONG:1");
  struct Case {
    const char* What;
    int Chosen;
    std::uint8_t Pile;
    int TestRun;
    const char* Hit;
  };
  const Case cases[] = {
      {"nothing picked", 0, 0, 0, ""},      {"the collection", 1, 0, 0, "Stored"},
      {"a deck", 1, 2, 0, "In deck"},       {"an index outside the pile", 2, 2, 0, ""},
      {"a deck that is none", 1, 9, 0, ""}, {"a test", 1, 0, 1, ""},
  };
  for (const Case& row : cases) {
    marker.Effects.Edit(1).ChosenTarget = row.Chosen;
    marker.Effects.Edit(1).PickedPile = row.Pile;
    FireTrigger(marker, "PHASE1", -1, 0, row.TestRun);
    std::string hit;
    for (Card* card : {&State().Collection[1], &State().Decks[2].Cards[1]}) {
      if (HasTrait(*card, "STRONG", "")) hit += card->Name.Str();
      EXPECT_EQ(card->Effects.UpperBound(), 1) << "trait actions stay off stored cards";
      RemoveTrait(*card, "STRONG");
    }
    EXPECT_EQ(hit, row.Hit) << row.What;
    EXPECT_EQ(State().TraitActionsPaused, 0) << row.What;
  }
}

TEST_F(TriggersTest, ActionsAddedWhileTheWalkRunsAreWalkedToo) {
  Card& card = PutInPlay(MakeCard("Grower", 1));
  GiveAction(card, "PHASE1", "SELF", "ADDEFFECT:PHASE1:SELF:MODTRAIT:HIT:1");
  FireTrigger(card, "PHASE1");
  EXPECT_EQ(TraitOf(card, "HIT"), "1");
}

TEST_F(TriggersTest, AnActionThatDeletesItselfRunsOnce) {
  Card& card = PutInPlay(MakeCard("Once", 1));
  GiveAction(card, "PHASE1", "SELF", "MODTRAIT:HIT:1:DELETEEFFECT");
  FireTrigger(card, "PHASE1");
  FireTrigger(card, "PHASE1");
  EXPECT_EQ(TraitOf(card, "HIT"), "1");
}

TEST_F(TriggersTest, OneChanceRollsOnceForAllCardsOfAFiring) {
  Card& marker = PutMarker("ALL", 1, "ONECHANCE:50:SETTRAIT:HIT:1");
  int all = 0;
  for (int seed = 1; seed <= 60; ++seed) {
    SeedFromText("ROLL", seed);
    FireTrigger(marker, "PHASE1");
    const std::string hit = NamesWith("HIT");
    if (!hit.empty()) {
      EXPECT_EQ(hit, "Player 1 Player 2 Ally Enemy Stone Marker");
      ++all;
    }
    for (Card& card : State().CardTable) RemoveTrait(card, "HIT");
  }
  EXPECT_GT(all, 10);
  EXPECT_LT(all, 50);
}

TEST_F(TriggersTest, SharedRollsAreKeptWhileTraitChangesAreServed) {
  Card& marker = PutMarker("SELF");
  State().SharedChanceRoll = 42;
  State().EchoedOnce = 1;
  State().TraitChangeBusy = 1;
  FireTrigger(marker, "PHASE2");
  EXPECT_EQ(State().SharedChanceRoll, 42);
  EXPECT_EQ(State().EchoedOnce, 1);
  State().TraitChangeBusy = 0;
  FireTrigger(marker, "PHASE2");
  EXPECT_EQ(State().SharedChanceRoll, 0);
  EXPECT_EQ(State().EchoedOnce, 0);
}

TEST_F(TriggersTest, EnteringPlayTellsRulesThenOthersThenTheCard) {
  GiveAction(State().RulesCard, "OTHERENTERSPLAY", "TRIGGERINGCARD", "SETTRAIT:STEP:1");
  Card& watcher = PutInPlay(MakeCard("Watcher", 2));
  GiveAction(watcher, "OTHERENTERSPLAY", "TRIGGERINGCARD", "REQTRAITIS:STEP:1:SETTRAIT:STEP:2");
  RegisterAllHits(watcher);
  Card entering = MakeCard("Hero", 1, {"PLAYER"});
  GiveAction(entering, "ENTERPLAY", "SELF", "REQTRAITIS:STEP:2:SETTRAIT:STEP:3");
  GiveAction(entering, "OTHERENTERSPLAY", "SELF", "SETTRAIT:SAWITSELF:1");
  GiveAction(entering, "PHASE1", "SELF", "SETTRAIT:PHASED:1");
  Card& hero = PutInPlay(entering);
  hero.InPlay = 0;

  EnterPlay(hero);
  EXPECT_EQ(hero.InPlay, 1);
  EXPECT_EQ(TraitOf(hero, "STEP"), "3");
  EXPECT_FALSE(HasTrait(hero, "SAWITSELF", ""));
  EXPECT_EQ(State().Players[1].PlayerCard, hero.Slot);
  FireHit(1);
  EXPECT_TRUE(HasTrait(hero, "PHASED", ""));

  SetTrait(hero, "STEP", 0, 0);
  EnterPlay(hero);
  EXPECT_EQ(TraitOf(hero, "STEP"), "0") << "a card in play does not enter again";
}

TEST_F(TriggersTest, ACardThatDiesWhileItEntersIsNotRegistered) {
  Card entering = MakeCard("Mayfly", 1);
  GiveAction(entering, "ENTERPLAY", "SELF", "DESTROYME");
  GiveAction(entering, "PHASE1", "ALL", "SETTRAIT:HIT:1");
  Card& mayfly = PutInPlay(entering);
  mayfly.InPlay = 0;
  EnterPlay(mayfly);
  EXPECT_TRUE(IsFree(mayfly));
  EXPECT_TRUE(State().HitTable[1].empty());
}

TEST_F(TriggersTest, DyingFiresOnTheLivingCardAndFreesItsSlotAndHits) {
  Card& card = PutMarker("ALL", 1, "SETTRAIT:HIT:1");
  GiveAction(card, "ONDEATH", "SELF", "SETOWNERTRAIT:LASTWORDS:1");
  GiveAction(card, "ONDEATH", "SELF", "DESTROYME");
  RegisterAllHits(card);
  const Card heir = card;
  KillCard(card);
  EXPECT_EQ(NamesWith("LASTWORDS"), "Player 1");
  EXPECT_TRUE(IsFree(card));
  EXPECT_EQ(card.InPlay, 0);
  card = heir;
  FireHit("PHASE1");
  EXPECT_EQ(NamesWith("HIT"), "") << "the next card of the slot does not inherit its phases";
}

TEST_F(TriggersTest, ACopyThatDiesLeavesTheCardItsPhases) {
  Card& card = PutMarker("SELF", 1, "SETTRAIT:HIT:1");
  RegisterAllHits(card);
  Card copy = card;
  KillCard(copy);
  EXPECT_TRUE(IsFree(copy));
  FireHit("PHASE1");
  EXPECT_EQ(NamesWith("HIT"), "Marker");
}

TEST_F(TriggersTest, TheRulesCardCanDie) {
  KillCard(State().RulesCard);
  EXPECT_TRUE(IsFree(State().RulesCard));
  EXPECT_EQ(FireTrigger(State().RulesCard, "PHASE1"), 0);
}

TEST_F(TriggersTest, FireHitTakesWordsAndCodes) {
  Card& marker = PutMarker("SELF", 1, "MODTRAIT:HIT:1");
  RegisterAllHits(marker);
  struct Case {
    const char* Trigger;
    int Hits;
  };
  for (const Case& row :
       {Case{"PHASE1", 1}, Case{"1", 1}, Case{"PHASE2", 0}, Case{"2", 0}, Case{"", 0},
        Case{"NOTRIGGER", 0}, Case{"99", 0}, Case{"-1", 0}, Case{"12", 0}, Case{"COST", 0}}) {
    SetTrait(marker, "HIT", 0, 0);
    FireHit(row.Trigger);
    EXPECT_EQ(TraitNumber(marker, "HIT"), row.Hits) << row.Trigger;
  }
  SetTrait(marker, "HIT", 0, 0);
  FireHit(1);
  EXPECT_EQ(TraitNumber(marker, "HIT"), 1);
  FireHit(-5);
  FireHit(21);
}

TEST_F(TriggersTest, AWaitingEntryOfACardThatIsGoneIsDropped) {
  Card& waiting = PutMarker("SELF");
  waiting.InPlay = 0;
  waiting.ActivateOn = "PHASE1";
  GiveAction(State().RulesCard, "OTHERENTERSPLAY", "OWNER", "SETTRAIT:HIT:1");
  State().WaitingSlots.Reset(2);
  State().WaitingSlots[1] = waiting.Slot;
  State().WaitingSlots[2] = 500;
  FreeCard(waiting);
  FireHit("PHASE1");
  EXPECT_EQ(State().WaitingSlots[1], 0);
  EXPECT_EQ(State().WaitingSlots[2], 0);
  EXPECT_EQ(waiting.InPlay, 0);
  EXPECT_EQ(NamesWith("HIT"), "");
}

TEST_F(TriggersTest, HitTableKeepsEachActionOnceAndReusesFreeEntries) {
  Card& card = PutInPlay(MakeCard("Phased", 1));
  const int slot = card.Slot;
  GiveAction(card, "PHASE1", "SELF", "SETTRAIT:A:1");
  GiveAction(card, "PHASE1", "SELF", "SETTRAIT:B:1");
  GiveAction(card, "PHASE2", "SELF", "SETTRAIT:C:1");
  GiveAction(card, "COST", "SELF", "SETTRAIT:D:1");
  RebuildHitTable();
  RebuildHitTable();
  auto& phase1 = State().HitTable[1];
  ASSERT_EQ(phase1.size(), 2U);
  EXPECT_EQ(State().HitTable[2].size(), 1U);

  RegisterHit(slot, 2, true);
  EXPECT_EQ(phase1[0].Slot + phase1[1].Slot, 0) << "all entries of the slot in that list go";
  EXPECT_EQ(State().HitTable[2][0].Slot, slot);
  RegisterHit(slot, 2, false);
  ASSERT_EQ(phase1.size(), 2U);
  EXPECT_EQ(phase1[0].Slot, slot);
  EXPECT_EQ(phase1[0].Effect, 2);

  const std::pair<int, int> outside[] = {{0, 1}, {slot, 0}, {slot, 5}, {slot + 9, 1}, {-1, -1}};
  for (const auto& [badSlot, badEffect] : outside) {
    RegisterHit(badSlot, badEffect, false);
    RegisterHit(badSlot, badEffect, true);
  }
  EXPECT_EQ(phase1.size(), 2U);
  EXPECT_EQ(phase1[0].Effect, 2);
}

TEST_F(TriggersTest, AddedEffectsAreTakenApartByTheirTrigger) {
  struct Case {
    const char* Pending;
    const char *Trigger, *TargetText, *Script, *Caption;
    int TargetType;
    int MenuState;
  };
  const Case cases[] = {
      {"PHASE1:SELF:MODTRAIT:HP:1", "PHASE1", "SELF", "MODTRAIT:HP:1", "", kTargetSelf, 0},
      {"MENU:PHASE3:Heal:ALL:DESTROY", "PHASE3", "ALL", "DESTROY", "Heal", kTargetAll, 1},
      {"TRAITCHANGE:HP:SELF:DESTROY", "TRAITCHANGE:HP", "SELF", "DESTROY", "", kTargetSelf, 0},
      {"BEFORETRAITCHANGE:HP:SELF:CANCEL", "BEFORETRAITCHANGE:HP", "SELF", "CANCEL", "",
       kTargetSelf, 0},
      {"PHASE2:GIDCARD:SRCTRAIT/GID:DESTROY", "PHASE2", "GIDCARD:SRCTRAIT/GID", "DESTROY", "",
       kTargetGidCard, 0},
  };
  for (const Case& row : cases) {
    Card& card = PutInPlay(MakeCard("Pupil", 1));
    State().PendingEffectText = row.Pending;
    State().PendingEffectCard = card.GlobalID;
    FlushPendingEffect();
    const CardEffect& effect = card.Effects[1];
    EXPECT_EQ(effect.Trigger, row.Trigger);
    EXPECT_EQ(effect.TargetText, row.TargetText);
    EXPECT_EQ(effect.TargetType, row.TargetType);
    EXPECT_EQ(effect.Script, row.Script);
    EXPECT_EQ(effect.MenuCaption, row.Caption);
    EXPECT_EQ(effect.MenuState, row.MenuState);
    EXPECT_TRUE(State().PendingEffectText.empty());
    EXPECT_EQ(State().PendingEffectCard, 0);
    FlushPendingEffect();
    EXPECT_EQ(card.Effects.UpperBound(), 1) << "added once";
    FreeCard(card);
  }
  EXPECT_EQ(State().HitTable[1][0].Effect, 1) << "the new action is registered";

  State().PendingEffectText = "PHASE1:SELF:DESTROY";
  State().PendingEffectCard = -7;
  FlushPendingEffect();
  EXPECT_TRUE(State().PendingEffectText.empty()) << "a card that is gone drops the action";
}

TEST_F(TriggersTest, AnActionAimedAtAllGivesEachCardItsEffect) {
  Card& teacher = PutMarker("ALL", 1, "REQTRAIT:SMALL:ADDEFFECT:PHASE5:SELF:SETTRAIT:TAUGHT:1");
  FireTrigger(teacher, "PHASE1");
  FireHit("PHASE5");
  EXPECT_EQ(NamesWith("TAUGHT"), "Ally Enemy");
}

}  // namespace
}  // namespace brindlemoor
