// What a file that a save is going to replace holds beside what the save writes.
#pragma once

#include <cstdint>
#include <string>

namespace brindlemoor {

/// What the editor saves: its cards with their templates and cost card, or a store or starter deck.
enum class SavedKind : std::uint8_t { kCards, kStore };

/// The first directive of a card file that a save of this kind would not write again, with the
/// location where it is that of a card. "" when the file holds nothing else; "?" for a file that
/// the editor has not written.
std::string LostByReplacing(std::string bytes, SavedKind kind);

}  // namespace brindlemoor
