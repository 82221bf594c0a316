// Saving what the player owns: cards, decks and their names, tokens.
#pragma once

#include <string_view>

namespace brindlemoor {

/// Brings what the player owns up to date, sorts it, and saves it with the profile list. Nothing in
/// debug mode and while the card editor is open, and nothing without a name. A player who owns no
/// card is saved only over a file that this program has read or written, and only when that is a
/// change: any other may hold cards.
/// A file that another program has changed is saved over only when the user says so, and then kept
/// as a copy. False when something is not saved that should be; a message has said why, and the old
/// file is as it was.
bool WritePlayerFile(std::string_view fileName);

/// Saves what the player owns as it stands when it has changed since the last read or save, without
/// a trace in the game in progress. A question that the user has answered is not asked again.
void StorePlayer();

/// True when the player owns something that the next read would lose.
bool PlayerIsUnsaved();

/// From now on what lies under this name may be saved over: the user knows of it.
void NotePlayerFile(std::string_view fileName);

/// What the player owns now is what is stored.
void NoteStoredPlayer();
/// What the player owns now is in no file of theirs.
void NoteUnstoredPlayer();

}  // namespace brindlemoor
