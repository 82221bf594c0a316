// What the plan for the coming turn costs, what it leaves, and what of it will not work.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// So much of something that the player card has; the name is what prices are called in the game.
struct Amount {
  std::string Resource;
  double Count = 0;
};

/// What a resource is called where a trait of cards is the price in it, as in
/// "SUBTRAIT:MANA:SRCTRAIT/OIL" makes MANA "oil"; else the trait itself, in small letters.
std::string ResourceName(std::string_view trait);

/// "3 oil, 1 heart"; "" for nothing.
std::string AmountsText(const std::vector<Amount>& amounts);

/// Why a card of side 1 can't be paid now, as a sentence. Nothing changes.
std::string WhyUnpayable(const Card& card);

/// Something that is planned: a queued card or an armed menu action.
struct PlannedStep {
  int Entry = 0;         ///< of the queue; 0 for a menu action
  int Slot = 0;          ///< of the card with the menu action
  int Effect = 0;        ///< its number
  bool IsAimed = false;  ///< the player has chosen a table card for it
  std::string Words{};   ///< plain text: "Play Lamp Moth on Crab Pot"
  std::string
      Problem{};  ///< why it will not work, as a sentence; "" where nothing speaks against it
  std::string Advice{};  ///< what the player may still do about it, "" for nothing
};

/// A card of the hand.
struct HandForecast {
  bool IsPriceKnown = false;
  std::vector<Amount> Price{};  ///< nothing for a card that is free
  bool IsPlanned = false;
  bool IsPayable = false;  ///< with what the plan leaves; a planned card: in its place of the plan
};

struct PlanForecast {
  std::vector<PlannedStep> Steps;  ///< in the order in which they are carried out
  std::vector<Amount> Left;        ///< every resource that the player has
  std::array<HandForecast, kHandPositions + 1> Hand;  ///< from 1
};

/// Carries the plan out on a copy of the session, as the table stands now: what the enemy does and
/// what a turn brings is not known. Nothing changes, the random source included.
PlanForecast ForecastPlan();

}  // namespace brindlemoor
