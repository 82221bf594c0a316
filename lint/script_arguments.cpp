// Walking the arguments of scripts and the traits of value expressions.
#include "lint/script_arguments.h"

#include <vector>

#include "core/strings.h"
#include "language/target_types.h"
#include "language/value_keywords.h"

namespace brindlemoor {

namespace {

std::vector<std::string_view> Fields(std::string_view text, char delimiter) {
  std::vector<std::string_view> fields;
  if (text.empty()) return fields;
  for (FieldWalker walker(text, delimiter); !walker.AtEnd();) fields.push_back(walker.Next());
  return fields;
}

bool IsScript(ArgumentKind kind) {
  return kind == ArgumentKind::kScript || kind == ArgumentKind::kRequirements;
}

/// How many fields an argument fills.
std::size_t Width(ArgumentKind kind, std::string_view text) {
  if (kind == ArgumentKind::kTrigger) return 1 + static_cast<std::size_t>(FieldsOfTrigger(text));
  const bool expression = kind == ArgumentKind::kTarget && TargetTypeCode(text) == kTargetGidCard;
  return expression ? 2 : 1;
}

}  // namespace

void VisitArguments(std::string_view script,
                    const std::function<void(const ScriptArgument&)>& visit) {
  const std::vector<std::string_view> fields = Fields(script, ':');
  const auto field = [&](std::size_t n) {
    return n < fields.size() ? fields[n] : script.substr(script.size());
  };
  for (std::size_t at = 0; at < fields.size() && !fields[at].empty();) {
    std::string_view word = fields[at];
    if (word.starts_with("AI")) word.remove_prefix(2);
    const Command* row = FindCommand(word);
    ++at;
    if (row == nullptr) continue;
    std::size_t argument = at;
    const std::string_view names = ArgumentNames(*row);
    for (const std::string_view name : Fields(names, ' ')) {
      const ArgumentKind kind = KindOfArgument(name);
      if (IsScript(kind) || argument >= fields.size()) break;
      visit({row->Word, row->Role, name, field(argument), field(argument + 1)});
      argument += row->TakesRest ? Width(kind, field(argument)) : 1;
    }
    at = row->TakesRest ? argument : at + row->Arguments;
  }
}

void VisitValueTraits(std::string_view expression,
                      const std::function<void(std::string_view trait)>& visit) {
  bool isWorkedOut = false;
  for (FieldWalker fields(expression, '/'); !fields.AtEnd();) {
    const std::string_view word = fields.Next();
    if (word.empty()) return;
    const ValueKeywordRow* row = FindValueKeyword(word);
    if (row == nullptr) continue;
    isWorkedOut = isWorkedOut || row->IsOperator();
    if (row->Takes == KeywordFields::kNone) continue;
    const std::string_view trait = fields.Next();
    const bool standsForZero =
        isWorkedOut && row->Takes == KeywordFields::kTrait && fields.Rest().empty();
    if (!standsForZero) visit(trait);
    if (row->Takes == KeywordFields::kTrait) continue;
    // The needed trait may be missing, and an owner word stands in its place then.
    const std::string_view needed = fields.Next();
    bool isOwner = needed.empty();
    for (const std::string_view owner : OwnerWords()) isOwner |= owner == needed;
    if (!isOwner) {
      visit(needed);
      fields.Next();
    }
  }
}

}  // namespace brindlemoor
