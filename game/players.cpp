// Renaming and deleting players.
#include "game/players.h"

#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/profiles.h"
#include "data/saving.h"
#include "game/owned_text.h"
#include "game/player_file_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kElsewhere = "This player is in another window of the program.";

struct FileMove {
  std::string From;
  std::string To;
};

/// Removes what was written of a renaming that can't be finished.
void TakeBack(const std::vector<FileMove>& moves, std::size_t count) {
  for (std::size_t index = 0; index < count; ++index) {
    Desktop().Files().Remove(InProgramFolder(moves[index].To));
  }
}

/// Copies the files to their new names. "" or what went wrong; then no new file is there.
std::string CopyFiles(const std::vector<FileMove>& moves) {
  FileSystem& files = Desktop().Files();
  for (std::size_t index = 0; index < moves.size(); ++index) {
    const std::string from = InProgramFolder(moves[index].From);
    const std::string to = InProgramFolder(moves[index].To);
    const auto bytes = files.Read(from);
    std::string failure;
    if (!bytes) {
      failure = CantRead(moves[index].From, from);
    } else if (IsThere(files, to)) {
      failure = Joined("There is a file ", moves[index].To, " already.");
    } else {
      failure = files.Write(to, *bytes);
      if (!failure.empty()) failure = Joined("Can't save ", moves[index].To, ": ", failure);
    }
    if (failure.empty()) continue;
    TakeBack(moves, index);
    return failure;
  }
  return "";
}

/// What a player owns in each game, the matches that shall go on, and how others ended.
std::vector<std::string> AllFilesOf(std::string_view player) {
  std::vector<std::string> files;
  for (const std::string_view ending : kPlayersEndings) {
    for (std::string& file : FilesOfPlayer(player, ending)) files.push_back(std::move(file));
  }
  return files;
}

std::vector<FileMove> MovesOf(std::string_view player, std::string_view name) {
  std::vector<FileMove> moves;
  const std::string begin = BeginningOfPlayerFiles(player);
  for (const std::string& file : AllFilesOf(player)) {
    // A file of an earlier name keeps it: the line of its player names it.
    if (!file.starts_with(begin)) continue;
    moves.push_back({file, BeginningOfPlayerFiles(name) + file.substr(begin.size())});
  }
  return moves;
}

ProfileRec LineOf(std::string_view player) {
  for (const ProfileRec& line : State().Profiles) {
    if (line.PlayerName == player) return line;
  }
  return {};
}

}  // namespace

std::string HoldingsOf(std::string_view player) {
  const std::string begin = BeginningOfPlayerFiles(player);
  std::string lines;
  for (const std::string& file : FilesOfPlayer(player)) {
    const auto bytes = Desktop().Files().Read(InProgramFolder(file));
    std::string_view game = file;
    if (game.starts_with(begin)) game.remove_prefix(begin.size());
    game = game.substr(0, game.rfind('.'));
    lines += Joined(lines.empty() ? "" : "\n", game.substr(0, game.find("%~")), ": ",
                    bytes ? ContentsOf(*bytes) : "a file that can't be read now");
  }
  return lines;
}

std::string RenamePlayer(std::string_view player, std::string_view name) {
  LoadProfiles();
  std::string refusal = RefusePlayerName(name);
  if (!refusal.empty()) return refusal;
  if (!HoldPlayer(player) || !HoldPlayer(name)) return std::string(kElsewhere);
  ProfileRec line = LineOf(player);
  const std::vector<FileMove> moves = MovesOf(player, name);
  refusal = CopyFiles(moves);
  if (!refusal.empty()) return refusal;
  line.PlayerName = name;
  for (const FileMove& move : moves) {
    if (line.PlayerFile == move.From) line.PlayerFile = move.To;
  }
  refusal = ReplaceProfile(player, line);
  if (!refusal.empty()) {
    TakeBack(moves, moves.size());
    return refusal;
  }
  // The new files are there and listed: what stays of the old ones is nobody's.
  for (const FileMove& move : moves) Desktop().Files().Remove(InProgramFolder(move.From));
  if (LastPlayer() == player) NoteLastPlayer(name);
  ReleasePlayer(player);
  return "";
}

std::string DeletePlayer(std::string_view player) {
  if (!HoldPlayer(player)) return std::string(kElsewhere);
  const std::vector<std::string> files = AllFilesOf(player);
  std::string failure = ReplaceProfile(player, {});
  for (const std::string& file : files) {
    if (!failure.empty()) break;
    failure = Desktop().Files().Remove(InProgramFolder(file));
    if (!failure.empty()) failure = Joined("Can't remove ", file, ": ", failure);
  }
  return failure;
}

std::string LastPlayer() {
  std::string name = Desktop().Files().Read(InProgramFolder(kLastPlayerFile)).value_or("");
  name.erase(name.find_last_not_of("\r\n") + 1);
  return name;
}

void NoteLastPlayer(std::string_view player) {
  // Where it can't be written the chooser only begins elsewhere.
  if (LastPlayer() != player) SaveText(InProgramFolder(kLastPlayerFile), player);
}

}  // namespace brindlemoor
