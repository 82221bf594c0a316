// The refresh of stored cards and the table of master definitions.
#include "game/card_refresh.h"

#include <algorithm>
#include <vector>

#include "core/card_files.h"
#include "core/cards.h"
#include "core/paths.h"
#include "core/random.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/read_mark.h"
#include "language/traits.h"
#include "script/card_setup.h"
#include "script/trait_actions.h"

namespace brindlemoor {

namespace {

constexpr int kMatchMasters = 5000;
constexpr int kSaveMasters = 2000;

using Piles = std::vector<Pile*>;

std::vector<Text> SourceFilesOf(const Piles& piles) {
  std::vector<Text> files;
  for (const Pile* pile : piles) {
    for (const Card& card : *pile) {
      if (IsFree(card) || card.SourceFile.empty()) continue;
      if (std::ranges::find(files, card.SourceFile) == files.end())
        files.push_back(card.SourceFile);
    }
  }
  return files;
}

void StoreMasters(const Pile& definitions, const Text& file) {
  int lost = 0;
  for (const Card& card : definitions) {
    if (IsFree(card)) continue;
    if (WorkIsSpent()) return;
    const int slot = MasterSlot(card.UniqueID);
    if (slot == 0) {
      ++lost;
    } else {
      State().MasterCards[slot] = card;
      State().MasterPlaces.try_emplace(card.UniqueID.Str(), slot);
    }
  }
  if (lost == 0) return;
  AddProblem(file, 0,
             Joined(lost, " cards are not brought up to date: the games of one refresh may have ",
                    State().MasterCards.UpperBound(), " different cards"));
}

constexpr std::string_view kStay = "cards stay as they are stored";

/// The definitions of one file. None are taken of a file that may be another one than the player's
/// cards came from.
void StoreMastersOf(const Text& file) {
  const ReferencedFile found = FindReferencedFile(file);
  if (found.Path.empty()) return;
  if (!found.IsSure()) {
    AddTwins(file, found, kStay);
    return;
  }
  PlayerState definitions;
  InitPlayer(definitions, kTemporaryState);
  const int before = State().TwinsTaken;
  // A definition of which lines are missing would take them from the player's cards.
  if (!ReadCards(found.Path, definitions, 1, "INDECK", 0)) return;
  if (State().TwinsTaken == before) {
    StoreMasters(definitions.Deck, file);
  } else {
    AddProblemOnce(file, Joined("\"", FileNameOf(found.Path),
                                "\" takes in a file of which there are two: ", kStay));
  }
}

void FillMasterCards(const std::vector<Text>& files, int capacity) {
  State().MasterCards.Reset(capacity);
  State().MasterPlaces.clear();
  for (const Text& file : files) StoreMastersOf(file);
}

/// A copy of the master for the side of the card. The master changes sides before, so that the
/// actions of all copies for that side stay shared.
Card CopyFor(const Card& card, Card& master) {
  SetOwner(master, card.Owner);
  Card fresh = master;
  fresh.OwnerBit = card.OwnerBit;
  SetOwner(fresh, card.Owner);
  return fresh;
}

/// The master's definition under the identity and looks of the stored card.
void TakeDefinition(Card& card, Card& master) {
  Card fresh = CopyFor(card, master);
  fresh.Name = card.Name;
  fresh.Picture = card.Picture;
  fresh.Thumb = card.Thumb;
  fresh.GlobalID = card.GlobalID;
  fresh.NameColor = card.NameColor;
  fresh.TraitActionsApplied = 0;
  if (!card.EntryScripts.empty()) fresh.EntryScripts = card.EntryScripts;  // what ADDMOD gave lasts
  card = std::move(fresh);
  ApplyTraitActions(card, "");
}

/// A card without a unique ID takes over everything but whose it is and which one it is.
void BecomeMaster(Card& card, Card& master) {
  Card fresh = CopyFor(card, master);
  fresh.GlobalID = card.GlobalID;
  card = std::move(fresh);
  ApplyTraitActions(card, "");
}

void RefreshCard(Card& card) {
  const int slot = MasterSlot(card.UniqueID);
  if (slot == 0) return;
  Card& master = State().MasterCards[slot];
  if (IsFree(master)) return;
  if (!card.UniqueID.empty() && master.UniqueID == card.UniqueID &&
      master.SourceFile == card.SourceFile && !HasTrait(card, "NOMRP")) {
    TakeDefinition(card, master);
  }
  if (card.UniqueID.empty() && card.Name == master.Name) BecomeMaster(card, master);
}

void Refresh(const Piles& piles, int capacity) {
  const WorkAccount account;
  {
    const ReadMark before;
    FillMasterCards(SourceFilesOf(piles), capacity);
    before.PutBack();
  }
  for (Pile* pile : piles) {
    for (Card& card : *pile) {
      if (!IsFree(card) && !WorkIsSpent()) RefreshCard(card);
    }
  }
  SeedFromClock();
}

}  // namespace

int MasterSlot(std::string_view uniqueId) {
  const KeyPlaces& places = State().MasterPlaces;
  const auto place = places.find(uniqueId);
  if (place != places.end()) return place->second;
  const int next = static_cast<int>(places.size()) + 1;
  return State().MasterCards.Holds(next) ? next : 0;
}

void RefreshPlayers() {
  FixedTable<PlayerState, 3>& players = State().Players;
  Refresh({&players[1].Deck, &players[2].Deck}, kMatchMasters);
}

void RefreshCollection() {
  Session& session = State();
  Piles piles{&session.Collection};
  for (DeckRec& deck : session.Decks) piles.push_back(&deck.Cards);
  Refresh(piles, kSaveMasters);
  session.MasterCards.Reset(1);
  session.MasterPlaces.clear();
}

}  // namespace brindlemoor
