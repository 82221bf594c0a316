// Finding games and opponents in the program's folder, and the page that lists them.
#include "game/game_list.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "core/card_files.h"
#include "core/desktop.h"
#include "core/folder_lists.h"
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
#include "text/quoting.h"

namespace brindlemoor {

namespace {

constexpr int kOpponentsPerRow = 8;
constexpr std::string_view kLeftOut =
    "The folder takes too much work to read: some games and opponents were left out.";
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

std::vector<std::string> CardFileNames(const std::string& folder) {
  std::vector<std::string> names = Folders().FilesOf(folder).Files();
  std::erase_if(names, [](const std::string& name) {
    return name.size() < kExtension.size() ||
           !FoldEquals(std::string_view(name).substr(name.size() - kExtension.size()), kExtension);
  });
  return names;
}

/// The bytes of a file; "" when it can't be read, or when there is no work left for it.
std::string BytesOf(const std::string& path) {
  WorkBudget& work = State().Work;
  if (work.IsSpent()) {
    limits::ReportLimit(kLeftOut);
    return "";
  }
  std::optional<std::string> bytes = Desktop().Files().Read(path);
  if (!bytes) {
    AddUnreadable(FileNameOf(path), path);
    return "";
  }
  work.SpendOnFile(bytes->size());
  return std::move(*bytes);
}

/// The fields of a file, as long as there is work left for them.
class Scan {
 public:
  explicit Scan(std::string bytes) : stream_(std::move(bytes)) {}

  bool Read(std::string& field) {
    WorkBudget& work = State().Work;
    work.SpendOnFields(stream_.Position(), counted_);
    if (work.IsSpent()) limits::ReportLimit(kLeftOut);
    return !work.IsSpent() && stream_.Read(field);
  }

 private:
  FieldStream stream_;
  std::size_t counted_ = 0;
};

/// The next N fields; those behind the end of the file are empty.
template <std::size_t N>
std::array<std::string, N> ReadFields(Scan& scan) {
  std::array<std::string, N> fields;
  for (std::string& field : fields) {
    if (!scan.Read(field)) field.clear();
  }
  return fields;
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
  const std::string& programFolder = State().ProgramFolder;
  if (name.empty() || Desktop().Files().FolderExists(Joined(programFolder, "/", name))) return name;
  for (const std::string& folder : Folders().SubfoldersOf(programFolder)) {
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

/// A second game of a name is told of, not listed.
void AddNamesake(GameRec& listed, const std::string& file) {
  if (listed.Namesakes.size() < limits::kGames) listed.Namesakes.emplace_back(file);
  AddProblemOnce(file, Joined("the game of \"", file, "\" is not listed: that of \"",
                              listed.RulesFile, "\" has the same name"));
}

void AddGame(Scan& scan, const std::string& file) {
  const auto [name, banner, color, folder, helpPage] = ReadFields<5>(scan);
  Table<GameRec>& games = State().Games;
  if (name.empty()) return;
  if (const int listed = GameNamed(name); listed != 0) {
    AddNamesake(games[listed], file);
    return;
  }
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

/// A file that is looked at again when every game is known.
struct CardFile {
  std::string Path;
  std::string Bytes;  ///< "" for those to be read again
};
constexpr std::size_t kMostKept = 64U << 20;  ///< bytes of such files

/// Adds the game that a file of the program's folder declares.
void ScanForGame(std::string bytes, const std::string& file) {
  Scan scan(std::move(bytes));
  for (std::string field; scan.Read(field);) {
    if (field == "#GAMERULES") AddGame(scan, file);
    if (field == "#GAMERULES" || IsOneOf(kNoGame, field)) return;
  }
}

void AddOpponent(Scan& scan, GameRec& game, const std::string& path) {
  const auto fields = ReadFields<8>(scan);
  if (game.Opponents.UpperBound() > limits::kGames) {
    limits::ReportLimit("A game has too many opponents: some were left out.");
    return;
  }
  Card opponent;
  opponent.Name = fields[0];
  opponent.Picture = fields[3];
  opponent.Thumb = fields[4];
  // The eighth field that is read belongs to what follows the card.
  opponent.Description = fields[6];
  game.Opponents.Append(std::move(opponent));
  game.OpponentFiles.Append(path);
}

/// Adds the opponents that a file holds, to a known game or, with 0, to the one that its #GAME line
/// names.
void ScanForOpponents(std::string bytes, const std::string& path, int knownGame) {
  Scan scan(std::move(bytes));
  int game = knownGame;
  for (std::string field; scan.Read(field);) {
    if (IsOneOf(kNoOpponent, field)) return;
    if (field == "#GAME" && knownGame == 0) {
      game = GameNamed(ReadFields<1>(scan)[0]);
      if (game == 0) return;
    } else if (field == "#PLAYERCARD") {
      if (game == 0) return;
      AddOpponent(scan, State().Games[game], path);
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

std::string NamesakeLine(std::string_view listed, std::string_view leftOut) {
  return Joined("<br>Two games have one name: that of ", HtmlText(listed), " is listed, that of ",
                HtmlText(leftOut), " is left out.<br>");
}

}  // namespace

void DiscoverGames() {
  const WorkAccount account;
  const std::string& programFolder = State().ProgramFolder;
  // Files that may name a game for their opponents wait until every game is known. Large ones are
  // read again then.
  std::vector<CardFile> waiting;
  std::size_t kept = 0;
  for (const std::string& name : CardFileNames(programFolder)) {
    CardFile file{Joined(programFolder, "/", name), {}};
    file.Bytes = BytesOf(file.Path);
    if (Mentions(file.Bytes, "#GAMERULES")) ScanForGame(file.Bytes, name);
    if (!Mentions(file.Bytes, "#GAME") || !Mentions(file.Bytes, "#PLAYERCARD")) continue;
    kept += file.Bytes.size();
    if (kept > kMostKept) file.Bytes = std::string();
    waiting.push_back(std::move(file));
  }
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound(); ++game) {
    if (games[game].Folder.empty()) continue;
    const std::string folder = Joined(programFolder, "/", games[game].Folder);
    if (IsKeptOut(folder)) AddProblem(games[game].Folder, 0, kKeptOut);
    for (const std::string& name : CardFileNames(folder)) {
      const std::string path = Joined(folder, "/", name);
      std::string bytes = BytesOf(path);
      if (Mentions(bytes, "#PLAYERCARD")) ScanForOpponents(std::move(bytes), path, game);
    }
  }
  for (CardFile& file : waiting) {
    if (file.Bytes.empty()) file.Bytes = BytesOf(file.Path);
    ScanForOpponents(std::move(file.Bytes), file.Path, 0);
  }
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

void ShowGameList() {
  {
    const WorkAccount account;
    AppendPage(ComposeGameList());
  }
  for (const GameRec& game : State().Games) {
    for (const Text& file : game.Namesakes) AppendPage(NamesakeLine(game.RulesFile, file));
  }
  if (State().LimitsReported.contains(kLeftOut)) AppendPage(Joined("<br>", kLeftOut, "<br>"));
  if (State().DebugMode == 1) AppendPage(Windows().NotesOnGames(State().ProgramFolder));
  WritePage("Display.html", "#000000");
  State().Links = {.Games = true};
  Windows().ShowMain("Display.html");
}

}  // namespace brindlemoor
