// Telling the parts of a script apart for their colours and their places in the reference.
#include "editor/script_parts.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "core/strings.h"
#include "language/value_keywords.h"
#include "lint/script_arguments.h"
#include "lint/value_check.h"
#include "reference/anchors.h"

namespace brindlemoor {
namespace {

TextStyle StyleOfCommand(const Command* row) {
  if (row == nullptr) return TextStyle::kUnknown;
  switch (row->Role) {
    case CommandRole::kRequires:
    case CommandRole::kChances:
      return TextStyle::kCondition;
    default:
      return TextStyle::kCommand;
  }
}

TextStyle StyleOfArgument(std::string_view name) {
  switch (KindOfArgument(name)) {
    case ArgumentKind::kTrait:
      return TextStyle::kName;
    case ArgumentKind::kNumber:
      return TextStyle::kValue;
    case ArgumentKind::kTrigger:
    case ArgumentKind::kTarget:
      return TextStyle::kPlace;
    case ArgumentKind::kMessage:
      return TextStyle::kMessage;
    default:
      return name == "NAME" ? TextStyle::kName : TextStyle::kMessage;
  }
}

bool IsValue(const ScriptField& field) {
  const ArgumentKind kind = KindOfArgument(field.Name);
  return kind == ArgumentKind::kValue || IsComputed(field.Text, kind);
}

bool IsOwnerWord(std::string_view word) {
  return std::ranges::find(OwnerWords(), word) != OwnerWords().end();
}

/// The "/" fields of a value, told apart one after the other.
class ValueReading {
 public:
  /// The name and style of the next field.
  std::pair<std::string_view, TextStyle> Take(std::string_view word, std::string_view argument) {
    if (behind_.empty()) return TakeWord(word, argument);
    const std::string_view name = behind_.front();
    behind_ = behind_.subspan(1);
    if (!IsOwnerWord(word)) return {name, TextStyle::kName};
    // A needed trait may be left out before an owner word.
    behind_ = {};
    return {name, TextStyle::kValue};
  }

 private:
  std::pair<std::string_view, TextStyle> TakeWord(std::string_view word,
                                                  std::string_view argument) {
    static constexpr std::array<std::string_view, 3> kTraitFields{"TRAIT", kNeededName, kOwnerName};
    static constexpr std::array<std::string_view, 3> kCardFields{"NAME", kNeededName, kOwnerName};
    if (word.starts_with('R') || BeginsWithNumber(word)) return {argument, TextStyle::kValue};
    const ValueKeywordRow* row = FindValueKeyword(word);
    if (row == nullptr) return {argument, TextStyle::kUnknown};
    if (row->Takes != KeywordFields::kNone) {
      behind_ = row->Usage.starts_with("/NAME") ? kCardFields : kTraitFields;
      if (row->Takes == KeywordFields::kTrait) behind_ = behind_.first(1);
    }
    return {argument, TextStyle::kValue};
  }

  std::span<const std::string_view> behind_;  // what the last keyword takes
};

std::vector<ScriptPart> PartsOf(const std::vector<ScriptField>& fields, std::string_view script) {
  std::vector<ScriptPart> parts;
  const auto add = [&](std::string_view text, TextStyle style, const Command* row,
                       std::string_view name) {
    const auto offset = static_cast<std::size_t>(text.data() - script.data());
    parts.push_back({offset, text, style, row, name});
  };
  for (const ScriptField& field : fields) {
    if (field.Name.empty()) {
      add(field.Text, StyleOfCommand(field.Row), field.Row, "");
    } else if (!IsValue(field)) {
      add(field.Text, StyleOfArgument(field.Name), field.Row, field.Name);
      parts.back().Continues = field.Continues;
    } else {
      ValueReading value;
      for (FieldWalker words(field.Text, '/'); !words.AtEnd();) {
        const std::string_view word = words.Next();
        const auto [name, style] = value.Take(word, field.Name);
        add(word, style, field.Row, name);
      }
    }
  }
  return parts;
}

}  // namespace

std::vector<ScriptPart> PartsOfScript(std::string_view script) {
  return PartsOf(FieldsOfScript(script), script);
}

std::vector<ScriptPart> PartsOfArgument(std::string_view name, std::string_view text) {
  return PartsOf(FieldsOfArgument(name, text), text);
}

std::string ReferenceAnchor(std::string_view script, std::size_t caret) {
  for (const ScriptPart& part : PartsOfScript(script)) {
    if (!part.Reaches(caret)) continue;
    const ArgumentKind kind = KindOfArgument(part.Name);
    std::string anchor;
    if (kind == ArgumentKind::kTrigger) anchor = TriggerAnchor(part.Text);
    if (kind == ArgumentKind::kTarget) anchor = TargetAnchor(part.Text);
    if (anchor.empty() && part.Style == TextStyle::kValue) anchor = ValueAnchor(part.Text);
    if (!anchor.empty()) return anchor;
    if (part.Row != nullptr) return std::string(part.Row->Word);
  }
  return std::string(kScriptsAnchor);
}

}  // namespace brindlemoor
