// TurnChanges: the table and the hand before a turn, to tell what the turn made of them.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "text/text.h"

namespace brindlemoor {

/// Looks at the session when it is made. Looking changes nothing, the random source included.
class TurnChanges {
 public:
  TurnChanges();
  /// Puts what is different now into Session::LastTurn.
  void Record() const;

 private:
  /// A card that is seen on the table.
  struct Seen {
    std::int32_t GlobalID = 0;
    Text Name;
    int Side = 0;
    double HitPoints = 0;
  };
  static std::vector<Seen> TableNow();
  static std::set<std::int32_t> HandNow();
  static void RecordCard(const Seen& before, const Seen* after);

  std::vector<Seen> table_;  // by slot
  std::set<std::int32_t> hand_;
  std::int32_t tokens_;
};

}  // namespace brindlemoor
