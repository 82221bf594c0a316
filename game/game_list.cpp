// Finding games and opponents in the program's folder, and the page that lists them.
#include "game/game_list.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/field_stream.h"
#include "game/windows.h"
#include "pages/page_files.h"
#include "text/addresses.h"
#include "text/fold.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

constexpr int kOpponentsPerRow = 8;
constexpr std::string_view kExtension = ".txt";
constexpr std::string_view kKeptOut =
    "the folder can't be listed, or is a link that leads out of the program's folder";

/// A file in which one of these comes before #GAMERULES is no game.
constexpr std::array<std::string_view, 5> kNoGame = {"#GAME", "#CARDINDECK", "#PLAYERCARD",
                                                     "#TRAITACTION", "#RULESCARD"};
/// No opponent is looked for behind these.
constexpr std::array<std::string_view, 4> kNoOpponent = {"#GAMERULES", "#PLAYERDECK",
                                                         "#TRAITACTION", "#RULESCARD"};

template <class Words>
bool IsOneOf(const Words& words, std::string_view field) {
  return std::find(words.begin(), words.end(), field) != words.end();
}

/// The next N fields; those behind the end of the file are empty.
template <std::size_t N>
std::array<std::string, N> ReadFields(FieldStream& stream) {
  std::array<std::string, N> fields;
  for (std::string& field : fields) {
    if (!stream.Read(field)) field.clear();
  }
  return fields;
}

std::vector<std::string> CardFileNames(const std::string& folder) {
  std::vector<std::string> names = Desktop().Files().ListFiles(folder);
  std::erase_if(names, [](const std::string& name) {
    return name.size() < kExtension.size() ||
           !FoldEquals(std::string_view(name).substr(name.size() - kExtension.size()), kExtension);
  });
  return names;
}

struct CardFile {
  std::string Path;
  std::string Bytes;
};

CardFile ReadCardFile(const std::string& folder, const std::string& name) {
  CardFile file{Joined(folder, "/", name), {}};
  auto bytes = Desktop().Files().Read(file.Path);
  if (!bytes) AddUnreadable(name, file.Path);
  file.Bytes = std::move(bytes).value_or("");
  return file;
}

/// Most card files hold none of the words that are looked for; they need not be taken apart.
bool Mentions(std::string_view bytes, std::string_view word) {
  return bytes.find(word) != std::string_view::npos;
}

/// The direct subfolder that a game means: never a way out of the program's folder. A name that
/// differs in case only is taken where the exact one is missing.
std::string SubfolderFor(std::string_view reference) {
  std::string name = FileNameOf(reference);
  if (name == "." || name == "..") return "";
  FileSystem& files = Desktop().Files();
  const std::string& programFolder = State().ProgramFolder;
  if (name.empty() || files.FolderExists(Joined(programFolder, "/", name))) return name;
  for (const std::string& folder : files.ListFolders(programFolder)) {
    if (FoldEquals(folder, name)) return folder;
  }
  return name;
}

/// True for a folder that is there and can't be listed, such as a link that leads elsewhere.
bool IsKeptOut(const std::string& folder) {
  const FileSystem& files = Desktop().Files();
  return !files.FolderExists(folder) && !files.WhyUnread(folder).empty();
}

/// Index of a game, 0 for an unknown or empty name.
int GameNamed(std::string_view name) {
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound() && !name.empty(); ++game) {
    if (games[game].Name == name) return game;
  }
  return 0;
}

void AddGame(FieldStream& stream, const std::string& file) {
  const auto [name, banner, color, folder, helpPage] = ReadFields<5>(stream);
  Table<GameRec>& games = State().Games;
  if (name.empty() || GameNamed(name) != 0) return;
  int slot = 1;
  while (slot <= games.UpperBound() && !games[slot].Name.empty()) ++slot;
  if (slot > limits::kGames) {
    limits::ReportLimit("The folder has too many games: some were left out.");
    return;
  }
  if (slot > games.UpperBound()) games.Resize(slot);
  GameRec& game = games[slot];
  game.Name = name;
  game.Banner = banner;
  game.Color = color;
  game.Folder = SubfolderFor(folder);
  game.HelpPage = helpPage;
  game.RulesFile = file;
  game.Opponents.Reset(1);
  game.OpponentFiles.Reset(1);
}

/// Adds the game that a file of the program's folder declares.
void ScanForGame(std::string bytes, const std::string& file) {
  FieldStream stream(std::move(bytes));
  for (std::string field; stream.Read(field);) {
    if (field == "#GAMERULES") AddGame(stream, file);
    if (field == "#GAMERULES" || IsOneOf(kNoGame, field)) return;
  }
}

void AddOpponent(FieldStream& stream, GameRec& game, const std::string& path) {
  const auto fields = ReadFields<8>(stream);
  if (game.Opponents.UpperBound() > limits::kGames) {
    limits::ReportLimit("A game has too many opponents: some were left out.");
    return;
  }
  Card opponent;
  opponent.Name = fields[0];
  opponent.Thumb = fields[4];
  opponent.Description = fields[7];
  game.Opponents.Append(std::move(opponent));
  game.OpponentFiles.Append(path);
}

/// Adds the opponents that a file holds, to a known game or, with 0, to the one that its #GAME line
/// names.
void ScanForOpponents(std::string bytes, const std::string& path, int knownGame) {
  FieldStream stream(std::move(bytes));
  int game = knownGame;
  for (std::string field; stream.Read(field);) {
    if (IsOneOf(kNoOpponent, field)) return;
    if (field == "#GAME" && knownGame == 0) {
      game = GameNamed(ReadFields<1>(stream)[0]);
      if (game == 0) return;
    } else if (field == "#PLAYERCARD") {
      if (game == 0) return;
      AddOpponent(stream, State().Games[game], path);
    }
  }
}

void ComposeOpponent(std::string& html, const GameRec& game, int gameIndex, int opponentIndex) {
  const Card& opponent = game.Opponents[opponentIndex];
  const std::string link = Joined("<a href=\"GAME:", gameIndex, ":", opponentIndex, "\">");
  html += Joined("<td bgcolor=", OneLine(game.Color), "><center><font color=#FFFFFF>");
  if (!opponent.Thumb.empty()) {
    html += Joined(link, "<img src=\"", PageAddress(ResolvePath(opponent.Thumb, 0)),
                   "\"></img><br></a>");
  }
  html += Joined(link, OneLine(opponent.Name), "</a></font></td>");
  if (opponentIndex % kOpponentsPerRow == 0) html += "</tr><tr>";
}

void ComposeGame(std::string& html, const GameRec& game, int gameIndex) {
  html += Joined("<table><tr><td colspan=80 bgcolor=", OneLine(game.Color),
                 "><center><font color=#FFFFFF>");
  if (!game.Banner.empty()) {
    html += Joined("<img src=\"", PageAddress(ResolvePath(game.Banner, 0)), "\"></img><br>");
  }
  html +=
      Joined(OneLine(game.Name),
             "</font><font size=-2 color=FFFFFF><br>(Select an opponent from the portraits "
             "below)</font><br><a href=\"HELP:",
             OneLine(game.HelpPage), "\">Click here for help on this game.</a></td></tr>", "<tr>");
  for (int opponent = 1; opponent <= game.Opponents.UpperBound(); ++opponent) {
    if (game.Opponents[opponent].Name.empty()) continue;
    ComposeOpponent(html, game, gameIndex, opponent);
  }
  html += "</tr></table>";
}

}  // namespace

void DiscoverGames() {
  const std::string& programFolder = State().ProgramFolder;
  // Files that may name a game for their opponents wait until every game is known.
  std::vector<CardFile> waiting;
  for (const std::string& name : CardFileNames(programFolder)) {
    CardFile file = ReadCardFile(programFolder, name);
    if (Mentions(file.Bytes, "#GAMERULES")) ScanForGame(file.Bytes, name);
    if (Mentions(file.Bytes, "#GAME") && Mentions(file.Bytes, "#PLAYERCARD")) {
      waiting.push_back(std::move(file));
    }
  }
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound(); ++game) {
    if (games[game].Folder.empty()) continue;
    const std::string folder = Joined(programFolder, "/", games[game].Folder);
    if (IsKeptOut(folder)) AddProblem(games[game].Folder, 0, kKeptOut);
    for (const std::string& name : CardFileNames(folder)) {
      CardFile file = ReadCardFile(folder, name);
      if (!Mentions(file.Bytes, "#PLAYERCARD")) continue;
      ScanForOpponents(std::move(file.Bytes), file.Path, game);
    }
  }
  for (CardFile& file : waiting) ScanForOpponents(std::move(file.Bytes), file.Path, 0);
}

int FindGame(std::string_view name, std::string& problem) {
  const Table<GameRec>& games = State().Games;
  std::string names;
  for (int index = 1; index <= games.UpperBound(); ++index) {
    const GameRec& game = games[index];
    if (game.Name.empty()) continue;
    if (name.empty() || FoldEquals(game.Name, name)) return index;
    names += Joined(names.empty() ? "" : ", ", game.Name);
  }
  problem = names.empty()
                ? "There is no game in this folder."
                : Joined("There is no game ", name, " in this folder. It has: ", names, ".");
  return 0;
}

int GameOfNewFiles() {
  const Session& state = State();
  const Table<GameRec>& games = state.Games;
  if (games.Holds(state.CurrentGame)) return state.CurrentGame;
  for (int game = 1; game <= games.UpperBound(); ++game) {
    if (!state.GameFileName.empty() && games[game].RulesFile == state.GameFileName) return game;
  }
  return games.UpperBound() == 1 && !games[1].Name.empty() ? 1 : 0;
}

std::string ComposeGameList() {
  std::string html;
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound(); ++game) {
    if (!games[game].Name.empty()) ComposeGame(html, games[game], game);
  }
  return html;
}

void ShowGameList() {
  AppendPage(ComposeGameList());
  if (State().DebugMode == 1) AppendPage(Windows().NotesOnGames(State().ProgramFolder));
  WritePage("Display.html", "#000000");
  State().Links = {.Games = true};
  Windows().ShowMain("Display.html");
}

}  // namespace brindlemoor
