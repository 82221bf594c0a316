// Picture files of a folder: which they are, and one of them by chance.
#include "images/folder_pictures.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/random.h"
#include "core/state.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

/// Folded. A bitmap stands in the list twice, as authors know the picker: its pages, and the one
/// drawn by chance, go by that count.
constexpr std::string_view kPatterns[] = {"*.BMP", "*.JPG", "*.GIF", "*.JPEG",
                                          "*.BMP", "*.PNG", "*.WEBP"};

bool IsSeparator(char character) { return character == '/' || character == '\\'; }

std::vector<std::string> FoldedNames(const std::vector<std::string>& names) {
  std::vector<std::string> folded;
  folded.reserve(names.size());
  for (const std::string& name : names) folded.push_back(FoldUpper(name));
  return folded;
}

}  // namespace

std::string WithSeparator(std::string_view folder) {
  while (!folder.empty() && IsSeparator(folder.back())) folder.remove_suffix(1);
  return std::string(folder) + "/";
}

std::vector<std::string> FilesIn(const std::string& folder) {
  return Desktop().Files().ListFiles(folder.substr(0, folder.size() - 1));
}

bool MatchesPattern(std::string_view foldedName, std::string_view foldedPattern) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t name = 0;
  std::size_t pattern = 0;
  std::size_t star = kNone;  // the last one passed, and the name's place that it was tried with
  std::size_t tried = 0;
  while (name < foldedName.size()) {
    const char wanted = pattern < foldedPattern.size() ? foldedPattern[pattern] : '\0';
    if (wanted == '*') {
      star = pattern++;
      tried = name;
    } else if (pattern < foldedPattern.size() && (wanted == '?' || wanted == foldedName[name])) {
      ++pattern;
      ++name;
    } else if (star != kNone) {
      pattern = star + 1;
      name = ++tried;
    } else {
      return false;
    }
  }
  return foldedPattern.find_first_not_of('*', pattern) == kNone;
}

bool IsPictureName(std::string_view name) {
  const std::string folded = FoldUpper(name);
  return std::ranges::any_of(
      kPatterns, [&folded](std::string_view pattern) { return MatchesPattern(folded, pattern); });
}

std::vector<std::string> PicturesIn(const std::string& folder) {
  const std::vector<std::string> names = FilesIn(folder);
  const std::vector<std::string> folded = FoldedNames(names);
  std::vector<std::string> pictures;
  for (const std::string_view pattern : kPatterns) {
    for (std::size_t index = 0; index < names.size(); ++index) {
      if (MatchesPattern(folded[index], pattern)) pictures.push_back(folder + names[index]);
    }
  }
  return pictures;
}

std::string PickRandomFile(const std::string& folder, std::string_view pattern) {
  FolderFiles& files = State().RandomPictures;
  // The pattern does not count for what is kept: all callers draw with the same one.
  if (folder.empty() || folder != files.Folder || files.Names.empty()) {
    files = {folder, {}};
    const std::string foldedPattern = FoldUpper(pattern);
    // Without a folder in front the names are those of the current one.
    for (std::string& name : FilesIn(folder.empty() ? State().CurrentFolder + "/" : folder)) {
      if (MatchesPattern(FoldUpper(name), foldedPattern)) files.Names.push_back(std::move(name));
    }
  }
  if (files.Names.empty()) return "";
  const int drawn = RollDie(static_cast<double>(files.Names.size()));
  return folder + files.Names[static_cast<std::size_t>(drawn) - 1];
}

}  // namespace brindlemoor
