// Reading the player file, and the end of a game.
#include "game/player_files.h"

#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/card_reading.h"
#include "data/read_mark.h"
#include "data/saving.h"
#include "game/player_file_names.h"
#include "game/player_saving.h"
#include "game/windows.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// Once for each damage: a copy that is there already has been told of.
void KeepDamagedFile(std::string_view fileName, const Problem& problem) {
  FileSystem& files = Desktop().Files();
  const std::string path = FindCardFile(fileName);
  const std::string copy = path + ".damaged";
  const auto bytes = files.Read(path);
  if (!bytes || files.Read(copy) == bytes) return;
  const std::string failure = files.Write(copy, *bytes);
  const std::string_view stop = problem.Message.ends_with('?') ? "" : ".";
  Desktop().MessageBox(
      Joined(FileNameOf(fileName), " is damaged.  Line ", problem.Line, ": ", problem.Message, stop,
             failure.empty() ? "  A copy of it is kept as " : "  No copy could be kept as ",
             FileNameOf(copy), "."));
}

void ForgetDeckNames() {
  FixedTable<DeckRec, kDecks>& decks = State().Decks;
  for (int deck = 1; deck <= decks.UpperBound(); ++deck) {
    decks[deck].DeckName = DefaultDeckName(deck);
  }
}

}  // namespace

bool ReadPlayerFile(std::string_view fileName) {
  Session& session = State();
  const std::vector<Problem>& problems = session.Problems;
  const std::size_t before = problems.size();
  const FileSystem& files = Desktop().Files();
  const std::string found = FindCardFile(fileName);
  const std::string path = found.empty() ? InCurrentFolder(fileName) : found;
  const bool isThere = !found.empty() || IsThere(files, path);
  // Before the read: what is written meanwhile counts as changed.
  const std::string bytes = files.Read(path).value_or("");
  const ReadMark mark;
  PlayerState player = session.Players[1];
  ForgetDeckNames();
  const FileRead read = ReadCardFile(fileName, session.Players[1], 0, "", 0);
  if (read != FileRead::kWhole) {
    mark.PutBack();
    session.Players[1] = std::move(player);
  }
  if (read != FileRead::kWhole && isThere) {
    Desktop().MessageBox(read == FileRead::kCutOff ? Joined("Can't read ", FileNameOf(fileName),
                                                            ".  It takes too much work.")
                                                   : CantRead(FileNameOf(fileName), path));
    return false;
  }
  if (problems.size() > before) KeepDamagedFile(fileName, problems[before]);
  if (read == FileRead::kWhole) NotePlayerRead(path, bytes);
  return true;
}

void OwnNothing() {
  Session& session = State();
  session.Collection.Reset(1);
  for (DeckRec& deck : session.Decks) deck.Cards.Reset(1);
  ForgetDeckNames();
  session.StoredPlayer = {};
}

void EndGame() {
  Session& session = State();
  session.GameOver = 1;
  session.PickingCard = 0;
  session.DeckManagerMode = 0;
  WritePlayerFile(PlayerFileName(session.CurrentGame), Saving::kByItself);
  Windows().HideHand();
  Windows().SetTurnButton("End Game");
}

}  // namespace brindlemoor
