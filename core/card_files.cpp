// Which of several card files of one name is meant.
#include "core/card_files.h"

#include <algorithm>
#include <vector>

#include "core/desktop.h"
#include "core/folder_lists.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"

namespace brindlemoor {

namespace {

/// A look for a second file of the name of the one that was found.
class TwinSearch {
 public:
  TwinSearch(FolderLists& lists, const std::string& found)
      : lists_(lists), found_(found), name_(FileNameOf(found)), leadsTo_(Followed(found)) {}

  /// True when the folder holds one, which Twin is then.
  bool In(const std::string& folder) {
    SpendWorkOnLook();
    const auto alike = lists_.FilesOf(folder).FilesLike(name_);
    return std::ranges::any_of(
        alike, [&](std::string_view present) { return Is(Joined(folder, "/", present)); });
  }
  /// The same for a folder that is not the program's own: only the very name counts there, so that
  /// it need not be listed.
  bool InParent(const std::string& folder) {
    SpendWorkOnLook();
    return Is(Joined(folder == "/" ? "" : folder, "/", name_));
  }
  const std::string& Twin() const { return twin_; }

 private:
  static std::string Followed(const std::string& path) { return Desktop().Files().Followed(path); }
  bool Is(std::string path) {
    if (path == found_ || !Desktop().Files().Exists(path) || Followed(path) == leadsTo_) {
      return false;
    }
    twin_ = std::move(path);
    return true;
  }

  FolderLists& lists_;
  const std::string& found_;
  std::string name_;
  std::string leadsTo_;
  std::string twin_;
};

void LookForTwin(ReferencedFile& found) {
  const std::string& program = State().ProgramFolder;
  FolderLists& lists = Folders();
  const std::vector<std::string>& subfolders = lists.SubfoldersOf(program);
  TwinSearch search(lists, found.Path);
  bool isThere = search.In(program) || search.InParent(ParentFolder(program));
  found.TooManyFolders = !isThere && subfolders.size() > limits::kTwinFolders;
  if (found.TooManyFolders) return;
  for (auto folder = subfolders.begin(); !isThere && folder != subfolders.end(); ++folder) {
    isThere = search.In(Joined(program, "/", *folder));
  }
  found.Twin = search.Twin();
  found.TooManyFolders = !isThere && WorkIsSpent();
}

std::string InsideProgramFolder(const std::string& path) {
  const std::string folder = State().ProgramFolder + "/";
  return path.starts_with(folder) ? path.substr(folder.size()) : path;
}

}  // namespace

std::string FileOfOwnGame(std::string_view file) {
  const Session& session = State();
  if (!session.Games.Holds(session.CurrentGame)) return "";
  SpendWorkOnText(file.size());
  const std::string name = FileNameOf(file);
  if (!CanBeFileName(name)) return "";
  SpendWorkOnLook();
  const Text& folder = session.Games[session.CurrentGame].Folder;
  return FileInFolder(folder.empty() ? session.ProgramFolder : InProgramFolder(folder), name);
}

ReferencedFile FindReferencedFile(std::string_view file) {
  EnterProgramFolder();
  ReferencedFile found{FileOfOwnGame(file)};
  if (!found.Path.empty()) return found;
  found.Path = ResolvePath(file, 0);
  if (!found.Path.empty()) LookForTwin(found);
  return found;
}

std::string TakeReferencedFile(std::string_view file) {
  ReferencedFile found = FindReferencedFile(file);
  if (!found.IsSure()) ++State().TwinsTaken;
  if (!found.Twin.empty()) AddTwins(file, found, "the first is taken");
  return std::move(found.Path);
}

void AddTwins(std::string_view file, const ReferencedFile& found, std::string_view outcome) {
  const std::string first = InsideProgramFolder(found.Path);
  AddProblemOnce(file, found.TooManyFolders
                           ? Joined("there are too many folders to tell whether \"", first,
                                    "\" is the only file of its name: ", outcome)
                           : Joined("there are two files of this name, \"", first, "\" and \"",
                                    InsideProgramFolder(found.Twin), "\": ", outcome));
}

void AddProblemOnce(std::string_view file, std::string_view message) {
  const auto& problems = State().Problems;
  SpendWorkOnSearch(problems.size());
  if (std::ranges::find(problems, message, &Problem::Message) != problems.end()) return;
  AddProblem(file, 0, message);
}

}  // namespace brindlemoor
