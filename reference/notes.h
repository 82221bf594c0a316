// What authors should know of a word beyond its one line, for the reference.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "language/target_types.h"
#include "script/command_table.h"

namespace brindlemoor {

/// A paragraph that stands with one or more words.
struct ReferenceNote {
  std::string_view Anchors;  ///< of the words on the page, divided by blanks
  std::string_view Text;     ///< what stands in "`" is code
};
std::span<const ReferenceNote> ReferenceNotes();

/// What authors should know of how the card of a target is found.
std::string_view TargetNote(const TargetTypeRow& row);
/// What a trial does with a command; "" for one that is tried like anything else.
std::string_view TrialNote(const Command& row);

/// What a requirement on the acting card does in a reaction, and what to write there; "" for a word
/// that does nothing of its own there.
std::string ReactionNote(std::string_view word);

}  // namespace brindlemoor
