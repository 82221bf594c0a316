// The part of the script checker for what is right by itself and does nothing where it stands.
#pragma once

#include <string_view>
#include <vector>

#include "lint/script_check.h"

namespace brindlemoor {

/// Whose table the card of an action lies on.
enum class ActionSide : std::uint8_t {
  kAny,
  kComputer,  ///< a card of an opponent's deck
};

/// Commands that act only in reactions or only once for each card, counts of 0, dice that are
/// stored unrolled, and actions that never find their card. Actions that the script adds to cards
/// are looked at as well.
std::vector<ScriptFinding> CheckPlace(std::string_view target, std::string_view trigger,
                                      std::string_view script);

/// Why an action with this target and trigger never runs, a sentence; "" when it can.
std::string_view WhyNeverRun(std::string_view target, std::string_view trigger, ActionSide side);

}  // namespace brindlemoor
