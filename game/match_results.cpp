// A line for each opponent and mind, others stay as they are: #RESULT, "goblins/Ogre.txt", 3, 1, 0
#include "game/match_results.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
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

/// By the mind of the opponent. A program that knows but the first keeps the lines of the others.
constexpr std::array<std::string_view, kMindLevels.size()> kDirectives = {
    "#RESULT", "#RESULTTHOUGHTFUL", "#RESULTDEEP"};

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

/// Whose results a line holds.
struct ResultsKey {
  std::string OpponentFile;
  int Mind = kPlainMind;
  bool operator==(const ResultsKey&) const = default;
};
struct ResultsLine {
  ResultsKey Key;
  MatchResults Results;
};

/// What a line says, nothing for one that says something else or is damaged.
std::optional<ResultsLine> ReadResults(std::string_view text) {
  FieldStream stream{std::string(text)};
  std::string field;
  if (!stream.Read(field)) return std::nullopt;
  const auto* const directive = std::ranges::find(kDirectives, field);
  if (directive == kDirectives.end() || !stream.Read(field)) return std::nullopt;
  ResultsLine line{{FreeTextOf(field), static_cast<int>(directive - kDirectives.begin())}, {}};
  for (int* count : {&line.Results.Won, &line.Results.Lost, &line.Results.Undecided}) {
    if (!ReadCount(stream, *count)) return std::nullopt;
  }
  return line;
}

std::string LineOf(const ResultsKey& key, const MatchResults& results) {
  return Joined(kDirectives[static_cast<std::size_t>(key.Mind)], ", ",
                FreeTextField(key.OpponentFile), ", ", results.Won, ", ", results.Lost, ", ",
                results.Undecided, kLineEnd);
}

/// The next line of a text, with its end.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  return line;
}

/// The file without the lines of a key, and what the first of them says.
struct ResultsFile {
  MatchResults Found;
  std::string Others;
};

ResultsFile TakeApart(std::string_view text, const ResultsKey& key) {
  ResultsFile file;
  bool isFound = false;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const auto read = ReadResults(line);
    if (!read || read->Key != key) {
      file.Others += line;
    } else if (!isFound) {
      file.Found = read->Results;
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
  const ResultsKey key{std::string(WithinProgramFolder(match.OpponentFile)), match.EasiestMind};
  ResultsFile file = TakeApart(bytes.value_or(""), key);
  int& count = CountOf(file.Found, OutcomeOfMatch().End);
  count = std::max(count + by, 0);
  const std::string failure = Desktop().Files().Write(path, file.Others + LineOf(key, file.Found));
  return failure.empty() ? "" : Joined("Can't save ", name, ": ", failure);
}

}  // namespace

namespace {

std::string ResultsTextOf(int gameIndex) {
  const std::string name = ResultsFileName(gameIndex);
  if (name.empty()) return "";
  return Desktop().Files().Read(InProgramFolder(name)).value_or("");
}

}  // namespace

MatchResults ResultsAgainst(int gameIndex, int opponentIndex, int mind) {
  const std::string text = ResultsTextOf(gameIndex);
  if (text.empty()) return {};
  const Text& file = State().Games[gameIndex].OpponentFiles[opponentIndex];
  return TakeApart(text, {std::string(WithinProgramFolder(file)), mind}).Found;
}

std::vector<BeatenOpponent> BeatenOpponents(int gameIndex) {
  std::map<std::string, int, std::less<>> hardest;
  const std::string text = ResultsTextOf(gameIndex);
  for (std::string_view rest = text; !rest.empty();) {
    const auto line = ReadResults(TakeLine(rest));
    if (!line || line->Results.Won == 0) continue;
    int& mind = hardest.try_emplace(line->Key.OpponentFile, kPlainMind).first->second;
    mind = std::max(mind, line->Key.Mind);
  }
  std::vector<BeatenOpponent> beaten;
  if (hardest.empty()) return beaten;
  const Table<Text>& files = State().Games[gameIndex].OpponentFiles;
  for (int opponent = 1; opponent <= files.UpperBound(); ++opponent) {
    const auto found = hardest.find(WithinProgramFolder(files[opponent]));
    if (found != hardest.end()) beaten.push_back({opponent, found->second});
  }
  return beaten;
}

std::string CountEndedMatch() { return ChangeCount(1); }

std::string UncountEndedMatch() { return ChangeCount(-1); }

}  // namespace brindlemoor
