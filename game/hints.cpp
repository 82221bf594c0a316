// What the cards in a hand are worth now, and why.
#include "game/hints.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "game/looking.h"
#include "language/traits.h"
#include "script/run_action.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

struct ValuedCard {
  HandValue Play;
  brindlemoor::Card Card;
  CardWorth Worth;
};

std::vector<ValuedCard> ValueHand(int side, WorthDetail detail) {
  const WorkAccount account;
  const Pile& hand = State().Players[side].Hand;
  std::vector<ValuedCard> cards;
  for (int position = 1; position <= hand.UpperBound(); ++position) {
    if (IsFree(hand[position])) continue;
    ValuedCard valued{{position}, hand[position], {}};
    valued.Worth = ValueCardForAI(valued.Card, detail);
    valued.Play.Value = valued.Worth.Total();
    valued.Play.Payable = valued.Worth.Payable;
    if (detail == WorthDetail::kSums) valued = {valued.Play, {}, {}};
    cards.push_back(std::move(valued));
  }
  std::ranges::stable_sort(
      cards, [](const ValuedCard& a, const ValuedCard& b) { return a.Play.Value > b.Play.Value; });
  return cards;
}

/// How a trigger is told to a player.
struct Occasion {
  std::string_view Trigger;
  std::string_view Words;
};
constexpr std::array<Occasion, 6> kOccasions = {{
    {"ENTERPLAY", "When it enters play"},
    {"TURNSTART", "At the start of a turn"},
    {"TURNEND", "At the end of a turn"},
    {"OTHERENTERSPLAY", "When another card comes"},
    {"ONDEATH", "When it goes"},
    {"AIREQ", "Is this the time for it"},
}};

std::string OccasionOf(const CardEffect& action) {
  if (!action.MenuCaption.empty()) return Joined("\"", OneLine(action.MenuCaption), "\"");
  for (const Occasion& row : kOccasions) {
    if (row.Trigger == action.Trigger) return std::string(row.Words);
  }
  return "Later in the turn";
}

std::string_view Verdict(int result) {
  switch (result) {
    case kRunClean:
      return "works";
    case kRunMixed:
      return "works in part";
    case kRunNothing:
      return "does nothing now";
    default:
      return "does not work now";
  }
}

std::string TrialSentence(const Card& card, const ActionTrial& trial) {
  const std::string occasion = OccasionOf(card.Effects[trial.Effect]);
  const Pile& table = State().CardTable;
  std::string sentence = table.Holds(trial.Target)
                             ? Joined(occasion, ", on ", OneLine(table[trial.Target].Name), ": ",
                                      Verdict(trial.Result))
                             : Joined(occasion, ": finds no target");
  if (trial.Result != kRunClean && !trial.FailReason.empty()) {
    std::string_view reason = trial.FailReason;
    if (reason.ends_with('.')) reason.remove_suffix(1);
    sentence += Joined(" (", reason, ")");
  }
  return sentence + ".";
}

}  // namespace

std::vector<HandValue> HandValues(int side) {
  std::vector<HandValue> values;
  for (const ValuedCard& valued : ValueHand(side, WorthDetail::kSums))
    values.push_back(valued.Play);
  return values;
}

std::vector<Hint> HandHints() {
  const Looking looking;
  std::vector<Hint> hints;
  for (ValuedCard& valued : ValueHand(1, WorthDetail::kTrials)) {
    Hint hint{valued.Play, State().Players[1].Hand[valued.Play.Position], {}};
    for (const ActionTrial& trial : valued.Worth.Trials) {
      if (trial.IsTried) hint.Trials.push_back(TrialSentence(hint.Card, trial));
    }
    hints.push_back(std::move(hint));
  }
  return hints;
}

}  // namespace brindlemoor
