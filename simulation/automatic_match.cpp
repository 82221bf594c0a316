// A whole match without a display, played by the automatic player against the computer opponent.
#include "simulation/automatic_match.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <ostream>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/match_log.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/profiles.h"
#include "game/game_list.h"
#include "game/kept_matches.h"
#include "game/match_start.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/traits.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/overlay_files.h"
#include "saving/match_files.h"
#include "saving/saved_match.h"
#include "script/stored_cards.h"
#include "simulation/action_log.h"
#include "simulation/automatic_player.h"
#include "text/fold.h"
#include "ui/forms.h"
#include "ui/window_session.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPlayerName = "Auto";

/// The folders of a match.
struct Stage {
  std::string Folder;
  std::string Pages;  ///< "" when no pages are kept
  std::function<void(const std::string& name, const std::string& page)> OnPage;
  std::function<void()> BeforeTurn;
};

constexpr std::string_view kPageName = "turn-";

bool IsReportPage(const fs::path& file) {
  constexpr std::string_view kDigits = "0123456789";
  const std::string stem = file.stem().string();
  return file.extension() == ".html" && stem.starts_with(kPageName) &&
         stem.find_first_not_of(kDigits, kPageName.size()) == std::string::npos;
}

double TurnOf(const fs::path& page) {
  return NumericPrefix(page.stem().string().substr(kPageName.size()));
}

/// Those from a turn on: what a match that goes on has shown before stays.
void RemoveOldPages(const std::string& folder, int firstTurn) {
  std::error_code failure;
  fs::directory_iterator entry(folder, failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    if (IsReportPage(entry->path()) && TurnOf(entry->path()) >= firstTurn) {
      LocalFileSystem().Remove(entry->path().string());
    }
  }
}

/// "" or why these folders can't be used.
std::string ChooseFolders(const AutomaticMatchOptions& options, Stage& stage) {
  stage.Folder = AbsoluteFolder(options.Folder);
  std::error_code failure;
  if (!fs::is_directory(stage.Folder, failure)) return Joined("There is no folder ", stage.Folder);
  if (options.PagesFolder.empty()) return "";
  stage.Pages = AbsoluteFolder(options.PagesFolder);
  FileReach reach;
  reach.KeepTo(stage.Folder);
  if (stage.Folder == stage.Pages || !reach.AllowsFolder(stage.Pages)) {
    return Joined("The pages can't go to ", stage.Pages);
  }
  fs::create_directories(stage.Pages, failure);
  return failure ? Joined("Can't make ", stage.Pages, ": ", failure.message()) : std::string();
}

HeadlessPlatform& BeginSession(const Stage& stage, std::uint64_t seed) {
  auto desktop = std::make_shared<HeadlessPlatform>(
      // A player of the same name would change the match.
      std::make_unique<OverlayFileSystem>(BelongsToPlayers), seed);
  desktop->AcceptMessages = true;
  desktop->ModalForms.emplace_back([](Form&) { TheDeckManager().Command2_Click(); });
  HeadlessPlatform& kept = *desktop;
  OpenWindowSession(std::move(desktop), stage.Folder);
  State().Log = std::make_shared<MatchLog>();
  State().Profile.PlayerName = kPlayerName;
  State().Profiles.Append(State().Profile);
  return kept;
}

/// Number of the n-th opponent of a game that is, or is not, a starter deck or store.
int FindOpponent(int gameIndex, bool starterDeck, int n) {
  const WorkAccount account;
  const GameRec& game = State().Games[gameIndex];
  for (int opponent = 1; opponent <= game.Opponents.UpperBound(); ++opponent) {
    if (IsFree(game.Opponents[opponent])) continue;
    if (IsStarterDeck(game.OpponentFiles[opponent].Str()) == starterDeck && --n == 0) {
      return opponent;
    }
  }
  return 0;
}

/// Where the starter deck gave cards to the collection only, all of them are played.
void FillFirstDeck() {
  Session& session = State();
  for (const Card& card : session.Decks[1].Cards) {
    if (!IsFree(card)) return;
  }
  for (Card& card : session.Collection) {
    if (IsFree(card)) continue;
    AddToDeck(card, 1);
    FreeCard(card);
  }
}

void GetStarterDeck(int game) {
  const int opponent = FindOpponent(game, true, 1);
  if (opponent == 0) return;
  ChooseGame(game, opponent);
  FillFirstDeck();
  EndGame();
  NewGame();
}

/// Listens to a match while it is played, where that is asked for.
class MatchTrace {
 public:
  MatchTrace(bool listens, std::ostream& out)
      : out_(out), trace_([this](const AskedAction& asked) { log_.Note(asked); }) {
    if (listens) State().Trace = &trace_;
  }
  ~MatchTrace() { State().Trace = nullptr; }
  MatchTrace(const MatchTrace&) = delete;
  MatchTrace& operator=(const MatchTrace&) = delete;

  /// What was before it is forgotten.
  void BeginMatch() { log_ = {}; }
  void EndTurn() {
    if (State().Trace == nullptr) return;
    log_.NoteCardsInPlay();
    for (const std::string& line : log_.TakeLines()) out_ << "  " << line << '\n';
  }
  void EndMatch() {
    if (State().Trace == nullptr) return;
    out_ << "Actions that never acted:\n";
    for (const std::string& line : log_.NeverActed()) out_ << "  " << line << '\n';
  }

 private:
  std::ostream& out_;
  ActionLog log_;
  ActionTrace trace_;
};

/// Brings the session to the first turn of the match. "" or why there is none.
std::string StartMatch(const AutomaticMatchOptions& options, MatchTrace& trace) {
  NewGame();
  std::string problem;
  const int game = FindGame(options.Game, problem);
  if (game == 0) return problem;
  GetStarterDeck(game);
  const int opponent = FindOpponent(game, false, options.Opponent);
  if (opponent == 0) {
    return Joined("The game has no opponent number ", options.Opponent, ".");
  }
  if (!Desktop().Files().Exists(InProgramFolder(PlayerFileName(game)))) {
    return "The game's starter decks give no cards to play with.";
  }
  *State().Log = {};
  trace.BeginMatch();
  ChooseGame(game, opponent);
  return "";
}

/// Brings the session to where a saved match stands. "" or why it can't go on.
std::string ContinueMatch(const AutomaticMatchOptions& options, HeadlessPlatform& desktop) {
  auto bytes = options.SavedBytes;
  if (!bytes) bytes = LocalFileSystem().Read(AbsoluteFolder(options.Continue));
  if (!bytes) return Joined("Can't read ", options.Continue, ".");
  NewGame();
  MatchRead read = ReadMatch(*bytes, options.Continue);
  if (read.Match == nullptr) return read.Problem;
  if (GameOfMatch(read.Match->Head) == 0) {
    return Joined("The game of the match is not in this folder: there is no ",
                  read.Match->Head.RulesFile, ".");
  }
  std::string changes;
  for (const std::string& change : ChangedFiles(read.Match->Tables.Match.Files)) {
    changes += Joined(changes.empty() ? "" : ", ", change);
  }
  if (!changes.empty() && !options.DespiteChanges) {
    return Joined("Since the match was saved, ", changes, ".");
  }
  desktop.SetClock(read.Match->Head.Clock);
  ShowSavedMatch(std::move(*read.Match), Owned::kAsSaved);
  return "";
}

/// "" or why the match is not saved.
std::string SaveMatch(const std::string& path, std::uint64_t clock) {
  if (State().GameOver != 0) {
    return Joined("The match ended in turn ", State().Match.Turns, ": there is nothing to save.");
  }
  const MatchFileBytes file = ComposeMatchFile(clock);
  if (!file.Problem.empty()) return file.Problem;
  const std::string failure = LocalFileSystem().Write(AbsoluteFolder(path), file.Bytes);
  return failure.empty() ? "" : Joined("Can't write ", path, ": ", failure);
}

/// The card of a side's player, nullptr when it has left the table.
const Card* PlayerCardOf(int side) {
  const Pile& table = State().CardTable;
  const int slot = State().Players[side].PlayerCard;
  if (!table.Holds(slot) || IsFree(table[slot]) || table[slot].Owner != side) return nullptr;
  return &table[slot];
}

std::string Standing(int side) {
  const Card* card = PlayerCardOf(side);
  if (card == nullptr) return "no player card";
  return Joined(card->Name, " HP ", TraitNumber(*card, "HP"));
}

MatchWinner Winner() {
  switch (WinnerOf(*State().Log)) {
    case 1:
      return MatchWinner::kPlayer;
    case 2:
      return MatchWinner::kEnemy;
    default:
      return MatchWinner::kNobody;
  }
}

void LetThink(const AutomaticMatchOptions& options) {
  Session& session = State();
  session.Minds[1] = static_cast<std::uint8_t>(options.PlayerMind);
  session.Minds[2] = static_cast<std::uint8_t>(options.Mind);
  session.ThinkOfTurn = options.ThinkOfTurn;
}

/// Tells and keeps the page shown last.
std::string SavePage(const Stage& stage, int turn) {
  if (stage.Pages.empty() && !stage.OnPage) return "";
  const std::string page = Desktop().Files().Read(InProgramFolder("Display.html")).value_or("");
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "%s%03d.html", kPageName.data(), turn);
  if (stage.OnPage) stage.OnPage(name.data(), page);
  if (stage.Pages.empty()) return "";
  const std::string path = Joined(stage.Pages, "/", name.data());
  const std::string problem = LocalFileSystem().Write(path, page);
  return problem.empty() ? "" : Joined("Can't write ", path, ": ", problem);
}

AutomaticMatchResult PlayTurns(const Stage& stage, int maximumTurns, MatchTrace& trace,
                               std::ostream& out) {
  AutomaticMatchResult result;
  result.Turns = State().Match.Turns;
  result.Error = SavePage(stage, result.Turns);
  trace.EndTurn();
  while (result.Error.empty() && State().GameOver == 0 && result.Turns < maximumTurns) {
    ++result.Turns;
    out << "Turn " << result.Turns << ": " << Standing(1) << ", " << Standing(2) << '\n';
    PlanPlayerTurn();
    if (stage.BeforeTurn) stage.BeforeTurn();
    TakeTurn(0);
    trace.EndTurn();
    result.Error = SavePage(stage, result.Turns);
  }
  result.Winner = Winner();
  return result;
}

}  // namespace

std::string_view VerdictOf(MatchWinner winner) {
  constexpr std::array<std::string_view, 3> kVerdicts = {"no decision", "the player wins",
                                                         "the enemy wins"};
  return kVerdicts[static_cast<std::size_t>(winner)];
}

std::string AbsoluteFolder(const std::string& folder) {
  std::error_code failure;
  const fs::path absolute = fs::absolute(folder.empty() ? "." : folder, failure);
  std::string path = absolute.lexically_normal().generic_string();
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

AutomaticMatchResult AutomaticMatch(const AutomaticMatchOptions& options, std::ostream& out) {
  Stage stage;
  AutomaticMatchResult result;
  result.Error = ChooseFolders(options, stage);
  if (!result.Error.empty()) return result;
  stage.OnPage = options.OnPage;
  stage.BeforeTurn = options.BeforeTurn;
  HeadlessPlatform& desktop = BeginSession(stage, options.Seed);
  MatchTrace trace(options.Trace, out);
  result.Error =
      options.Continue.empty() ? StartMatch(options, trace) : ContinueMatch(options, desktop);
  if (result.Error.empty()) {
    LetThink(options);
    if (!stage.Pages.empty()) RemoveOldPages(stage.Pages, State().Match.Turns);
    result = PlayTurns(stage, options.MaximumTurns, trace, out);
    out << "After turn " << result.Turns << ": " << Standing(1) << ", " << Standing(2) << '\n'
        << "Result: " << VerdictOf(result.Winner) << ".\n";
    trace.EndMatch();
    if (result.Error.empty() && !options.SaveTo.empty()) {
      result.Error = SaveMatch(options.SaveTo, desktop.Clock());
    }
  }
  return result;
}

}  // namespace brindlemoor
