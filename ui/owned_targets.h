// OwnedTargets: what armed menu actions aim at among the player's own cards.
#pragma once

#include <cstdint>
#include <vector>

namespace brindlemoor {

/// Notes the cards of the collection and the decks that armed menu actions aim at. Sorting and
/// moving change their positions; PutBack aims the actions anew, and lets those wait again whose
/// card has gone, which the plan page shows.
class OwnedTargets {
 public:
  OwnedTargets();
  void PutBack() const;

 private:
  struct Aim {
    int Slot;             // of the card that has the action
    int Effect;           // its number
    std::int32_t Target;  // GlobalID of the owned card
  };
  std::vector<Aim> aims_;
};

}  // namespace brindlemoor
