// Player files are saved like records of a database: often, whole, and never over a stranger's
// change.
#include "game/player_saving.h"

#include <algorithm>
#include <optional>
#include <string>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/card_reader.h"
#include "data/card_writer.h"
#include "data/field_text.h"
#include "data/profiles.h"
#include "data/saving.h"
#include "game/card_refresh.h"
#include "game/card_sorting.h"
#include "game/player_file_names.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kTokens = "#TOKENS, ";

void AppendCards(std::string& out, const Pile& pile, std::string_view location) {
  for (const Card& stored : pile) {
    if (IsFree(stored)) continue;
    // The writer blanks what traits brought; the stored card keeps it.
    Card card = stored;
    out += CardToText(card, location);
    out += kLineEnd;
  }
}

/// Only decks that the player has named have a line.
void AppendDeckNames(std::string& out) {
  const FixedTable<DeckRec, kDecks>& decks = State().Decks;
  const std::size_t before = out.size();
  for (int deck = 1; deck <= decks.UpperBound(); ++deck) {
    const Text& name = decks[deck].DeckName;
    if (name.empty() || name == DefaultDeckName(deck)) continue;
    out += Joined("#DECKNAME, ", deck, ", ", NameField(name), kLineEnd);
  }
  if (out.size() != before) out += kLineEnd;
}

std::string PlayerFileText() {
  const Session& session = State();
  std::string out = Joined("#PLAYERDECK", kLineEnd, kLineEnd, kLineEnd, kTokens,
                           session.Players[1].Tokens, kLineEnd, kLineEnd);
  AppendDeckNames(out);
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) {
    AppendCards(out, session.Decks[deck].Cards, Joined("INPLAYERDECK:", deck));
  }
  AppendCards(out, session.Collection, "COLLECTION");
  return TextAsSaved(out);
}

/// The second and third deck count as well: a player may have put everything there.
bool OwnsCards() {
  const Session& session = State();
  bool owns = HoldsCards(session.Collection);
  for (const DeckRec& deck : session.Decks) owns = owns || HoldsCards(deck.Cards);
  return owns;
}

bool IsChanged() { return HashOf(PlayerFileText()) != State().OwnedWhenStored; }

/// While the card editor is open the collection is not the player's.
bool SavesNothing(std::string_view fileName) {
  const Session& session = State();
  if (session.DebugMode == 1 || session.Suspended != nullptr || fileName.empty()) return true;
  if (OwnsCards()) return false;
  const bool isSeen = session.PlayerFilesSeen.contains(InProgramFolder(fileName)) ||
                      session.PlayerFilesSeen.contains(InCurrentFolder(fileName));
  return !isSeen || !IsChanged();
}

/// "12 cards and 30 tokens", of the text of a player file.
std::string ContentsOf(std::string_view text) {
  constexpr std::string_view kCard = "\n#CARD";
  int cards = 0;
  for (auto at = text.find(kCard); at != text.npos; at = text.find(kCard, at + 1)) ++cards;
  const std::size_t tokens = text.find(kTokens);
  const double count =
      tokens == text.npos ? 0 : NumericPrefix(text.substr(tokens + kTokens.size()));
  return Joined(CountText(cards, "card"), " and ", CountText(static_cast<int>(count), "token"));
}

/// Where a copy of a player file goes: no other copy that was kept before is lost.
std::string PathOfCopy(const std::string& path, std::string_view bytes) {
  const FileSystem& files = Desktop().Files();
  std::string copy = path + ".other";
  for (int number = 2; files.Exists(copy) && files.Read(copy) != bytes; ++number) {
    copy = Joined(path, ".other-", number);
  }
  return copy;
}

bool AskToReplace(const std::string& path, std::string_view there, std::string_view text,
                  const std::string& copy) {
  const bool isSeen = State().PlayerFilesSeen.contains(path);
  return Desktop().AskYesNo(Joined(
      FileNameOf(path),
      isSeen ? " was changed by another program since it was read" : " is there already",
      ": it holds ", ContentsOf(there), " now, and here are ", ContentsOf(text),
      ".  Save these over it?  A copy of the other file is kept as ", FileNameOf(copy), "."));
}

enum class Asking { kAlways, kOnce };

/// Whether the user wants what another program has written to be saved over; a copy is kept then.
bool MayReplace(const std::string& path, std::string_view text, Asking asking) {
  Session& session = State();
  FileSystem& files = Desktop().Files();
  const auto refuse = [&path](std::string_view reason) {
    Desktop().MessageBox(Joined("Can't save ", FileNameOf(path), ": ", reason));
    return false;
  };
  const auto there = files.Read(path);
  if (!there) return !IsThere(files, path) || refuse("what is there can't be read.");
  const std::string hash = HashOf(*there);
  const auto seen = session.PlayerFilesSeen.find(path);
  const bool isKnown = seen != session.PlayerFilesSeen.end() && seen->second == hash;
  if (isKnown || *there == text) return true;
  if (asking == Asking::kOnce && session.FileLeftAlone == hash) return false;
  const std::string copy = PathOfCopy(path, *there);
  if (!AskToReplace(path, *there, text, copy)) {
    session.FileLeftAlone = hash;
    return false;
  }
  const std::string failure = files.Write(copy, *there);
  return failure.empty() || refuse(Joined("no copy of the other file could be kept: ", failure));
}

bool Store(const std::string& name, Asking asking) {
  Session& session = State();
  EnterProgramFolder();
  const std::string path = InCurrentFolder(name);
  const std::string text = PlayerFileText();
  if (!MayReplace(path, text, asking) || !SaveOrTell(path, name, text)) return false;
  session.PlayerFilesSeen[path] = HashOf(text);
  session.FileLeftAlone.clear();
  session.Profile.RulesFile = RulesOfOwnFile();
  session.Profile.PlayerFile = name;
  // A copy for elsewhere is not what the next read finds.
  if (path == InCurrentFolder(OwnPlayerFileName())) session.OwnedWhenStored = HashOf(text);
  SaveProfiles();
  return true;
}

}  // namespace

bool WritePlayerFile(std::string_view fileName) {
  Session& session = State();
  if (SavesNothing(fileName)) return true;
  const std::string name(fileName);
  session.SaleMode = 0;
  RefreshCollection();
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) SortDeck(deck);
  SortCollection();
  return Store(name, Asking::kAlways);
}

void StorePlayer() {
  const std::string name = OwnPlayerFileName();
  if (!SavesNothing(name) && PlayerIsUnsaved()) Store(name, Asking::kOnce);
}

bool PlayerIsUnsaved() { return !SavesNothing(OwnPlayerFileName()) && IsChanged(); }

void NotePlayerFile(std::string_view fileName) {
  const std::string path = FindCardFile(fileName);
  const auto bytes = Desktop().Files().Read(path.empty() ? InCurrentFolder(fileName) : path);
  if (bytes) State().PlayerFilesSeen[InCurrentFolder(fileName)] = HashOf(*bytes);
}

void NoteStoredPlayer() { State().OwnedWhenStored = HashOf(PlayerFileText()); }

void NoteUnstoredPlayer() { State().OwnedWhenStored.clear(); }

}  // namespace brindlemoor
