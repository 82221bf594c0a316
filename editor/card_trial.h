// CardTrial: what a card does on a small table, found out by a scenario.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// What is tried.
struct TrialRequest {
  Card Tried;
  int Action = 0;  ///< row of CardRows::Effects, from 1; 0 pays the card and brings it into play
  /// The word of the card that the player chose as a target; see TrialCards.
  std::string Aim{};
};

/// A trait of a card of the table that is not what it was. A card without a trait's name came into
/// play or left it.
struct TrialChange {
  std::string Card;  ///< "" for the match itself
  std::string Trait;
  std::string Before;
  std::string After;
  bool IsField = false;  ///< Trait names what else scenarios ask for: "owner", "name", "actions"
};

struct TrialResult {
  std::vector<TrialChange> Changes;
  std::string Said;      ///< without markup
  std::string Outcome;   ///< in a sentence
  std::string Scenario;  ///< the text of a scenario file that expects all this
};

/// The words of the cards on the table that can be aimed at, with what they stand for: the tried
/// card, an ally, an enemy and both player cards.
struct TrialCard {
  std::string Word;
  std::string Meaning;
};
std::vector<TrialCard> TrialCards(const Card& tried);

/// Lays the table out of the rules file of the cards in the editor and of cards of the list that
/// are like the tried one, does what is asked for, and looks. The session stays as it is.
TrialResult TryCard(const TrialRequest& request);

}  // namespace brindlemoor
