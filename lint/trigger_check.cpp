// Triggers and targets under check: their words and the fields that belong to them.
#include "lint/trigger_check.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/strings.h"
#include "language/target_types.h"
#include "lint/value_check.h"
#include "lint/word_distance.h"
#include "script/command_table.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

using Words = std::vector<std::string_view>;

const Words& TargetWords() {
  static const Words words = [] {
    Words all;
    for (const TargetTypeRow& row : kTargetTypeRows) all.push_back(row.Word);
    return all;
  }();
  return words;
}

const Words& TriggerWords() {
  static const Words words = [] {
    Words all;
    for (const TriggerRow& row : kTriggerRows) {
      if (row.Runs) all.push_back(row.Stem());
    }
    return all;
  }();
  return words;
}

const TriggerRow* FindTrigger(std::string_view word, bool folds) {
  for (const TriggerRow& row : kTriggerRows) {
    if (row.Stem() == word || (folds && row.Folds && FoldEquals(row.Stem(), word))) return &row;
  }
  return nullptr;
}

bool IsMenu(const TriggerRow& row) {
  return KindOfArgument(row.Arguments.substr(0, row.Arguments.find(' '))) == ArgumentKind::kTrigger;
}

std::string TriggerForm(const TriggerRow& row) {
  std::string form = Joined(row.Stem(), ":", row.Arguments);
  std::ranges::replace(form, ' ', ':');
  return form;
}

/// A menu action's trigger is one word.
void CheckMenuTrigger(CheckedFields& fields, std::size_t at) {
  const std::string_view word = fields[at];
  const TriggerRow* row = FindTrigger(word, false);
  if (row != nullptr && row->Runs && row->Arguments.empty()) return;
  const bool known = row != nullptr && row->Runs;
  fields.Add(FindingKind::kUnknownTrigger, at,
             Joined(Quoted(word), " is no trigger of menu actions; the action never runs."),
             known ? std::string() : NearestWord(word, TriggerWords()));
}

}  // namespace

std::size_t CheckTargetFields(CheckedFields& fields, std::size_t at, bool withExpression) {
  const std::string_view word = fields[at];
  const auto* row = std::ranges::find(kTargetTypeRows, word, &TargetTypeRow::Word);
  if (row == kTargetTypeRows.end()) {
    fields.Add(FindingKind::kUnknownTarget, at,
               Joined(Quoted(word), " is no target; the card chosen for the action is taken."),
               NearestWord(word, TargetWords()));
    return at;
  }
  if (row->Code != kTargetGidCard || !withExpression) return at;
  if (fields[at + 1].empty()) {
    fields.AddMissing(at + 1, word, "VALUE", Joined(word, ":VALUE"));
    if (!fields.HoldsTextFrom(at + 1)) return fields.Count();
  } else {
    fields.Findings.SetField(static_cast<int>(at) + 2);
    CheckValuePart(fields.Findings, fields[at + 1]);
  }
  return at + 1;
}

std::size_t CheckTriggerFields(CheckedFields& fields, std::size_t at, bool folds) {
  const TriggerRow* row = FindTrigger(fields[at], folds);
  if (row == nullptr || !row->Runs) {
    const std::string nearest = NearestWord(fields[at], TriggerWords());
    fields.Add(FindingKind::kUnknownTrigger, at,
               Joined(Quoted(fields[at]), " is no trigger; the action never runs."), nearest);
    return at + static_cast<std::size_t>(FieldsOfTrigger(nearest));
  }
  if (row->Arguments.empty()) return at;
  for (FieldWalker names(row->Arguments, ' '); !names.AtEnd();) {
    const std::string_view name = names.Next();
    ++at;
    if (fields[at].empty()) {
      fields.AddMissing(at, row->Stem(), name, TriggerForm(*row));
      if (!fields.HoldsTextFrom(at)) return fields.Count();
    } else if (KindOfArgument(name) == ArgumentKind::kTrigger) {
      CheckMenuTrigger(fields, at);
    }
  }
  return at;
}

std::vector<ScriptFinding> CheckTarget(std::string_view target) {
  CheckedFields fields(target);
  if (fields.Count() == 0) {
    fields.Add(FindingKind::kMissingArgument, 0, "The target is missing.");
  } else if (CheckTargetFields(fields, 0, true) == 0 && fields.Count() > 1 &&
             fields.Findings.None()) {
    fields.Add(FindingKind::kUnknownTarget, 1, Joined("Nothing may stand behind ", fields[0], "."),
               std::string(fields[0]));
  }
  return fields.Findings.Take();
}

std::vector<ScriptFinding> CheckTrigger(std::string_view trigger) {
  CheckedFields fields(trigger);
  if (fields.Count() == 0) {
    fields.Add(FindingKind::kMissingArgument, 0, "The trigger is missing.");
    return fields.Findings.Take();
  }
  const std::size_t behind = CheckTriggerFields(fields, 0, true) + 1;
  if (behind >= fields.Count() || !fields.Findings.None()) return fields.Findings.Take();
  // Only a menu action's trigger is taken apart; the others are compared as a whole.
  if (!IsMenu(*FindTrigger(fields[0], true))) {
    fields.Add(FindingKind::kUnknownTrigger, behind,
               "Nothing may stand behind this trigger; the action never runs.");
  } else if (fields.HoldsTextFrom(behind)) {
    fields.Add(FindingKind::kUnknownTrigger, behind,
               "The caption of a menu action ends at the \":\".");
  }
  return fields.Findings.Take();
}

}  // namespace brindlemoor
