// Paying for cards and playing them, the enemy's menu actions and the end of bonuses.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/records.h"
#include "script/run_services.h"

namespace brindlemoor {

/// Tests a card's price, and pays it where that is wanted. False when it can't be paid, which
/// leaves no trace. The card is not changed.
bool PayCost(const Card& card, Payment payment);

/// The cells of a side's plays table, five to a row.
class PlayCells {
 public:
  /// A card that was played, by its picture link.
  void AddCard(std::string_view picture);
  /// Text between the cells.
  void AddText(std::string_view html) { html_ += html; }
  const std::string& Html() const { return html_; }

 private:
  std::string html_;
  int column_ = 0;
};

/// Puts a card that is paid for from a side's hand into the table, and its picture into the cells.
void PlayCard(int side, Card& card, PlayCells& cells);

/// The slot of a clean target for a menu action, nothing when there is none.
std::optional<int> ChooseMenuAction(Card& card, int effect);

/// The enemy arms each of its menu actions for which a clean target exists.
void PlanEnemyMenuActions();

/// Bonus traits and bonus actions end.
void ExpireBonuses();

}  // namespace brindlemoor
