// A line for each opponent, others stay as they are: #RESULT, "goblins/Ogre.txt", 3, 1, 0
#include "game/match_results.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/field_stream.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "game/match_outcome.h"
#include "game/player_file_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kDirective = "#RESULT";

/// A folder of games that is moved keeps its results.
std::string_view WithinProgramFolder(std::string_view file) {
  const std::string& folder = State().ProgramFolder;
  const bool isWithin =
      file.size() > folder.size() && file.starts_with(folder) && file[folder.size()] == '/';
  return isWithin ? file.substr(folder.size() + 1) : file;
}

/// False for what the program has not written.
bool ReadCount(FieldStream& stream, int& count) {
  constexpr int kMost = 1'000'000;
  std::string field;
  if (!stream.Read(field)) return false;
  const auto [end, failure] = std::from_chars(field.data(), field.data() + field.size(), count);
  return failure == std::errc() && end == field.data() + field.size() && count >= 0 &&
         count <= kMost;
}

/// What a line says of an opponent, nothing for a line of another one or a damaged one.
std::optional<MatchResults> ReadResults(std::string_view line, std::string_view opponentFile) {
  FieldStream stream{std::string(line)};
  std::string field;
  if (!stream.Read(field) || field != kDirective) return std::nullopt;
  if (!stream.Read(field) || FreeTextOf(field) != opponentFile) return std::nullopt;
  MatchResults results;
  for (int* count : {&results.Won, &results.Lost, &results.Undecided}) {
    if (!ReadCount(stream, *count)) return std::nullopt;
  }
  return results;
}

std::string LineOf(std::string_view opponentFile, const MatchResults& results) {
  return Joined(kDirective, ", ", FreeTextField(opponentFile), ", ", results.Won, ", ",
                results.Lost, ", ", results.Undecided, kLineEnd);
}

/// The file without the lines of an opponent, and what the first of them says.
struct ResultsFile {
  MatchResults Found;
  std::string Others;
};

ResultsFile TakeApart(std::string_view text, std::string_view opponentFile) {
  ResultsFile file;
  bool isFound = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    const auto results = ReadResults(line, opponentFile);
    if (!results) {
      file.Others += line;
    } else if (!isFound) {
      file.Found = *results;
      isFound = true;
    }
  }
  if (!file.Others.empty() && !file.Others.ends_with('\n')) file.Others += kLineEnd;
  return file;
}

int& CountOf(MatchResults& results, MatchEnd end) {
  if (end == MatchEnd::kWon) return results.Won;
  return end == MatchEnd::kLost ? results.Lost : results.Undecided;
}

/// "" or what went wrong.
std::string ChangeCount(int by) {
  const MatchRecord& match = State().Match;
  const std::string name = ResultsFileName(State().CurrentGame);
  if (name.empty() || match.IsVisit || match.TookBack || match.OpponentFile.empty()) return "";
  const std::string path = InProgramFolder(name);
  const auto bytes = Desktop().Files().Read(path);
  if (!bytes && IsThere(Desktop().Files(), path)) return CantRead(name, path);
  const std::string_view opponent = WithinProgramFolder(match.OpponentFile);
  ResultsFile file = TakeApart(bytes.value_or(""), opponent);
  int& count = CountOf(file.Found, OutcomeOfMatch().End);
  count = std::max(count + by, 0);
  const std::string failure =
      Desktop().Files().Write(path, file.Others + LineOf(opponent, file.Found));
  return failure.empty() ? "" : Joined("Can't save ", name, ": ", failure);
}

}  // namespace

MatchResults ResultsAgainst(int gameIndex, int opponentIndex) {
  const std::string name = ResultsFileName(gameIndex);
  if (name.empty()) return {};
  const std::string text = Desktop().Files().Read(InProgramFolder(name)).value_or("");
  const Text& file = State().Games[gameIndex].OpponentFiles[opponentIndex];
  return TakeApart(text, WithinProgramFolder(file)).Found;
}

std::string CountEndedMatch() { return ChangeCount(1); }

std::string UncountEndedMatch() { return ChangeCount(-1); }

}  // namespace brindlemoor
