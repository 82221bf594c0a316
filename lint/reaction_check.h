// The part of the script checker for reactions: requirements that call the answered action off.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lint/script_check.h"

namespace brindlemoor {

/// A requirement on the acting card. In a reaction it calls the answered action off when it is not
/// met, where other requirements only end the reaction.
struct CancellingWord {
  std::string_view Word;
  std::string_view Trait;  ///< arguments for an example
  std::string_view Value;
  /// What asks the same and only ends the reaction, "" when no single requirement does. onSelf: the
  /// reaction's target is the card that reacts.
  std::string (*Instead)(std::string_view trait, std::string_view value, bool onSelf);
  std::string_view Advice;  ///< what to do when no single requirement does, "" when one always does
};
std::span<const CancellingWord> CancellingWords();

/// The requirements of an action that call an answered action off. Actions that the script adds to
/// cards are looked at as well.
std::vector<ScriptFinding> CheckReaction(std::string_view target, std::string_view trigger,
                                         std::string_view script);

}  // namespace brindlemoor
