// The turn driver.
#pragma once

namespace brindlemoor {

/// One whole turn: card plays of both sides (unless skipPlays is 1), the triggers from TURNSTART to
/// TURNEND in their fixed order, and the report page.
void TakeTurn(int skipPlays);

}  // namespace brindlemoor
