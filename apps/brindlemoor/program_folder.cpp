// Finding the program's folder and filling it at the first start.
#include "apps/brindlemoor/program_folder.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "apps/brindlemoor/folder_filling.h"
#include "platform/machine_file.h"
#include "platform/machine_folder.h"
#include "text/text.h"

namespace brindlemoor {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFolderName = "brindlemoor";

/// The folder can be listed and written, or why not.
ProgramFolderResult Checked(const fs::path& folder) {
  std::error_code error;
  const fs::path absolute = fs::weakly_canonical(fs::absolute(folder, error), error);
  const std::string name = absolute.string();
  if (!fs::exists(absolute, error)) return {"", "There is no folder \"" + name + "\"."};
  if (!fs::is_directory(absolute, error)) return {"", "\"" + name + "\" is not a folder."};
  if (access(name.c_str(), R_OK | X_OK) != 0) {
    return {"", "The folder \"" + name + "\" can't be read."};
  }
  if (access(name.c_str(), W_OK) != 0) {
    return {"", "The folder \"" + name +
                    "\" can't be written to.  The program keeps its pages and players there."};
  }
  return {name, ""};
}

/// Whether a folder holds games; nothing when that can't be seen, because something is unreadable.
std::optional<bool> LookForGames(const std::string& folder) {
  if (KindOfTarget(folder) == EntryKind::kNothing) return false;
  bool isSeen = true;
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code ignored;
    if (entry->path().extension() != ".txt" || !entry->is_regular_file(ignored)) continue;
    const FileContent content = ReadRegularFile(entry->path().string());
    if (content.Bytes && content.Bytes->find("#GAMERULES") != std::string::npos) return true;
    isSeen = isSeen && content.Bytes.has_value();
  }
  return isSeen && !error ? std::optional(false) : std::nullopt;
}

/// The same for the user's folder, which has none as long as they are not all there.
std::optional<bool> HasAllGames(const std::string& folder) {
  return IsUnfilled(folder) ? false : LookForGames(folder);
}

std::string CantCopy(const std::string& folder, const std::string& problem) {
  return Joined("The games can't be copied to \"", folder, "\": ", problem, ".");
}

/// The first place that has games; "" for none.
std::string PlaceOfGames(const std::vector<std::string>& shipped) {
  for (const std::string& games : shipped) {
    if (LookForGames(games).value_or(true)) return games;
  }
  return "";
}

/// Fills the user's folder. "" or what is wrong.
std::string Fill(const std::string& games, const std::string& folder) {
  if (!games.empty()) {
    const std::string problem = FillFolder(games, folder);
    return problem.empty() ? "" : CantCopy(folder, problem);
  }
  if (HoldsGames(folder)) return "";
  return Joined("There are no games in \"", folder,
                "\", and none were installed with the program.  Name a folder with games on the "
                "command line.");
}

ProgramFolderResult UserFolder(const FolderChoice& choice) {
  fs::path base(choice.DataHome);
  if (!base.is_absolute()) {  // an unset or relative value does not count
    if (choice.Home.empty()) {
      return {"", "No folder was given, and there is no home folder to use instead."};
    }
    base = fs::path(choice.Home) / ".local" / "share";
  }
  const std::string folder = (base / kFolderName).string();
  std::optional<FillingTurn> turn;
  const bool isFilled = HasAllGames(folder).value_or(true);
  if (!isFilled) {
    const std::string problem = MakeFolder(base.string());
    if (!problem.empty()) return {"", CantCopy(folder, problem)};
  }
  if (!isFilled || FillingTurn::IsDue(folder)) turn.emplace(folder, !isFilled);
  const std::string games = PlaceOfGames(choice.ShippedGames);
  // Another start may have filled it meanwhile.
  const std::optional<bool> hasGames = HasAllGames(folder);
  std::string problem = hasGames ? "" : Checked(folder).Error;
  if (!hasGames && problem.empty()) {
    problem = Joined("The text files of \"", folder, "\" can't all be read, so it can't be told ",
                     "whether there are games.");
  } else if (problem.empty() && !*hasGames) {
    problem = Fill(games, folder);
  }
  if (!problem.empty()) return {"", std::move(problem)};
  ProgramFolderResult result = Checked(folder);
  // Whoever makes the games may have a link to them here.
  std::error_code error;
  if (!fs::equivalent(folder, games, error) && !error) {
    result.Shipped = fs::path(games).lexically_normal().string();
  }
  return result;
}

}  // namespace

bool HoldsGames(const std::string& folder) { return LookForGames(folder).value_or(false); }

ProgramFolderResult FindProgramFolder(const FolderChoice& choice) {
  if (!choice.Argument.empty()) return Checked(choice.Argument);
  if (HoldsGames(choice.ExecutableFolder)) return Checked(choice.ExecutableFolder);
  return UserFolder(choice);
}

}  // namespace brindlemoor
