// brindle new: a folder with a small game.
#include <algorithm>
#include <array>
#include <filesystem>

#include "apps/brindle/commands.h"
#include "core/paths.h"
#include "editor/new_game.h"
#include "platform/files.h"
#include "platform/machine_folder.h"
#include "simulation/automatic_match.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

struct NewOptions {
  std::string Name;
};
constexpr std::array<Option<NewOptions>, 1> kOptions = {{
    {"--name", [](NewOptions& o, std::string_view v) { return !(o.Name = v).empty(); }},
}};

/// Nothing of what is there is ever mixed with the new files.
std::string RefuseFolder(const std::string& folder) {
  std::error_code failure;
  const auto status = std::filesystem::symlink_status(folder, failure);
  if (!std::filesystem::exists(status)) return "";
  const bool isEmpty = std::filesystem::is_directory(status) &&
                       std::filesystem::is_empty(folder, failure) && !failure;
  return isEmpty ? "" : Joined(folder, " is there already.");
}

/// Takes away what was written, and the folder unless it was there before.
void RemoveGame(const std::string& folder, bool wasThere) {
  if (!wasThere) {
    RemoveFolder(folder);
    return;
  }
  std::error_code failure;
  for (const auto& entry : std::filesystem::directory_iterator(folder, failure)) {
    std::filesystem::remove_all(entry.path(), failure);
  }
}

/// "" or what went wrong; then nothing of the game stays.
std::string WriteGame(const std::string& folder, std::string_view name) {
  LocalFileSystem files;
  const bool wasThere = files.FolderExists(folder);
  for (const NewGameFile& file : FilesOfNewGame(name)) {
    const std::string path = Joined(folder, "/", file.Path);
    std::string problem = MakeFolder(ParentFolder(path));
    if (problem.empty()) problem = files.Write(path, file.Text);
    if (problem.empty()) continue;
    RemoveGame(folder, wasThere);
    return Joined("Can't write ", path, ": ", problem);
  }
  return "";
}

void TellOfGame(const std::string& folder, std::string_view name) {
  for (const NewGameFile& file : FilesOfNewGame(name)) {
    std::cout << folder << '/' << file.Path << '\n';
  }
  const bool isPlain = folder.find_first_of(" \"'$&()") == folder.npos;
  const std::string named = isPlain ? folder : Joined("'", folder, "'");
  std::cout << "\nPlay it:   brindlemoor " << named << "\nCheck it:  brindle check " << named
            << "\nTest it:   brindle scenario " << named << "/tests\n";
}

}  // namespace

int RunNew(Arguments arguments) {
  NewOptions options;
  std::vector<std::string> folders;
  const int wrong = ReadOptions<NewOptions>(arguments, kOptions, options, folders);
  if (wrong != kSuccess) return wrong;
  if (folders.empty()) return WrongUsage("a folder is missing behind ", "new");
  if (folders.size() > 1) return WrongUsage("one folder only: ", folders[1]);
  const std::string folder = AbsoluteFolder(folders[0]);
  if (options.Name.empty()) options.Name = FileNameOf(folder);
  std::string problem = RefuseGameName(options.Name);
  if (problem.empty()) problem = RefuseFolder(folder);
  if (problem.empty()) problem = WriteGame(folder, options.Name);
  if (!problem.empty()) return Refuse(problem, kFailure);
  TellOfGame(folders[0], options.Name);
  return kSuccess;
}

}  // namespace brindlemoor
