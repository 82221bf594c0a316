// Where a word stands on the reference page. A command's anchor is the word itself.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

inline constexpr std::string_view kScriptsAnchor = "scripts";

/// "" for a word that the page does not have.
std::string TargetAnchor(std::string_view word);
std::string TriggerAnchor(std::string_view word);
/// Of a "/" field of a value expression: "DIV2" stands with all of its kind.
std::string ValueAnchor(std::string_view field);

}  // namespace brindlemoor
