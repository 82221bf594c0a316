// Trying the plan out on a copy of the session.
#include "game/plan_forecast.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "game/aiming.h"
#include "game/card_play.h"
#include "game/looking.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "script/card_entry.h"
#include "script/run_services.h"
#include "script/triggers.h"
#include "text/joined.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

constexpr int kDiscard = -1;

/// No file is read for a card that a planned one would bring.
constexpr RunServices kServices = {[](std::string_view /*file*/, PlayerState& /*player*/,
                                      std::string_view /*location*/) { return false; },
                                   PayCost, [] {}};

/// The numbers that the player card has, by the names of its traits, in its order.
using Purse = std::vector<std::pair<std::string, double>>;

double NumberOf(const TraitItem& item) { return Value(item.Value()).Number(); }

Purse PurseOfPlayer() {
  Purse purse;
  const Pile& table = State().CardTable;
  const int slot = PlayerCardOf(1);
  if (!table.Holds(slot)) return purse;
  for (const TraitItem& item : table[slot].Traits) {
    if (!item.empty() && !item.Value().empty()) purse.emplace_back(item.Name(), NumberOf(item));
  }
  return purse;
}

double InPurse(const Purse& purse, std::string_view trait) {
  const auto found = std::ranges::find(purse, trait, &Purse::value_type::first);
  return found == purse.end() ? 0 : found->second;
}

/// What the tables hold while prices are tried, put back element by element.
class Trial {
 public:
  ~Trial() {
    Session& session = State();
    session.CardTable = table_;
    session.HitTable = hits_;
    session.Players = players_;
    session.RulesCard = rules_;
    session.PendingCards = pending_;
    session.PendingCount = pendingCount_;
  }
  Trial() = default;
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;

 private:
  const Pile table_ = State().CardTable;
  const std::array<std::vector<Hit>, 21> hits_ = State().HitTable;
  const FixedTable<PlayerState, 3> players_ = State().Players;
  const Card rules_ = State().RulesCard;
  const Pile pending_ = State().PendingCards;
  const std::int16_t pendingCount_ = State().PendingCount;
};

constexpr std::string_view kUnplayable = "It can't be played now.";

std::string TooLittleFor(const std::vector<Amount>& price) {
  return Joined("Not enough left: it costs ", AmountsText(price), ".");
}

class Forecaster {
 public:
  PlanForecast Make();
  std::string WhyUnpayable(const Card& card);

 private:
  /// What a payment takes; nothing where it can't be made.
  std::optional<Purse> Pay(const Card& card);
  std::optional<Purse> PriceOf(const Card& card);
  std::vector<Amount> AmountsOf(const Purse& price);
  void PriceHand();
  void CarryOutQueue();
  void PlayEntry(int entry);
  void AimAdvice(Card& card, PlannedStep& step);
  void CarryOutMenuActions();
  void LookAtTheRest();
  void CountWhatIsLeft();

  PlanForecast forecast_;
  std::vector<std::string> resources_{"MANA", "MONSTERS", "HEARTS"};  // traits that are prices
};

std::optional<Purse> Forecaster::Pay(const Card& card) {
  const Purse before = PurseOfPlayer();
  if (!PayCost(card, Payment::kIsMade)) return std::nullopt;
  const Purse after = PurseOfPlayer();
  Purse price;
  for (const auto& [trait, count] : before) {
    const double taken = count - InPurse(after, trait);
    if (taken > 0) price.emplace_back(trait, taken);
  }
  return price;
}

std::optional<Purse> Forecaster::PriceOf(const Card& card) {
  {
    const Trial trial;
    if (auto price = Pay(card)) return price;
  }
  const Trial trial;
  GiveMeans();
  return Pay(card);
}

std::vector<Amount> Forecaster::AmountsOf(const Purse& price) {
  std::vector<Amount> amounts;
  for (const auto& [trait, count] : price) {
    if (std::ranges::find(resources_, trait) == resources_.end()) resources_.push_back(trait);
    amounts.push_back({ResourceName(trait), count});
  }
  return amounts;
}

std::string Forecaster::WhyUnpayable(const Card& card) {
  const WorkAccount account;
  const auto price = PriceOf(card);
  if (!price || WorkIsSpent()) return "It could not be played.";
  return Joined("Too dear at ", AmountsText(AmountsOf(*price)), ".");
}

void Forecaster::PriceHand() {
  const Pile& hand = State().Players[1].Hand;
  for (int position = 1; position <= kHandPositions; ++position) {
    if (!hand.Holds(position) || IsFree(hand[position])) continue;
    const Card card = hand[position];
    HandForecast& entry = forecast_.Hand[static_cast<std::size_t>(position)];
    const auto price = PriceOf(card);
    entry.IsPriceKnown = price.has_value();
    if (price) entry.Price = AmountsOf(*price);
  }
}

/// What the player may want to know of the target: that one can be chosen, or that the one that was
/// chosen is of no use.
void Forecaster::AimAdvice(Card& card, PlannedStep& step) {
  if (State().CardTable.Holds(card.TargetSlot)) {
    if (!NeedsTarget(card)) {
      step.Advice = "It needs no target.";
    } else if (!SuitsTarget(card, card.TargetSlot)) {
      step.Advice = "It does nothing to that, so it picks a target itself.";
    }
    return;
  }
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    const CardEffect& action = card.Effects[effect];
    if (action.TargetType != kTargetCard || action.Trigger != "ENTERPLAY") continue;
    int quality = kNoTarget;
    PickTarget(card, effect, kTargetCard, Text(), quality);
    if (quality == kNoTarget) {
      step.Problem = "It finds no target now.";
    } else {
      step.Advice = "Click a target, or it picks one itself.";
    }
    return;
  }
}

void Forecaster::PlayEntry(int entry) {
  Session& session = State();
  const int position = session.PlayQueue[entry];
  Pile& hand = session.Players[1].Hand;
  if (!hand.Holds(position) || IsFree(hand[position])) return;
  Card card = hand[position];
  HandForecast& known = forecast_.Hand[static_cast<std::size_t>(position)];
  PlannedStep step{.Entry = entry};
  const int target = session.PlayTarget[entry];
  known.IsPlanned = true;
  if (target == kDiscard) {
    step.Words = Joined("Discard ", OneLine(card.Name));
    known.IsPayable = true;
    FreeCard(hand[position]);
    forecast_.Steps.push_back(std::move(step));
    return;
  }
  step.Words = Joined("Play ", OneLine(card.Name));
  if (session.CardTable.Holds(target)) {
    step.Words += Joined(" on ", OneLine(session.CardTable[target].Name));
    step.IsAimed = true;
  }
  known.IsPayable = Pay(card).has_value();
  if (known.IsPayable) {
    if (target > 0) card.TargetSlot = static_cast<std::int16_t>(target);
    AimAdvice(card, step);
    AddToTable(card);
    FreeCard(hand[position]);
  } else {
    step.Problem = known.IsPriceKnown ? TooLittleFor(known.Price) : std::string(kUnplayable);
  }
  forecast_.Steps.push_back(std::move(step));
}

void Forecaster::CarryOutQueue() {
  for (int entry = 1; entry <= State().PlayQueue.UpperBound(); ++entry) {
    if (State().PlayQueue[entry] != 0) PlayEntry(entry);
  }
}

void Forecaster::CarryOutMenuActions() {
  Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    for (int effect = 1; table[slot].Owner != 2 && !IsFree(table[slot]) &&
                         effect <= table[slot].Effects.UpperBound();
         ++effect) {
      const CardEffect action = table[slot].Effects[effect];
      if (action.MenuState != kArmedMenuAction) continue;
      PlannedStep step{.Slot = slot, .Effect = effect};
      step.Words = Joined(OneLine(table[slot].Name), ": ", OneLine(action.MenuCaption));
      const bool aims = action.TargetType == kTargetCard && table.Holds(action.ChosenTarget);
      if (aims) {
        if (IsFree(table[action.ChosenTarget])) step.Problem = "Its target has gone.";
        step.Words += Joined(", on ", OneLine(table[action.ChosenTarget].Name));
        step.IsAimed = true;
      }
      // What the turn brings first may help, so a failure is no problem yet.
      const int failures = FireTrigger(table[slot], action.Trigger.View(), -1, effect);
      if (failures > 0) step.Advice = "As things stand now it would not work.";
      forecast_.Steps.push_back(std::move(step));
    }
  }
}

void Forecaster::LookAtTheRest() {
  const Pile& hand = State().Players[1].Hand;
  for (int position = 1; position <= kHandPositions; ++position) {
    HandForecast& entry = forecast_.Hand[static_cast<std::size_t>(position)];
    if (entry.IsPlanned || !hand.Holds(position) || IsFree(hand[position])) continue;
    const Card card = hand[position];
    entry.IsPayable = PayCost(card, Payment::kIsTested);
  }
}

void Forecaster::CountWhatIsLeft() {
  for (const auto& [trait, count] : PurseOfPlayer()) {
    const bool isPrice = std::ranges::find(resources_, trait) != resources_.end();
    if (isPrice && trait != "HP") forecast_.Left.push_back({ResourceName(trait), count});
  }
}

PlanForecast Forecaster::Make() {
  const WorkAccount account;
  PriceHand();
  CarryOutQueue();
  CarryOutMenuActions();
  LookAtTheRest();
  CountWhatIsLeft();
  if (!WorkIsSpent()) return std::move(forecast_);
  // What took too long says nothing about the plan.
  for (PlannedStep& step : forecast_.Steps) step.Problem.clear();
  for (HandForecast& entry : forecast_.Hand)
    entry = {.IsPlanned = entry.IsPlanned, .IsPayable = true};
  forecast_.Left.clear();
  return std::move(forecast_);
}

}  // namespace

std::string ResourceName(std::string_view trait) {
  const std::string begin = Joined("SUBTRAIT:", trait, ":SRCTRAIT/");
  std::string name(trait);
  for (const Card& brings : State().TraitActions) {
    for (const CardEffect& effect : brings.Effects) {
      const std::string_view script = effect.Script.View();
      if (effect.Trigger == "COST" && script.starts_with(begin)) {
        name = FieldAt(script.substr(begin.size()), 1, ':');
      }
    }
  }
  std::ranges::transform(name, name.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return std::string(OneLine(name));
}

std::string AmountsText(const std::vector<Amount>& amounts) {
  std::string text;
  for (const Amount& amount : amounts) {
    text += Joined(text.empty() ? "" : ", ", amount.Count, " ", amount.Resource);
  }
  return text;
}

std::string WhyUnpayable(const Card& card) {
  const Card tried = card;  // NOLINT: the session that it lies in changes
  const Looking looking;
  State().Services = &kServices;
  State().Random = {};
  return Forecaster().WhyUnpayable(tried);
}

PlanForecast ForecastPlan() {
  const Looking looking;
  State().Services = &kServices;
  State().Random = {};  // what chance will bring is not told
  return Forecaster().Make();
}

}  // namespace brindlemoor
