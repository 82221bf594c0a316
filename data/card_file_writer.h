// Whole card data files: the editor's cards, card stores and starter decks.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// The whole text that SaveCardFile saves. Picture files of the templates lose their folders.
std::string CardFileText(std::string_view filename, std::string_view location,
                         std::string_view deckName, int starterFlag);

/// Saves the editor's card file: cost card, templates and the collection's cards at a location.
/// With starterFlag other than 0 it is a starter deck, else with a deckName a card store; these
/// include the editor's own file instead of repeating its cards, unless there is none or it is the
/// file that is written. False when that failed, which a message box has told.
bool SaveCardFile(std::string_view filename, std::string_view location, std::string_view deckName,
                  int starterFlag);

/// Saves the same file as SaveCardFile does for a store or starter deck, and behind it what opens
/// it from the game list: #STARTERDECK, a portrait, and the cards as the deck that boosters are
/// drawn from. game is the name of its game, "" when it is not known. False when that failed, which
/// a message box has told.
bool SaveStoreFile(std::string_view filename, std::string_view deckName, int starterFlag,
                   std::string_view game);

/// The neutral card that deals out a starter deck when the game starts.
std::string StarterDeckHead(std::string_view deckName, int boosterSize);
/// The neutral card whose menu sells boosters.
std::string CardStoreHead(std::string_view deckName, int boosterSize, int price);

/// Makes the collection's cards those of a file: each gets a UniqueID if it has none, and the
/// file's name as its SourceFile if it has none or force is not 0.
void StampCards(std::string_view filename, int force);

}  // namespace brindlemoor
