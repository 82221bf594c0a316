// The walk of the script checker over the commands of a script.
#include "lint/script_check.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/strings.h"
#include "language/value_keywords.h"
#include "lint/checked_fields.h"
#include "lint/message_check.h"
#include "lint/trigger_check.h"
#include "lint/value_check.h"
#include "lint/word_distance.h"
#include "script/command_table.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

using Words = std::vector<std::string_view>;

const Words& CommandWords() {
  static const Words words = [] {
    Words all;
    for (const auto& family : CommandFamilies()) {
      for (const Command& row : family) all.push_back(row.Word);
    }
    return all;
  }();
  return words;
}

std::string_view WithoutMark(std::string_view word) {
  return word.starts_with("AI") ? word.substr(2) : word;
}

class Checker {
 public:
  explicit Checker(std::string_view text) : fields_(text) {}

  std::vector<ScriptFinding> Script() {
    std::size_t at = 0;
    while (at < fields_.Count() && !fields_.Findings.Full() && unknownWords_ < kMostUnknownWords) {
      if (!fields_[at].empty()) {
        at = CheckWord(at);
        continue;
      }
      if (fields_.HoldsTextFrom(at)) {
        fields_.Add(FindingKind::kEmptyFieldEnds, at,
                    "The script ends at the empty field; what stands behind it never runs.");
      }
      break;
    }
    return fields_.Findings.Take();
  }

 private:
  static constexpr std::size_t kMostUnknownWords = 1000;
  static constexpr std::size_t kMostChanged = 64;

  std::size_t CheckWord(std::size_t at);
  std::size_t CheckUnknownWord(std::size_t at);
  void ReportStranger(std::size_t at);
  std::size_t CheckCommand(const Command& row, std::size_t at);
  bool IsMissing(ArgumentKind kind, std::size_t at) const;
  std::size_t CheckArgument(const Command& row, ArgumentKind kind, std::size_t at, bool inRest);
  void CheckText(std::size_t at);
  void CheckRequirement(const Command& row, std::size_t at);
  bool TestsChanged(const Command& row, std::size_t at) const;

  CheckedFields fields_;
  std::size_t unknownWords_ = 0;
  bool inUnknown_ = false;         ///< the field before was no command, and neither was one meant
  std::size_t behindMessage_ = 0;  ///< field behind a message
  std::size_t behindCommand_ = 0;  ///< field behind a command's arguments
  const Command* last_ = nullptr;  ///< that command
  bool acted_ = false;             ///< an effect stands before
  Words changed_;                  ///< traits that the effects before change
};

std::size_t Checker::CheckWord(std::size_t at) {
  const std::string_view word = fields_[at];
  const Command* row = FindCommand(WithoutMark(word));
  if (row == nullptr) return CheckUnknownWord(at);
  inUnknown_ = false;
  if (row->Role == CommandRole::kRequires && !word.starts_with("AI")) CheckRequirement(*row, at);
  const std::size_t next = CheckCommand(*row, at);
  if (row->Role == CommandRole::kSends && word.starts_with("AI") && fields_.Holds(at + 1) &&
      FindCommand(WithoutMark(fields_[at + 1])) == nullptr) {
    fields_.Add(FindingKind::kUnknownCommand, at + 1,
                Joined("Behind ", word, " the script goes on at ", Quoted(fields_[at + 1]),
                       ", which is no command."));
  }
  return next;
}

/// The words behind an unknown one are most likely its arguments: only those are told of as well
/// that look like a command.
std::size_t Checker::CheckUnknownWord(std::size_t at) {
  const std::string_view word = fields_[at];
  const std::string_view bare = WithoutMark(word);
  ++unknownWords_;
  const std::string nearest = NearestWord(bare, CommandWords());
  if (nearest.empty()) {
    if (!inUnknown_) ReportStranger(at);
    inUnknown_ = true;
    return at + 1;
  }
  inUnknown_ = false;
  fields_.Add(FindingKind::kUnknownCommand, at, Joined(Quoted(word), " is no command."),
              Joined(word.substr(0, word.size() - bare.size()), nearest));
  return CheckCommand(*FindCommand(nearest), at);
}

/// A word that is no command and near to none: a field too many, where it reads like a value.
void Checker::ReportStranger(std::size_t at) {
  const std::string_view word = fields_[at];
  const bool behindMessage = at == behindMessage_ && at > 0;
  if (at == behindCommand_ && at > 0 && !behindMessage &&
      (BeginsWithNumber(word) || FindValueKeyword(word.substr(0, word.find('/'))) != nullptr)) {
    fields_.Add(FindingKind::kSurplusArgument, at,
                Joined(Quoted(word), " is one field too many behind ", CommandForm(*last_), "."));
    return;
  }
  fields_.Add(FindingKind::kUnknownCommand, at,
              Joined(Quoted(word), " is no command.",
                     behindMessage ? " A \":\" in a message is written \"&col\"." : ""));
}

/// Checks a command's arguments; the field at which the walk goes on.
std::size_t Checker::CheckCommand(const Command& row, std::size_t at) {
  std::size_t argument = at;
  std::size_t number = 0;
  ArgumentKind kind = ArgumentKind::kText;
  for (FieldWalker names(ArgumentNames(row), ' '); !names.AtEnd();) {
    const std::string_view name = names.Next();
    if (name.empty()) break;
    ++argument;
    ++number;
    kind = KindOfArgument(name);
    if (kind == ArgumentKind::kScript || kind == ArgumentKind::kRequirements) {
      if (kind == ArgumentKind::kScript && !fields_.HoldsTextFrom(argument)) {
        fields_.AddMissing(std::min(argument, fields_.Count()), row.Word, name, CommandForm(row));
      }
      break;
    }
    if (IsMissing(kind, argument)) {
      fields_.AddMissing(std::min(argument, fields_.Count()), row.Word, name, CommandForm(row));
      if (!fields_.HoldsTextFrom(argument)) return fields_.Count();
      if (!fields_[argument].empty()) return argument;
      continue;
    }
    argument = CheckArgument(row, kind, argument, number > row.Arguments);
    if (argument >= fields_.Count()) return argument;
  }
  if (kind == ArgumentKind::kMessage) behindMessage_ = argument + 1;
  if (row.TakesRest) {
    // The rest is a script of its own.
    acted_ = false;
    changed_.clear();
    return argument;
  }
  if (row.Role == CommandRole::kActs) acted_ = true;
  behindCommand_ = at + 1 + row.Arguments;
  last_ = &row;
  return behindCommand_;
}

/// True when nothing stands where an argument belongs, or the next command does.
bool Checker::IsMissing(ArgumentKind kind, std::size_t at) const {
  const std::string_view field = fields_[at];
  const bool command = FindCommand(WithoutMark(field)) != nullptr;
  switch (kind) {
    case ArgumentKind::kContent:
    case ArgumentKind::kSetting:
    case ArgumentKind::kOptionalText:
      return at >= fields_.Count();
    case ArgumentKind::kMessage:
      return !fields_.Holds(at);
    case ArgumentKind::kValue:
      return field.empty() || (command && FindValueKeyword(field) == nullptr);
    case ArgumentKind::kNumber:
    case ArgumentKind::kTrigger:
    case ArgumentKind::kTarget:
      return field.empty() || command;
    default:
      return field.empty();
  }
}

/// Checks an argument that is there; the last field that belongs to it.
std::size_t Checker::CheckArgument(const Command& row, ArgumentKind kind, std::size_t at,
                                   bool inRest) {
  const std::string_view field = fields_[at];
  fields_.Findings.SetField(static_cast<int>(at) + 1);
  switch (kind) {
    case ArgumentKind::kTrigger:
      return CheckTriggerFields(fields_, at, false);
    case ArgumentKind::kTarget:
      return CheckTargetFields(fields_, at, inRest);
    case ArgumentKind::kMessage:
      CheckMessagePart(fields_.Findings, field);
      break;
    case ArgumentKind::kValue:
      CheckValuePart(fields_.Findings, field);
      break;
    case ArgumentKind::kContent:
    case ArgumentKind::kSetting:
      if (IsComputed(field, kind)) {
        CheckValuePart(fields_.Findings, field);
      } else {
        CheckText(at);
      }
      break;
    case ArgumentKind::kNumber:
      if (!BeginsWithNumber(field)) {
        fields_.Add(FindingKind::kUnknownValueWord, at, Joined(Quoted(field), " is no number."));
      }
      break;
    case ArgumentKind::kTrait:
      if (row.Role == CommandRole::kActs && changed_.size() < kMostChanged) {
        changed_.push_back(field);
      }
      CheckText(at);
      break;
    default:
      CheckText(at);
  }
  return at;
}

void Checker::CheckText(std::size_t at) {
  const std::size_t quote = fields_[at].find('"');
  if (quote == std::string_view::npos) return;
  fields_.Findings.SetField(static_cast<int>(at) + 1);
  fields_.Findings.Add(
      FindingKind::kQuoteInText, fields_[at].substr(quote, 1),
      "Files hold \"&quot\" for a quote, and a text that is compared is then another.");
}

/// A condition for what comes behind it may stand anywhere: one on values, or on what an effect
/// before it has changed. Any other chooses cards, and then the effects before it happen as well.
void Checker::CheckRequirement(const Command& row, std::size_t at) {
  if (!acted_ || changed_.size() == kMostChanged) return;
  const std::string_view names = ArgumentNames(row);
  if (KindOfArgument(names.substr(0, names.find(' '))) == ArgumentKind::kValue) return;
  if (TestsChanged(row, at)) return;
  fields_.Add(FindingKind::kRequirementBehindEffect, at,
              Joined(row.Word, " stands behind an effect, which happens even if it is not met."));
}

/// The fields of a value expression.
Words Parts(std::string_view expression) {
  Words parts;
  for (FieldWalker walker(expression, '/'); !walker.AtEnd();) parts.push_back(walker.Next());
  return parts;
}

bool Checker::TestsChanged(const Command& row, std::size_t at) const {
  const auto changed = [this](std::string_view part) {
    return std::ranges::any_of(changed_,
                               [part](std::string_view trait) { return FoldEquals(part, trait); });
  };
  for (std::size_t number = 1; number <= row.Arguments; ++number) {
    if (std::ranges::any_of(Parts(fields_[at + number]), changed)) return true;
  }
  return false;
}

}  // namespace

std::vector<ScriptFinding> CheckScript(std::string_view script) { return Checker(script).Script(); }

}  // namespace brindlemoor
