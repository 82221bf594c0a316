// brindle watch: a game is looked over whenever one of its files changes.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <thread>
#include <utility>

#include "apps/brindle/commands.h"
#include "simulation/automatic_match.h"
#include "simulation/report.h"
#include "simulation/stage.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto kBetweenLooks = 200ms;
constexpr std::size_t kMostFiles = 20000;
constexpr std::uint64_t kSeed = 1;
constexpr int kMatches = 10;  // of each pairing, an even number
constexpr int kMostPairings = 12;
constexpr int kMaximumTurns = 100;
constexpr std::string_view kTests = "tests";

struct WatchOptions {
  bool Once = false;
};
constexpr std::array<Option<WatchOptions>, 1> kOptions = {{
    {"--once", [](WatchOptions& o, std::string_view) { return o.Once = true; }, true},
}};

/// What tells that a file has changed.
using Stamp = std::pair<fs::file_time_type, std::uintmax_t>;
using Stamps = std::map<std::string, Stamp>;

void AddStamps(const fs::path& folder, bool withSubfolders, Stamps& stamps) {
  std::error_code failure;
  fs::directory_iterator entry(folder, failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    std::error_code lost;
    if (stamps.size() >= kMostFiles) return;
    if (entry->is_regular_file(lost) && entry->path().extension() == ".txt") {
      stamps[entry->path().string()] = {entry->last_write_time(lost), entry->file_size(lost)};
    } else if (withSubfolders && entry->is_directory(lost)) {
      AddStamps(entry->path(), false, stamps);
    }
  }
}

Stamps StampsOf(const std::string& folder) {
  Stamps stamps;
  AddStamps(folder, true, stamps);
  return stamps;
}

/// How matches between two contenders went.
struct Tally {
  int Won = 0;  ///< by the first of them
  int Turns = 0;
};

/// Half of the matches with the seats changed. "" or why there are none.
std::string PlayPairing(Stage& stage, const Contender& deck, const Contender& opponent,
                        Tally& tally) {
  for (const int seat : {1, 2}) {
    const bool isFirst = seat == 1;
    std::string problem = isFirst ? stage.Seat(deck, opponent) : stage.Seat(opponent, deck);
    if (!problem.empty()) return problem;
    for (std::uint64_t match = 0; match < kMatches / 2; ++match) {
      const PlayedMatch played = stage.Play(kSeed + match, kMaximumTurns);
      tally.Won += played.Winner == seat ? 1 : 0;
      tally.Turns += played.Turns;
    }
  }
  return "";
}

/// Some matches of each deck with each opponent. kFailure when there is nothing to play.
int PlaySome(const std::string& folder) {
  Stage stage;
  std::string problem = stage.Open(folder, "", kSeed);
  int pairings = 0;
  for (const Contender& opponent : stage.Opponents()) {
    for (const Contender& deck : stage.Decks()) {
      if (!problem.empty() || ++pairings > kMostPairings) break;
      Tally tally;
      problem = PlayPairing(stage, deck, opponent, tally);
      std::cout << TerminalText(deck.Name) << " against " << TerminalText(opponent.Name) << ": won "
                << tally.Won << " of " << kMatches << ", "
                << (tally.Turns + kMatches / 2) / kMatches << " turns\n";
    }
  }
  return problem.empty() ? kSuccess : Refuse(problem, kFailure);
}

/// Files, tests, matches: what fails first ends the look. The worst exit code.
int LookOver(const std::string& folder) {
  const auto begin = std::chrono::steady_clock::now();
  const std::array<std::string_view, 1> game = {folder};
  int code = RunCheck(game);
  const std::string tests = Joined(folder, "/", kTests);
  std::error_code failure;
  if (code != kWrongUsage && fs::is_directory(tests, failure)) {
    const std::array<std::string_view, 1> files = {tests};
    code = std::max(code, RunScenario(files));
  }
  if (code != kWrongUsage) code = std::max(code, PlaySome(folder));
  const auto spent = std::chrono::steady_clock::now() - begin;
  std::cout << (code == kSuccess ? "All is well, " : "See above, ")
            << std::chrono::duration_cast<std::chrono::milliseconds>(spent).count() << " ms.\n"
            << std::flush;
  return code;
}

}  // namespace

int RunWatch(Arguments arguments) {
  WatchOptions options;
  std::vector<std::string> folders;
  const int wrong = ReadOptions<WatchOptions>(arguments, kOptions, options, folders);
  if (wrong != kSuccess) return wrong;
  if (folders.empty()) return WrongUsage("a folder is missing behind ", "watch");
  if (folders.size() > 1) return WrongUsage("one folder only: ", folders[1]);
  const std::string folder = AbsoluteFolder(folders[0]);
  std::error_code failure;
  if (!fs::is_directory(folder, failure)) {
    return Refuse(Joined("There is no folder ", folder), kWrongUsage);
  }
  Stamps seen = StampsOf(folder);
  int code = LookOver(folder);
  while (!options.Once && std::cout) {
    std::this_thread::sleep_for(kBetweenLooks);
    Stamps now = StampsOf(folder);
    if (now == seen) continue;
    seen = std::move(now);
    std::cout << "\n";
    code = LookOver(folder);
  }
  return code;
}

}  // namespace brindlemoor
