// Reading whole files: what is open, what a read empties and what follows it.
#include "data/card_reader.h"

#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reading.h"
#include "data/read_mark.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

void EmptyPlayerPiles() {
  Session& session = State();
  session.Collection.Reset(1);
  for (DeckRec& deck : session.Decks) deck.Cards.Reset(1);
}

/// Why a further file can't be opened now, "" when it can.
std::string RefuseRead() {
  const Session& session = State();
  if (session.ReadDepth >= limits::kNestedReads) {
    return Joined("the file is not read: files may be nested ", limits::kNestedReads, " deep");
  }
  if (session.FilesRead >= limits::kFilesOfRead) {
    return Joined("the file is not read: one read takes in ", limits::kFilesOfRead, " files");
  }
  return "";
}

void EndRead(PlayerState& player) {
  Session& session = State();
  --session.ReadDepth;
  if (session.ReadDepth != 0) return;
  CopyDeck(player);
  ShufflePile(player);
  session.FileList.fill(Text());
  session.OpenPaths.fill(Text());
  session.FilesRead = 0;
}

}  // namespace

std::string FindCardFile(std::string_view file) {
  if (file.empty()) return "";
  FileSystem& files = Desktop().Files();
  std::string path = InCurrentFolder(file);
  if (files.Exists(path)) return path;
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return "";
  const std::string folder = path.substr(0, slash);
  const std::string name = path.substr(slash + 1);
  for (const std::string& entry : files.ListFiles(folder)) {
    if (FoldEquals(entry, name)) return Joined(folder, "/", entry);
  }
  return "";
}

void AddUnreadable(std::string_view file, const std::string& path) {
  const std::string reason = Desktop().Files().WhyUnread(path);
  AddProblem(file, 0, Joined("the file can't be read", reason.empty() ? "" : ": ", reason));
}

bool ReadCardFile(std::string_view file, PlayerState& player, int noDuplicates,
                  std::string_view forcedLocation, int keepExisting) {
  Session& session = State();
  const std::string refusal = RefuseRead();
  if (!refusal.empty()) {
    AddProblem(file, 0, refusal);
    return false;
  }
  const std::string path = FindCardFile(file);
  std::optional<std::string> bytes;
  if (!path.empty()) bytes = Desktop().Files().Read(path);
  if (!bytes) {
    AddUnreadable(file, path.empty() ? InCurrentFolder(file) : path);
    return false;
  }
  ++session.FilesRead;
  const auto depth = static_cast<std::size_t>(++session.ReadDepth);
  session.FileList[depth] = file;
  session.OpenPaths[depth] = path;
  if (session.RunDepth > 0) SpendWorkOnText(bytes->size());
  if (player.PlayerNo == 1 && keepExisting == 0) EmptyPlayerPiles();
  const std::string name = session.FileList[depth].Str();
  CardReader(name, std::move(*bytes), player, {noDuplicates != 0, std::string(forcedLocation)})
      .Read();
  EndRead(player);
  return true;
}

void ReadCards(std::string_view file, PlayerState& player, int noDuplicates,
               std::string_view forcedLocation, int keepExisting) {
  ReadCardFile(file, player, noDuplicates, forcedLocation, keepExisting);
}

bool TakeCardsOut(std::string_view file, PlayerState& player, std::string_view forcedLocation) {
  const Session& session = State();
  SpendWork(session.CardTable.UpperBound() + session.Collection.UpperBound());
  const ReadMark before;
  const bool isRead = ReadCardFile(file, player, 1, forcedLocation, 1);
  before.PutBack();
  return isRead;
}

void CopyDeck(PlayerState& player) { player.StartDeck = player.Deck; }

void ShufflePile(PlayerState& player) { ShuffleCards(player.Deck); }

}  // namespace brindlemoor
