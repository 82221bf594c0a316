// Finding files by name.
#include "core/paths.h"

#include <algorithm>
#include <vector>

#include "core/fold.h"
#include "core/state.h"
#include "core/strings.h"
#include "platform/platform.h"

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

std::string ParentFolder(std::string_view folder) {
  const std::size_t separator = folder.rfind('/');
  return separator == std::string_view::npos || separator == 0
             ? "/"
             : std::string(folder.substr(0, separator));
}

/// The folders that a reference may lie in, in the order of the search.
std::vector<std::string> SearchedFolders() {
  const std::string& program = State().ProgramFolder;
  std::vector<std::string> folders = {program, ParentFolder(program)};
  for (const std::string& name : Desktop().Files().ListFolders(program)) {
    folders.push_back(InFolder(program, name));
  }
  return folders;
}

std::string FindFile(const std::string& name) {
  FileSystem& files = Desktop().Files();
  const std::vector<std::string> folders = SearchedFolders();
  for (const std::string& folder : folders) {
    std::string path = InFolder(folder, name);
    if (files.Exists(path)) return path;
  }
  for (const std::string& folder : folders) {
    for (const std::string& present : files.ListFiles(folder)) {
      if (!FoldEquals(present, name)) continue;
      std::string path = InFolder(folder, present);
      if (files.Exists(path)) return path;
    }
  }
  return "";
}

}  // namespace

std::string& FileNameOnly(std::string& path) {
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
  const bool impossible =
      name.empty() || name == "." || name == ".." || name.find('\0') != std::string::npos;
  if (impossible) return "";
  const std::string path = FindFile(name);
  return asUrl == 1 && !path.empty() ? "file://" + path : path;
}

void EnterProgramFolder() { State().CurrentFolder = State().ProgramFolder; }

std::string InCurrentFolder(std::string_view file) {
  const std::string path = WithForwardSlashes(file);
  return path.starts_with('/') ? path : InFolder(State().CurrentFolder, path);
}

std::string InProgramFolder(std::string_view file) {
  return InFolder(State().ProgramFolder, WithForwardSlashes(file));
}

std::string FileUrl(std::string_view path) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/!$&'()*+,;=:@";
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char character : path) {
    if (kPlain.find(character) != std::string_view::npos) {
      url += character;
      continue;
    }
    const auto byte = static_cast<unsigned char>(character);
    url += Joined('%', kHex[byte >> 4U], kHex[byte & 0xFU]);
  }
  return url;
}

}  // namespace brindlemoor
