// Choosing the one finding that a row speaks of, and wording it.
#include "editor/script_hints.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/strings.h"
#include "data/field_text.h"
#include "editor/card_rows.h"
#include "editor/script_parts.h"
#include "lint/place_check.h"
#include "lint/reaction_check.h"
#include "lint/script_check.h"
#include "reference/script_sentence.h"

namespace brindlemoor {

namespace {

using Findings = std::vector<ScriptFinding>;

std::string Worded(const ScriptFinding& finding) {
  if (finding.Suggestion.empty()) return finding.Message;
  return Joined(finding.Message, " Did you mean ", finding.Suggestion, "?");
}

/// The first items of the lists ask for a choice.
bool IsChosen(std::string_view text) { return !text.empty() && !text.starts_with("(Choose a"); }

/// A counter action waits for a reaction instead of a trigger and picks no target.
bool IsCounter(const EffectRow& row) {
  constexpr std::string_view kCounter = "COUNTER";
  return FieldAt(row.Trigger, 1, ':') == kCounter || row.Target == kCounter;
}

void Take(Findings& all, Findings found) {
  for (ScriptFinding& finding : found) all.push_back(std::move(finding));
}

/// What stands in the text of an action that its trait brought is the trait's, not the card's.
std::string_view OwnScript(std::string_view script) {
  constexpr std::string_view kBrought = "TRAIT:TRAITEFFECT:";
  if (!script.starts_with(kBrought)) return script;
  const std::size_t end = script.find(':', kBrought.size());
  return end == std::string_view::npos ? std::string_view() : script.substr(end + 1);
}

/// What is said of an action's own script.
Findings FindingsOfScript(const EffectRow& row) {
  const std::string_view script = OwnScript(row.Script);
  Findings all = CheckScript(script);
  Take(all, CheckReaction(row.Target, row.Trigger, script));
  Take(all, CheckPlace(row.Target, row.Trigger, script));
  return all;
}

/// The stretch of the script that a finding at this byte speaks of.
TextRun MarkedRun(const std::vector<ScriptPart>& parts, std::size_t offset) {
  TextRun command;
  for (const ScriptPart& part : parts) {
    const std::size_t end = part.Offset + part.Text.size();
    if (part.Name.empty() && !part.Text.empty() && part.Offset <= offset) {
      command = {part.Offset, part.Text.size()};
    }
    if (offset < part.Offset || offset >= end) continue;
    // Of a text only the word is meant.
    const std::string_view marked = part.Text.substr(offset - part.Offset);
    const std::size_t blank = part.Name.empty() ? marked.size() : marked.find(' ');
    const std::size_t word = std::min(marked.size(), blank);
    return {offset, std::max<std::size_t>(1, word)};
  }
  return command;
}

}  // namespace

std::vector<TextRun> RunsOfAction(const EffectRow& row) {
  const std::vector<ScriptPart> parts = PartsOfScript(row.Script);
  std::vector<TextRun> runs;
  for (const ScriptPart& part : parts) {
    if (!part.Text.empty()) runs.push_back({part.Offset, part.Text.size(), part.Style});
  }
  const std::size_t before = row.Script.size() - OwnScript(row.Script).size();
  for (const ScriptFinding& finding : FindingsOfScript(row)) {
    TextRun marked = MarkedRun(parts, before + finding.Offset);
    if (marked.Length == 0) continue;
    marked.Note = Worded(finding);
    runs.push_back(std::move(marked));
  }
  return runs;
}

std::string HintForAction(const EffectRow& row) {
  Findings all;
  const bool acts = !row.Script.empty();
  // A row that has no script yet is only being begun.
  if (!IsCounter(row)) {
    if (IsChosen(row.Trigger)) {
      Take(all, CheckTrigger(row.Trigger));
    } else if (acts) {
      return "The trigger is missing; the action never runs.";
    }
    if (IsChosen(row.Target)) {
      Take(all, CheckTarget(row.Target));
    } else if (acts) {
      Take(all, {{FindingKind::kMissingArgument, 0, 0,
                  "The target is missing; the card chosen for the action is taken.", ""}});
    }
  }
  if (acts) Take(all, FindingsOfScript(row));
  const std::string_view why = acts && !IsCounter(row)
                                   ? WhyNeverRun(row.Target, row.Trigger, ActionSide::kAny)
                                   : std::string_view();
  if (!why.empty()) Take(all, {{FindingKind::kActionIsLost, 0, 0, std::string(why), ""}});
  for (const ScriptFinding& finding : all) {
    if (!IsRemark(finding.Kind)) return Worded(finding);
  }
  return all.empty() ? std::string() : Worded(all.front());
}

std::string SentenceForAction(const EffectRow& row) {
  return SentenceOfScript(OwnScript(row.Script));
}

std::string HintForName(std::string_view name) {
  const std::string read = NameAsRead(name);
  if (read == name) return "";
  return Joined("The quotes can't be kept: in a file the name is ", read);
}

}  // namespace brindlemoor
