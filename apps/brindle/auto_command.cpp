// brindle auto: a match that plays itself.
#include <array>

#include "apps/brindle/commands.h"
#include "core/mind_levels.h"
#include "journal/journal_writer.h"
#include "journal/match_journal.h"
#include "mind/turn_thinking.h"
#include "simulation/automatic_match.h"

namespace brindlemoor {

namespace {

struct MatchOptions : AutomaticMatchOptions {
  std::string Journal;  ///< "" for none
};
using Options = MatchOptions;
constexpr std::array<Option<MatchOptions>, 12> kOptions = {{
    {"--game",
     [](Options& o, std::string_view v) {
       o.Game = v;
       return !v.empty();
     }},
    {"--seed", [](Options& o, std::string_view v) { return ReadNumber(v, o.Seed); }},
    {"--turns",
     [](Options& o, std::string_view v) {
       return ReadNumber(v, o.MaximumTurns) && o.MaximumTurns >= 1;
     }},
    {"--opponent",
     [](Options& o, std::string_view v) { return ReadNumber(v, o.Opponent) && o.Opponent >= 1; }},
    {"--mind", [](Options& o, std::string_view v) { return FindMindLevel(v, o.Mind); }},
    {"--player-mind",
     [](Options& o, std::string_view v) { return FindMindLevel(v, o.PlayerMind); }},
    {"--pages",
     [](Options& o, std::string_view v) {
       o.PagesFolder = v;
       return !v.empty();
     }},
    {"--save",
     [](Options& o, std::string_view v) {
       o.SaveTo = v;
       return !v.empty();
     }},
    {"--continue",
     [](Options& o, std::string_view v) {
       o.Continue = v;
       return !v.empty();
     }},
    {"--despite-changes",
     [](Options& o, std::string_view) {
       o.DespiteChanges = true;
       return true;
     },
     true},
    {"--trace", [](Options& o, std::string_view) { return o.Trace = true; }, true},
    {"--journal",
     [](Options& o, std::string_view v) {
       o.Journal = v;
       return !v.empty();
     }},
}};

bool ChoosesMatch(const Options& options) {
  const Options none;
  return options.Game != none.Game || options.Seed != none.Seed ||
         options.Opponent != none.Opponent;
}

}  // namespace

int RunAuto(Arguments arguments) {
  Options options;
  options.PagesFolder = "brindle-pages";
  options.ThinkOfTurn = ThinkOfTurn;
  std::vector<std::string> folders;
  const int wrong = ReadOptions<Options>(arguments, kOptions, options, folders);
  if (wrong != kSuccess) return wrong;
  if (folders.size() > 1) return WrongUsage("one folder only: ", folders[1]);
  options.Folder = folders.empty() ? "." : folders[0];
  if (!options.Continue.empty() && ChoosesMatch(options)) {
    return WrongUsage("--continue goes on with one match: ",
                      "--game, --seed and --opponent are its");
  }
  JournalWriter journal;
  if (!options.Journal.empty()) {
    const std::string problem = OpenJournal(options.Journal, journal);
    if (!problem.empty()) return Refuse(problem, kWrongUsage);
    RecordMatch(journal, options);
  }
  const auto result = AutomaticMatch(options, std::cout);
  RecordResult(journal, result);
  if (!result.Error.empty()) return Refuse(result.Error, kFailure);
  std::cout << "Pages: " << options.PagesFolder << '\n';
  return journal.Failed() ? kWrongUsage : kSuccess;
}

}  // namespace brindlemoor
