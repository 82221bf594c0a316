// Saving what the player owns: cards, decks and their names, tokens.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

enum class Saving {
  kAsked,    ///< by the user
  kByItself  ///< a question that has its answer is not put again, and what is unchanged stays
};

/// Brings what the player owns up to date, sorts it, and saves it with the profile list. Nothing in
/// debug mode and while the card editor is open, and nothing without a name. A file that is not the
/// player's own gets a copy. A player who owns no card is saved only when that is a change since
/// the last read or save: else a file may hold cards that could not be read.
/// A file is saved over what others have written only when the user says so, and then kept as a
/// copy. False when something is not saved that should be; a message or the user's own answer has
/// said why, and the old file is as it was.
bool WritePlayerFile(std::string_view fileName, Saving saving = Saving::kAsked);

/// Saves what the player owns to the own file as it stands when it has changed since the last read
/// or save, without a trace in the game in progress. False as above.
bool StorePlayer(Saving saving = Saving::kByItself);

/// True when the player owns something that the next read would lose.
bool PlayerIsUnsaved();

/// The user lets go of what is unsaved now: it is not saved by itself.
void LetPlayerGo();

/// What the player owns now has been read whole from a file of this path and bytes.
void NotePlayerRead(const std::string& path, std::string_view bytes);

/// What the player owns now came from elsewhere and becomes the own file's with the next save,
/// which may go over these bytes of it.
void NotePlayerLoaded(std::string_view bytesOfOwnFile);

/// Where a copy of a file goes, "path.ending" or "path.ending-2" and so on: no other copy that was
/// kept before is lost.
std::string PathOfCopy(const std::string& path, std::string_view ending, std::string_view bytes);

}  // namespace brindlemoor
