// Reading whole files: what is open, what a read empties and what follows it.
#include "data/card_reader.h"

#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/folder_lists.h"
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
std::string RefuseRead(std::string_view file) {
  Session& session = State();
  if (session.ReadDepth >= limits::kNestedReads) {
    return Joined("the file is not read: files may be nested ", limits::kNestedReads, " deep");
  }
  if (session.FilesRead >= limits::kFilesOfRead) {
    return Joined("the file is not read: one read takes in ", limits::kFilesOfRead, " files");
  }
  if (session.Work.StopsFile(file)) return "the file is not read: reading took too many steps";
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
  std::string path = InCurrentFolder(file);
  if (Desktop().Files().Exists(path)) return path;
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return "";
  const std::string folder = path.substr(0, slash);
  const std::string name = path.substr(slash + 1);
  const auto alike = Folders().FilesOf(folder).FilesLike(name);
  return alike.empty() ? "" : Joined(folder, "/", alike.front());
}

void AddUnreadable(std::string_view file, const std::string& path) {
  const std::string reason = Desktop().Files().WhyUnread(path);
  AddProblem(file, 0, Joined("the file can't be read", reason.empty() ? "" : ": ", reason));
}

FileRead ReadCardFile(std::string_view file, PlayerState& player, int noDuplicates,
                      std::string_view forcedLocation, int keepExisting) {
  const WorkAccount account;
  Session& session = State();
  const std::string refusal = RefuseRead(file);
  if (!refusal.empty()) {
    AddProblem(file, 0, refusal);
    return FileRead::kNotOpened;
  }
  const std::string path = FindCardFile(file);
  std::optional<std::string> bytes;
  if (!path.empty()) bytes = Desktop().Files().Read(path);
  if (!bytes) {
    AddUnreadable(file, path.empty() ? InCurrentFolder(file) : path);
    return FileRead::kNotOpened;
  }
  ++session.FilesRead;
  const auto depth = static_cast<std::size_t>(++session.ReadDepth);
  session.FileList[depth] = file;
  session.OpenPaths[depth] = path;
  session.Work.SpendOnFile(bytes->size());
  if (player.PlayerNo == 1 && keepExisting == 0) EmptyPlayerPiles();
  const std::string name = session.FileList[depth].Str();
  CardReader reader(name, std::move(*bytes), player,
                    {noDuplicates != 0, std::string(forcedLocation)});
  reader.Read();
  EndRead(player);
  return reader.CutOff() ? FileRead::kCutOff : FileRead::kWhole;
}

bool ReadCards(std::string_view file, PlayerState& player, int noDuplicates,
               std::string_view forcedLocation, int keepExisting) {
  return ReadCardFile(file, player, noDuplicates, forcedLocation, keepExisting) == FileRead::kWhole;
}

bool TakeCardsOut(std::string_view file, PlayerState& player, std::string_view forcedLocation) {
  SpendWork(ReadMark::Records());
  const ReadMark before;
  const bool isRead = ReadCards(file, player, 1, forcedLocation, 1);
  before.PutBack();
  return isRead;
}

void CopyDeck(PlayerState& player) { player.StartDeck = player.Deck; }

void ShufflePile(PlayerState& player) { ShuffleCards(player.Deck); }

}  // namespace brindlemoor
