// Checking the games of open files, and marking what was found.
#include "server/diagnostics.h"

#include <algorithm>
#include <set>
#include <utility>

#include "check/game_check.h"
#include "core/paths.h"
#include "data/profiles.h"
#include "server/json_ranges.h"

namespace brindlemoor {

namespace {

/// What is checked together with each of the files: the folder of its game, or the file alone.
std::set<std::string> CheckedTogether(const std::vector<std::string>& paths) {
  std::map<std::string, std::string> games;  // by folder
  std::set<std::string> together;
  for (const std::string& path : paths) {
    const std::string folder = ParentFolder(path);
    const auto [game, isNew] = games.try_emplace(folder);
    if (isNew) game->second = FolderOfGame(folder);
    const bool isOfGame = !game->second.empty() && IsCardFileName(path);
    together.insert(isOfGame ? game->second : path);
  }
  return together;
}

/// Behind what a finding speaks of: the field of a line, script or value that begins there.
std::size_t EndOfMarked(std::string_view text, std::size_t begin, std::size_t lineEnd) {
  const std::size_t end = std::min(text.find_first_of(",:/\"", begin), lineEnd);
  return end > begin ? end : std::min(begin + 1, lineEnd);
}

Json DiagnosticOf(const Finding& finding, std::string_view text, const TextPositions& positions) {
  // The protocol counts errors, warnings and informations from 1, as the findings do from 0.
  const FindingRow& row = RowOf(finding.Code);
  std::size_t begin = 0;
  std::size_t end = 0;  // of what is said of the file as a whole
  if (finding.Place.Line > 0) {
    begin = positions.ByteOfCharacter(finding.Place.Line, finding.Place.Column);
    end = EndOfMarked(text, begin, positions.LineEnd(positions.PositionOf(begin).Line));
  }
  return {{"range", RangeOf(positions, begin, end)},
          {"severity", static_cast<int>(row.Level) + 1},
          {"code", row.Word},
          {"source", "brindle"},
          {"message", FindingSentence(finding)}};
}

}  // namespace

std::map<std::string, std::vector<Finding>> FindingsIn(const std::vector<std::string>& paths) {
  std::map<std::string, std::vector<Finding>> findings;
  for (const std::string& path : paths) findings[path];
  for (const std::string& place : CheckedTogether(paths)) {
    CheckResult result = CheckPaths({place});
    for (Finding& finding : result.Findings) {
      const auto entry = findings.find(finding.File);
      if (entry != findings.end()) entry->second.push_back(std::move(finding));
    }
  }
  return findings;
}

Json DiagnosticsOf(const std::vector<Finding>& findings, std::string_view text,
                   PositionUnits units) {
  const TextPositions positions(text, units);
  Json list = Json::array();
  for (const Finding& finding : findings) {
    list.push_back(DiagnosticOf(finding, text, positions));
  }
  return list;
}

}  // namespace brindlemoor
