// Names of player files, now and in earlier times, and whose a file is.
#include "game/player_file_names.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "text/encoding.h"
#include "text/file_names.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kEnding = kPlayerFileEnding;
/// Bytes of the parts of a name: with what is put behind a copy, 255 hold all of it.
constexpr std::size_t kGameBytes = 120;
constexpr std::size_t kGameBesideRules = 80;
constexpr std::size_t kRulesBytes = 58;

bool IsGame(int gameIndex) {
  const Table<GameRec>& games = State().Games;
  return games.Holds(gameIndex) && !games[gameIndex].Name.empty();
}

bool IsThereInFolder(const std::string& file) {
  return !file.empty() && IsThere(Desktop().Files(), InProgramFolder(file));
}

std::string NameOfParts(std::string_view player, std::string_view game) {
  return Joined(BeginningOfPlayerFiles(player), game, kEnding);
}

std::string NaturalName(std::string_view player, const GameRec& game) {
  return NameOfParts(player, BoundedForFileName(game.Name, kGameBytes));
}

/// Where games of one name are told apart. A "%~" is in no encoded name.
std::string NameWithRules(std::string_view player, const GameRec& game) {
  return NameOfParts(player, Joined(BoundedForFileName(game.Name, kGameBesideRules), "%~",
                                    BoundedForFileName(game.RulesFile, kRulesBytes)));
}

char FormerCharacter(char character) {
  const bool fits = static_cast<unsigned char>(character) >= 0x20 &&
                    kNotInFileNames.find(character) == std::string_view::npos;
  return fits ? character : '_';
}

/// True for the name that a player file had before names were encoded: other players and games
/// could have the same.
bool IsFormerName(std::string_view file, std::string_view player, std::string_view game) {
  if (file.size() != player.size() + game.size() + kEnding.size() + 1) return false;
  const std::string name = Joined(player, "_", game, kEnding);
  return std::ranges::equal(file, name, {}, {}, FormerCharacter);
}

/// That name, "" where no file can have it.
std::string FormerName(std::string_view player, std::string_view game) {
  std::string name;
  if (!CanBeFileName(player) || !CanBeFileName(game)) return name;
  name = Joined(player, "_", game, kEnding);
  std::ranges::transform(name, name.begin(), FormerCharacter);
  return CanBeFileName(name) ? name : "";
}

/// The line of the current player in the list of profiles, nullptr for none. It was written with
/// the last save: the profile in use names the rules of a match as soon as that begins.
const ProfileRec* LineOfPlayer() {
  Session& session = State();
  if (session.Profiles.UpperBound() == 0) LoadProfiles();
  for (const ProfileRec& line : session.Profiles) {
    if (line.PlayerName == session.Profile.PlayerName) return &line;
  }
  return nullptr;
}

/// The beginning of a name, for a message.
std::string Shown(std::string_view name) {
  constexpr std::size_t kShown = 60;
  std::size_t end = 0;
  while (end < std::min(kShown, name.size())) NextCodePoint(name, end);
  return std::string(OneLine(name.substr(0, end)));
}

/// Another player and game that a file may be of, as "Bob in Goblins"; "" for none.
std::string OtherOwner(const std::string& file, const GameRec& own) {
  const Session& session = State();
  for (const GameRec& game : session.Games) {
    if (game.Name.empty()) continue;
    const std::string part = BoundedForFileName(game.Name, kGameBytes);
    for (const ProfileRec& profile : session.Profiles) {
      const bool isOwn = profile.PlayerName == session.Profile.PlayerName && game.Name == own.Name;
      if (profile.PlayerName.empty() || isOwn) continue;
      if (NameOfParts(profile.PlayerName, part) == file ||
          IsFormerName(file, profile.PlayerName, game.Name)) {
        return Joined(Shown(profile.PlayerName), " in ", Shown(game.Name));
      }
    }
  }
  // Players of games that are not in the folder at present.
  for (const ProfileRec& profile : session.Profiles) {
    if (profile.PlayerFile == file) {
      return Joined(Shown(profile.PlayerName), " with ", Shown(profile.RulesFile));
    }
  }
  return "";
}

/// Whose a file of an earlier name may be beside the current player's in a game; "" when it surely
/// is that one's.
std::string DoubtOf(const std::string& file, const GameRec& game) {
  const ProfileRec* line = LineOfPlayer();
  const bool isNamed =
      line != nullptr && line->PlayerFile == file && line->RulesFile == game.RulesFile;
  if (isNamed) return "";
  if (game.Namesakes.empty()) return OtherOwner(file, game);
  std::string others;
  constexpr std::size_t kMostNamed = 5;
  for (const Text& rules : game.Namesakes) {
    if (!others.empty()) others += ", ";
    others += OneLine(rules);
    if (&rules - game.Namesakes.data() + 1 == kMostNamed) break;
  }
  return Joined("the game of ", others, ", which has the same name as that of ",
                OneLine(game.RulesFile));
}

/// The file of an earlier name that is there, "" for none or when the present one is.
std::string EarlierFile(int gameIndex) {
  if (IsThereInFolder(PlayerFileName(gameIndex))) return "";
  const GameRec& game = State().Games[gameIndex];
  const Text& player = State().Profile.PlayerName;
  for (std::string name : {NaturalName(player, game), FormerName(player, game.Name)}) {
    if (IsThereInFolder(name)) return name;
  }
  return "";
}

/// True where the list says, or the name lets think, that a file is another player's.
bool IsOfAnother(const std::string& file, std::string_view player) {
  for (const ProfileRec& line : State().Profiles) {
    if (line.PlayerName.empty() || line.PlayerName == player) continue;
    if (line.PlayerFile == file || file.starts_with(Joined(line.PlayerName, "_"))) return true;
  }
  return false;
}

}  // namespace

std::string BeginningOfPlayerFiles(std::string_view player) {
  return Joined(BoundedForFileName(player, kPlayerNameBytes, "_"), "_");
}

std::vector<std::string> FilesOfPlayer(std::string_view player, std::string_view ending) {
  const std::string begin = BeginningOfPlayerFiles(player);
  std::vector<std::string> files = Desktop().Files().ListFiles(State().ProgramFolder);
  std::erase_if(files, [&](const std::string& file) {
    return !file.starts_with(begin) || !file.ends_with(ending) || IsOfAnother(file, player);
  });
  return files;
}

namespace {

std::string BesidePlayerFile(int gameIndex, std::string_view ending) {
  const std::string name = PlayerFileName(gameIndex);
  return name.empty() ? name : Joined(name.substr(0, name.size() - kEnding.size()), ending);
}

}  // namespace

std::string MatchFileName(int gameIndex) { return BesidePlayerFile(gameIndex, kMatchFileEnding); }

std::string ResultsFileName(int gameIndex) {
  return BesidePlayerFile(gameIndex, kResultsFileEnding);
}

std::string PlayerFileName(int gameIndex) {
  const Session& session = State();
  if (!IsGame(gameIndex)) return "";
  const GameRec& game = session.Games[gameIndex];
  std::string withRules = NameWithRules(session.Profile.PlayerName, game);
  if (!game.Namesakes.empty() || IsThereInFolder(withRules)) return withRules;
  return NaturalName(session.Profile.PlayerName, game);
}

std::string StoredPlayerFile(int gameIndex) {
  if (!IsGame(gameIndex)) return "";
  const std::string earlier = EarlierFile(gameIndex);
  const bool isSure = !earlier.empty() && DoubtOf(earlier, State().Games[gameIndex]).empty();
  return isSure ? earlier : PlayerFileName(gameIndex);
}

std::string OwnPlayerFileName() {
  const Session& session = State();
  if (session.CurrentGame != 0) return PlayerFileName(session.CurrentGame);
  std::string file = FileNameOf(session.Profile.PlayerFile);
  if (file.empty()) return file;
  const Text rules = RulesOfOwnFile();
  for (int game = 1; game <= session.Games.UpperBound(); ++game) {
    const bool isOfGame = IsGame(game) && session.Games[game].RulesFile == rules;
    // An earlier name is left behind here as in a match.
    if (isOfGame && EarlierFile(game) == file) return PlayerFileName(game);
  }
  return file;
}

Text RulesOfOwnFile() {
  const Session& session = State();
  if (session.CurrentGame != 0) return session.Profile.RulesFile;
  // Since the save a match may have begun and ended without one: its rules are not those.
  if (session.Profile.PlayerFile.empty()) return session.Profile.RulesFile;
  const ProfileRec* line = LineOfPlayer();
  const bool isSame = line != nullptr && line->PlayerFile == session.Profile.PlayerFile;
  return isSame ? line->RulesFile : session.Profile.RulesFile;
}

void TellPlayerFileLeftAlone(int gameIndex) {
  const std::string file = EarlierFile(gameIndex);
  if (file.empty()) return;
  const std::string doubt = DoubtOf(file, State().Games[gameIndex]);
  if (doubt.empty()) return;
  Desktop().MessageBox(
      Joined(file, " is left alone: it may belong to ", doubt,
             ".  If these are your cards, begin with a starter deck or a card store and take them "
             "in the deck manager: File, Load Player."));
}

}  // namespace brindlemoor
