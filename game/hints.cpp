// What the cards in the hand of side 1 are worth now, and why.
#include "game/hints.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "language/traits.h"
#include "script/run_action.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

struct ValuedCard {
  HandValue Play;
  brindlemoor::Card Card;
  ValuationNotes Notes;
};

std::vector<ValuedCard> ValueHand(bool withNotes) {
  const WorkAccount account;
  const Pile& hand = State().Players[1].Hand;
  std::vector<ValuedCard> cards;
  for (int position = 1; position <= hand.UpperBound(); ++position) {
    if (IsFree(hand[position])) continue;
    ValuedCard valued{{position}, hand[position], {}};
    ValueCardForAI(valued.Card, &valued.Notes);
    valued.Play.Value = TraitNumber(valued.Card, "AILOVE");
    valued.Play.Payable = valued.Notes.Payable;
    if (!withNotes) valued = {valued.Play, {}, {}};
    cards.push_back(std::move(valued));
  }
  std::ranges::stable_sort(
      cards, [](const ValuedCard& a, const ValuedCard& b) { return a.Play.Value > b.Play.Value; });
  return cards;
}

/// What runs leave behind in the session beside the cards; put back at the end of the scope.
class RunTraces {
 public:
  RunTraces() = default;
  RunTraces(const RunTraces&) = delete;
  RunTraces& operator=(const RunTraces&) = delete;
  ~RunTraces() {
    Session& session = State();
    session.CostCard.InPlay = costCardInPlay_;
    session.PageText = std::move(pageText_);
    session.PhaseBanner = std::move(phaseBanner_);
    session.LimitsReported = std::move(limitsReported_);
    session.LastValue = lastValue_;
    session.CancelState = cancelState_;
    session.RedirectTarget = redirectTarget_;
    session.RedirectScript = redirectScript_;
    session.RedirectTraitName = redirectTraitName_;
    session.FailReason = std::move(failReason_);
    session.HpReport = hpReport_;
    session.SharedChanceRoll = sharedChanceRoll_;
    session.EchoedOnce = echoedOnce_;
    session.BonusCount = bonusCount_;
    session.DiceRolled = diceRolled_;
    session.StatMasked = statMasked_;
    session.StatNotMasked = statNotMasked_;
    session.StatCancelled = statCancelled_;
    session.Random = random_;
  }

 private:
  std::uint8_t costCardInPlay_ = State().CostCard.InPlay;
  std::string pageText_ = State().PageText;
  std::string phaseBanner_ = State().PhaseBanner;
  std::set<std::string, std::less<>> limitsReported_ = State().LimitsReported;
  double lastValue_ = State().LastValue;
  std::uint8_t cancelState_ = State().CancelState;
  std::int32_t redirectTarget_ = State().RedirectTarget;
  Text redirectScript_ = State().RedirectScript;
  Text redirectTraitName_ = State().RedirectTraitName;
  std::string failReason_ = State().FailReason;
  std::uint8_t hpReport_ = State().HpReport;
  int sharedChanceRoll_ = State().SharedChanceRoll;
  std::uint8_t echoedOnce_ = State().EchoedOnce;
  int bonusCount_ = State().BonusCount;
  int diceRolled_ = State().DiceRolled;
  double statMasked_ = State().StatMasked;
  double statNotMasked_ = State().StatNotMasked;
  double statCancelled_ = State().StatCancelled;
  RandomSource random_ = State().Random;
};

/// How a trigger is told to a player.
struct Occasion {
  std::string_view Trigger;
  std::string_view Words;
};
constexpr std::array<Occasion, 4> kOccasions = {{
    {"ENTERPLAY", "When it enters play"},
    {"TURNSTART", "At the start of a turn"},
    {"TURNEND", "At the end of a turn"},
    {"AIREQ", "Is this the time for it"},
}};

std::string OccasionOf(const CardEffect& action) {
  if (!action.MenuCaption.empty()) return Joined("\"", OneLine(action.MenuCaption), "\"");
  for (const Occasion& row : kOccasions) {
    if (row.Trigger == action.Trigger) return std::string(row.Words);
  }
  return Joined(action.Trigger.View().starts_with("PHASE") ? "In " : "At ",
                OneLine(action.Trigger));
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

std::vector<HandValue> HandValues() {
  std::vector<HandValue> values;
  for (const ValuedCard& valued : ValueHand(false)) values.push_back(valued.Play);
  return values;
}

std::vector<Hint> HandHints() {
  const RunTraces traces;
  std::vector<Hint> hints;
  for (ValuedCard& valued : ValueHand(true)) {
    Hint hint{valued.Play, State().Players[1].Hand[valued.Play.Position], {}};
    for (const ActionTrial& trial : valued.Notes.Trials) {
      hint.Trials.push_back(TrialSentence(hint.Card, trial));
    }
    hints.push_back(std::move(hint));
  }
  return hints;
}

}  // namespace brindlemoor
