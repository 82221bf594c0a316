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
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "script/trait_actions.h"
#include "simulation/automatic_match.h"
#include "simulation/automatic_player.h"
#include "simulation/desktop.h"
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
    hash.Add(shownAs + name);
    hash.Add(Desktop().Files().Read(Joined(folder, "/", name)).value_or(""));
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

/// The cards that a starter deck has given: its first deck, or else what lies in the collection.
std::string DeckText() {
  const Session& session = State();
  const Pile& pile =
      HoldsCards(session.Decks[1].Cards) ? session.Decks[1].Cards : session.Collection;
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
    Contender contender{game.Opponents[index].Name.Str(), game.OpponentFiles[index].Str()};
    if (!IsStarterDeck(contender.Path)) {
      opponents_.push_back(std::move(contender));
      continue;
    }
    State() = list_;
    desktop_->Restart(seed);
    SeedFromClock();
    ChooseGame(gameIndex_, index);
    const std::string deck = DeckText();
    if (deck.empty()) continue;
    contender.Path = Joined(kDeckFiles, index, ".txt");
    desktop_->Cache().Put(contender.Path, deck);
    decks_.push_back(std::move(contender));
  }
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
  session.MasterCards.Reset(1);
  // The end of a match saves the player of a game; for one without a name there is nothing to save.
  session.Games.Reset(gameIndex_);
  session.Games[gameIndex_].Folder = folder;
  session.Log = log_;
  seated_ = session;
  return "";
}

void Stage::HashPages() {
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

MatchOutcome Stage::Play(std::uint64_t seed, int maximumTurns) {
  State() = seated_;
  lastSeed_ = seed;
  pages_ = {};
  log_->Events.clear();
  desktop_->Restart(seed);
  SeedFromClock();
  Session& session = State();
  for (int side = 1; side <= 2; ++side) ShufflePile(session.Players[side]);
  session.TurnRunning = 1;
  BringInStartingCards();
  TakeTurn(1);
  session.TurnRunning = 0;
  MatchOutcome outcome;
  while (session.GameOver == 0 && outcome.Turns < maximumTurns) {
    ++outcome.Turns;
    PlanAutomaticPlays();
    TakeTurn(0);
  }
  outcome.Winner = WinnerOf(*log_);
  outcome.Tokens = session.Players[1].Tokens - kFirstTokens;
  return outcome;
}

}  // namespace brindlemoor
