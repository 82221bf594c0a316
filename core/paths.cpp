// Finding files by name.
#include "core/paths.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/folder_lists.h"
#include "core/state.h"
#include "core/strings.h"
#include "text/addresses.h"

namespace brindlemoor {

namespace {

std::string WithForwardSlashes(std::string_view path) {
  std::string out(path);
  std::replace(out.begin(), out.end(), '\\', '/');
  return out;
}

std::string InFolder(std::string_view folder, std::string_view name) {
  return folder.ends_with('/') ? Joined(folder, name) : Joined(folder, "/", name);
}

/// No system has longer names of files; a reference may be of any length.
constexpr std::size_t kLongestName = 255;

/// True when the folder holds the file, whose path is filled in in any case.
bool Holds(std::string_view folder, std::string_view name, std::string& path) {
  SpendWorkOnLook();
  path.reserve(folder.size() + 1 + name.size());
  path.assign(folder);
  if (!folder.ends_with('/')) path += '/';
  path += name;
  return Desktop().Files().Exists(path);
}

/// Searches the program's folder, its parent and then its subfolders, first for the very name.
std::string FindFile(std::string_view name) {
  FolderLists& lists = Folders();
  const std::string& program = State().ProgramFolder;
  const std::string parent = ParentFolder(program);
  std::string path;
  if (Holds(program, name, path) || Holds(parent, name, path)) return path;
  const std::vector<std::string>& subfolders = lists.SubfoldersOf(program);
  const auto search = [&](auto holds) {
    return std::any_of(subfolders.begin(), subfolders.end(), [&](const std::string& subfolder) {
      return !State().Work.StopsSearch() && holds(InFolder(program, subfolder), name, path);
    });
  };
  // A file whose name folds like this one; its path is filled in then.
  const auto holdsInAnyCase = [&lists](std::string_view folder, std::string_view wanted,
                                       std::string& full) {
    const auto names = lists.FilesOf(std::string(folder)).FilesLike(wanted);
    return std::ranges::any_of(
        names, [&](std::string_view present) { return Holds(folder, present, full); });
  };
  if (search(Holds)) return path;
  const bool found = holdsInAnyCase(program, name, path) || holdsInAnyCase(parent, name, path) ||
                     search(holdsInAnyCase);
  return found ? path : "";
}

}  // namespace

std::string ParentFolder(std::string_view folder) {
  const std::size_t separator = folder.rfind('/');
  const bool isTop = separator == std::string_view::npos || separator == 0;
  return std::string(isTop ? "/" : folder.substr(0, separator));
}

bool CanBeFileName(std::string_view name) {
  return !name.empty() && name.size() <= kLongestName && name != "." && name != ".." &&
         name.find('\0') == std::string_view::npos;
}

std::string FileInFolder(const std::string& folder, std::string_view name) {
  std::string path = InFolder(folder, name);
  const FileSystem& files = Desktop().Files();
  if (files.Exists(path)) return path;
  for (const std::string_view present : Folders().FilesOf(folder).FilesLike(name)) {
    path = InFolder(folder, present);
    if (files.Exists(path)) return path;
  }
  return "";
}

std::string& FileNameOnly(std::string& path) {
  if (path.find('/') == std::string::npos && path.find('\\') == std::string::npos) return path;
  const std::string walked = WithForwardSlashes(path);
  FieldWalker components(walked, '/');
  std::string_view last = components.Next();
  for (auto next = components.Next(); !next.empty(); next = components.Next()) last = next;
  path = std::string(last);
  return path;
}

std::string FileNameOf(std::string_view path) {
  std::string name(path);
  return FileNameOnly(name);
}

std::string ResolvePath(std::string_view file, int asUrl) {
  EnterProgramFolder();
  const std::string name = FileNameOf(file);
  SpendWorkOnText(file.size());
  if (!CanBeFileName(name)) return "";
  std::string path = FindFile(name);
  if (asUrl != 1 || path.empty()) return path;
  return Joined(kFileScheme, PageAddress(std::move(path)));
}

void EnterProgramFolder() { State().CurrentFolder = State().ProgramFolder; }

std::string InCurrentFolder(std::string_view file) {
  const std::string path = WithForwardSlashes(file);
  return path.starts_with('/') ? path : InFolder(State().CurrentFolder, path);
}

std::string InProgramFolder(std::string_view file) {
  return InFolder(State().ProgramFolder, WithForwardSlashes(file));
}

}  // namespace brindlemoor
