// Finding the program's folder and filling it at the first start.
#include "apps/brindlemoor/program_folder.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

#include "platform/files.h"
#include "platform/machine_file.h"

namespace brindlemoor {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFolderName = "brindlemoor";

bool DeclaresGame(const fs::path& file) {
  const auto text = LocalFileSystem().Read(file.string());
  return text && text->find("#GAMERULES") != std::string::npos;
}

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

/// The tools and notes of those who make the games stay behind.
bool BelongsToGame(const fs::path& file) {
  return file.extension() != ".py" && file.extension() != ".md";
}

/// Copies a folder with all that is in it; what is there already stays as it is. "" or what went
/// wrong.
std::string CopyGames(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::create_directories(to, error);
  LocalFileSystem files;
  files.KeepTo(to.string());
  std::string problem;
  fs::recursive_directory_iterator entry(from, error);
  for (const fs::recursive_directory_iterator end; !error && problem.empty() && entry != end;
       entry.increment(error)) {
    const fs::path target = to / entry->path().lexically_relative(from);
    const bool isCopied = !entry->is_directory(error) && !error && BelongsToGame(target) &&
                          KindOf(target.string()) == EntryKind::kNothing;
    if (error) break;
    if (!isCopied) continue;
    fs::create_directories(target.parent_path(), error);
    const FileContent content = ReadRegularFile(entry->path().string());
    problem = content.Bytes ? files.Write(target.string(), *content.Bytes) : content.Problem;
  }
  return error ? error.message() : problem;
}

ProgramFolderResult UserFolder(const FolderChoice& choice) {
  fs::path base(choice.DataHome);
  if (!base.is_absolute()) {  // an unset or relative value does not count
    if (choice.Home.empty()) {
      return {"", "No folder was given, and there is no home folder to use instead."};
    }
    base = fs::path(choice.Home) / ".local" / "share";
  }
  const fs::path folder = base / kFolderName;
  if (HoldsGames(folder.string())) return Checked(folder);
  for (const std::string& games : choice.ShippedGames) {
    if (!HoldsGames(games)) continue;
    if (const std::string problem = CopyGames(games, folder); !problem.empty()) {
      return {"", "The games can't be copied to \"" + folder.string() + "\": " + problem + "."};
    }
    return Checked(folder);
  }
  return {"", "There are no games in \"" + folder.string() +
                  "\", and none were installed with the program.  Name a folder with games on the "
                  "command line."};
}

}  // namespace

bool HoldsGames(const std::string& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path& file = entry->path();
    std::error_code ignored;
    if (file.extension() == ".txt" && entry->is_regular_file(ignored) && DeclaresGame(file)) {
      return true;
    }
  }
  return false;
}

ProgramFolderResult FindProgramFolder(const FolderChoice& choice) {
  if (!choice.Argument.empty()) return Checked(choice.Argument);
  if (HoldsGames(choice.ExecutableFolder)) return Checked(choice.ExecutableFolder);
  return UserFolder(choice);
}

}  // namespace brindlemoor
