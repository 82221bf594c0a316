// The deck manager: its menus, which read and write files.
#include <array>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/opponent_files.h"
#include "data/profiles.h"
#include "data/read_mark.h"
#include "data/saving.h"
#include "data/starter_deck_file.h"
#include "game/game_list.h"
#include "game/leaving.h"
#include "game/match_outcome.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "language/traits.h"
#include "script/card_setup.h"
#include "ui/choice_form.h"
#include "ui/deck_manager.h"

namespace brindlemoor {

namespace {

/// A file of the user's choice that holds cards or tokens; "" with a message for any other.
std::string AskCardFile(const FileDialogRequest& request) {
  constexpr std::array<std::string_view, 4> kWords = {"#CARD", "#COLLECTION", "#TOKENS",
                                                      "#INCLUDE"};
  const auto path = Desktop().AskFile(request);
  if (!path) return "";
  const auto bytes = Desktop().Files().Read(*path);
  if (!bytes) {
    Desktop().MessageBox(CantRead(FileNameOf(*path), *path));
    return "";
  }
  for (const std::string_view word : kWords) {
    if (bytes->find(word) != std::string::npos) return *path;
  }
  Desktop().MessageBox(Joined("There are no cards in ", FileNameOf(*path), "."));
  return "";
}

/// The name of the deck's player card, "" when it has none.
std::string PlayerCardName(const Pile& deck) {
  for (const Card& card : deck) {
    if (!IsFree(card) && HasTrait(card, "PLAYER")) return card.Name.Str();
  }
  return "";
}

/// Where a file of the current game goes: the folder of its opponents. "" with a message when the
/// name can't be part of a file name, when there is no game, or the user would rather keep the file
/// of this name.
std::string NewGameFile(std::string_view name, std::string_view ending) {
  const std::string refusal = RefuseNameInFiles(name);
  if (!refusal.empty()) {
    Desktop().MessageBox(refusal);
    return "";
  }
  int game = GameOfNewFiles();
  if (game == 0) game = AskGame("Which game's list shall show it?");
  if (game == 0) return "";
  const std::string folder = State().Games[game].Folder.Str();
  const std::string file = Joined(name, ending);
  std::string path = InProgramFolder(folder.empty() ? file : Joined(folder, "/", file));
  if (!Desktop().Files().Exists(path)) return path;
  const std::string question = Joined("There is a file ", file, " already.  Replace it?");
  return Desktop().AskYesNo(question) ? path : std::string();
}

/// The next save takes what was loaded for the player's own; the file as it was stays beside it.
void TakeLoadedPlayer() {
  const std::string own = InProgramFolder(OwnPlayerFileName());
  const std::string bytes = Desktop().Files().Read(own).value_or("");
  const std::string copy = PathOfCopy(own, ".before", bytes);
  const std::string failure = bytes.empty() ? "" : Desktop().Files().Write(copy, bytes);
  if (!failure.empty()) {
    Desktop().MessageBox(Joined("No copy of your player file could be kept: ", failure));
  }
  // Without a copy the save asks once more.
  NotePlayerLoaded(failure.empty() ? bytes : "");
}

/// Reads a file for the player; what it says of rules is none of the match that waits behind.
bool ReadPlayerOnly(const std::string& path) {
  Session& session = State();
  const ReadMark before;
  if (!ReadPlayerFile(path)) return false;
  const Pile collection = session.Collection;
  const FixedTable<DeckRec, kDecks> decks = session.Decks;
  before.PutBack();
  session.Collection = collection;
  session.Decks = decks;
  return true;
}

bool DeckHoldsCards() {
  const Session& state = State();
  if (HoldsCards(state.Decks[state.CurrentDeck].Cards)) return true;
  Desktop().MessageBox("There are no cards in this deck.");
  return false;
}

}  // namespace

void DeckManager::savedeckmen_Click() {
  if (State().DebugMode == 1 || State().DeckManagerMode != kOwnCards) {
    Desktop().MessageBox(State().DebugMode == 1 ? "Players are not saved in debug mode."
                                                : "These are the cards of the editor.");
    return;
  }
  const auto path =
      Desktop().AskFile({.Save = true, .FileName = "*.plr", .DefaultExtension = "plr"});
  if (!path) return;
  const bool isDone = WritePlayerFile(*path);
  if (isDone && !IsThere(Desktop().Files(), *path)) {
    Desktop().MessageBox("There are no cards to save.");
  }
  UpdateDecks();
}

void DeckManager::loadplrmen_Click() {
  if (State().DeckManagerMode != kOwnCards) {
    Desktop().MessageBox("A player can't be loaded over the cards of the editor.");
    return;
  }
  const std::string path = AskCardFile({.FileName = "*.plr;*.txt", .DefaultExtension = "plr"});
  if (path.empty() || !MayLeavePlayer(Leaving::kSavesFirst) || !ReadPlayerOnly(path)) return;
  if (path != InProgramFolder(OwnPlayerFileName())) TakeLoadedPlayer();
  CountOwnedAsOld();
  sales_.clear();  // what was sold was another player's
  ShowLastSale();
  NoteDecks();
  OfferTraits();
  ShowDeckNames();
  ForgetPreviews();
  UpdateDecks();
}

void DeckManager::loadoppmen_Click() {
  const std::string path = AskCardFile({.FileName = "*.txt"});
  if (path.empty()) return;
  Session& state = State();
  PlayerState scratch;
  InitPlayer(scratch, 2);
  state.Decks[state.CurrentDeck].Cards.Reset(1);
  const ReadMark before;
  if (!ReadCards(path, scratch, 0, Joined("INPLAYERDECK:", int{state.CurrentDeck}), 1)) {
    Desktop().MessageBox(Joined("Not all cards of ", FileNameOf(path), " could be read."));
  }
  const Pile cards = state.Decks[state.CurrentDeck].Cards;
  before.PutBack();  // what else it holds is not asked for
  state.Decks[state.CurrentDeck].Cards = cards;
  ForgetPreviews();
  UpdateDecks();
}

void DeckManager::saveasopponent_Click() {
  if (!DeckHoldsCards()) return;
  if (PlayerCardName(State().Decks[State().CurrentDeck].Cards).empty() &&
      !Desktop().AskYesNo("No card of this deck has the trait PLAYER, so the enemy would have no "
                          "player card.  Save it anyway?")) {
    return;
  }
  PlayerState enemy = State().Players[1];
  enemy.Deck = State().Decks[State().CurrentDeck].Cards;
  ShufflePile(enemy);
  const auto answer =
      Desktop().AskText("What should this enemy's name be?  (Leave blank for default name)");
  if (!answer) return;
  const std::string name = answer->empty() ? PlayerCardName(enemy.Deck) : *answer;
  const std::string path = NewGameFile(name, "_Enemy.txt");
  if (!path.empty() && WriteOpponentFile(path, name)) Desktop().MessageBox("Enemy saved.");
}

void DeckManager::savestarterdeckmen_Click() {
  if (!DeckHoldsCards()) return;
  const auto name = Desktop().AskText("What should this starter deck's name be?");
  if (!name) return;
  const std::string path = NewGameFile(*name, "_Starter.txt");
  if (!path.empty() && WriteStarterDeckFile(path, *name)) {
    Desktop().MessageBox("Starter deck saved.");
  }
}

void DeckManager::helpmen_Click() {
  Desktop().MessageBox(
      "This is the deck editor.  Your card collection is shown in the middle of the screen and the "
      "currently selected deck is on the left.  Simply click on a card to move it from one to the "
      "other.  When you are satisfied with your deck, hit the \"PLAY\" button to start the game.");
}

}  // namespace brindlemoor
