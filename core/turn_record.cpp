// Noting what came to nothing in a turn.
#include "core/turn_record.h"

#include <utility>

#include "core/state.h"

namespace brindlemoor {

void NoteRefusal(std::string name, std::string reason) {
  constexpr std::size_t kMost = 20;  // a card may fire its actions without end
  std::vector<RefusedPlan>& refusals = State().LastTurn.Refusals;
  if (refusals.size() < kMost) refusals.push_back({std::move(name), std::move(reason)});
}

}  // namespace brindlemoor
