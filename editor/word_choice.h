// The choice of a trigger or a target type from the engine's tables.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlemoor {

/// What a trigger or a target type of these names asks for goes behind it: "TRAITCHANGE" becomes
/// "TRAITCHANGE:HP". Nothing when a question was cancelled. The trigger of a menu action is typed,
/// or chosen from the list.
std::optional<std::string> CompletedTrigger(const std::string& chosen, bool typesMenuTrigger);
std::optional<std::string> CompletedTarget(const std::string& chosen);

/// Lets the user choose a trigger that runs, and asks for what it needs. Nothing when cancelled.
std::optional<std::string> AskTrigger(std::string_view prompt);
/// The same for a target type; where it is one field of a command, it can't name a card.
std::optional<std::string> AskTarget(std::string_view prompt, bool isOneField);

}  // namespace brindlemoor
