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
#include "data/field_stream.h"
#include "data/profiles.h"
#include "game/game_list.h"
#include "game/match_start.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/traits.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/overlay_files.h"
#include "script/stored_cards.h"
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
};

bool IsReportPage(const fs::path& file) {
  constexpr std::string_view kDigits = "0123456789";
  const std::string stem = file.stem().string();
  return file.extension() == ".html" && stem.starts_with("turn-") &&
         stem.find_first_not_of(kDigits, 5) == std::string::npos;
}

void RemoveOldPages(const std::string& folder) {
  std::error_code failure;
  fs::directory_iterator entry(folder, failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    if (IsReportPage(entry->path())) LocalFileSystem().Remove(entry->path().string());
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

void BeginSession(const Stage& stage, std::uint64_t seed) {
  auto desktop = std::make_shared<HeadlessPlatform>(
      // A player of the same name would change the match.
      std::make_unique<OverlayFileSystem>(BelongsToPlayers), seed);
  desktop->AcceptMessages = true;
  desktop->ModalForms.emplace_back([](Form&) { TheDeckManager().Command2_Click(); });
  OpenWindowSession(std::move(desktop), stage.Folder);
  State().Log = std::make_shared<MatchLog>();
  State().Profile.PlayerName = kPlayerName;
  State().Profiles.Append(State().Profile);
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

/// Brings the session to the first turn of the match. "" or why there is none.
std::string StartMatch(const AutomaticMatchOptions& options) {
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
  State().Log->Events.clear();
  ChooseGame(game, opponent);
  return "";
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

/// Tells and keeps the page shown last.
std::string SavePage(const Stage& stage, int turn) {
  if (stage.Pages.empty() && !stage.OnPage) return "";
  const std::string page = Desktop().Files().Read(InProgramFolder("Display.html")).value_or("");
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "turn-%03d.html", turn);
  if (stage.OnPage) stage.OnPage(name.data(), page);
  if (stage.Pages.empty()) return "";
  const std::string path = Joined(stage.Pages, "/", name.data());
  const std::string problem = LocalFileSystem().Write(path, page);
  return problem.empty() ? "" : Joined("Can't write ", path, ": ", problem);
}

AutomaticMatchResult PlayTurns(const Stage& stage, int maximumTurns, std::ostream& out) {
  AutomaticMatchResult result;
  result.Error = SavePage(stage, 0);
  while (result.Error.empty() && State().GameOver == 0 && result.Turns < maximumTurns) {
    ++result.Turns;
    out << "Turn " << result.Turns << ": " << Standing(1) << ", " << Standing(2) << '\n';
    PlanAutomaticPlays();
    TakeTurn(0);
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

bool IsStarterDeck(const std::string& path) {
  constexpr std::string_view kWord = "#STARTERDECK";
  WorkBudget& work = State().Work;
  if (work.StopsFile(path)) return false;
  std::string bytes = Desktop().Files().Read(path).value_or("");
  work.SpendOnFile(bytes.size());
  if (bytes.find(kWord) == std::string::npos) return false;
  FieldStream stream(std::move(bytes));
  std::size_t counted = 0;
  for (std::string field; !work.StopsFile(path) && stream.Read(field);) {
    if (field == kWord) return true;
    work.SpendOnFields(stream.Position(), counted);
  }
  return false;
}

AutomaticMatchResult AutomaticMatch(const AutomaticMatchOptions& options, std::ostream& out) {
  Stage stage;
  AutomaticMatchResult result;
  result.Error = ChooseFolders(options, stage);
  if (!result.Error.empty()) return result;
  stage.OnPage = options.OnPage;
  if (!stage.Pages.empty()) RemoveOldPages(stage.Pages);
  BeginSession(stage, options.Seed);
  result.Error = StartMatch(options);
  if (result.Error.empty()) {
    result = PlayTurns(stage, options.MaximumTurns, out);
    out << "After turn " << result.Turns << ": " << Standing(1) << ", " << Standing(2) << '\n'
        << "Result: " << VerdictOf(result.Winner) << ".\n";
  }
  return result;
}

}  // namespace brindlemoor
