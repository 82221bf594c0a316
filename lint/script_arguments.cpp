// Telling the fields of scripts apart, and the traits of value expressions.
#include "lint/script_arguments.h"

#include <algorithm>
#include <utility>
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

/// The names of the fields that belong to an argument, behind its first one.
std::string_view NamesBehind(ArgumentKind kind, std::string_view text) {
  if (kind == ArgumentKind::kTrigger) {
    const auto* const row = std::ranges::find(kTriggerRows, text, &TriggerRow::Stem);
    return row == kTriggerRows.end() ? std::string_view() : row->Arguments;
  }
  const bool expression = kind == ArgumentKind::kTarget && TargetTypeCode(text) == kTargetGidCard;
  return expression ? "VALUE" : "";
}

/// The fields of a script while they are told apart.
class FieldReading {
 public:
  explicit FieldReading(std::string_view script) : fields_(Fields(script, ':')) {}

  std::vector<ScriptField> Read() {
    while (at_ < fields_.size()) {
      const std::string_view field = fields_[at_];
      const Command* row = FindCommand(field.starts_with("AI") ? field.substr(2) : field);
      Add(row, "");
      if (field.empty()) break;
      if (row != nullptr) ReadArguments(*row);
    }
    return std::move(read_);
  }

 private:
  void Add(const Command* row, std::string_view name, bool continues = false) {
    if (at_ < fields_.size()) read_.push_back({fields_[at_++], row, name, continues});
  }

  void ReadArguments(const Command& row) {
    std::size_t number = 0;
    for (const std::string_view name : Fields(ArgumentNames(row), ' ')) {
      ++number;
      const ArgumentKind kind = KindOfArgument(name);
      if (IsScript(kind) || at_ >= fields_.size()) return;
      const std::string_view text = fields_[at_];
      Add(&row, name);
      if (number <= row.Arguments) continue;  // of which each is one field
      for (const std::string_view behind : Fields(NamesBehind(kind, text), ' ')) {
        Add(&row, behind, true);
      }
    }
  }

  std::vector<std::string_view> fields_;
  std::vector<ScriptField> read_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<ScriptField> FieldsOfScript(std::string_view script) {
  return FieldReading(script).Read();
}

std::vector<ScriptField> FieldsOfArgument(std::string_view name, std::string_view text) {
  FieldWalker fields(text, ':');
  std::vector<ScriptField> read = {{fields.Next(), nullptr, name, false}};
  for (const std::string_view behind :
       Fields(NamesBehind(KindOfArgument(name), read.front().Text), ' ')) {
    if (!fields.AtEnd()) read.push_back({fields.Next(), nullptr, behind, true});
  }
  return read;
}

void VisitArguments(std::string_view script,
                    const std::function<void(const ScriptArgument&)>& visit) {
  const std::vector<ScriptField> fields = FieldsOfScript(script);
  for (std::size_t at = 0; at < fields.size(); ++at) {
    const ScriptField& field = fields[at];
    if (field.Name.empty() || field.Continues) continue;
    const bool last = at + 1 == fields.size();
    visit({field.Row->Word, field.Row->Role, field.Name, field.Text,
           last ? script.substr(script.size()) : fields[at + 1].Text});
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
    if (!standsForZero && row->Takes != KeywordFields::kNames) visit(trait);
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
