// Plays matches of a game one after the other, each from the same beginning.
#include "simulation/stage.h"

#include <filesystem>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/random.h"
#include "data/card_reader.h"
#include "data/card_writer.h"
#include "data/field_text.h"
#include "game/card_refresh.h"
#include "game/game_list.h"
#include "game/match_start.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "game/windows.h"
#include "script/trait_actions.h"
#include "simulation/automatic_match.h"
#include "simulation/automatic_player.h"
#include "simulation/borrowed_files.h"
#include "simulation/desktop.h"
#include "simulation/totals_file.h"
#include "text/fold.h"
#include "text/hash.h"
#include "ui/window_session.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPlayerName = "Simulation";
/// Where the deck of a starter deck stands in memory, outside of every folder of the machine.
constexpr std::string_view kDeckFiles = "/brindle-sim-decks/";
/// The files that a match begins with are read with this seed, whatever is played.
constexpr std::uint64_t kReadingSeed = 1;

void AddFolder(Hash& hash, const std::string& folder, const std::string& shownAs) {
  for (const std::string& name : Desktop().Files().ListFiles(folder)) {
    if (name.size() < 4 || !FoldEquals(std::string_view(name).substr(name.size() - 4), ".txt")) {
      continue;
    }
    const std::string bytes = Desktop().Files().Read(Joined(folder, "/", name)).value_or("");
    if (IsTotalsFile(bytes)) continue;  // a shard that was written here is no card file
    hash.Add(shownAs + name);
    hash.Add(bytes);
  }
}

std::string HashOfFiles() {
  Hash hash;
  const std::string& folder = State().ProgramFolder;
  AddFolder(hash, folder, "");
  for (const std::string& name : Desktop().Files().ListFolders(folder)) {
    AddFolder(hash, Joined(folder, "/", name), name + "/");
  }
  return hash.Text();
}

/// True when finding a picture takes less than WorkBudget::kStepsOfText by far.
bool IsSmallFolder() {
  constexpr std::size_t kMostFolders = 20;
  constexpr std::size_t kMostFiles = 4000;
  constexpr std::size_t kLongestPath = 1000;
  const std::string& folder = State().ProgramFolder;
  const FileSystem& files = Desktop().Files();
  const std::string parent = ParentFolder(folder);
  const auto subfolders = files.ListFolders(folder);
  if (subfolders.size() > kMostFolders || folder.size() > kLongestPath) return false;
  std::size_t count = files.ListFiles(folder).size() + files.ListFiles(parent).size();
  for (const std::string& name : subfolders) {
    count += files.ListFiles(Joined(folder, "/", name)).size();
  }
  return count <= kMostFiles;
}

/// The cards that a starter deck has given: its first deck, or else what lies in the collection.
const Pile& GivenCards() {
  const Session& session = State();
  return HoldsCards(session.Decks[1].Cards) ? session.Decks[1].Cards : session.Collection;
}

constexpr std::string_view kTooMuchWork = "The files take too much work.";

/// True when a file was not read to its end, where there is a bound.
bool ReadingWasCutOff() {
  const WorkBudget& work = State().Work;
  return work.Limit > 0 && work.Most >= work.Limit;
}

std::string TextOf(const Pile& pile) {
  std::string text;
  for (const Card& given : pile) {
    if (IsFree(given)) continue;
    Card card = given;
    text += Joined(CardToText(card, "INDECK"), kLineEnd);
  }
  return text;
}

}  // namespace

std::string Stage::ChooseGameByName(std::string_view name) {
  std::string problem;
  gameIndex_ = FindGame(name, problem);
  if (problem.empty()) game_ = State().Games[gameIndex_].Name.Str();
  return problem;
}

std::string Stage::Open(const std::string& folder, std::string_view game, std::uint64_t seed) {
  std::error_code failure;
  const std::string path = AbsoluteFolder(folder);
  if (!std::filesystem::is_directory(path, failure)) return Joined("There is no folder ", path);
  desktop_ = std::make_shared<SimulationDesktop>(std::make_unique<CachedFileSystem>());
  OpenWindowSession(desktop_, path);
  State().Profile.PlayerName = kPlayerName;
  State().Profiles.Append(State().Profile);
  NewGame();
  if (std::string problem = ChooseGameByName(game); !problem.empty()) return problem;
  filesHash_ = HashOfFiles();
  list_ = State();
  OpenStarterDecks(seed);
  if (opponents_.empty()) return "The game has no opponent.";
  if (decks_.empty()) return "The game's starter decks give no cards to play with.";
  return "";
}

void Stage::OpenStarterDecks(std::uint64_t seed) {
  const GameRec game = list_.Games[gameIndex_];
  for (int index = 1; index <= game.Opponents.UpperBound(); ++index) {
    if (IsFree(game.Opponents[index])) continue;
    const std::string name = game.Opponents[index].Name.Str();
    const std::string file = game.OpponentFiles[index].Str();
    if (!IsStarterDeck(file)) {
      opponents_.push_back({name, file});
      continue;
    }
    State() = list_;
    desktop_->Restart(seed);
    SeedFromClock();
    ChooseGame(gameIndex_, index);
    AddDeck(name, TextOf(GivenCards()));
  }
}

void Stage::AddDeck(const std::string& name, const std::string& cards) {
  if (cards.empty()) return;
  const std::string path = Joined(kDeckFiles, decks_.size() + 1, ".txt");
  desktop_->Cache().Put(path, cards);
  decks_.push_back({name, path});
}

void Stage::OpenOwnDeck(int opponentIndex, const std::string& owned, std::uint64_t seed) {
  State() = list_;
  desktop_->Restart(seed);
  SeedFromClock();
  if (!ReadMatchFiles(gameIndex_, opponentIndex)) return;
  const std::string path = Joined(kDeckFiles, "owned.plr");
  desktop_->Cache().Put(path, owned);
  Session& session = State();
  ReadCards(path, session.Players[1], 0, "", 0);
  for (int tried = 0; tried < kDecks && decks_.empty(); ++tried) {
    const DeckRec& deck = session.Decks[(session.CurrentDeck - 1 + tried) % kDecks + 1];
    AddDeck(deck.DeckName.Str(), TextOf(deck.Cards));
  }
}

std::string Stage::OpenInSession(int gameIndex, int opponentIndex, std::uint64_t seed,
                                 std::int64_t stepsOfReading) {
  Session& session = State();
  gameIndex_ = gameIndex;
  game_ = session.Games[gameIndex].Name.Str();
  const std::string playerFile = InProgramFolder(StoredPlayerFile(gameIndex));
  const auto owned = Desktop().Files().Read(playerFile);
  desktop_ = std::make_shared<SimulationDesktop>(
      std::make_unique<CachedFileSystem>(std::make_unique<BorrowedFiles>(Desktop().Files())));
  session.Desktop = desktop_;
  session.Windows = &kNoWindows;
  session.DebugMode = 0;
  session.Work = {.Limit = stepsOfReading};
  OwnNothing();
  list_ = session;
  if (owned) OpenOwnDeck(opponentIndex, *owned, seed);
  hasOwnDeck_ = !decks_.empty();
  if (ReadingWasCutOff()) return std::string(kTooMuchWork);
  if (!hasOwnDeck_) OpenStarterDecks(seed);
  return decks_.empty() ? "There are no cards to play with." : "";
}

std::string Stage::Seat(const Contender& side1, const Contender& side2) {
  State() = list_;
  desktop_->Restart(kReadingSeed);
  SeedFromClock();
  Session& session = State();
  session.Games[gameIndex_].OpponentFiles[1] = side2.Path;
  if (!ReadMatchFiles(gameIndex_, 1)) return Joined("Can't read the files of ", side2.Name, ".");
  const Text folder = session.Games[gameIndex_].Folder;
  if (!folder.empty()) session.CurrentFolder = InProgramFolder(folder);
  ReadCards(side1.Path, session.Players[1], 0, "", 0);
  EnterProgramFolder();
  session.Decks[1].Cards = session.Players[1].Deck;
  session.CurrentDeck = 1;
  session.Players[1].Tokens = kFirstTokens;
  session.StarterDeckFlag = 0;
  ReapplyTraitActions(1);
  RefreshPlayers();
  if (ReadingWasCutOff()) return std::string(kTooMuchWork);
  session.MasterCards.Reset(1);
  // The end of a match saves the player of a game; for one without a name there is nothing to save.
  session.Games.Reset(gameIndex_);
  session.Games[gameIndex_].Folder = folder;
  session.Log = log_;
  isSmallFolder_ = IsSmallFolder();
  seated_ = session;
  return "";
}

void Stage::BoundWork(std::int64_t steps, std::int64_t stepsOfTurn) {
  PlayAloud();  // the steps of texts count, too
  workLeft_ = steps;
  stepsOfTurn_ = stepsOfTurn;
}

void Stage::HashPages() {
  PlayAloud();
  desktop_->Cache().OnWrite = [this](std::string_view bytes) {
    const std::string folder = State().ProgramFolder + "/";
    for (std::size_t name = bytes.find(folder); name != bytes.npos; name = bytes.find(folder)) {
      pages_.Add(bytes.substr(0, name));
      bytes.remove_prefix(name + folder.size());
    }
    pages_.Add(bytes);
  };
}

std::string Stage::MatchHash() const {
  Hash hash = pages_;
  for (const LoggedEvent& event : log_->Events) {
    hash.Add(Joined(static_cast<int>(event.Kind), " ", event.Side, " ", event.UniqueID));
  }
  return hash.Text();
}

bool Stage::PlaysQuietly() const { return !aloud_ && isSmallFolder_ && seated_.DebugMode == 0; }

PlayedMatch Stage::Play(std::uint64_t seed, int maximumTurns) {
  const bool quiet = PlaysQuietly();
  const PlayedMatch outcome = PlayOnce(seed, maximumTurns, quiet);
  // Its texts might have used up the steps of a turn.
  const bool mayDiffer = quiet && State().Work.MostAloud >= State().Work.Bound();
  return mayDiffer ? PlayOnce(seed, maximumTurns, false) : outcome;
}

PlayedMatch Stage::PlayOnce(std::uint64_t seed, int maximumTurns, bool quiet) {
  State() = seated_;
  lastSeed_ = seed;
  pages_ = {};
  *log_ = {};
  desktop_->Restart(seed);
  SeedFromClock();
  Session& session = State();
  for (int side = 1; side <= 2; ++side) ShufflePile(session.Players[side]);
  session.Quiet = quiet;
  session.Minds = minds_;
  session.ThinkOfTurn = thinkOfTurn_;
  if (quiet) session.Windows = &kNoWindows;
  session.Work.Limit = stepsOfTurn_;
  session.Work.Total = 0;
  session.Work.MostAloud = 0;
  session.TurnRunning = 1;
  BringInStartingCards();
  TakeTurn(1);
  session.TurnRunning = 0;
  PlayedMatch outcome;
  while (session.GameOver == 0 && outcome.Turns < maximumTurns && session.Work.Total < workLeft_) {
    ++outcome.Turns;
    PlanPlayerTurn();
    TakeTurn(0);
  }
  workLeft_ -= session.Work.Total;
  outcome.Winner = WinnerOf(*log_);
  outcome.Tokens = session.Players[1].Tokens - kFirstTokens;
  return outcome;
}

}  // namespace brindlemoor
