// Finding tests by the rules that they read.
#include "sharing/test_files.h"

#include <algorithm>
#include <optional>

#include "core/desktop.h"
#include "core/folder_lists.h"
#include "core/paths.h"
#include "data/profiles.h"
#include "text/encoding.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kFolder = "tests";
constexpr std::string_view kBlanks = " \t\r";

/// What stands behind a word at the beginning of a line, without quotes; nothing for other lines.
std::optional<std::string_view> BehindWord(std::string_view line, std::string_view word) {
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  if (!line.starts_with(word)) return std::nullopt;
  line.remove_prefix(word.size());
  if (line.empty() || kBlanks.find(line[0]) == kBlanks.npos) return std::nullopt;
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  const bool isQuoted = line.starts_with('"');
  if (isQuoted) line.remove_prefix(1);
  return line.substr(0, line.find_first_of(isQuoted ? "\"" : kBlanks));
}

/// What all lines with a word name.
std::vector<std::string> NamesBehind(std::string_view text, std::string_view word) {
  std::vector<std::string> names;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    if (const auto name = BehindWord(text.substr(start, end - start), word)) {
      names.emplace_back(*name);
    }
    start = end + 1;
  }
  return names;
}

}  // namespace

std::vector<std::string> TestsOfGame(std::string_view rulesFile) {
  const std::string folder = InProgramFolder(kFolder);
  std::vector<std::string> tests;
  std::vector<std::string> included;
  for (const std::string& name : Folders().FilesOf(folder).Files()) {
    if (!IsCardFileName(name)) continue;
    const std::string path = Joined(folder, "/", name);
    const std::string text = DecodeFileText(Desktop().Files().Read(path).value_or(""));
    const auto rules = NamesBehind(text, "rules");
    const bool isOfGame = std::ranges::any_of(
        rules, [&](const std::string& file) { return FoldEquals(FileNameOf(file), rulesFile); });
    if (!isOfGame) continue;
    tests.push_back(path);
    for (const std::string& file : NamesBehind(text, "include")) included.push_back(file);
  }
  for (const std::string& file : included) {
    const std::string path = Joined(folder, "/", file);
    const bool isBeside = CanBeFileName(file) && file.find('/') == file.npos;
    if (isBeside && Desktop().Files().Exists(path)) tests.push_back(path);
  }
  return tests;
}

}  // namespace brindlemoor
