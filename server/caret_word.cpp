// Telling words apart by the field that they stand in.
#include "server/caret_word.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "editor/script_parts.h"
#include "script/command_table.h"

namespace brindlemoor {

namespace {

/// The kinds of whole fields, by their argument or else by their name.
struct KindRow {
  std::string_view Name;
  CaretWordKind Kind;
};
constexpr auto kKindRows = std::to_array<KindRow>({
    {kLocationField, CaretWordKind::kLocation},
    {kGameField, CaretWordKind::kGame},
    {"FILE", CaretWordKind::kFile},
    {"NAME", CaretWordKind::kCard},
    {"name", CaretWordKind::kCard},
    {"unique ID", CaretWordKind::kCard},
});

CaretWordKind KindOfPart(const ScriptPart& part) {
  if (part.Name.empty())
    return part.Row != nullptr ? CaretWordKind::kCommand : CaretWordKind::kNone;
  if (part.Name == "NAME") return CaretWordKind::kCard;
  if (part.Name == "FILE") return CaretWordKind::kFile;
  switch (KindOfArgument(part.Name)) {
    case ArgumentKind::kTrigger:
      return CaretWordKind::kTrigger;
    case ArgumentKind::kTarget:
      return CaretWordKind::kTarget;
    default:
      break;
  }
  if (part.Style == TextStyle::kValue) return CaretWordKind::kValue;
  return part.Style == TextStyle::kName ? CaretWordKind::kTrait : CaretWordKind::kArgument;
}

/// The part that the caret stands in or behind.
CaretWord AmongParts(const std::vector<ScriptPart>& parts, std::size_t caret) {
  const auto part =
      std::ranges::find_if(parts, [caret](const ScriptPart& each) { return each.Reaches(caret); });
  if (part == parts.end()) return {};
  return {KindOfPart(*part), std::string(part->Text), part->Offset, part->Row};
}

/// The script of the field that the caret stands in.
CaretWord InScript(const CaretField& field) {
  const std::string_view text = field.Text;
  const std::size_t before = text.substr(0, field.Caret).rfind(kBetweenScripts);
  const std::size_t begin = before == text.npos ? 0 : before + kBetweenScripts.size();
  const std::size_t end = std::min(text.find(kBetweenScripts, field.Caret), text.size());
  CaretWord word = AmongParts(PartsOfScript(text.substr(begin, end - begin)), field.Caret - begin);
  word.Offset += begin;
  return word;
}

/// Every second word of three is a trait.
CaretWord InDeckRules(const CaretField& field) {
  const std::string_view text = field.Text;
  const std::size_t begin = text.substr(0, field.Caret).rfind(':') + 1;
  const std::size_t end = std::min(text.find(':', begin), text.size());
  const auto number = std::ranges::count(text.substr(0, begin), ':') % 3;
  return {number == 1 ? CaretWordKind::kTrait : CaretWordKind::kArgument,
          std::string(text.substr(begin, end - begin)), begin};
}

CaretWord InField(const CaretField& field) {
  if (field.Directive.empty()) return {CaretWordKind::kDirective, field.Text};
  if (field.Argument == kScriptField) return InScript(field);
  if (field.Argument == kDeckRulesField) return InDeckRules(field);
  const std::string_view name = field.Argument.empty() ? field.Name : field.Argument;
  const auto* row = std::ranges::find(kKindRows, name, &KindRow::Name);
  if (row != kKindRows.end()) return {row->Kind, field.Text};
  return field.Argument.empty() ? CaretWord()
                                : AmongParts(PartsOfArgument(name, field.Text), field.Caret);
}

}  // namespace

CaretWord WordAtCaret(std::string_view text, std::size_t caret) {
  CaretField field = FieldAtCaret(text, caret);
  CaretWord word = InField(field);
  word.Offset += field.Offset;
  word.Field = std::move(field);
  return word;
}

}  // namespace brindlemoor
