// Gathering the files of a game by its folder and by what they include.
#include "game/game_files.h"

#include <optional>
#include <set>
#include <utility>

#include "core/card_files.h"
#include "core/desktop.h"
#include "core/folder_lists.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/field_stream.h"
#include "data/profiles.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The bytes of a file, as long as there is work left for it.
std::optional<std::string> BytesOf(const std::string& path) {
  if (WorkIsSpent()) return std::nullopt;
  auto bytes = Desktop().Files().Read(path);
  if (bytes) State().Work.SpendOnFile(bytes->size());
  return bytes;
}

/// Files that wait to be looked at, and those that were.
class Gathering {
 public:
  /// False for a name that is there already, and for none at all.
  bool Add(const std::string& path) {
    const bool isRoom = paths_.size() < static_cast<std::size_t>(limits::kFilesOfRead);
    const bool isNew = isRoom && !path.empty() && names_.insert(FoldUpper(FileNameOf(path))).second;
    if (isNew) paths_.push_back(path);
    return isNew;
  }
  /// Adds what the files include, and what those do.
  void FollowIncludes() {
    for (std::size_t index = 0; index < paths_.size(); ++index) {
      const auto bytes = BytesOf(paths_[index]);
      if (!bytes || bytes->find("#INCLUDE") == std::string::npos) continue;
      FieldStream stream(*bytes);
      for (std::string field; stream.Read(field);) {
        if (field == "#INCLUDE" && stream.Read(field)) Add(FindReferencedFile(field).Path);
      }
    }
  }
  std::vector<std::string> Take() { return std::move(paths_); }

 private:
  std::vector<std::string> paths_;
  std::set<std::string> names_;
};

bool DeclaresGame(const std::string& path) {
  const auto bytes = BytesOf(path);
  return bytes && bytes->find("#GAMERULES") != std::string::npos;
}

}  // namespace

std::vector<std::string> CardFilesOf(const GameRec& game) {
  const WorkAccount account;
  Gathering files;
  files.Add(InProgramFolder(game.RulesFile));
  const bool hasFolder = !game.Folder.empty();
  const std::string folder = hasFolder ? InProgramFolder(game.Folder) : State().ProgramFolder;
  for (const std::string& name : Folders().FilesOf(folder).Files()) {
    const std::string path = Joined(folder, "/", name);
    if (IsCardFileName(name) && (hasFolder || !DeclaresGame(path))) files.Add(path);
  }
  files.FollowIncludes();
  return files.Take();
}

std::vector<std::string> FilesIncludedBy(const std::string& path) {
  const WorkAccount account;
  Gathering files;
  files.Add(path);
  files.FollowIncludes();
  return files.Take();
}

}  // namespace brindlemoor
