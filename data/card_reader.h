// The card data reader: one format for rules, opponents, stores, decks and player files.
#pragma once

#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Reads a file into the piles that its directives name. player is the side that decks and owners
/// refer to; noDuplicates other than 0 makes #DUPLICATE inert; forcedLocation, when not empty,
/// replaces the location of ordinary #CARD lines; keepExisting 0 with side 1 empties Collection and
/// Decks first. What is wrong in the file is kept as a problem and skipped; nothing throws. False
/// when the file could not be opened, or took too much work to be read to its end.
bool ReadCards(std::string_view file, PlayerState& player, int noDuplicates,
               std::string_view forcedLocation, int keepExisting);

/// Reads a file for the cards that it puts into a side's own piles, without duplicates: whatever
/// else is written in it changes nothing. False when the file can't be read to its end.
bool TakeCardsOut(std::string_view file, PlayerState& player, std::string_view forcedLocation);

/// Keeps as a problem of a file that it can't be read, and why, if something of its path is there.
void AddUnreadable(std::string_view file, const std::string& path);

/// The path under which ReadCards opens a file: in the current folder, where the exact name is
/// missing one that differs in case only. "" when there is none.
std::string FindCardFile(std::string_view file);

/// A copy of the card called name in a file, or an empty record. Files are read once.
Card GetRefCard(std::string_view name, std::string_view file);

/// Adds a value to a custom string. False when it has 255 values already or no further one fits.
bool AddCustomString(std::string_view key, std::string_view value);
void AddTraitGraphic(std::string_view name, std::string_view picture, std::string_view fontColor,
                     std::string_view label, int showSmall, int showLarge);

/// Shuffles a draw pile, its free element included.
void ShufflePile(PlayerState& player);
/// StartDeck becomes a copy of Deck.
void CopyDeck(PlayerState& player);

}  // namespace brindlemoor
