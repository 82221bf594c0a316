// Player files are saved like records of a database: often, whole, and never over a stranger's
// change.
#include "game/player_saving.h"

#include <algorithm>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/profiles.h"
#include "data/saving.h"
#include "game/card_refresh.h"
#include "game/card_sorting.h"
#include "game/owned_text.h"
#include "game/player_file_names.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The one form in which paths of player files are compared.
std::string PathOfPlayerFile(std::string_view name) {
  EnterProgramFolder();
  return InCurrentFolder(name);
}

std::string PathOfOwnFile() {
  const std::string own = OwnPlayerFileName();
  return own.empty() ? own : PathOfPlayerFile(own);
}

/// A player without a file gets the first one that is saved in the program's folder.
bool IsOwnFile(const std::string& path) {
  const std::string own = PathOfOwnFile();
  return own.empty() ? path == PathOfPlayerFile(FileNameOf(path)) : path == own;
}

/// The second and third deck count as well: a player may have put everything there.
bool OwnsCards() {
  const Session& session = State();
  return HoldsCards(session.Collection) || std::ranges::any_of(session.Decks, [](const auto& deck) {
           return HoldsCards(deck.Cards);
         });
}

/// While the card editor is open the collection is not the player's.
bool SavesNothing() { return State().DebugMode == 1 || State().Suspended != nullptr; }

/// Whether there is anything to save to this path at all.
bool HasSomethingFor(const std::string& path, const OwnedText& owned) {
  const PlayerFileRec& file = State().StoredPlayer;
  return OwnsCards() || (path == PathOfOwnFile() && !file.Path.empty() && file.Owned != owned.Hash);
}

/// What the user has let go of is not saved by itself, nor what a turn makes of it while the
/// program ends.
bool IsLetGo(const OwnedText& owned) {
  const std::string& gone = State().StoredPlayer.LetGo;
  return !gone.empty() && (gone == owned.Hash || Desktop().Ending());
}

/// What is in memory is the last there is of a file that has gone.
bool IsGone(const std::string& path) {
  return State().StoredPlayer.Path == path && !IsThere(Desktop().Files(), path);
}

bool IsUnsaved(const OwnedText& owned) {
  const std::string own = PathOfOwnFile();
  if (own.empty() || !HasSomethingFor(own, owned) || IsLetGo(owned)) return false;
  return State().StoredPlayer.Owned != owned.Hash || IsGone(own);
}

bool AskToReplace(const std::string& path, std::string_view there, const OwnedText& owned,
                  const std::string& copy) {
  const PlayerFileRec& file = State().StoredPlayer;
  const bool isSeen = file.Path == path && !file.OnDisk.empty();
  return Desktop().AskYesNo(Joined(
      FileNameOf(path), isSeen ? " has changed since it was read" : " is there already",
      ": it holds ", ContentsOf(there), " now, and here are ", ContentsOf(owned.File),
      ".  Save these over it?  A copy of the other file is kept as ", FileNameOf(copy), "."));
}

enum class Replacing { kMay, kMayNot, kNeedsNot };

/// What is to be done with a player file on the disk; a copy is kept of what others have written.
Replacing LookAtFile(const std::string& path, const OwnedText& owned, Saving saving) {
  PlayerFileRec& file = State().StoredPlayer;
  FileSystem& files = Desktop().Files();
  const auto refuse = [&path](std::string_view reason) {
    Desktop().MessageBox(Joined("Can't save ", FileNameOf(path), ": ", reason));
    return Replacing::kMayNot;
  };
  const auto there = files.Read(path);
  if (!there) {
    return IsThere(files, path) ? refuse("what is there can't be read.") : Replacing::kMay;
  }
  const std::string hash = HashOf(*there);
  if ((file.Path == path && file.OnDisk == hash) || *there == owned.File) return Replacing::kMay;
  if (saving == Saving::kByItself && file.Owned == owned.Hash) return Replacing::kNeedsNot;
  if (saving == Saving::kByItself && file.LeftAlone == hash) return Replacing::kMayNot;
  const std::string copy = PathOfCopy(path, ".other", *there);
  if (!AskToReplace(path, *there, owned, copy)) {
    if (IsOwnFile(path)) file.LeftAlone = hash;
    return Replacing::kMayNot;
  }
  // The answer was about what was there then.
  if (files.Read(path) != there) return LookAtFile(path, owned, saving);
  const std::string failure = files.Write(copy, *there);
  return failure.empty() ? Replacing::kMay
                         : refuse(Joined("no copy of the other file could be kept: ", failure));
}

bool StoreOwnFile(const std::string& path, const OwnedText& owned, Saving saving) {
  Session& session = State();
  const Replacing replacing = LookAtFile(path, owned, saving);
  if (replacing != Replacing::kMay) return replacing == Replacing::kNeedsNot;
  const std::string name = FileNameOf(path);
  if (!SaveOrTell(path, name, owned.File)) return false;
  session.StoredPlayer = {.Path = path, .OnDisk = HashOf(owned.File), .Owned = owned.Hash};
  session.Profile.RulesFile = RulesOfOwnFile();
  session.Profile.PlayerFile = name;
  SaveProfiles();
  return true;
}

}  // namespace

bool WritePlayerFile(std::string_view fileName, Saving saving) {
  Session& session = State();
  if (SavesNothing()) return true;
  session.SaleMode = 0;
  if (fileName.empty()) return true;
  const std::string path = PathOfPlayerFile(fileName);
  // A refresh may change what was let go of.
  const bool letsGo = !session.StoredPlayer.LetGo.empty() && saving == Saving::kByItself;
  if (letsGo && IsLetGo(TextOfOwned())) return true;
  RefreshCollection();
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) SortDeck(deck);
  SortCollection();
  const OwnedText owned = TextOfOwned();
  if (!HasSomethingFor(path, owned)) return true;
  return IsOwnFile(path) ? StoreOwnFile(path, owned, saving)
                         : LookAtFile(path, owned, saving) == Replacing::kMay &&
                               SaveOrTell(path, FileNameOf(path), owned.File);
}

bool StorePlayer(Saving saving) {
  if (SavesNothing()) return true;
  const OwnedText owned = TextOfOwned();
  return !IsUnsaved(owned) || StoreOwnFile(PathOfOwnFile(), owned, saving);
}

bool PlayerIsUnsaved() { return !SavesNothing() && IsUnsaved(TextOfOwned()); }

void LetPlayerGo() { State().StoredPlayer.LetGo = TextOfOwned().Hash; }

void NotePlayerRead(const std::string& path, std::string_view bytes) {
  State().StoredPlayer = {.Path = path, .OnDisk = HashOf(bytes), .Owned = TextOfOwned().Hash};
}

void NotePlayerLoaded(std::string_view bytesOfOwnFile) {
  State().StoredPlayer = {};
  State().StoredPlayer.Path = PathOfOwnFile();
  if (!bytesOfOwnFile.empty()) State().StoredPlayer.OnDisk = HashOf(bytesOfOwnFile);
}

std::string PathOfCopy(const std::string& path, std::string_view ending, std::string_view bytes) {
  const FileSystem& files = Desktop().Files();
  std::string copy = Joined(path, ending);
  for (int number = 2; files.Exists(copy) && files.Read(copy) != bytes; ++number) {
    copy = Joined(path, ending, "-", number);
  }
  return copy;
}

}  // namespace brindlemoor
