// Triggers: whom an action reaches, when it is passed over, and how cards enter and leave play.
#include "script/triggers.h"

#include <map>

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

TEST_F(TriggersTest, EachTargetTypeReachesItsCards) {
  const Rows<const char*, int, const char*, const char*> cases = {
      {"SELF", 1, "", "Marker"},
      {"OWNER", 1, "", "Player 1"},
      {"OWNER", 2, "", "Player 2"},
      {"ENEMYPLAYER", 1, "", "Player 2"},
      {"ENEMYPLAYER", 0, "", "Player 1"},
      {"ALL", 1, "", "Player 1 Player 2 Ally Enemy Stone Marker"},
      {"ALL", 1, "REQTRAIT:SMALL:", "Ally Enemy"},
      {"RANDOMENEMY", 1, "REQTRAIT:SMALL:", "Enemy"},
      {"RANDOMALLY", 1, "REQTRAIT:SMALL:", "Ally"},
      {"RANDOMENEMY", 1, "REQTRAIT:ABSENT:", ""},
      {"TRIGGERINGCARD", 1, "", "Enemy"},
      {"TARGETCARD", 1, "REQNAME:Ally:", "Ally"},
      {"COUNTER", 1, "", ""},
      {"GIDCARD:4711", 1, "", "Stone"},
      {"GIDCARD:4712", 1, "", ""}};
  Slot(5).GlobalID = 4711;
  for (const auto& [target, owner, requirement, hit] : cases) {
    Card& marker = PutMarker(target, owner, Joined(requirement, "SETTRAIT:HIT:1"));
    FireTrigger(marker, "PHASE1", 4);
    EXPECT_EQ(TakeHits(), hit) << target << " of owner " << owner;
    FreeCard(marker);
  }
  Card& newest = PutMarker("NEWESTCARD");
  for (const auto& [entered, hit] : Rows<std::int16_t, const char*>{{0, ""}, {5, "Stone"}}) {
    State().LastEntered = entered;
    FireTrigger(newest, "PHASE1", 0);
    EXPECT_EQ(TakeHits(), hit);
  }
}

TEST_F(TriggersTest, OnlyMatchingActionsOfLivingCardsInPlayRun) {
  Card& card = PutInPlay(MakeCard("Many", 1));
  GiveAction(card, "PHASE1", "SELF", "SETTRAIT:FIRST:1");
  const int second = GiveAction(card, "PHASE1", "SELF", "SETTRAIT:SECOND:1");
  GiveAction(card, "phase1", "SELF", "SETTRAIT:LOWER:1");
  GiveAction(card, "ENTERPLAY", "SELF", "SETTRAIT:ENTERED:1");

  FireTrigger(card, "PHASE1", -1, second);
  EXPECT_FALSE(HasTrait(card, "FIRST", ""));
  EXPECT_TRUE(HasTrait(card, "SECOND", ""));
  FireTrigger(card, "PHASE1");
  EXPECT_TRUE(HasTrait(card, "FIRST", ""));
  EXPECT_FALSE(HasTrait(card, "LOWER", ""));
  FireTrigger(card, "ENTERSPLAY");
  EXPECT_TRUE(HasTrait(card, "ENTERED", "")) << "ENTERSPLAY is a second word for ENTERPLAY";

  Card& waiting = PutMarker("SELF");
  waiting.InPlay = 0;
  FireTrigger(waiting, "PHASE1");
  EXPECT_EQ(TakeHits(), "");
}

TEST_F(TriggersTest, ActivationTriggerBringsACardIntoPlayAndItsActionsRunInTheSameFiring) {
  for (const bool directly : {false, true}) {
    Card& waiting = PutMarker("SELF");
    waiting.InPlay = 0;
    waiting.ActivateOn = "phase1";
    GiveAction(waiting, "ENTERPLAY", "SELF", "SETTRAIT:ENTERED:1");
    State().WaitingSlots[1] = waiting.Slot;
    FireHit("PHASE2");
    EXPECT_EQ(waiting.InPlay, 0);
    directly ? FireTrigger(waiting, "PHASE1") : (FireHit("PHASE1"), 0);
    EXPECT_EQ(waiting.InPlay, 1);
    EXPECT_TRUE(HasTrait(waiting, "ENTERED", ""));
    EXPECT_EQ(TraitNumber(waiting, "HIT"), 1);
    FreeCard(waiting);
  }
}

TEST_F(TriggersTest, FailuresCountEffectsThatFailed) {
  const Rows<std::vector<std::pair<const char*, const char*>>, int> cases = {
      {{{"SELF", "SETTRAIT:A:1"}}, 0},
      {{{"SELF", "CHANCE:0:SETTRAIT:A:1"}}, 0},
      {{{"SELF", "REQTRAIT:X"}, {"SELF", "SETTRAIT:A:1"}, {"SELF", "REQTRAIT:Y"}}, 2},
      {{{"RANDOM", "REQTRAIT:X"}, {"TARGETCARD", "REQTRAIT:X"}}, 0},  // no fitting card
      {{{"SELF", "REQTRAIT:X"}, {"RANDOM", "REQTRAIT:X"}}, 2},        // an earlier result stands
      {{{"ALL", "REQNAME:Ally"}}, 6}};                                // the last counts twice
  for (const auto& [actions, failures] : cases) {
    Card& card = PutInPlay(MakeCard("Tester", 1));
    for (const auto& [target, script] : actions) GiveAction(card, "PHASE1", target, script);
    EXPECT_EQ(FireTrigger(card, "PHASE1"), failures) << actions[0].first << actions[0].second;
    FreeCard(card);
  }
}

TEST_F(TriggersTest, AChosenTargetStaysUntilItNoLongerSuits) {
  Card& marker = PutMarker("TARGETCARD", 1, "REQTRAIT:SMALL:SETTRAIT:HIT:1");
  marker.Effects.Edit(1).ChosenTarget = 4;
  for (int turn = 0; turn < 10; ++turn) FireTrigger(marker, "PHASE1");
  EXPECT_EQ(TakeHits(), "Enemy");

  RemoveTrait(Slot(4), "SMALL");
  FireTrigger(marker, "PHASE1");
  EXPECT_EQ(TakeHits(), "Ally") << "the only other card that suits";
  EXPECT_EQ(marker.Effects[1].ChosenTarget, 3);
}

TEST_F(TriggersTest, TargetsComeFromTheCardWhenTheActionHasNone) {
  const Rows<const char*, std::int16_t, std::int16_t, int, const char*> cases = {
      {"the action's own target first", 4, 0, 3, "Ally"},
      {"a stored target replaces the queued one", 4, 3, 0, "Ally"},
      {"a slot outside the table is none", 4, 0, 900, "Enemy"},
      {"a queued target that does not suit", 5, 0, 0, "Ally"}};
  Card& actor = PutMarker("TARGETCARD", 1, "REQTRAIT:SMALL:AIREQTRAIT:FIRST:SETTRAIT:HIT:1");
  SetTrait(Slot(3), "FIRST", 1, 0);
  for (const auto& [what, targetSlot, storedTarget, chosen, hit] : cases) {
    actor.TargetSlot = targetSlot;
    actor.StoredTarget = storedTarget;
    actor.Effects.Edit(1).ChosenTarget = chosen;
    FireTrigger(actor, "PHASE1");
    EXPECT_EQ(TakeHits(), hit) << what;
  }
}

TEST_F(TriggersTest, CollectionActionsChangeTheStoredCard) {
  State().TraitActions[1] = MakeCard("STRONG", 1);
  GiveAction(State().TraitActions[1], "PHASE9", "SELF", "MODTRAIT:HP:1");
  State().Collection[1] = MakeCard("Stored", 1);
  State().Decks[2].Cards[1] = MakeCard("In deck", 1);
  Card& marker = PutMarker("COLLECTION", 1, "SETTRAIT:STRONG:1");
  const Rows<const char*, int, std::uint8_t, int, const char*> cases = {
      {"nothing picked", 0, 0, 0, ""},      {"the collection", 1, 0, 0, "Stored"},
      {"a deck", 1, 2, 0, "In deck"},       {"an index outside the pile", 2, 2, 0, ""},
      {"a deck that is none", 1, 9, 0, ""}, {"a test", 1, 0, 1, ""}};
  for (const auto& [what, chosen, pile, testRun, expected] : cases) {
    marker.Effects.Edit(1).ChosenTarget = chosen;
    marker.Effects.Edit(1).PickedPile = pile;
    FireTrigger(marker, "PHASE1", -1, 0, testRun);
    std::string hit;
    for (Card* card : {&State().Collection[1], &State().Decks[2].Cards[1]}) {
      if (HasTrait(*card, "STRONG", "")) hit += card->Name.Str();
      EXPECT_EQ(card->Effects.UpperBound(), 1) << "trait actions stay off stored cards";
      RemoveTrait(*card, "STRONG");
    }
    EXPECT_EQ(hit, expected) << what;
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
  EXPECT_EQ(TraitNumber(hero, "STEP"), 3);
  EXPECT_FALSE(HasTrait(hero, "SAWITSELF", ""));
  EXPECT_EQ(State().Players[1].PlayerCard, hero.Slot);
  FireHit(1);
  EXPECT_TRUE(HasTrait(hero, "PHASED", ""));
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

TEST_F(TriggersTest, FireHitTakesWordsAndCodes) {
  Card& marker = PutMarker("SELF");
  RegisterAllHits(marker);
  for (const char* trigger :
       {"PHASE1", "1", "PHASE2", "2", "", "NOTRIGGER", "99", "-1", "12", "COST"}) {
    FireHit(trigger);
  }
  for (const int code : {1, -5, 21}) FireHit(code);
  EXPECT_EQ(TraitNumber(marker, "HIT"), 3) << "from PHASE1, \"1\" and 1";
}

TEST_F(TriggersTest, AddedEffectsAreTakenApartByTheirTrigger) {
  const Rows<const char*, const char*> cases = {
      {"PHASE1:SELF:MODTRAIT:HP:1", "PHASE1 SELF MODTRAIT:HP:1  0"},
      {"MENU:PHASE3:Heal:ALL:DESTROY", "PHASE3 ALL DESTROY Heal 1"},
      {"BEFORETRAITCHANGE:HP:SELF:CANCEL", "BEFORETRAITCHANGE:HP SELF CANCEL  0"},
      {"PHASE2:GIDCARD:SRCTRAIT/GID:DESTROY", "PHASE2 GIDCARD:SRCTRAIT/GID DESTROY  0"}};
  for (const auto& [pending, expected] : cases) {
    Card& card = PutInPlay(MakeCard("Pupil", 1));
    State().PendingEffectText = pending;
    State().PendingEffectCard = card.GlobalID;
    FlushPendingEffect();
    const CardEffect& effect = card.Effects[1];
    EXPECT_EQ(Joined(effect.Trigger, " ", effect.TargetText, " ", effect.Script, " ",
                     effect.MenuCaption, " ", int{effect.MenuState}),
              expected);
    EXPECT_EQ(effect.TargetType, TargetTypeCode(effect.TargetText)) << pending;
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

}  // namespace
}  // namespace brindlemoor
