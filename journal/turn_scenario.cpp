// Playing a journal up to a turn, and telling what the turn changed.
#include "journal/turn_scenario.h"

#include <map>
#include <utility>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "game/kept_matches.h"
#include "journal/match_journal.h"
#include "scenario/scenario_run.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// What the computer thinks of a card says nothing of what its scripts do.
constexpr std::string_view kUntold = "AILOVE";

using Traits = std::map<std::string, std::string>;

struct CardInPlay {
  std::string Name;
  Traits Values;
};
using TableView = std::map<std::int32_t, CardInPlay>;  ///< by GlobalID

TableView ViewOfTable() {
  TableView view;
  for (const Card& card : State().CardTable) {
    if (IsFree(card)) continue;
    CardInPlay& seen = view[card.GlobalID];
    seen.Name = card.Name.Str();
    for (const Text& item : card.Traits) {
      const std::string name(FieldAt(item, 1, ':'));
      if (name.empty() || name == kUntold) continue;
      seen.Values.emplace(name,
                          item.size() > name.size() ? item.Str().substr(name.size() + 1) : "");
    }
  }
  return view;
}

/// How lines name a card: by what stands on it where no other in play is called so.
std::string ReferenceTo(std::int32_t globalId, const TableView& view) {
  const std::string& name = view.at(globalId).Name;
  int count = 0;
  for (const auto& [id, card] : view) count += card.Name == name ? 1 : 0;
  const std::string word = ScenarioWordFor(name);
  const bool isOwnWord = name == "rules" || name == "cost" || name.find(':') != name.npos;
  return count == 1 && !word.empty() && !isOwnWord ? word : Joined("gid:", globalId);
}

void AddTraitLines(std::string& text, const std::string& reference, const Traits& before,
                   const Traits& after) {
  for (const auto& [name, value] : after) {
    const auto was = before.find(name);
    if (was != before.end() && was->second == value) continue;
    const std::string words[] = {ScenarioWordFor(name), ScenarioWordFor(value)};
    if (words[0].empty() || words[1].empty()) continue;  // no line can hold it
    text += Joined("expect trait ", reference, " ", words[0], value.empty() ? "" : " ",
                   value.empty() ? "" : words[1], "\n");
  }
  for (const auto& [name, value] : before) {
    const std::string word = ScenarioWordFor(name);
    if (after.contains(name) || word.empty()) continue;
    text += Joined("expect notrait ", reference, " ", word, "\n");
  }
}

/// A line for each trait and card that a turn changed.
std::string ChangeLines(const TableView& before, const TableView& after) {
  std::string text;
  for (const auto& [id, card] : after) {
    const std::string reference = ReferenceTo(id, after);
    const auto was = before.find(id);
    if (was == before.end()) {
      text += Joined("expect card ", reference, " in table\n");
      continue;
    }
    AddTraitLines(text, reference, was->second.Values, card.Values);
  }
  for (const auto& [id, card] : before) {
    if (!after.contains(id)) text += Joined("# ", ShownText(card.Name), " has left the table.\n");
  }
  return Joined(text, "expect count table ", after.size(), "\n");
}

/// The match before a turn, out of a replay. The journal's end and its differences behind the turn
/// do not matter.
std::string MatchBefore(const Journal& journal, ReplayOptions options, int turn,
                        TurnScenario& scenario) {
  int last = 0;
  options.BeforeTurn = [&] {
    last = State().Match.Turns + 1;
    if (last != turn) return;
    MatchFileBytes file = ComposeMatchFile();
    scenario.Match = std::move(file.Bytes);
    scenario.Problem = std::move(file.Problem);
  };
  const bool isSession = journal.Kind == kSessionJournal;
  const ReplayResult result =
      isSession ? ReplaySession(journal, options) : ReplayMatch(journal, options);
  if (!result.Problem.empty()) return result.Problem;
  if (!scenario.Problem.empty()) return scenario.Problem;
  if (!scenario.Match.empty()) return "";
  if (!result.Difference.empty()) return Joined("The journal differs first: ", result.Difference);
  return Joined("The journal's last turn is ", last, ".");
}

}  // namespace

TurnScenario ScenarioOfTurn(const Journal& journal, const ReplayOptions& options, int turn,
                            const std::string& matchName, const std::string& folder) {
  TurnScenario scenario;
  if (journal.Kind == kSimulationJournal) {
    scenario.Problem = "The journal of a simulation holds no single turns.";
    return scenario;
  }
  scenario.Problem = MatchBefore(journal, options, turn, scenario);
  if (!scenario.Problem.empty()) return scenario;
  const std::string head = Joined("# Turn ", turn, " as it was played.\n");
  const std::string road = Joined("match ", ScenarioWordFor(matchName), "\nturn\n");
  // Carried out in memory, to see what the turn changes.
  const std::string path = Joined(options.Folder, "/turn.txt");
  ScenarioLibrary library;
  library.Machine().KeepTo(options.Folder);
  library.Machine().Put(path, road);
  library.Machine().Put(Joined(options.Folder, "/", matchName), scenario.Match);
  TableView before;
  std::string changes;
  ScenarioReport report;
  RunScenarioFile(path, library, report, [&](const Scene& scene) {
    if (scene.Line->Word->Word == "match") before = ViewOfTable();
    if (scene.Line->Word->Word == "turn") changes = ChangeLines(before, ViewOfTable());
  });
  if (!report.Findings.empty()) {
    scenario.Problem = ScenarioFindingLine(report.Findings.front());
    return scenario;
  }
  scenario.Text = Joined(head, "folder ", ScenarioWordFor(folder), "\n", road, changes);
  return scenario;
}

}  // namespace brindlemoor
