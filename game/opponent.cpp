// The computer opponent's part of a turn: what its cards are worth, and what it plays.
#include "game/opponent.h"

#include <array>
#include <cmath>
#include <string_view>

#include "core/cards.h"
#include "core/match_log.h"
#include "core/state.h"
#include "core/strings.h"
#include "game/card_play.h"
#include "game/card_sorting.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "pages/card_pages.h"
#include "script/action_trace.h"
#include "script/card_setup.h"
#include "script/run_action.h"
#include "script/trait_changes.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kLove = "AILOVE";
constexpr double kNotPayable = -10;
constexpr double kFreeRecord = -100;

/// Sum and number of the judgements of a card's actions.
struct Judgement {
  double Love = 0;
  int Count = 0;
  std::vector<ActionTrial>* Trials = nullptr;  ///< nullptr when nobody asks
  double Worth() const { return std::floor(10 * Love / (Count == 0 ? 1 : Count)); }

  void Add(int points, int count) {
    Love += points;
    Count += count;
  }
};

/// What an action of a trigger adds without being tried.
struct TriggerWorth {
  std::string_view Trigger;  ///< up to the first ":"
  int Worth;                 ///< 0 leaves the action out
};
constexpr std::array<TriggerWorth, 7> kUntriedTriggers = {{
    {"COSTMOD", 1},
    {"OTHERENTERSPLAY", 1},
    {"TARGETED", 0},
    {"TRAITCHANGE", 0},
    {"BEFORETRAITCHANGE", 0},
    {"ONDEATH", 0},
    {"COST", 0},
}};

const TriggerWorth* UntriedTrigger(std::string_view trigger) {
  const std::string_view word = FieldAt(trigger, 1, ':');
  for (const TriggerWorth& row : kUntriedTriggers) {
    if (row.Trigger == word) return &row;
  }
  return nullptr;
}

/// A test run of an action on the target that it would take.
void TryAction(Card& card, int effect, Judgement& judgement) {
  int quality = kNoTarget;
  const int slot = PickTarget(card, effect, card.Effects[effect].TargetType, Text(), quality);
  const Pile& table = State().CardTable;
  if (!table.Holds(slot)) {
    judgement.Add(-1, 0);
    if (judgement.Trials != nullptr) {
      judgement.Trials->push_back({effect, true, 0, kRunFailed, State().FailReason, -1});
    }
    return;
  }
  Card actor = card;
  Card target = table[slot];
  const int weight = card.Effects[effect].Trigger == "AIREQ" ? 3 : 1;
  const int result =
      RunAction(actor, target, effect, RunOptions{.CostMode = 1, .TestRun = 1, .NoCounters = 1});
  const int points = result == kRunClean ? 2 * weight : -weight;
  judgement.Add(points, 1);
  if (judgement.Trials != nullptr) {
    judgement.Trials->push_back({effect, true, slot, result, State().FailReason, points});
  }
}

void JudgeAction(Card& card, int effect, Judgement& judgement) {
  const CardEffect& action = card.Effects[effect];
  if (action.Script.empty()) return;
  if (const TriggerWorth* untried = UntriedTrigger(action.Trigger)) {
    judgement.Add(untried->Worth, untried->Worth);
    if (judgement.Trials != nullptr && untried->Worth != 0) {
      judgement.Trials->push_back({effect, false, 0, kRunNothing, "", untried->Worth});
    }
  } else if (action.TargetType != kTargetSelf) {
    TryAction(card, effect, judgement);
  }
}

Judgement JudgeActions(Card& card, std::vector<ActionTrial>* trials) {
  Judgement judgement{.Trials = trials};
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    JudgeAction(card, effect, judgement);
  }
  return judgement;
}

void ValueHand() {
  Pile& hand = State().Players[2].Hand;
  for (int position = 1; position <= hand.UpperBound(); ++position) {
    if (IsFree(hand[position])) InitCard(hand[position], 1, 0);
    ValueCardForAI(hand[position]);
  }
  SortCards(hand, kLove);
}

void Consider(Card& card, PlayCells& cells, std::string& thoughts) {
  const Value love = GetTrait(card, kLove);
  if (!State().Quiet) {
    thoughts += Joined("<br>AI thinking of playing ", ColoredName(card), ".  Priority level is ",
                       love.Str(), ".");
  }
  if (TraitNumber(card, kLove) < 1 || !PayCost(card, Payment::kIsTested)) return;
  // A modifier that raises the price only now leaves the card unpaid, but played.
  PayCost(card, Payment::kIsMade);
  PlayCard(2, card, cells);
}

}  // namespace

CardWorth ValueCardForAI(Card& card, WorthDetail detail) {
  CardWorth worth;
  worth.OfActions = kFreeRecord;
  if (IsFree(card)) return worth;
  const Untraced trials;
  Judgement judgement{.Love = kNotPayable};
  worth.Payable = PayCost(card, Payment::kIsTested);
  if (worth.Payable) {
    card.InPlay = 1;  // the tests treat it as a card on the table
    judgement = JudgeActions(card, detail == WorthDetail::kTrials ? &worth.Trials : nullptr);
  }
  worth.OfActions = judgement.Worth();
  worth.Priority = TraitNumber(card, "PRIORITY");
  SetTrait(card, kLove, worth.Total(), 0);
  card.InPlay = 0;
  LogWorth(card, worth.Payable, worth.Total());
  return worth;
}

std::string WorthText(const Card& card, const CardWorth& worth) {
  std::string text = Joined(Value(worth.Total()).Str(), ": ", Value(worth.OfActions).Str(),
                            worth.Payable ? " of its actions" : " as it can't be paid",
                            ", PRIORITY ", Value(worth.Priority).Str());
  for (const ActionTrial& trial : worth.Trials) {
    text += Joined("; action ", trial.Effect, " ", card.Effects[trial.Effect].Trigger);
    const Pile& table = State().CardTable;
    if (table.Holds(trial.Target)) text += Joined(" at ", table[trial.Target].Name);
    if (!trial.IsTried) text += " untried";
    if (trial.IsTried && trial.Target == 0) text += " without a target";
    text += Joined(": ", trial.Points);
    if (trial.Points < 0 && !trial.FailReason.empty()) text += Joined(" (", trial.FailReason, ")");
  }
  return text;
}

EnemyPlays PlayEnemyHand() {
  ValueHand();
  EnemyPlays plays;
  PlayCells cells;
  Pile& hand = State().Players[2].Hand;
  // A card that is drawn meanwhile into a later position has no value yet and stays.
  for (int position = 1; position <= hand.UpperBound(); ++position) {
    if (!IsFree(hand[position])) Consider(hand[position], cells, plays.Thoughts);
  }
  plays.Cells = cells.Html();
  return plays;
}

}  // namespace brindlemoor
