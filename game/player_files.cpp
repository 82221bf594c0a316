// Writing the player file, and the end of a game.
#include "game/player_files.h"

#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/card_reading.h"
#include "data/card_writer.h"
#include "data/field_text.h"
#include "data/profiles.h"
#include "data/read_mark.h"
#include "data/saving.h"
#include "game/card_refresh.h"
#include "game/card_sorting.h"
#include "game/player_file_names.h"
#include "game/windows.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

void AppendCards(std::string& out, const Pile& pile, std::string_view location) {
  for (const Card& stored : pile) {
    if (IsFree(stored)) continue;
    // The writer blanks what traits brought; the stored card keeps it.
    Card card = stored;
    out += CardToText(card, location);
    out += kLineEnd;
  }
}

std::string PlayerFileText() {
  const Session& session = State();
  std::string out = Joined("#PLAYERDECK", kLineEnd, kLineEnd, kLineEnd, "#TOKENS, ",
                           session.Players[1].Tokens, kLineEnd, kLineEnd);
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) {
    AppendCards(out, session.Decks[deck].Cards, Joined("INPLAYERDECK:", deck));
  }
  AppendCards(out, session.Collection, "COLLECTION");
  return out;
}

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

}  // namespace

bool ReadPlayerFile(std::string_view fileName) {
  Session& session = State();
  const std::vector<Problem>& problems = session.Problems;
  const std::size_t before = problems.size();
  const FileSystem& files = Desktop().Files();
  const bool isThere = !FindCardFile(fileName).empty() || IsThere(files, InCurrentFolder(fileName));
  const ReadMark mark;
  PlayerState player = session.Players[1];
  const FileRead read = ReadCardFile(fileName, session.Players[1], 0, "", 0);
  if (read == FileRead::kCutOff) {
    mark.PutBack();
    session.Players[1] = std::move(player);
  }
  if (read != FileRead::kWhole && isThere) {
    Desktop().MessageBox(
        read == FileRead::kCutOff
            ? Joined("Can't read ", FileNameOf(fileName), ".  It takes too much work.")
            : CantRead(FileNameOf(fileName), InCurrentFolder(fileName)));
    return false;
  }
  if (problems.size() > before) KeepDamagedFile(fileName, problems[before]);
  return true;
}

namespace {

/// The second and third deck count as well: a player may have put everything there.
bool OwnsCards() {
  const Session& session = State();
  bool owns = HoldsCards(session.Collection);
  for (const DeckRec& deck : session.Decks) owns = owns || HoldsCards(deck.Cards);
  return owns;
}

}  // namespace

void WritePlayerFile(std::string_view fileName) {
  Session& session = State();
  // While the card editor is open the collection is not the player's.
  if (session.DebugMode == 1 || session.Suspended != nullptr || fileName.empty()) return;
  const std::string name(fileName);
  session.SaleMode = 0;
  RefreshCollection();
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) SortDeck(deck);
  SortCollection();
  if (!OwnsCards()) return;
  EnterProgramFolder();
  if (!SaveOrTell(InCurrentFolder(name), name, PlayerFileText())) return;
  session.Profile.RulesFile = RulesOfOwnFile();
  session.Profile.PlayerFile = name;
  SaveProfiles();
}

void EndGame() {
  Session& session = State();
  session.GameOver = 1;
  session.PickingCard = 0;
  session.DeckManagerMode = 0;
  WritePlayerFile(PlayerFileName(session.CurrentGame));
  Windows().HideHand();
  Windows().SetTurnButton("End Game");
}

}  // namespace brindlemoor
