// Keeping the match in progress in a file, and going on with it.
#include "game/kept_matches.h"

#include <array>
#include <string_view>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "data/saving.h"
#include "game/leaving.h"
#include "game/match_outcome.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/windows.h"
#include "pages/page_files.h"
#include "saving/match_files.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The report is written under both names; the second one stays when a plan is shown.
constexpr std::array<std::string_view, 2> kReportPages = {"Display.html", "LastDiplayed.html"};

/// Why a match is none of the game in whose name it lies.
std::string WrongGame(const SavedMatchHead& head, std::string_view name) {
  if (GameOfMatch(head) != 0) {
    return Joined(name, " holds a match of another game: ", head.RulesFile, ".");
  }
  return Joined("The game of the saved match is not here: there is no ", head.RulesFile, ".");
}

/// The bytes of a kept match, or the sentence that says why there are none.
std::optional<std::string> ReadKeptFile(const std::string& name, std::string& problem) {
  auto bytes = Desktop().Files().Read(InProgramFolder(name));
  if (!bytes) problem = CantRead(name, InProgramFolder(name));
  return bytes;
}

/// What the player owns today is read beside a match that is on the table: nothing of that changes.
void ReadOwnedAnew(const std::string& name) {
  Session& session = State();
  const RandomSource luck = session.Random;
  PlayerState side = session.Players[1];
  OwnNothing();
  ReadPlayerFile(name);
  side.Tokens = session.Players[1].Tokens;
  session.Players[1] = std::move(side);
  session.Random = luck;
}

}  // namespace

int GameOfMatch(const SavedMatchHead& head) {
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound(); ++game) {
    if (!games[game].Name.empty() && games[game].RulesFile == head.RulesFile) return game;
  }
  return 0;
}

namespace {

/// The file of a game's kept match; "" where there is none.
std::string KeptFile(int gameIndex) {
  std::string name = MatchFileName(gameIndex);
  const bool isThere = !name.empty() && IsThere(Desktop().Files(), InProgramFolder(name));
  return isThere ? name : "";
}

void TakeHead(const SavedMatchHead& head, int gameIndex, std::string_view name, KeptMatch& kept) {
  kept.Opponent = head.Opponent.Str();
  kept.Turns = head.Turns;
  if (GameOfMatch(head) != gameIndex) kept.Problem = WrongGame(head, name);
}

}  // namespace

std::optional<KeptMatch> KeptMatchOf(int gameIndex) {
  const std::string name = KeptFile(gameIndex);
  if (name.empty()) return std::nullopt;
  KeptMatch kept;
  const auto bytes = ReadKeptFile(name, kept.Problem);
  if (!bytes) return kept;
  const MatchRead read = ReadMatch(*bytes, name);
  kept.Problem = read.Problem;
  if (read.Match == nullptr) return kept;
  TakeHead(read.Match->Head, gameIndex, name, kept);
  kept.ChangedFiles = ChangedFiles(read.Match->Tables.Match.Files);
  return kept;
}

std::optional<KeptMatch> NameOfKeptMatch(int gameIndex) {
  const std::string name = KeptFile(gameIndex);
  if (name.empty()) return std::nullopt;
  KeptMatch kept;
  const auto bytes = ReadKeptFile(name, kept.Problem);
  if (!bytes) return kept;
  SavedMatchHead head;
  kept.Problem = ReadMatchHead(*bytes, name, head);
  if (kept.Problem.empty()) TakeHead(head, gameIndex, name, kept);
  return kept;
}

bool CanKeepMatch() {
  const Session& session = State();
  return MatchIsRunning() && session.TurnRunning == 0 && session.RunDepth == 0 &&
         session.Suspended == nullptr;
}

MatchFileBytes ComposeMatchFile(std::uint64_t clock) {
  if (!CanKeepMatch()) return {"", "There is no match to save."};
  NoteMatchFiles();
  const std::string path = PagePath(kReportPages.back());
  const auto page = Desktop().Files().Read(path);
  if (!page && IsThere(Desktop().Files(), path)) return {"", CantRead(kReportPages.back(), path)};
  MatchFileBytes file{BytesOfMatch(page.value_or(""), clock), ""};
  if (ReadMatch(file.Bytes, "").Match == nullptr) {
    file.Problem = "This match can't be saved: its tables do not agree with one another.";
  }
  return file;
}

std::string KeepMatch() {
  const MatchFileBytes file = ComposeMatchFile();
  if (!file.Problem.empty()) return file.Problem;
  const std::string name = MatchFileName(State().CurrentGame);
  if (name.empty()) return "There is no match to save.";
  const std::string failure = Desktop().Files().Write(InProgramFolder(name), file.Bytes);
  return failure.empty() ? "" : Joined("Can't save ", name, ": ", failure);
}

void ShowSavedMatch(SavedMatch match, Owned owned) {
  Session& session = State();
  const int game = GameOfMatch(match.Head);
  const std::string own = StoredPlayerFile(game);
  const std::string page = PageOf(match.Head);
  EnterProgramFolder();
  session.CurrentGame = static_cast<std::int16_t>(game);
  session.GameOver = 0;
  session.Profile.RulesFile = match.Head.RulesFile;
  if (owned == Owned::kAsSaved) {
    TakeMatch(std::move(match), true);
  } else {
    const Session kept = match.Tables;
    TakeMatch(std::move(match), false);
    ReadOwnedAnew(own);
    CountAsOld(kept);
  }
  TakeFilesAsTheyAre(session.Match.Files);
  if (owned == Owned::kAsSaved) {
    session.StoredPlayer.Path = InProgramFolder(own);  // a player may have got another name
  }
  RewritePages(page, kReportPages);
  Windows().SetTurnButton("Take Turn");
  Windows().ShowMain(kReportPages.front());
  const WorkAccount account;
  Windows().UpdateHand();
}

std::string ContinueMatch(int gameIndex) {
  Session& session = State();
  const std::string name = MatchFileName(gameIndex);
  if (session.TurnRunning == 1 || name.empty()) return "There is no match to go on with.";
  // Saved before, what is owned in this very game can be compared with.
  if (!MayLeavePlayer(Leaving::kSavesFirst)) return "The match stays saved.";
  std::string problem;
  const auto bytes = ReadKeptFile(name, problem);
  if (!bytes) return problem;
  MatchRead read = ReadMatch(*bytes, name);
  if (read.Match == nullptr) return read.Problem;
  if (GameOfMatch(read.Match->Head) != gameIndex) return WrongGame(read.Match->Head, name);
  const std::string own = StoredPlayerFile(gameIndex);
  const bool isThere = IsThere(Desktop().Files(), InProgramFolder(own));
  const auto owned = Desktop().Files().Read(InProgramFolder(own));
  if (isThere && !owned) return CantRead(own, InProgramFolder(own));
  const bool isSame = !owned || HashOf(*owned) == read.Match->Tables.StoredPlayer.OnDisk;
  session.TurnRunning = 1;
  ShowSavedMatch(std::move(*read.Match), isSame ? Owned::kAsSaved : Owned::kOfPlayerFile);
  session.TurnRunning = 0;
  return "";
}

std::string TakeBackTo(const std::string& bytes) {
  Session& session = State();
  MatchRead read = ReadMatch(bytes, "The turn");
  if (read.Match == nullptr) return read.Problem;
  // What is on the disk now was saved behind the turn.
  PlayerFileRec stored = session.StoredPlayer;
  // What changes on the disk in a running match is told of when it goes on another day.
  std::vector<MatchFile> files = session.Match.Files;
  session.TurnRunning = 1;
  ShowSavedMatch(std::move(*read.Match), Owned::kAsSaved);
  session.TurnRunning = 0;
  session.StoredPlayer = std::move(stored);
  session.Match.Files = std::move(files);
  session.Match.TookBack = true;
  WithholdTokens();
  StorePlayer();
  return "";
}

std::string RemoveKeptMatch(int gameIndex) {
  const std::string name = KeptFile(gameIndex);
  if (name.empty()) return "";
  const std::string failure = Desktop().Files().Remove(InProgramFolder(name));
  return failure.empty() ? "" : Joined("Can't remove ", name, ": ", failure);
}

void RemoveKeptMatchOrTell(int gameIndex) {
  const std::string problem = RemoveKeptMatch(gameIndex);
  if (!problem.empty()) Desktop().MessageBox(problem);
}

}  // namespace brindlemoor
