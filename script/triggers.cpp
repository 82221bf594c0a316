// Firing a trigger on a card: which of its actions run, and on whom; entering and leaving play.
#include "script/triggers.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "core/table_journal.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "language/values.h"
#include "script/action_trace.h"
#include "script/card_setup.h"
#include "script/firing.h"
#include "script/parsed_script.h"
#include "script/run_action.h"
#include "text/fold.h"
#include "text/joined.h"
#include "text/one_line.h"

namespace brindlemoor {
namespace {

/// One firing of a trigger on a card, with what its runs answered. Actions are named by number and
/// looked up afresh: a run may add, change and blank actions of the card that acts.
struct Firing {
  Card& Actor;
  int Value;
  RunOptions Options;
  int LastResult = kRunNothing;
  int Failures = 0;
  int Runs = 0;

  const CardEffect& Effect(int effect) const { return Actor.Effects[effect]; }
  void RunOn(Card& target, int effect) {
    ++Runs;
    LastResult = RunAction(Actor, target, effect, Options);
  }
  void RunOnSlot(int slot, int effect) {
    Pile& table = State().CardTable;
    if (table.Holds(slot)) RunOn(table[slot], effect);
  }
  void CountFailure() {
    if (LastResult == kRunFailed) ++Failures;
  }
};

int PickFor(Firing& firing, int effect) {
  int quality = kNoTarget;
  return PickTarget(firing.Actor, effect, firing.Effect(effect).TargetType, Text(), quality);
}

void ChooseTarget(Card& card, int effect, int slot) {
  if (!card.Effects.Holds(effect) || card.Effects[effect].ChosenTarget == slot) return;
  card.Effects.Edit(effect).ChosenTarget = slot;
}

/// True when a test run of the action on the card in a slot does something.
bool SuitsSlot(const Firing& firing, int effect, int slot) {
  const Pile& table = State().CardTable;
  if (!table.Holds(slot)) return false;
  Card actor = firing.Actor;
  Card target = table[slot];
  RunOptions options = firing.Options;
  options.TestRun = 1;
  TracedSearch search(firing.Actor, effect);
  const int result = RunAction(actor, target, effect, options);
  if (result == kRunFailed || result == kRunNothing) return false;
  search.FoundOne();
  return true;
}

void RunOnChosenCard(Firing& firing, int effect) {
  int chosen = firing.Effect(effect).ChosenTarget;
  if (!State().CardTable.Holds(chosen)) chosen = 0;
  if (chosen == 0 && firing.Actor.TargetSlot > 0) chosen = firing.Actor.TargetSlot;
  if (chosen == 0 && firing.Actor.TargetSlot == 0) {
    chosen = PickFor(firing, effect);
    if (chosen == 0) {
      ChooseTarget(firing.Actor, effect, 0);
      return;
    }
  }
  ChooseTarget(firing.Actor, effect, chosen);
  if (!SuitsSlot(firing, effect, chosen)) {
    chosen = PickFor(firing, effect);
    ChooseTarget(firing.Actor, effect, chosen);
  }
  firing.RunOnSlot(chosen, effect);
}

void RunOnStoredCard(Firing& firing, int effect) {
  Session& session = State();
  if (firing.Options.TestRun != 0) return;
  const int deck = firing.Effect(effect).PickedPile;
  if (deck != 0 && !session.Decks.Holds(deck)) return;
  Pile& pile = deck == 0 ? session.Collection : session.Decks[deck].Cards;
  const int index = firing.Effect(effect).ChosenTarget;
  if (!pile.Holds(index)) return;
  const auto paused = std::exchange(session.TraitActionsPaused, std::uint8_t{1});
  RunOptions options = firing.Options;
  options.CostMode = 1;
  firing.LastResult = RunAction(firing.Actor, pile[index], effect, options);
  session.TraitActionsPaused = paused;
}

void RunOnAll(Firing& firing, int effect) {
  Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (WorkIsSpent()) return;
    if (IsFree(table[slot])) continue;
    firing.RunOn(table[slot], effect);
    FlushPendingEffect();
    firing.CountFailure();
  }
}

void RunEffect(Firing& firing, int effect) {
  switch (firing.Effect(effect).TargetType) {
    case kTargetGidCard: {
      const std::string expression(FieldAt(firing.Effect(effect).TargetText, 2, ':'));
      firing.RunOnSlot(FindSlot(EvalNumber(firing.Actor, firing.Actor, expression)), effect);
      break;
    }
    case kTargetCard:
      RunOnChosenCard(firing, effect);
      break;
    case kTargetCollection:
      RunOnStoredCard(firing, effect);
      break;
    case kTargetTriggeringCard:
      firing.RunOnSlot(firing.Value >= 1 ? firing.Value : State().LastEntered, effect);
      break;
    case kTargetAll:
      RunOnAll(firing, effect);
      break;
    case kTargetRandom:
    case kTargetRandomEnemy:
    case kTargetRandomAlly:
      firing.RunOnSlot(PickFor(firing, effect), effect);
      break;
    case kTargetOwner:
      firing.RunOnSlot(PlayerCardOf(firing.Actor.Owner), effect);
      break;
    case kTargetEnemyPlayer:
      firing.RunOnSlot(PlayerCardOf(firing.Actor.Owner == 1 ? 2 : 1), effect);
      break;
    case kTargetSelf:
      firing.RunOn(firing.Actor, effect);
      break;
    default:
      break;
  }
}

/// True for an action that an ADDEFFECT has added since then: it waits for the next firing. What a
/// trait brings with it belongs to the card at once.
bool IsAddedSince(const CardEffect& effect, std::uint32_t added) {
  return effect.AddedAt > added && ParsedScript::Of(effect.Script).Bringer() == "NONE";
}

std::uint64_t MarksOf(const CardEffect& effect) {
  const std::string_view trigger = effect.Trigger;
  std::uint64_t marks = TriggerMark(trigger);
  if (trigger.starts_with(kTraitChange)) marks |= kTraitChangeMark;
  const int before = FoldPrefixLength(trigger, kBeforeTraitChange);
  if (before > 0) {
    marks |= BeforeChangeMark(TraitKey(trigger.substr(static_cast<std::size_t>(before))));
  }
  return marks;
}

/// True when one of the card's actions answers the trigger: mostly none does.
bool Listens(const Card& card, std::string_view trigger) {
  if ((TriggerMarks(card) & TriggerMark(trigger)) == 0) return false;
  for (const CardEffect& effect : card.Effects) {
    if (Answers(effect, trigger)) return true;
  }
  return false;
}

void RecallTarget(Card& card) {
  if (card.StoredTarget > 0) card.TargetSlot = card.StoredTarget;
}

/// What is done before an action, whether it answers or not.
void BeginEffect(Card& card) {
  BeginFiring();
  RecallTarget(card);
}

/// A firing that no action of the card answers. Within a run it leaves that run's roll and mark.
void PassBy(Card& card) {
  if (card.Effects.UpperBound() == 0) return;
  if (State().RunDepth == 0) BeginFiring();
  RecallTarget(card);
}

/// The player has chosen the action for this turn, or its card together with a target of it, and
/// looks at what comes of it.
bool IsPlanned(const Card& card, const CardEffect& action) {
  if (!State().LastTurn.IsTold) return false;
  const bool chosen = action.MenuState == kArmedMenuAction ||
                      (action.TargetType == kTargetCard && action.Trigger == "ENTERPLAY");
  return chosen && card.Owner == 1 && IsTableRecord(card);
}

/// Notes a planned action that has done nothing.
void NoteOutcome(const Firing& firing, const CardEffect& action, bool ran) {
  if (ran && (firing.LastResult == kRunClean || firing.LastResult == kRunMixed)) return;
  std::string name(OneLine(firing.Actor.Name));
  if (action.MenuState == kArmedMenuAction) {
    name += Joined(": ", OneLine(action.MenuCaption));
  }
  std::string reason = ran ? State().FailReason : "It found no target.";
  if (reason.empty()) reason = "What it asks for was not there.";  // the masks give no reason
  NoteRefusal(std::move(name), std::move(reason));
}

/// For who listens: why an action has no card to run on, where no search says it.
std::string_view WhyNoTarget(int targetType) {
  switch (targetType) {
    case kTargetGidCard:
      return "no card has the Global ID that the target names";
    case kTargetCollection:
      return "no owned card was chosen for it";
    case kTargetOwner:
    case kTargetEnemyPlayer:
      return "the side has no player card";
    case kTargetTriggeringCard:
      return "no card set it going";
    case kTargetCounter:
      return "COUNTER is reserved and aims at no card";
    default:
      return "the chosen card is gone";
  }
}

void TellAll(const Card& card, std::string_view trigger, Obstacle obstacle,
             std::string_view words) {
  if (State().Trace == nullptr) [[likely]]
    return;
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    State().Trace->NoteSkipped(card, effect, trigger, obstacle, words);
  }
}

void TellMenus(const Card& card, std::string_view trigger) {
  if (State().Trace == nullptr) [[likely]]
    return;
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    State().Trace->NoteMenu(card, effect, trigger);
  }
}

void FireEffect(Firing& firing, std::string_view trigger, int effect) {
  Card& card = firing.Actor;
  BeginEffect(card);
  if (!Answers(card.Effects[effect], trigger)) {
    if (State().Trace != nullptr) [[unlikely]]
      State().Trace->NoteMenu(card, effect, trigger);
    return;
  }
  const TracedAction asking(card, effect);
  const int runs = firing.Runs;
  std::optional<CardEffect> planned;
  if (firing.Options.TestRun == 0 && IsPlanned(card, card.Effects[effect])) {
    planned = card.Effects[effect];  // the run may change it
  }
  RunEffect(firing, effect);
  if (asking && firing.Runs == runs) [[unlikely]] {
    asking->NoteIfNone(Obstacle::kNoTarget, WhyNoTarget(card.Effects[effect].TargetType));
  }
  if (planned) NoteOutcome(firing, *planned, firing.Runs != runs);
  if (card.Effects[effect].MenuState == kArmedMenuAction) {
    card.Effects.Edit(effect).MenuState = kMenuAction;
  }
  FlushPendingEffect();
  firing.CountFailure();
}

}  // namespace

std::uint64_t MarksOfActions(const SharedArray<CardEffect>& effects) {
  std::uint64_t marks = 0;
  for (const CardEffect& effect : effects) marks |= MarksOf(effect);
  return marks;
}

int FireTrigger(Card& card, std::string_view trigger, int value, int onlyEffect, int testRun,
                const RunOptions* reaction) {
  if (trigger == "ENTERSPLAY") trigger = "ENTERPLAY";
  if (IsFree(card)) return 0;
  if (StopsForWork(card)) {
    TellAll(card, trigger, Obstacle::kBudget, kStepsAreSpent);
    return 0;
  }
  const bool paying = trigger == "COST";
  const bool enters = !paying && card.InPlay == 0;
  if (enters && !FoldEquals(card.ActivateOn, trigger)) {
    TellAll(card, trigger, Obstacle::kNotInPlay, "the acting card");
    return 0;
  }
  if (!enters && onlyEffect <= 0 && !Listens(card, trigger)) {
    TellMenus(card, trigger);
    PassBy(card);
    return 0;
  }
  std::optional<OwnFiring> nested;
  if (State().RunDepth > 0) nested.emplace();
  if (enters) EnterPlay(card);
  Firing firing{card, value, reaction != nullptr ? *reaction : RunOptions{}};
  firing.Options.CostMode = paying ? 1 : -1;
  firing.Options.TestRun = testRun;
  firing.Options.Paying = paying;
  if (onlyEffect > 0) {
    if (card.Effects.Holds(onlyEffect)) FireEffect(firing, trigger, onlyEffect);
    return firing.Failures;
  }
  SpendWorkOnSearch(static_cast<std::size_t>(card.Effects.UpperBound()));
  const std::uint32_t added = State().ActionsAdded;
  for (int effect = 1; effect <= card.Effects.UpperBound() && !WorkIsSpent(); ++effect) {
    if (!IsAddedSince(card.Effects[effect], added)) {
      FireEffect(firing, trigger, effect);
    } else if (State().Trace != nullptr) [[unlikely]] {
      State().Trace->NoteSkipped(card, effect, trigger, Obstacle::kWaits, kAddedMeanwhile);
    }
  }
  return firing.Failures;
}

bool PassesTraitChanges(Card& card) {
  const auto answers = [](const CardEffect& effect) {
    return effect.Trigger.View().starts_with(kTraitChange);
  };
  if (card.InPlay == 0) return false;
  if ((TriggerMarks(card) & kTraitChangeMark) != 0 &&
      std::any_of(card.Effects.begin(), card.Effects.end(), answers)) {
    return false;
  }
  if (card.Effects.UpperBound() > 0) RecallTarget(card);
  return true;
}

void EnterPlay(Card& card) {
  Session& session = State();
  if (card.InPlay == 1) return;
  card.InPlay = 1;
  FireTrigger(session.RulesCard, "OTHERENTERSPLAY", card.Slot);
  if (HasTrait(card, "PLAYER") && session.Players.Holds(card.Owner)) {
    session.Players[card.Owner].PlayerCard = card.Slot;
  }
  FireHit(kOtherEntersPlay, card.Slot);
  FireTrigger(card, "ENTERPLAY");
  if (session.CardTable.Holds(card.Slot) && !IsFree(session.CardTable[card.Slot])) {
    RegisterAllHits(card);
  }
}

void KillCard(Card& card) {
  if (IsFree(card)) return;
  FireTrigger(card, "ONDEATH");
  // A scratch copy that dies leaves the card it was made of in its lists.
  if (IsTableRecord(card)) {
    for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
      RegisterHit(card.Slot, effect, true);
    }
  }
  FreeCard(card);
  card.InPlay = 0;
}

void AddActionOfText(Card& card, std::string_view text) {
  FieldWalker fields(text, ':');
  std::string trigger(fields.Next());
  for (int more = FieldsOfTrigger(trigger); more > 0; --more) {
    trigger += Joined(":", fields.Next());
  }
  std::string target(fields.Next());
  if (target == "GIDCARD") target += Joined(":", fields.Next());
  AddEffect(card, InternText(fields.Rest()), TargetTypeCode(target), trigger, 0, target);
}

void FlushPendingEffect() {
  Session& session = State();
  if (session.PendingEffectText.empty()) return;
  const Text pending = std::exchange(session.PendingEffectText, Text());
  const int globalId = std::exchange(session.PendingEffectCard, 0);
  const int slot = FindSlot(static_cast<double>(globalId));
  if (!session.CardTable.Holds(slot) || IsFree(session.CardTable[slot])) return;
  Card& card = session.CardTable[slot];
  if (session.Journal != nullptr) session.Journal->Note(card);
  AddActionOfText(card, pending);
  RegisterAllHits(card);
}

void ResetMenuState(Card& card) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].MenuState == kArmedMenuAction) {
      card.Effects.Edit(effect).MenuState = kMenuAction;
    }
  }
}

}  // namespace brindlemoor
