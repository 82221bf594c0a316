// The records of the engine: cards, their actions, decks, players, games and the small ones.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/shared_array.h"
#include "core/table.h"
#include "core/trait_item.h"
#include "text/text.h"

namespace brindlemoor {

/// Eight 32-bit words of trait bits, numbered 1 to 8.
class TraitWords {
 public:
  static constexpr int kWords = 8;
  std::uint32_t& operator[](int word) noexcept { return words_[static_cast<unsigned>(word) - 1]; }
  std::uint32_t operator[](int word) const noexcept {
    return words_[static_cast<unsigned>(word) - 1];
  }
  bool operator==(const TraitWords&) const = default;

 private:
  std::array<std::uint32_t, kWords> words_{};
};

/// What an action's MenuState may be.
enum MenuStates : std::uint8_t {
  kOrdinaryAction = 0,  ///< its trigger runs it
  kMenuAction = 1,      ///< waits in the card's menu, its trigger passes it over
  kArmedMenuAction = 2  ///< chosen in the menu: runs at its next trigger, then 1 again
};

/// One action of a card. A record with an empty Script is free.
struct CardEffect {
  Text Trigger;                 ///< trigger name; "COUNTER" marks a counter action
  std::int32_t TargetType = 0;  ///< code of the target word (language/target_types.h)
  Text TargetText;              ///< the target word as read
  Text Script;                  ///< action script
  std::uint8_t MenuState = kOrdinaryAction;
  Text MenuCaption;               ///< caption of a menu action
  std::int32_t ChosenTarget = 0;  ///< slot, or index in the picked pile for COLLECTION; 0 none
  TraitWords NeedTargetBits;      ///< trait bits the target must have
  TraitWords NeedMyBits;          ///< trait bits the acting card must have
  TraitWords ForbidTargetBits;    ///< trait bits the target must not have
  TraitWords ForbidMyBits;        ///< trait bits the acting card must not have
  std::int32_t OwnerMask = 0;     ///< ANDed with a target's OwnerBit; 255 any owner
  std::uint8_t PickedPile = 0;    ///< deck that ChosenTarget indexes for COLLECTION; 0 = Collection
  std::uint32_t AddedAt = 0;      ///< number that Session::ActionsAdded gave it
};

/// One card, wherever it lies. Copies are independent; a record with an empty Name is free.
struct Card {
  Text Name;                        ///< display name
  Text Picture;                     ///< file of the large image
  Text Thumb;                       ///< file of the thumbnail
  Text AuxText;                     ///< only the short card lines fill it; nothing depends on it
  SharedArray<TraitItem> Traits;    ///< "NAME:VALUE" or "NAME"; "" is a free item
  SharedArray<Text> TraitCaptions;  ///< parallel to Traits
  SharedArray<CardEffect> Effects;  ///< the card's actions
  Text Description;                 ///< HTML, placeholders expanded when shown
  Text NameColor;                   ///< "#RRGGBB" of the name
  std::uint8_t InPlay = 0;          ///< 1 once the card has entered play
  std::int16_t TargetSlot = 0;      ///< target chosen while queued; -1 discard
  std::int16_t StoredTarget = 0;    ///< second copy of the choice
  std::uint8_t Owner = 0;           ///< 1 human, 2 computer, 0 or 3 neutral
  std::int32_t GlobalID = 0;        ///< random identity, used by pages and expressions
  std::uint8_t Initialised = 0;     ///< 1 after InitCard
  std::uint8_t TraitActionsApplied = 0;  ///< 1 while trait actions are merged
  Text ChangedTraits;                    ///< names with a pending TRAITCHANGE, each followed by ":"
  std::uint8_t Rarity = 0;               ///< 0 to 255; above 100 never in a booster
  Text SourceFile;                       ///< file of the master definition
  Text UniqueID;                         ///< key of the master definition
  TraitWords TraitBits;                  ///< one bit per name of TraitBitNames
  std::int32_t OwnerBit = 0;             ///< 4 for owner 0, 1 for 1, 2 for 2
  std::int16_t Slot = 0;                 ///< own index in CardTable, 0 before AddToTable
  Text ActivateOn;                       ///< trigger that brings the card into play; "" at once
  Text EntryScripts;                     ///< permanent modifications, each followed by "$|$"
};

using Pile = Table<Card>;

inline constexpr int kDecks = 3;  ///< that the player has for a game

/// One of the player's decks.
struct DeckRec {
  Text DeckName;
  Pile Cards;
  Card Header;  ///< part of the record; no routine fills it
};

inline constexpr int kHandPositions = 10;  ///< of the hand of a side

/// One side of the game.
struct PlayerState {
  Text FileName;                ///< only in ReferenceFile
  std::int32_t PlayerCard = 0;  ///< slot of the side's player card
  Pile Deck;                    ///< draw pile; the top is the last element, element 1 stays free
  Pile StartDeck;               ///< copy of Deck at the end of a file read
  Pile Hand;                    ///< kHandPositions, the free ones among them
  Pile SparePile;               ///< allocated by InitPlayer; no routine uses it
  std::uint8_t PlayerNo = 0;    ///< 1 human, 2 computer, 3 neutral, or one of those below
  Text Color;                   ///< colour of the side
  std::int32_t Tokens = 0;
};

/// A file that is read for its cards, and what those depend on.
struct ReferenceFile : PlayerState {
  Text GameFolder;         ///< the folder in which files were looked for first
  bool TookTwins = false;  ///< it takes in the first of several files of a name
};

/// The PlayerNo of states that are no side's.
inline constexpr int kGameDeckState = 4;
inline constexpr int kTemporaryState = 5;

/// One game found in the program's folder.
struct GameRec {
  Text Name;
  Text Color;  ///< background of its table on the list
  Text RulesFile;
  std::vector<Text> Namesakes;  ///< rules files of other games of this name, which are left out
  Pile Opponents;               ///< only Name, Thumb and Description; element 1 is free
  Table<Text> OpponentFiles;    ///< parallel to Opponents
  Text Folder;                  ///< subfolder of the opponents
  Text Banner;                  ///< picture file
  Text HelpPage;
};

/// How a trait is drawn on the battlefield and on description pages.
struct TraitGraphic {
  Text TraitName;
  Text Picture;  ///< "" for a text badge
  Text FontColor;
  Text Label;
  std::uint8_t ShowSmall = 0;  ///< allowed on description pages
  std::uint8_t ShowLarge = 0;  ///< allowed in the table
};

/// A name with a bit; its position is its bit number.
struct TraitBitName {
  Text Name;
  std::uint32_t Key = 0;  ///< of the name (core/trait_item.h)
};

/// A line of the profile list.
struct ProfileRec {
  Text PlayerName;
  Text PlayerFile;  ///< the .plr file written last
  Text RulesFile;   ///< rules file of the last match
};

/// The file that holds what the player owns, and what it is compared with. Hashes are "" for none.
struct PlayerFileRec {
  std::string Path = {};    ///< absolute; "" while what is owned came from no file
  std::string OnDisk = {};  ///< of its bytes as this program read or wrote them last
  std::string Owned = {};   ///< of what was owned then
  std::string LeftAlone =
      {};                  ///< of bytes that others have written and that the user wants to keep
  std::string LetGo = {};  ///< of what is owned and unsaved, and shall stay so
};

/// A custom string: one of its values is picked at random.
struct CustomStringRec {
  Text Key;
  Table<Text> Values;
};

/// The pieces of a foreground picture that a card's image and its thumbnail show, in pixels of the
/// picture; 0 not chosen yet.
struct CropCoordinates {
  std::int16_t MainX1 = 0;
  std::int16_t MainX2 = 0;
  std::int16_t MainY1 = 0;
  std::int16_t MainY2 = 0;
  std::int16_t MiniX1 = 0;
  std::int16_t MiniX2 = 0;
  std::int16_t MiniY1 = 0;
  std::int16_t MiniY2 = 0;
  bool operator==(const CropCoordinates&) const = default;
};

/// Names of the files of a folder.
struct FolderFiles {
  std::string Folder;
  std::vector<std::string> Names;
};

/// A card template of the editor.
struct Template {
  brindlemoor::Card Card;
  Text BackImage;
  Text MiniBorder;
  std::int32_t BorderColor = 0;
};

}  // namespace brindlemoor
